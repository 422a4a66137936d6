// The opener, with small scripts in the place of the desktop's programs.
#include "platform/shell/Opener.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>

#include "support/Gui.h"
#include "support/Print.h"
#include "support/Store.h"

namespace {

class OpenerTest : public ::testing::Test {
 protected:
  OpenerTest() {
    Install("xdg-open", "exit 0");
    Install("lp", "exit 0");
    qputenv("PATH", QFile::encodeName(store.PathBeside("bin")));
    store.Write("Repository/1/List of goods.txt", "x");
  }
  ~OpenerTest() override { qputenv("PATH", path_); }

  // A program that notes its name, its folder and its arguments, then goes on with `ending`.
  void Install(const char* name, const QByteArray& ending) const {
    const QString file = store.PathBeside(QStringLiteral("bin/") + QLatin1String(name));
    const QByteArray log = QFile::encodeName(store.PathBeside("log"));
    store.Write(file, "#!/bin/sh\n{ printf '%s' \"${0##*/}\"; printf ' [%s]' \"$@\"; } > '" + log + "'\n" +
                          ending + "\n");
    chmod(QFile::encodeName(file).constData(), 0755);
  }
  QString TakeLog() const {
    const QString log = store.PathBeside("log");
    const QString noted = QString::fromUtf8(store.Read(log));
    QFile::remove(log);
    return noted;
  }
  int Open(const QString& file) const { return ShellExecuteA({kVerbOpen, file, {}, {}}); }

  Store store;

