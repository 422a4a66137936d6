// The glossary file: which one is taken, what its markers make of it, and how its definitions break.
#include "reference/GlossaryReader.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include "frame/ProgramState.h"
#include "platform/files/FileBytes.h"
#include "platform/files/Paths.h"
#include "platform/files/TextStream.h"
#include "reference/DefinitionLines.h"
#include "support/Errors.h"

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
  struct Case {
    const char* Bytes;
    QStringList Pieces;
  };
  const Case cases[] = {
      {"^A\r\n%Audit\r\n~To check.\r\n^Z", {"^A", "%Audit", "~To check.", "^Z"}},
      {"", {}},
      {"no markers\r\nat all", {}},
      {"before ^A", {"^A"}},
      {"^A%One%Two~Text.^Z", {"^A", "%OneTwo", "~Text.", "^Z"}},  // a term without a definition
      {"^A~One.~Two.^Z", {"^A", "~One.Two.", "^Z"}},  // a letter waits for what comes behind the definition
      {"^A~One.%T~D^Z", {"~One.", "^A", "%T", "~D", "^Z"}},  // and stands behind that before a term
      {"^A%T~A 5^B", {"^A", "%T", "~A 5", "^B"}},
      {"^A%T~5 % of it^Z", {"^A", "%T", "~5 ", "^Z"}},  // cut at the marker; a term at the end is lost
      {"^A%T~Ends here.", {"^A", "%T"}},                // so is a last definition
      {"^A%T", {"^A"}},
      {"^AB", {"^A", "^B"}},  // one entry holds one character
      {"%T~D^AB%U~E^Z", {"%T", "~D", "^A", "^B", "%U", "~E", "^Z"}},
      {"%T~D^%U~E^Z", {"%T", "~D", "%U", "~E", "^Z"}},     // an empty letter is none
      {"^A %T~D^Z", {"^A", "^ ", "%T", "~D", "^Z"}},       // a blank is a letter like any other
      {"%A\tB~C\r\nD\rE\nF^Z", {"%A\tB", "~CDEF", "^Z"}},  // tabs stay, line ends go
      {"^\r\nA\r\n%\nT~\nD^Z", {"^A", "%T", "~D", "^Z"}},
      {"^^%%~~^", {}},
      {"^A%\xC9t\xE9~\x80 5^Z", {"^A", "%\u00c9t\u00e9", "~\u20ac 5", "^Z"}},
      {"\xEF\xBB\xBF^A%\xE2\x82\xAC~D.^Z", {"^A", "%\u20ac", "~D.", "^Z"}},
  };
  for (const Case& row : cases) {
    EXPECT_EQ(Read(row.Bytes, 1'000'000), row.Pieces) << row.Bytes;
    EXPECT_EQ(Read(row.Bytes, 1), row.Pieces) << row.Bytes << " a character at a time";
  }
}

class GlossaryFile : public ::testing::Test {
 protected:
  GlossaryFile() {
    QDir(folder_.path()).mkpath(QStringLiteral("store/Glossary"));
    SetProgramFolder(folder_.path() + QStringLiteral("/store"));
    gAppPath = ProgramFolder();
  }
  ~GlossaryFile() override {
    SetProgramFolder({});
    ResetProgramState();
  }

  void Write(const char* name) const { SaveFile(gAppPath + QLatin1Char('\\') + QLatin1String(name), name); }
  // The file taken says its own name.
  static QString Taken(const QString& course) {
    std::optional<TextStream> stream = OpenGlossary(course);
    return stream ? stream->Read(1000) : QString();
  }

  QTemporaryDir folder_;
};

TEST_F(GlossaryFile, TheCoursesOwnGoesBeforeTheCommonOne) {
  EXPECT_EQ(Taken("Cash desk"), "");
  Write("Glossary.txt");
  EXPECT_EQ(Taken("Cash desk"), "Glossary.txt");
  Write("Glossary\\Glossary Cash desk.txt");
  EXPECT_EQ(Taken("Cash desk"), "Glossary\\Glossary Cash desk.txt");
  EXPECT_EQ(Taken("Goods"), "Glossary.txt");
}

TEST_F(GlossaryFile, OneOutsideTheProgramFolderIsNone) {
  Write("..\\secret.txt");
  QDir(folder_.path()).mkpath(QStringLiteral("store/Glossary/Glossary "));
  EXPECT_EQ(Taken("\\..\\..\\..\\secret"), "");
  QFile::link(folder_.path() + QStringLiteral("/secret.txt"), gAppPath + QStringLiteral("/Glossary.txt"));
  EXPECT_EQ(Taken("Cash desk"), "");
}

// In a font whose wide signs are ten as wide as the others.
double WidthOf(char32_t character) {
  return character == U'W' || character == U'\U0001F600' ? 10 : 1;
}

TEST(DefinitionLines, BreakAtTheFirstSpaceBehindTheSoftLimit) {
  struct Case {
    const char* Text;
    QStringList Lines;
  };
  const Case cases[] = {
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
  for (const Case& row : cases)
    EXPECT_EQ(DefinitionLines(QString::fromUtf8(row.Text), {9, 12}, WidthOf), row.Lines) << row.Text;
}

}  // namespace
