#include "platform/files/Paths.h"

#include "platform/TestProgram.h"

TEST(Paths, AStepIsMatchedWithoutCaseOnlyWhenTheExactNameIsAbsent) {
  const TestProgram program;
  program.Write("GUIimages/Button_On.jpg", "");
  program.Write("RT0101/map.TXT", "");
  program.Write("Two/b", "");
  program.Write("Two/B", "");
  program.Write("Tie/AbC", "");
  program.Write("Tie/aBC", "");
  QFile::link("nowhere", program.Path("Dangling"));
  const struct {
    const char* Path;
    const char* Real;  // below the program folder
  } cases[] = {
      {"GUIimages\\Button_On.jpg", "/GUIimages/Button_On.jpg"},
      {"guiIMAGES\\button_on.JPG", "/GUIimages/Button_On.jpg"},
      {"GUIimages/button_on.jpg", "/GUIimages/Button_On.jpg"},
      {"RT0101\\Map.txt", "/RT0101/map.TXT"},
      {"two\\b", "/Two/b"},
      {"two\\B", "/Two/B"},
      {"tie\\abc", "/Tie/AbC"},
      {"dangling", "/Dangling"},
      {"rt0101\\Missing\\Map.txt", "/RT0101/Missing/Map.txt"},
      {"RT0101\\..\\.\\\\guiimages\\", "/GUIimages"},
      {"missing\\..\\rt0101", "/RT0101"},
      {"", ""},
  };
  for (const auto& c : cases)
    EXPECT_EQ(RealPath(c.Path), program.Folder() + c.Real) << c.Path;
  EXPECT_EQ(RealPath(program.Folder() + "\\rt0101\\MAP.txt"), program.Path("RT0101/map.TXT"));
}

TEST(Paths, TheFirstStepIsMatchedInTheRootAndNotWhereTheProgramRuns) {
  const TestProgram program;
  const QString here = QDir::currentPath();
  QDir::setCurrent(program.Folder());
  program.Write("No Such Thing", "");
  EXPECT_EQ(RealPath("/no such thing"), "/no such thing");
  QDir::setCurrent(here);
}

TEST(Paths, NothingLeavesTheProgramFolder) {
  const TestProgram program;
  const QTemporaryDir outside;
  program.Write("Docs/a.pdf", "");
  QFile::link(outside.path(), program.Path("Docs/out"));
  QFile::link("/nonexistent/b", program.Path("Docs/dangling"));
  QFile::link(program.Path("Docs"), program.Path("Inside"));
  const QString longName(300, u'n');
  const struct {
    QString Path;
    bool Contained;
  } cases[] = {
      {"Docs\\a.pdf", true},
      {"docs\\A.PDF", true},
      {"Docs\\missing\\b.pdf", true},
      {"Inside\\a.pdf", true},
      {"", true},
      {"..\\b.pdf", false},
      {"Docs\\..\\..\\b.pdf", false},
      {"Docs\\out\\b.pdf", false},
      {"Docs\\dangling", false},
      {"Docs\\dangling\\c", false},
      {"/etc/passwd", false},
      {"\\etc\\passwd", false},
      {program.Folder() + "x\\b", false},
      {QStringLiteral("Docs\\a.pdf") + QChar::Null + ".txt", false},
      {"Docs\\" + longName, false},
      {QString("a\\").repeated(3000), false},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(!ContainedPath(c.Path).isEmpty(), c.Contained) << c.Path.left(60).toStdString();
  }
  EXPECT_EQ(ContainedPath("docs\\A.PDF"), program.Path("Docs/a.pdf"));
  EXPECT_FALSE(ContainedPathIn(outside.path(), outside.path() + "\\x").isEmpty());
  EXPECT_TRUE(ContainedPathIn("Docs", "a.pdf").isEmpty());
}

TEST(Paths, AProgramFolderReachedThroughALinkHoldsItsFiles) {
  const TestProgram program;
  program.Write("real/a.txt", "");
  QFile::link(program.Path("real"), program.Path("link"));
  SetProgramFolder(program.Path("link/"));
  EXPECT_EQ(ContainedPath("a.txt"), program.Path("link/a.txt"));
}

TEST(Paths, FilesAndFoldersAreToldApart) {
  const TestProgram program;
  program.Write("Data/file", "");
  program.MakeDir("Data/b");
  program.MakeDir("Data/a");
  program.MakeDir("Data/.c");
  EXPECT_TRUE(FileExists("data\\FILE"));
  EXPECT_FALSE(FileExists("Data"));
  EXPECT_TRUE(FolderExists("data\\"));
  EXPECT_FALSE(FolderExists("Data\\file"));
  EXPECT_FALSE(FileExists(QStringLiteral("Data\\file") + QChar::Null));
  EXPECT_EQ(ListFolders("data"), QStringList({".c", "a", "b"}));
  EXPECT_EQ(ListFolders("Data\\missing"), QStringList());
}
