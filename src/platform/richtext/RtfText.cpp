#include "platform/richtext/RtfText.h"

#include "platform/richtext/SymbolFonts.h"

#include <algorithm>

namespace {

constexpr int kLatin1252 = 1252;
constexpr int kUtf8 = 65001;

bool IsMultiByte(int codePage) {
  return codePage == 932 || codePage == 936 || codePage == 949 || codePage == 950 || codePage == 54936 ||
         codePage == kUtf8;
}

QByteArray CodecName(int codePage) {
  switch (codePage) {
    case kUtf8: return "UTF-8";
    case 54936: return "GB18030";
    case 10000: return "macintosh";
    case 10007: return "x-mac-cyrillic";
    default: break;
  }
  const QByteArray number = QByteArray::number(codePage);
  return codePage >= 1250 || codePage == 874 || IsMultiByte(codePage) ? "windows-" + number : "IBM" + number;
}

// A page that names a code page unknown here is read as the common western one.
std::unique_ptr<QStringDecoder> MakeDecoder(int codePage) {
  auto decoder = std::make_unique<QStringDecoder>(CodecName(codePage).constData());
  if (!decoder->isValid()) decoder = std::make_unique<QStringDecoder>("windows-1252");
  return decoder;
}

bool IsAscii(const QByteArray& bytes) {
  return std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<signed char>(c) >= 0; });
}

// U+FDD0 and U+FDD1 begin and end frames in a document, U+2029 ends a paragraph.
bool IsStructural(char16_t c) {
  return c == 0xFDD0 || c == 0xFDD1 || c == 0x2029 || c == 0xFFFC;
}

bool IsControl(char16_t c) {
  return c < 0x20 && c != u'\t';
}

}  // namespace

int CodePageOfCharset(int charset) {
  static const std::unordered_map<int, int> pages = {
      {0, 1252},   {2, kSymbolCodePage}, {77, 10000}, {128, 932},  {129, 949},  {130, 949},  {134, 936},
      {136, 950},  {161, 1253},          {162, 1254}, {163, 1258}, {177, 1255}, {178, 1256}, {186, 1257},
      {204, 1251}, {222, 874},           {238, 1250}, {254, 437},  {255, 850}};
  const auto found = pages.find(charset);
  return found == pages.end() ? 0 : found->second;
}

void RtfText::AddBytes(std::string_view bytes, int codePage) {
  if (IsMultiByte(codePage)) {
    if (!pending_.isEmpty() && pendingPage_ != codePage) DecodePending();
    pendingPage_ = codePage;
    pending_.append(bytes.data(), static_cast<qsizetype>(bytes.size()));
    return;
  }
  if (!pending_.isEmpty()) DecodePending();
  const Table& table = TableOf(codePage);
  const qsizetype start = text_.size();
  text_.resize(start + static_cast<qsizetype>(bytes.size()));
  std::transform(bytes.begin(), bytes.end(), text_.data() + start,
                 [&table](char c) { return QChar(table[static_cast<unsigned char>(c)]); });
}

void RtfText::AddUnicode(int value, int codePage) {
  if (!pending_.isEmpty()) DecodePending();
  if (value < 0) value += 0x10000;
  if (value < 0 || value > 0x10FFFF) {
    text_ += QChar::ReplacementCharacter;
  } else if (value > 0xFFFF) {
    text_ += QChar(QChar::highSurrogate(static_cast<char32_t>(value)));
    text_ += QChar(QChar::lowSurrogate(static_cast<char32_t>(value)));
  } else if (value >= 0xF020 && value <= 0xF0FF) {
    const int table = IsSymbolCodePage(codePage) ? codePage : kSymbolCodePage;
    text_ += QChar(SymbolTable(table)[static_cast<size_t>(value & 0xFF)]);
  } else {
    text_ += QChar(static_cast<char16_t>(value));
  }
}

void RtfText::AddCharacter(QChar character) {
  if (!pending_.isEmpty()) DecodePending();
  text_ += character;
}

QString RtfText::Take(bool withControls) {
  if (!pending_.isEmpty()) DecodePending();
  QString taken;
  taken.swap(text_);
  qsizetype kept = 0;
  QChar* const data = taken.data();
  for (qsizetype i = 0; i < taken.size(); ++i) {
    char16_t c = data[i].unicode();
    if (IsControl(c) && !withControls) continue;
    if (IsStructural(c)) c = QChar::ReplacementCharacter;
    if (QChar::isSurrogate(c)) {
      const bool isPair = QChar::isHighSurrogate(c) && i + 1 < taken.size() && data[i + 1].isLowSurrogate();
      const bool isSecond = QChar::isLowSurrogate(c) && kept > 0 && data[kept - 1].isHighSurrogate();
      if (!isPair && !isSecond) c = QChar::ReplacementCharacter;
    }
    data[kept++] = QChar(c);
  }
  taken.truncate(kept);
  return taken;
}

void RtfText::DecodePending() {
  if (IsAscii(pending_)) {
    text_ += QLatin1String(pending_);
  } else {
    QStringDecoder& decoder = DecoderOf(pendingPage_);
    decoder.resetState();
    text_ += decoder.decode(pending_);
  }
  pending_.clear();
}

const RtfText::Table& RtfText::TableOf(int codePage) {
  if (lastTable_ != nullptr && lastPage_ == codePage) return *lastTable_;
  lastPage_ = codePage;
  if (IsSymbolCodePage(codePage)) return *(lastTable_ = &SymbolTable(codePage));
  std::unique_ptr<Table>& table = tables_[codePage];
  if (!table) {
    table = std::make_unique<Table>();
    const std::unique_ptr<QStringDecoder> decoder = MakeDecoder(codePage);
    for (size_t i = 0; i < table->size(); ++i) {
      const char byte = static_cast<char>(i);
      const QString character = decoder->decode(QByteArrayView(&byte, 1));
      (*table)[i] = character.size() == 1 ? character.at(0).unicode() : char16_t{QChar::ReplacementCharacter};
    }
    // The places that western pages leave free are passed through, as everywhere.
    if (codePage == kLatin1252) {
      for (const size_t free : {0x81u, 0x8Du, 0x8Fu, 0x90u, 0x9Du})
        (*table)[free] = static_cast<char16_t>(free);
    }
  }
  return *(lastTable_ = table.get());
}

QStringDecoder& RtfText::DecoderOf(int codePage) {
  std::unique_ptr<QStringDecoder>& decoder = decoders_[codePage];
  if (!decoder) decoder = MakeDecoder(codePage);
  return *decoder;
}
