#include "pages/rtf/RtfText.h"

#include <iconv.h>

#include <algorithm>
#include <cstring>

#include "pages/common/SymbolFonts.h"

namespace {

constexpr int kLatin1252 = 1252;
constexpr int kJohab = 1361;
constexpr qsizetype kLongestName = 4096;  // characters
constexpr size_t kMostCodePages = 64;     // of one page; further ones count as the western one

struct Codec {
  const char* Name;
  bool IsMultiByte;
};

// The code pages whose codec isn't named by their number. For four of the old Mac there is no codec; those
// taken have the same letters at the same places.
const std::unordered_map<int, Codec>& NamedCodecs() {
  static const std::unordered_map<int, Codec> codecs = {
      {708, {"ISO-8859-6", false}},       {874, {"windows-874", false}},
      {932, {"windows-932", true}},       {936, {"windows-936", true}},
      {949, {"windows-949", true}},       {950, {"windows-950", true}},
      {kJohab, {"windows-949", true}},    {10000, {"macintosh", false}},
      {10001, {"windows-932", true}},     {10002, {"windows-950", true}},
      {10003, {"windows-949", true}},     {10004, {"ISO-8859-6", false}},
      {10005, {"windows-1255", false}},   {10006, {"x-mac-greek", false}},
      {10007, {"x-mac-cyrillic", false}}, {10008, {"windows-936", true}},
      {10021, {"windows-874", false}},    {10029, {"x-mac-centraleurroman", false}},
      {10081, {"x-mac-turkish", false}},  {54936, {"GB18030", true}},
      {65001, {"UTF-8", true}},
  };
  return codecs;
}

bool IsMultiByte(int codePage) {
  const auto named = NamedCodecs().find(codePage);
  return named != NamedCodecs().end() && named->second.IsMultiByte;
}

QByteArray CodecName(int codePage) {
  const auto named = NamedCodecs().find(codePage);
  if (named != NamedCodecs().end()) return named->second.Name;
  const QByteArray number = QByteArray::number(codePage);
  return codePage >= 1250 ? "windows-" + number : "IBM" + number;
}

// Qt has no codec for the Korean code page that builds syllables from parts; the C library has. Bytes that
// are none of its characters come out as U+FFFD.
QString DecodeJohab(const QByteArray& bytes) {
  const iconv_t converter = iconv_open("UTF-16LE", "JOHAB");
  const auto none = reinterpret_cast<iconv_t>(intptr_t{-1});
  if (converter == none) return QString(bytes.size(), QChar::ReplacementCharacter);
  QByteArray source = bytes;
  QString text(bytes.size() * 2, Qt::Uninitialized);
  char* in = source.data();
  char* out = reinterpret_cast<char*>(text.data());
  auto inLeft = static_cast<size_t>(source.size());
  size_t outLeft = static_cast<size_t>(text.size()) * sizeof(QChar);
  while (inLeft > 0 && iconv(converter, &in, &inLeft, &out, &outLeft) == static_cast<size_t>(-1)) {
    const char16_t unknown = QChar::ReplacementCharacter;
    std::memcpy(out, &unknown, sizeof unknown);
    out += sizeof unknown;
    outLeft -= sizeof unknown;
    ++in;
    --inLeft;
  }
  iconv_close(converter);
  text.chop(static_cast<qsizetype>(outLeft / sizeof(QChar)));
  return text;
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
      {0, 1252},   {2, kSymbolCodePage}, {77, 10000}, {78, 10001}, {79, 10003}, {80, 10008}, {81, 10002},
      {83, 10005}, {84, 10004},          {85, 10006}, {86, 10081}, {87, 10021}, {88, 10029}, {89, 10007},
      {128, 932},  {129, 949},           {130, 1361}, {134, 936},  {136, 950},  {161, 1253}, {162, 1254},
      {163, 1258}, {177, 1255},          {178, 1256}, {179, 1256}, {180, 1256}, {181, 1255}, {186, 1257},
      {204, 1251}, {222, 874},           {238, 1250}, {254, 437},  {255, 850}};
  const auto found = pages.find(charset);
  return found == pages.end() ? 0 : found->second;
}

void AppendName(QString& name, const QString& text) {
  if (name.size() < kLongestName) name += text.left(kLongestName - name.size());
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
  } else if (pendingPage_ == kJohab) {
    text_ += DecodeJohab(pending_);
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
  if (tables_.size() >= kMostCodePages && codePage != kLatin1252 && !tables_.contains(codePage))
    return TableOf(kLatin1252);
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
  if (decoders_.size() >= kMostCodePages && !decoders_.contains(codePage)) codePage = kLatin1252;
  std::unique_ptr<QStringDecoder>& decoder = decoders_[codePage];
  if (!decoder) decoder = MakeDecoder(codePage);
  return *decoder;
}
