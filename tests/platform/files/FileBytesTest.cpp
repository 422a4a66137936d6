#include "platform/files/FileBytes.h"

#include <errno.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <QBuffer>

#include "platform/files/PassingNames.h"
#include "support/FailingCalls.h"
#include "support/TestProgram.h"

TEST(ReadFile, SaysWhichFileAndWhy) {
  const TestProgram program;
  program.Write("large", QByteArray(11, 'x'));
  program.Write("fits", QByteArray(10, 'x'));
  program.MakeDir("folder");
  mkfifo(qPrintable(program.Path("pipe")), 0600);
  const std::pair<const char*, QString> cases[] = {
      {"missing", "The file \"" + program.Path("missing") + "\" was not found."},
      {"large",
       "The file \"" + program.Path("large") + "\" is too large: 11 bytes, where at most 10 are read."},
      {"folder", "The file \"" + program.Path("folder") + "\" could not be read: it is not a file."},
      {"pipe", "The file \"" + program.Path("pipe") + "\" could not be read: it is not a file."},
      {"FITS", ""},
  };
  for (const auto& [path, error] : cases)
    EXPECT_EQ(ErrorOf([name = path] { ReadFile(name, 10); }), error);
  EXPECT_EQ(ReadFile("Fits", 10), QByteArray(10, 'x'));
  EXPECT_NE(ErrorOf([] { ReadProgramFile("/etc/passwd", kTextFileLimit); }), "");
  QBuffer device;
  device.setData("0123456789A");
  device.open(QIODevice::ReadOnly);
  EXPECT_EQ(ErrorOf([&] { ReadDevice(device, 10, "/thing"); }),
            "The file \"/thing\" is too large: at most 10 bytes are read.");
}

TEST(SaveFile, MakesAndReplacesUnderTheNameThatIsThere) {
  const TestProgram program;
  SaveFile("New", "one");
  SaveFile("NEW", "two");
  EXPECT_EQ(program.Names("."), QStringList("New"));
  EXPECT_EQ(program.Read("New"), "two");
  program.MakeDir("folder");
  for (const char* name : {"folder", "no/file"})
    EXPECT_TRUE(ErrorOf([&] { SaveFile(name, "x"); }).contains(program.Path(name)));
  EXPECT_EQ(program.Names("."), QStringList({"folder", "New"}));
}

TEST(SaveFile, AFailedSaveLeavesTheOldFileAlone) {
  for (const SystemCall call : {SystemCall::Write, SystemCall::FileSync, SystemCall::Rename}) {
    const TestProgram program;
    program.Write("Old", "old content");
    for (const char* name : {"Old", "New"}) {
      const FailingCall failing(call, EACCES);
      EXPECT_EQ(ErrorOf([&] { SaveFile(name, "new"); }),
                "The file \"" + program.Path(name) + "\" could not be saved: Permission denied");
      EXPECT_GT(failing.Count(), 0);
    }
    EXPECT_EQ(program.Names("."), QStringList("Old"));
    EXPECT_EQ(program.Read("Old"), "old content");
  }
}

TEST(SaveFile, AFolderThatCannotBeFlushedIsToldBehindTheReplacement) {
  const TestProgram program;
  program.Write("Old", "old content");
  const FailingCall failing(SystemCall::FolderSync, EIO);
  EXPECT_NE(ErrorOf([] { SaveFile("Old", "new"); }), "");
  EXPECT_EQ(failing.Count(), 1);
  EXPECT_EQ(program.Read("Old"), "new");
  EXPECT_EQ(program.Names("."), QStringList("Old"));
}

