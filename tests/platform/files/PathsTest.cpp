#include "platform/files/Paths.h"

#include "support/TestProgram.h"

TEST(Paths, AStepIsMatchedWithoutCaseOnlyWhenTheExactNameIsAbsent) {
  const TestProgram program;
  program.Write("GUIimages/Button_On.jpg", "");
  program.Write("RT0101/map.TXT", "");
  program.Write("Two/b", "");
  program.Write("Two/B", "");
  program.Write("Tie/AbC", "");
  program.Write("Tie/aBC", "");
  QFile::link("nowhere", program.Path("Dangling"));
  const std::pair<const char*, const char*> cases[] = {
      {"GUIimages\\Button_On.jpg", "/GUIimages/Button_On.jpg"},
      {"guiIMAGES\\button_on.JPG", "/GUIimages/Button_On.jpg"},
      {"two\\b", "/Two/b"},
      {"two\\B", "/Two/B"},
      {"tie\\abc", "/Tie/AbC"},
      {"dangling", "/Dangling"},
      {"rt0101\\Missing\\Map.txt", "/RT0101/Missing/Map.txt"},
      {"RT0101\\..\\.\\\\guiimages\\", "/GUIimages"},
      {"missing\\..\\rt0101", "/RT0101"},
      {"", ""},
  };
  for (const auto& [path, real] : cases)
    EXPECT_EQ(RealPath(path), program.Folder() + real) << path;
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
  for (const char* path : {"Docs\\a.pdf", "docs\\A.PDF", "Docs\\missing\\b.pdf", "Inside\\a.pdf", ""})
    EXPECT_FALSE(ContainedPath(path).isEmpty()) << path;
  for (const QString& path :
       {QString("..\\b.pdf"), QString("Docs\\..\\..\\b.pdf"), QString("Docs\\out\\b.pdf"),
        QString("Docs\\dangling"), QString("Docs\\dangling\\c"), QString("/etc/passwd"),
        QString("\\etc\\passwd"), program.Folder() + "x\\b", QString("Docs\\a.pdf") + QChar::Null + ".txt",
        "Docs\\" + longName, QString("a\\").repeated(3000)})
    EXPECT_TRUE(ContainedPath(path).isEmpty()) << path.left(60).toStdString();
  // Other spellings are names like any other.
  const QString spellings =
      "file:///etc/passwd|file:../b|FILE://localhost/etc/passwd|\\\\localhost\\etc|//?/etc/passwd|%2e%2e/b|"
      "..%2fb|．．／b|..\u2215b|\u202E../b|\u0001\u001B[2J../b|~/b|~root/b|$HOME/b|C:\\b|CON|:/b|qrc:/"
      "b|......";
  for (const QString& path : spellings.split('|')) {
    const QString real = ContainedPath(path);
    EXPECT_TRUE(real.isEmpty() || QDir::cleanPath(real).startsWith(program.Folder() + '/'))
        << path.toStdString();
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
