// Turns the bytes of an RTF page into text: code pages by number, multi-byte ones included, and \u
// characters.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringDecoder>
#include <array>
#include <memory>
#include <string_view>
#include <unordered_map>

// The code page that a font's \fcharset means; 0 for the document's own.
int CodePageOfCharset(int charset);

// Adds to a name, an instruction or a data text, up to the longest one that is kept.
void AppendName(QString& name, const QString& text);

// Gathers text until it is taken. Bytes of a multi-byte code page may come in pieces.
class RtfText {
 public:
  void AddBytes(std::string_view bytes, int codePage);
  // A UTF-16 unit or a whole code point, as \u gives it; negative values count from 65536.
  // Characters of the private range that symbol fonts use are looked up in the code page's table.
  void AddUnicode(int value, int codePage);
  void AddCharacter(QChar character);

  bool IsEmpty() const { return text_.isEmpty() && pending_.isEmpty(); }

  // What was gathered. Characters that a document uses for its own structure become U+FFFD,
  // lone surrogates too, and control characters are left out unless they are asked for.
  QString Take(bool withControls = false);

 private:
  using Table = std::array<char16_t, 256>;

  void DecodePending();
  const Table& TableOf(int codePage);
  QStringDecoder& DecoderOf(int codePage);

  QString text_;
  QByteArray pending_;
  int pendingPage_ = 0;
  int lastPage_ = 0;
  const Table* lastTable_ = nullptr;
  std::unordered_map<int, std::unique_ptr<Table>> tables_;
  std::unordered_map<int, std::unique_ptr<QStringDecoder>> decoders_;
};
