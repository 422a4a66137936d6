#include "pages/html/HtmlTag.h"

#include <QSet>
#include <algorithm>

#include "pages/html/HtmlEntities.h"
#include "pages/html/HtmlStyle.h"

namespace {

constexpr qsizetype kMostAttributes = 40;

const QSet<QString>& UsefulAttributes() {
  static const QSet<QString> names = {
      "align", "alt",   "bgcolor", "border", "cellpadding", "cellspacing", "class",  "color",   "colspan",
      "dir",   "face",  "height",  "href",   "id",          "lang",        "nowrap", "rowspan", "size",
      "src",   "start", "style",   "title",  "type",        "valign",      "width"};
  return names;
}

// What the document's reader is to be told; empty for nothing.
QString ShownValue(const QString& name, const QString& value) {
  if (name == u"color" || name == u"bgcolor") return HtmlColour(value);
  if (name == u"style")
    return HtmlDeclarations(ResolvedEntities(value)).replace(u'&', QLatin1String("&amp;"));
  return TidiedEntities(value);
}

bool IsNameCharacter(QChar c) {
  return c.isLetterOrNumber() || c == u'-' || c == u'_' || c == u':';
}

class TagReader {
 public:
  explicit TagReader(QStringView text) : text_(text) {}

  HtmlTag Read() {
    HtmlTag tag;
    at_ = 1;
    tag.IsEnd = at_ < text_.size() && text_[at_] == u'/';
    if (tag.IsEnd) ++at_;
    tag.Name = ReadName();
    while (at_ < text_.size() && tag.Attributes.size() < kMostAttributes) {
      if (IsNameCharacter(text_[at_])) {
        ReadAttribute(tag);
      } else if (text_[at_] == u'"' || text_[at_] == u'\'') {
        ReadQuoted();  // a value without a name
      } else {
        tag.IsClosed = text_[at_] == u'/' || (tag.IsClosed && text_[at_] == u'>');
        ++at_;
      }
    }
    return tag;
  }

 private:
  QString ReadName() {
    const qsizetype start = at_;
    while (at_ < text_.size() && IsNameCharacter(text_[at_]))
      ++at_;
    return text_.mid(start, at_ - start).toString().toLower();
  }

  QString ReadQuoted() {
    const qsizetype close = text_.indexOf(text_[at_], at_ + 1);
    const qsizetype end = close < 0 ? text_.size() : close;
    const QString value = text_.mid(at_ + 1, end - at_ - 1).toString();
    at_ = std::min(end + 1, text_.size());
    return value;
  }

  QString ReadPlain() {
    const qsizetype start = at_;
    const auto ends = [](QChar c) { return c.isSpace() || c == u'>' || c == u'"' || c == u'\''; };
    while (at_ < text_.size() && !ends(text_[at_]))
      ++at_;
    return text_.mid(start, at_ - start).toString();
  }

  void SkipSpace() {
    while (at_ < text_.size() && text_[at_].isSpace())
      ++at_;
  }

  void ReadAttribute(HtmlTag& tag) {
    const QString name = ReadName();
    QString value;
    SkipSpace();
    if (at_ < text_.size() && text_[at_] == u'=') {
      ++at_;
      SkipSpace();
      const bool isQuoted = at_ < text_.size() && (text_[at_] == u'"' || text_[at_] == u'\'');
      value = isQuoted ? ReadQuoted() : ReadPlain();
    }
    if (!tag.Has(name)) tag.Attributes.append({name, value});
  }

  QStringView text_;
  qsizetype at_ = 0;
};

}  // namespace

HtmlTag ParseHtmlTag(QStringView text) {
  return TagReader(text).Read();
}

bool HtmlTag::IsVoid() const {
  static const QSet<QString> names = {"br", "hr", "img", "input", "col", "area", "wbr"};
  return names.contains(Name);
}

int HtmlTag::HoldNumber(const QString& attribute, int most) {
  for (auto& [name, value] : Attributes) {
    if (name != attribute) continue;
    bool isNumber = false;
    const int number = value.trimmed().toInt(&isNumber);
    if (isNumber && number >= 1 && number <= most) return number;
    value = QStringLiteral("1");
  }
  return 1;
}

bool HtmlTag::Has(const QString& attribute) const {
  return std::any_of(Attributes.begin(), Attributes.end(),
                     [&attribute](const auto& its) { return its.first == attribute; });
}

void HtmlTag::Set(const QString& attribute, const QString& value) {
  Attributes.removeIf([&attribute](const auto& its) { return its.first == attribute; });
  if (!value.isEmpty()) Attributes.append({attribute, QString(value).replace(u'&', QLatin1String("&amp;"))});
}

QString HtmlTag::Value(const QString& attribute) const {
  const auto found = std::find_if(Attributes.begin(), Attributes.end(),
                                  [&attribute](const auto& its) { return its.first == attribute; });
  return found == Attributes.end() ? QString() : ResolvedEntities(found->second);
}

QString HtmlTag::Text() const {
  QString text = IsEnd ? QStringLiteral("</") : QStringLiteral("<");
  text += Name;
  for (const auto& [name, value] : Attributes) {
    if (IsEnd || !UsefulAttributes().contains(name)) continue;
    QString quoted = ShownValue(name, value);
    if (quoted.isEmpty() && !value.isEmpty()) continue;
    quoted.replace(u'"', QLatin1String("&quot;"));
    quoted.replace(u'<', QLatin1String("&lt;"));
    quoted.replace(u'>', QLatin1String("&gt;"));
    text += u' ' + name + QLatin1String("=\"") + quoted + u'"';
  }
  return text + u'>';
}