TEST(SaveFile, KeepsTheRightsAndTheLinkOfWhatItReplaces) {
  const TestProgram program;
  program.Write("elsewhere/file", "old");
  chmod(qPrintable(program.Path("elsewhere/file")), 0640);
  QFile::link("elsewhere/file", program.Path("link"));
  SaveFile("link", "new");
  EXPECT_TRUE(QFileInfo(program.Path("link")).isSymLink());
  EXPECT_EQ(program.Read("elsewhere/file"), "new");
  EXPECT_EQ(program.Names("elsewhere"), QStringList("file"));
  struct stat status {};
  ASSERT_EQ(stat(qPrintable(program.Path("elsewhere/file")), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0640U);
}

TEST(CopyFile, ReplacesAProtectedFileOrALinkAndNotWhatTheLinkLeadsTo) {
  const TestProgram program;
  const QByteArray large(1000000, 'x');  // more than one piece
  program.Write("source", large);
  program.Write("protected", "old");
  chmod(qPrintable(program.Path("protected")), 0400);
  program.Write("elsewhere", "old");
  QFile::link("elsewhere", program.Path("link"));
  for (const char* name : {"new", "protected", "link", "source"}) {
    CopyFile(program.Path("source"), program.Path(name));
    EXPECT_EQ(program.Read(name), large) << name;
  }
  EXPECT_EQ(program.Read("elsewhere"), "old");
  EXPECT_EQ(program.Names("."), QStringList({"elsewhere", "link", "new", "protected", "source"}));
}

TEST(CopyFile, AFailedCopyLeavesNothingHalfDone) {
  const TestProgram program;
  program.Write("source", "new content");
  program.Write("old", "old content");
  program.MakeDir("folder");
  const struct {
    QString Source, Target;
    SystemCall Call;
  } cases[] = {
      {"source", "old", SystemCall::Write},    {"source", "new", SystemCall::Write},
      {"source", "old", SystemCall::FileSync}, {"source", "old", SystemCall::Rename},
      {"source", "folder", SystemCall::None},  {"source", "no/new", SystemCall::None},
      {"no", "old", SystemCall::None},         {"folder", "old", SystemCall::None},
  };
  for (const auto& c : cases) {
    const FailingCall failing(c.Call, ENOSPC);
    EXPECT_NE(ErrorOf([&] { CopyFile(program.Path(c.Source), program.Path(c.Target)); }), "");
    EXPECT_EQ(failing.Count() > 0, c.Call != SystemCall::None);
    EXPECT_EQ(program.Names("."), QStringList({"folder", "old", "source"}));
    EXPECT_EQ(program.Read("old"), "old content");
  }
}

TEST(SaveFile, AnotherProcessThatSavesMeanwhileTakesNothingAway) {
  const TestProgram program;
  BeforeTheNext(SystemCall::FileSync, [] {
    const pid_t other = fork();
    if (other == 0) _exit(IgnoreErrors([] { SaveFile("file", "other"); }) ? 0 : 1);
    int status = -1;
    waitpid(other, &status, 0);
    EXPECT_EQ(status, 0);
  });
  EXPECT_EQ(ErrorOf([] { SaveFile("file", "ours"); }), "");
  EXPECT_EQ(program.Read("file"), "ours");
  EXPECT_EQ(program.Names("."), QStringList("file"));
}

TEST(PassingNames, WhatWasCutShortIsClearedAndWhatIsOnItsWayStays) {
  const QString own = PassingName(), machine = own.section('-', 0, 1),
                elsewhere = ".saving-" + QString(12, '0');
  const pid_t process = fork();
  if (process == 0) _exit(0);
  waitpid(process, nullptr, 0);
  const QString gone = QString("-%1-01234567").arg(process), living = QString("-%1-01234567").arg(getppid());
  const struct {
    QString Name;
    bool Old, Locked, Stays;
  } rows[] = {{machine + gone, false, false, false},
              {machine + gone, false, true, true},
              {machine + living, false, false, true},
              {machine + living, true, false, false},
              {elsewhere + living, false, false, true},
              {elsewhere + gone, true, false, false},
              {own, true, false, true},
              {".saving-of mine", true, false, true}};
  for (const bool folder : {false, true}) {
    for (const auto& row : rows) {
      const TestProgram program;
      program.Write("source", "x");
      program.Write(folder ? row.Name + "/User" : row.Name, "x");
      const std::string path = program.Path(row.Name).toStdString();
      const timespec times[2] = {{row.Old ? 1 : time(nullptr), 0}, {row.Old ? 1 : time(nullptr), 0}};
      utimensat(AT_FDCWD, path.c_str(), times, 0);
      const int handle = open(path.c_str(), O_RDONLY);
      ASSERT_EQ(row.Locked ? flock(handle, LOCK_EX) : 0, 0);
      if (folder || row.Name == own) {
        ClearLeftovers(program.Folder());
      } else {
        SaveFile("new", "x");
        CopyFile(program.Path("source"), program.Path("copy"));
      }
      EXPECT_EQ(program.Names(".").contains(row.Name), row.Stays) << path;
      close(handle);
    }
  }
}

TEST(Folders, AreMadeOnce) {
  const TestProgram program;
  MakeFolder("Data\\");
  MakeFolder("DATA");
  EXPECT_EQ(program.Names("."), QStringList("Data"));
  program.Write("file", "");
  EXPECT_EQ(ErrorOf([] { MakeFolder("file"); }),
            "The folder \"" + program.Path("file") + "\" could not be made: File exists");
}

TEST(Folders, ARenameNeverTakesAnothersPlace) {
  const struct {
    const char* From;
    const char* To;
    QStringList Names;  // afterwards
    bool Works;
  } cases[] = {
      {"Ann Lee", "Ann Lea", {"Ann Lea", "Bo"}, true}, {"Ann Lee", "Ann Lee", {"Ann Lee", "Bo"}, true},
      {"ann lee", "ANN lee", {"ANN lee", "Bo"}, true}, {"Ann Lee", "Bo", {"Ann Lee", "Bo"}, false},
      {"Ann Lee", "bo", {"Ann Lee", "Bo"}, false},     {"Cy", "Cy", {"Ann Lee", "Bo"}, false},
      {"Ann Lee", "x\\y", {"Ann Lee", "Bo"}, false},
  };
  for (const auto& c : cases) {
    const TestProgram program;
    program.MakeDir("Ann Lee");
    program.MakeDir("Bo");
    EXPECT_EQ(ErrorOf([&] { RenameFolder(c.From, c.To); }).isEmpty(), c.Works) << c.From << " to " << c.To;
    EXPECT_EQ(program.Names("."), c.Names) << c.From << " to " << c.To;
  }
}
