#include "platform/files/CodePage.h"

#include <QStringDecoder>
#include <QStringEncoder>
#include <algorithm>
#include <cctype>
#include <cstring>

namespace {

constexpr char kUtf8Mark[] = "\xEF\xBB\xBF";
constexpr qsizetype kUtf8MarkSize = 3;
constexpr qsizetype kLongestName = 60;  // characters; the system's own have about thirty at most

QByteArray g_codePage = kDefaultCodePage;
std::optional<bool> g_isSingleByte;  // of the code page, once somebody has asked

// Looking a converter up by its name costs far more than a field of a file, so those of the code page are
// kept. Each use begins anew.
struct Converters {
  QStringDecoder Decoder;
  QStringEncoder Encoder;
};

Converters& CodePageConverters() {
  static Converters converters;
  if (!converters.Decoder.isValid()) {
    converters.Decoder = QStringDecoder(g_codePage.constData(), QStringDecoder::Flag::ConvertInitialBom);
    converters.Encoder = QStringEncoder(g_codePage.constData(), QStringEncoder::Flag::ConvertInitialBom);
  }
  return converters;
}

QString DecodeUtf8(const QByteArray& bytes) {
  QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
  return decoder.decode(bytes);
}

// The characters that files are made of. Some tables of far-eastern pages swap control characters.
QByteArray PlainAscii() {
  QByteArray ascii("\t\n\r");
  for (char c = 0x20; c < 0x7F; ++c)
    ascii.append(c);
  return ascii;
}

// A name alone: behind a comma the system's tables take options, and some names of theirs are paths.
bool IsCodePageName(const QByteArray& name) {
  const auto isPart = [](char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || std::strchr("-_.:+", c) != nullptr;
  };
  return !name.isEmpty() && name.size() <= kLongestName && std::all_of(name.begin(), name.end(), isPart);
}

// Whether each byte is a character by itself. The first of several is none alone.
bool IsSingleByte(const QByteArray& codePage) {
  for (int byte = 0x80; byte <= 0xFF; ++byte) {
    QStringDecoder decoder(codePage.constData());
    const QString text = decoder.decode(QByteArray(1, static_cast<char>(byte)));
    if (text.size() != 1) return false;
  }
  return true;
}

bool HoldsAscii(const QByteArray& codePage) {
  const QByteArray ascii = PlainAscii();
  QStringDecoder decoder(codePage.constData());
  if (!decoder.isValid()) return false;
  const QString text = decoder.decode(ascii);
  QStringEncoder encoder(codePage.constData());
  if (!encoder.isValid()) return false;
  const QByteArray back = encoder.encode(text);
  return text == QString::fromLatin1(ascii) && back == ascii;
}

}  // namespace

bool SetCodePage(const QString& name) {
  const QByteArray wanted = name.trimmed().toLatin1();
  if (!IsCodePageName(wanted) || !HoldsAscii(wanted)) return false;
  g_codePage = wanted;
  g_isSingleByte.reset();
  CodePageConverters() = {};
  return true;
}

QString CodePageName() {
  return QString::fromLatin1(g_codePage);
}

bool HasUtf8Mark(const QByteArray& bytes) {
  return bytes.startsWith(kUtf8Mark);
}

QString DecodeText(const QByteArray& bytes) {
  const bool utf8 = HasUtf8Mark(bytes);
  return DecodePiece(utf8 ? bytes.mid(kUtf8MarkSize) : bytes, utf8);
}

QString DecodeCourseText(const QByteArray& bytes) {
  return HasUtf8Mark(bytes) || !IsUtf8CourseText(bytes) ? DecodeText(bytes) : DecodeUtf8(bytes);
}

bool IsUtf8CourseText(const QByteArray& bytes) {
  if (HasUtf8Mark(bytes)) return true;
  const bool ascii = std::all_of(bytes.begin(), bytes.end(), [](char c) { return (c & 0x80) == 0; });
  if (ascii || !QUtf8StringView(bytes).isValidUtf8()) return false;
  if (!g_isSingleByte) g_isSingleByte = IsSingleByte(g_codePage);
  return *g_isSingleByte;
}

QByteArray EncodeText(const QString& text) {
  const std::optional<QByteArray> bytes = EncodePiece(text, false);
  return bytes && !HasUtf8Mark(*bytes) ? *bytes : kUtf8Mark + text.toUtf8();
}

QString DecodePiece(const QByteArray& bytes, bool utf8) {
  if (utf8) return DecodeUtf8(bytes);
  QStringDecoder& decoder = CodePageConverters().Decoder;
  decoder.resetState();
  return decoder.decode(bytes);
}

std::optional<QByteArray> EncodePiece(const QString& text, bool utf8) {
  QByteArray bytes;
  if (utf8) {
    bytes = text.toUtf8();
  } else {
    QStringEncoder& encoder = CodePageConverters().Encoder;
    encoder.resetState();
    bytes = encoder.encode(text);
  }
  // Reading it back also finds the characters that an encoder swaps for similar ones.
  if (DecodePiece(bytes, utf8) != text) return std::nullopt;
  return bytes;
}
