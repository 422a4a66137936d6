// The glossary file: which one is taken, what its markers make of it, and how its definitions break.
#include "reference/GlossaryReader.h"

#include "frame/ProgramState.h"
#include "platform/files/TextStream.h"
#include "reference/DefinitionLines.h"
#include "support/TestProgram.h"

namespace {

class Pieces final : public GlossaryWriter {
 public:
  void WriteGlosLetter(const QString& letter) override { List << u'^' + letter; }
  void WriteGlosTerm(const QString& term) override { List << u'%' + term; }
  void WriteGlosDefinition(const QString& definition) override { List << u'~' + definition; }
  QStringList List;
};

// `step` characters at a time.
QStringList Read(const QByteArray& bytes, qsizetype step) {
  Pieces pieces;
  GlossaryReader reader(TextStream(bytes, QStringLiteral("glossary")), pieces);
  while (!reader.ReadInGlosInfo(step)) {
  }
  return pieces.List;
}

TEST(GlossaryReader, HandsOverThePiecesAsTheyAreFinished) {
  const std::pair<const char*, QStringList> cases[] = {
      {"^A\r\n%Audit\r\n~To check.\r\n^Z", {"^A", "%Audit", "~To check.", "^Z"}},
      {"", {}},
      {"before ^A", {"^A"}},
      {"^A%One%Two~Text.^Z", {"^A", "%OneTwo", "~Text.", "^Z"}},  // a term without a definition
      {"^A~One.~Two.^Z", {"^A", "~One.Two.", "^Z"}},  // a letter waits for what comes behind the definition
      {"^A~One.%T~D^Z", {"~One.", "^A", "%T", "~D", "^Z"}},  // and stands behind that before a term
      {"^A%T~5 % of it^Z", {"^A", "%T", "~5 ", "^Z"}},       // cut at the marker; a term at the end is lost
      {"^A%T~Ends here.", {"^A", "%T"}},                     // so is a last definition
      {"^AB", {"^A", "^B"}},                                 // one entry holds one character
      {"%T~D^AB%U~E^Z", {"%T", "~D", "^A", "^B", "%U", "~E", "^Z"}},
      {"%T~D^%U~E^Z", {"%T", "~D", "%U", "~E", "^Z"}},     // an empty letter is none
      {"^A %T~D^Z", {"^A", "^ ", "%T", "~D", "^Z"}},       // a blank is a letter like any other
      {"%A\tB~C\r\nD\rE\nF^Z", {"%A\tB", "~CDEF", "^Z"}},  // tabs stay, line ends go
      {"^\r\nA\r\n%\nT~\nD^Z", {"^A", "%T", "~D", "^Z"}},
      {"^^%%~~^", {}},
      {"^A%\xC9t\xE9~\x80 5^Z", {"^A", "%\u00c9t\u00e9", "~\u20ac 5", "^Z"}},
      {"\xEF\xBB\xBF^A%\xE2\x82\xAC~D.^Z", {"^A", "%\u20ac", "~D.", "^Z"}},
  };
  for (const auto& [bytes, pieces] : cases) {
    for (const qsizetype step : {1'000'000, 1})
      EXPECT_EQ(Read(bytes, step), pieces) << bytes << step;
  }
}

// The file taken says its own name.
QString Taken(const QString& course) {
  std::optional<TextStream> stream = OpenGlossary(course);
  return stream ? stream->Read(1000) : QString();
}

TEST(GlossaryFile, TheCoursesOwnGoesBeforeTheCommonOneAndNeitherLiesOutside) {
  const TestProgram program;
  SetProgramFolder(program.Path("store"));
  gAppPath = ProgramFolder();
  EXPECT_EQ(Taken("Cash desk"), "");
  program.Write("store/Glossary.txt", "common");
  EXPECT_EQ(Taken("Cash desk"), "common");
  program.Write("store/Glossary/Glossary Cash desk.txt", "own");
  EXPECT_EQ(Taken("Cash desk"), "own");
  EXPECT_EQ(Taken("Goods"), "common");
  program.Write("secret.txt", "secret");
  program.MakeDir("store/Glossary/Glossary ");
  EXPECT_EQ(Taken("\\..\\..\\..\\secret"), "common");
  QFile::remove(program.Path("store/Glossary.txt"));
  QFile::link(program.Path("secret.txt"), program.Path("store/Glossary.txt"));
  EXPECT_EQ(Taken("Goods"), "");
  ResetProgramState();
}

// In a font whose wide signs are ten as wide as the others.
double WidthOf(char32_t character) {
  return character == U'W' || character == U'\U0001F600' ? 10 : 1;
}

TEST(DefinitionLines, BreakAtTheFirstSpaceBehindTheSoftLimit) {
  const std::pair<const char*, QStringList> cases[] = {
      // soft 9, hard 12
      {"", {}},
      {"a", {}},  // a single character shows no row
      {"ab", {"ab"}},
      {"abc defgh", {"abc defgh"}},        // exactly 9: not wider than the limit
      {"abc defgh ij", {"abc defgh ij"}},  // the space behind 9 is within the line
      {"abc defghi jk", {"abc defghi\r\n", "jk"}},
      {"abc defghi j", {"abc defghi\r\n"}},  // what is left is a single character: dropped
      {"abc defghi ", {"abc defghi\r\n"}},
      {"abcdefghijklmno", {"abcdefghijkl", "mno"}},  // 12 reached without a space: cut, no line end
      {"abcdefghijklm", {"abcdefghijkl"}},
      {"abcdefghijkl mn", {"abcdefghijkl\r\n", "mn"}},
      {"WW", {"WW"}},
      {"WWab cd", {"WW", "ab cd"}},
      {"abcW defg", {"abcW\r\n", "defg"}},
      {"\xF0\x9F\x98\x80\xF0\x9F\x98\x80\xF0\x9F\x98\x80", {"\xF0\x9F\x98\x80\xF0\x9F\x98\x80"}},
  };
  for (const auto& [text, lines] : cases)
    EXPECT_EQ(DefinitionLines(QString::fromUtf8(text), {9, 12}, WidthOf), lines) << text;
}

}  // namespace