 private:
  QByteArray path_ = qgetenv("PATH");
};

TEST_F(OpenerTest, HandsADocumentOverByItsRealPath) {
  const QString list = "[" + store.Path("Repository/1/List of goods.txt") + "]";
  EXPECT_EQ(Open("repository\\1\\list of GOODS.txt"), ShellResult::kStarted);
  EXPECT_EQ(TakeLog(), "xdg-open " + list);
  EXPECT_EQ(ShellExecuteA({"Print", "Repository\\1\\List of goods.txt", "--help", "Repository"}),
            ShellResult::kStarted);
  EXPECT_EQ(TakeLog(), "lp " + list);
}

TEST_F(OpenerTest, HandsAnAddressOverWithItsSchemeAndInSafeCharacters) {
  const std::pair<QString, QString> rows[] = {
      {"http://www.example.com/a?b=c&d#e", "http://www.example.com/a?b=c&d#e"},
      {"www.example.com", "http://www.example.com"},
      {"w3.example.com/x y", "http://w3.example.com/x%20y"},
      {"ftp://example.com/`id`\"\n", "ftp://example.com/%60id%60%22%0A"},
      {"mailto:office@example.com?subject=a b", "mailto:office@example.com?subject=a%20b"},
  };
  for (const auto& [address, handed] : rows) {
    EXPECT_EQ(Open(address), ShellResult::kStarted) << address.toStdString();
    EXPECT_EQ(TakeLog(), "xdg-open [" + handed + "]");
  }
}

TEST_F(OpenerTest, NeverTakesAFileForAnOptionOrACommandAndRunsNone) {
  const QByteArray ran = QFile::encodeName(store.PathBeside("ran"));
  for (const char* name :
       {"--help", "-d", "$(touch out)", ";x", "a\nb", "%s", "a.sh", "a.exe", "a.desktop"}) {
    store.Write(QLatin1String(name), "#!/bin/sh\ntouch '" + ran + "'\n");
    chmod(QFile::encodeName(store.Path(QLatin1String(name))).constData(), 0755);
    EXPECT_EQ(Open(QLatin1String(name)), ShellResult::kStarted) << name;
    EXPECT_EQ(TakeLog(), "xdg-open [" + store.Path(QLatin1String(name)) + "]");
  }
  EXPECT_FALSE(QFile::exists(store.PathBeside("ran")));
}

TEST_F(OpenerTest, SaysWhatIsWrongWithAFileWithoutAskingTheDesktop) {
  store.Write("../outside.txt", "x");
  QFile::link(store.PathBeside("outside.txt"), store.Path("link.txt"));
  mkfifo(QFile::encodeName(store.Path("fifo")).constData(), 0600);
  store.Write("locked.txt", "x");
  store.Write("page.HTM", "x");
  store.Write("letter.doc", "{\\rtf1 x}");
  chmod(QFile::encodeName(store.Path("locked.txt")).constData(), 0);
  const struct {
    QString Verb, File, Folder;
    int Result;
  } rows[] = {
      {"open", "Repository\\1\\none.txt", {}, ShellResult::kNoFile},
      {"open", "Repository\\2\\none.txt", {}, ShellResult::kNoFolder},
      {"open", "Repository\\1\\List of goods.txt\\x", {}, ShellResult::kNoFolder},
      {"open", "Repository\\1\\List of goods.txt", "Repository\\2", ShellResult::kNoFolder},
      {"open", "Repository\\1", {}, ShellResult::kNoFile},
      {"open", "link.txt", {}, ShellResult::kNoFile},
      {"open", "fifo", {}, ShellResult::kNoFile},
      {"print", "http://www.example.com", {}, ShellResult::kNoFolder},
      {"print", "page.htm", {}, ShellResult::kNoProgram},  // its source would be printed
      {"print", "letter.doc", {}, ShellResult::kNoProgram},
      {"edit", "Repository\\1\\List of goods.txt", {}, ShellResult::kNoProgram},
      // Root may read anything.
      {"open", "locked.txt", {}, geteuid() == 0 ? ShellResult::kStarted : ShellResult::kNoPermission},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(ShellExecuteA({row.Verb, row.File, {}, row.Folder}), row.Result) << row.File.toStdString();
    EXPECT_EQ(TakeLog().isEmpty(), row.Result != ShellResult::kStarted) << row.File.toStdString();
  }
}

TEST_F(OpenerTest, TellsHowTheDesktopsProgramEnded) {
  const struct {
    const char* Ending;
    int Opening, Printing;
  } rows[] = {
      {"exit 0", ShellResult::kStarted, ShellResult::kStarted},
      {"exit 2", ShellResult::kNoFile, ShellResult::kNoProgram},
      {"exit 3", ShellResult::kNoProgram, ShellResult::kNoProgram},
      {"exit 4", ShellResult::kFailed, ShellResult::kNoProgram},
      {"kill -9 $$", ShellResult::kFailed, ShellResult::kFailed},
  };
  const QString list = "Repository\\1\\List of goods.txt";
  for (const auto& row : rows) {
    Install("xdg-open", row.Ending);
    Install("lp", row.Ending);
    EXPECT_EQ(Open(list), row.Opening) << row.Ending;
    EXPECT_EQ(ShellExecuteA({kVerbPrint, list, {}, {}}), row.Printing) << row.Ending;
  }
  QDir(store.PathBeside("bin")).removeRecursively();
  EXPECT_EQ(Open(list), ShellResult::kNoProgram);
  EXPECT_EQ(ShellExecuteA({kVerbPrint, list, {}, {}}), ShellResult::kNoProgram);
}

TEST_F(OpenerTest, DoesNotWaitForABrowserToEnd) {
  const QByteArray gate = QFile::encodeName(store.PathBeside("gate"));
  mkfifo(gate.constData(), 0600);
  Install("xdg-open", "read line < '" + gate + "'");
  EXPECT_EQ(Open("www.example.com"), ShellResult::kStarted);
  QFile opened(QFile::decodeName(gate));
  EXPECT_TRUE(opened.open(QIODevice::WriteOnly));  // the reader behind it lives
  opened.close();
  siginfo_t ended;  // it is taken leave of when it ends at last
  EXPECT_TRUE(Gui::Await([&] { return waitid(P_ALL, 0, &ended, WEXITED | WNOHANG | WNOWAIT) != 0; }));
  Gui::Settle();
}

}  // namespace
