#include "reference/DefinitionLines.h"

namespace {

// A text taken character by character from its front; the two halves of a pair go together.
class Buffer {
 public:
  explicit Buffer(const QString& text) : text_(text) {}

  bool IsEmpty() const { return position_ >= text_.size(); }
  bool HoldsTwo() const { return position_ + FirstLength() < text_.size(); }
  bool BeginsWithSpace() const { return !IsEmpty() && text_.at(position_) == u' '; }
  void Drop() { position_ += FirstLength(); }

  // Moves the first character to the end of `line`; gives its code point.
  char32_t MoveTo(QString& line) {
    const QStringView first = QStringView(text_).mid(position_, FirstLength());
    position_ += first.size();
    line.append(first);
    return first.size() == 2 ? QChar::surrogateToUcs4(first[0], first[1]) : char32_t(first[0].unicode());
  }

 private:
  qsizetype FirstLength() const {
    const bool pair = position_ + 1 < text_.size() && text_.at(position_).isHighSurrogate() &&
                      text_.at(position_ + 1).isLowSurrogate();
    return pair ? 2 : 1;
  }

  const QString& text_;
  qsizetype position_ = 0;
};

QString TakeLine(Buffer& buffer, const LineLimits& limits, const CharacterWidth& widthOf) {
  QString line;
  double width = widthOf(buffer.MoveTo(line));
  while (!buffer.IsEmpty() && width < limits.Hard) {
    width += widthOf(buffer.MoveTo(line));
    if (width > limits.Soft && buffer.BeginsWithSpace()) {
      buffer.Drop();
      return line + QStringLiteral("\r\n");
    }
  }
  return line;
}

}  // namespace

QStringList DefinitionLines(const QString& definition, const LineLimits& limits,
                            const CharacterWidth& widthOf) {
  QStringList lines;
  Buffer buffer(definition);
  while (buffer.HoldsTwo())
    lines.append(TakeLine(buffer, limits, widthOf));
  return lines;
}
