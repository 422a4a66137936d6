#include "Bytes.h"
#include "platform/files/TextStream.h"
#include "reference/DefinitionLines.h"
#include "reference/GlossaryReader.h"

namespace {

constexpr LineLimits kLimits{90, 100};

// A space is 5 wide, other characters 1 to 10.
double WidthOf(char32_t character) {
  return character == U' ' ? 5 : 1 + character % 10;
}

// The lines of a definition hold it but for the spaces at which it broke and a last character.
void CheckLines(const QString& definition) {
  qsizetype kept = 0, broken = 0;
  for (const QString& line : DefinitionLines(definition, kLimits, WidthOf)) {
    const bool breaks = line.endsWith(QStringLiteral("\r\n"));
    kept += line.size() - (breaks ? 2 : 0);
    broken += breaks;
    if (line.size() < 1) __builtin_trap();
  }
  const qsizetype lost = definition.size() - kept - broken;
  if (lost < 0 || lost > 2) __builtin_trap();
}

class Pieces final : public GlossaryWriter {
 public:
  void WriteGlosLetter(const QString& letter) override {
    if (letter.size() != 1) __builtin_trap();
    Take(letter, u'^');
  }
  void WriteGlosTerm(const QString& term) override { Take(term, u'%'); }
  void WriteGlosDefinition(const QString& definition) override {
    Take(definition, u'~');
    CheckLines(definition);
  }
  QString All;

 private:
  void Take(const QString& piece, QChar kind) {
    if (piece.isEmpty()) __builtin_trap();
    for (const char sign : {'^', '%', '~', '\r', '\n'}) {
      if (piece.contains(QLatin1Char(sign))) __builtin_trap();
    }
    All += kind + piece;
  }
};

QString Read(const QByteArray& bytes, qsizetype step) {
  Pieces pieces;
  GlossaryReader reader(TextStream(bytes, QStringLiteral("input")), pieces);
  while (!reader.ReadInGlosInfo(step)) {
  }
  return pieces.All;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const QByteArray bytes = BytesOf(data, size);
  // The parts in which a file is read make no difference.
  if (Read(bytes, bytes.size() + 1) != Read(bytes, 3)) __builtin_trap();
  return 0;
}
