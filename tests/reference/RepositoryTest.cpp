// The repository: its list, the state of its buttons, and what they do.
#include "reference/Repository.h"

#include <QDir>
#include <QFileDialog>
#include <QLineEdit>

#include "frame/ProgramState.h"
#include "platform/forms/ListBox.h"
#include "platform/forms/SaveDialog.h"
#include "support/Opened.h"
#include "support/Play.h"
#include "support/Program.h"
#include "support/TestPrinters.h"

namespace {

class RepositoryTest : public CourseTest {
 protected:
  RepositoryTest() {
    store.Write("Repository/1/guide.doc", "the guide");
    store.Write("Repository/1/list.txt", "the list");
    AnswerSaveDialogs([this](const SaveDialogCall& call) {
      asked.append(QStringList({call.Title, call.FileName, call.DefaultExtension}).join('|'));
      return target;
    });
  }
  ~RepositoryTest() override { AnswerSaveDialogs({}); }

  Repository& Open() {
    ReadAs("Ann", "Lee");
    return OpenAgain();
  }
  Repository& OpenAgain() {
    auto& repository = Gui::Show<Repository>();
    clock.Advance(100);
    return repository;
  }
  // The first line of the list, and the buttons follow.
  Repository& OpenAndSelect() {
    Repository& repository = Open();
    Gui::Do(repository, "Down, wait 100");
    return repository;
  }

  QString target;     // what the save dialog answers
  QStringList asked;  // "title|name|extension" of each save dialog
  Opened opened;
};

TEST_F(RepositoryTest, TheListHoldsTheFilesOfTheCoursesFolder) {
  store.Write("Repository/1/.saving", "x");
  store.Write("Repository/1/hidden/inside.txt", "x");
  store.Write("Repository/2/other.txt", "x");
  const Repository& repository = Open();
  EXPECT_EQ(Gui::Seen(repository, "List1"), "guide.doc,list.txt");
  EXPECT_EQ(Gui::Find(repository, "List1")->accessibleName(), "Repository");
}

TEST_F(RepositoryTest, TheButtonsFollowTheSelectionWithinATenthOfASecond) {
  Repository& repository = Open();
  const QString none = "disabled|disabled|disabled|off|off|";
  Gui::Play(repository, "View_Btn Print_Btn Detach_Btn Help_Btn Cancel_Btn hand",
            {{"point View_Btn", none},  // takes no focus
             {"Down", none},
             {"wait 100", "off|off|off|off|off|"},
             {"point Detach_Btn, wait 100", "off|off|on|off|off|hand"}});
  QTest::mouseMove(repository.windowHandle(), QPoint(3, 3));
  EXPECT_EQ(Gui::Seen(repository, "Detach_Btn hand"), "off|");
  Gui::Find<ListBox>(repository, "List1")->clearSelection();
  Gui::Play(repository, "View_Btn Detach_Btn", {{"focus List1, wait 100", "disabled|disabled"}});
}

TEST_F(RepositoryTest, HelpComesBackAndPrintAsksForAPrinter) {
  const TestPrinters printers(store.PathBeside("printed.pdf"));
  Repository& repository = OpenAndSelect();
  store.Write("RepositoryHelp.rtf", "{\\rtf1 help\\par}");
  script.When("Help", [](Form& help) { Gui::Click(help, "Command1"); });
  Gui::Play(repository, "active", {{"click Help_Btn", "Repository"}});
  script.When("frmPrinterDialog", [](Form& dialog) {
    EXPECT_TRUE(dialog.isModal());
    Gui::Click(dialog, "cmdOK");
  });
  Gui::Click(repository, "Print_Btn");
  EXPECT_EQ(opened.Take(), QStringList("print " + store.Path("Repository/1/guide.doc") + " (1)"));
}

TEST_F(RepositoryTest, AnAttachmentIsOpenedByTheButtonByEnterAndByADoubleClick) {
  Repository& repository = OpenAndSelect();
  for (const char* way : {"click View_Btn", "point View_Btn, Return"}) {
    Gui::Do(repository, way);
    EXPECT_EQ(opened.Take(), QStringList("open " + store.Path("Repository/1/guide.doc") + " (3)"));
  }
  const auto* list = Gui::Find<ListBox>(repository, "List1");
  const QPoint line = list->visualItemRect(list->item(1)).center();
  QTest::mouseDClick(repository.windowHandle(), Qt::LeftButton, {},
                     list->viewport()->mapTo(&repository, line));
  EXPECT_EQ(opened.Take(), QStringList("open " + store.Path("Repository/1/list.txt") + " (5)"));
  Gui::Do(repository, "Return");  // the list has the focus
  EXPECT_EQ(opened.Take() + messages.Take(), QStringList());
}

TEST_F(RepositoryTest, DetachCopiesAndAsksBeforeItOverwrites) {
  Repository& repository = OpenAndSelect();
  QDir(store.PathBeside({})).mkdir("mine");
  const QString mine = store.PathBeside("mine/copy.doc");
  const QString question = "File Already Exist.  Would you like to overwrite this file.";
  const struct {
    const char* Case;
    QString Target;
    QByteArray Before;  // empty: no such file
    MsgAnswer Answer;
    QByteArray After;
    QString Said;
  } cases[] = {
      {"a new file", mine, "", MsgAnswer::No, "the guide", {}},
      {"overwriting refused", mine, "old", MsgAnswer::No, "old", question},
      {"overwriting agreed to", mine, "old", MsgAnswer::Yes, "the guide", question},
      {"cancelled", "", "old", MsgAnswer::Yes, "old", {}},
      {"no such folder", store.PathBeside("no/copy.doc"), "", MsgAnswer::Yes, "", {}},
      {"a folder of that name", store.PathBeside("mine"), "", MsgAnswer::Yes, "", question},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Case);
    QFile::remove(mine);
    if (!c.Before.isEmpty()) store.Write(mine, c.Before);
    target = c.Target;
    messages.Answer({c.Answer});
    Gui::Play(repository, "said", {{"click Detach_Btn", c.Said}});
    EXPECT_EQ(store.Read(mine), c.After);
    EXPECT_EQ(QDir(store.PathBeside("mine")).entryList(QDir::AllEntries | QDir::Hidden).size(),
              c.After.isEmpty() ? 2 : 3);  // with . and ..
  }
  EXPECT_EQ(messages.Calls().back().Title, "Repository error");
  EXPECT_EQ(asked.first(), "Save attachment|guide.doc|pdf");
  EXPECT_EQ(asked.size(), 6);
}

TEST_F(RepositoryTest, AnAttachmentThatHasGoneIsToldAndLeavesTheOlderCopy) {
  Repository& repository = OpenAndSelect();
  QFile::remove(store.Path("Repository/1/guide.doc"));
  opened.Result = ShellResult::kNoFile;
  Gui::Play(repository, "said", {{"click View_Btn", "The repository file could not be located."}});
  target = store.PathBeside("copy.doc");
  store.Write(target, "old");
  messages.Answer({MsgAnswer::Yes});
  Gui::Click(repository, "Detach_Btn");
  EXPECT_EQ(store.Read(target), "old");
  EXPECT_EQ(messages.Take().size(), 1);
}

// The real dialog: `typed` is what the learner makes of the proposed name.
QString AskInTheRealDialog(const QString& typed, QString& proposed) {
  AnswerSaveDialogs({});
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) return;
    timer.stop();
    auto* name = dialog->findChild<QLineEdit*>();
    proposed = name->text();
    name->setText(typed);
    QTest::keyClick(name, Qt::Key_Return);
  });
  timer.start(0);
  return AskWhereToSave({"Save attachment", "guide.doc", "pdf"});
}

TEST_F(RepositoryTest, TheDialogProposesTheNameAddsTheExtensionAndAsksNothing) {
  store.Write(store.PathBeside("there.doc"), "old");
  for (const auto& [typed, chosen] :
       {std::pair{"there.doc", "there.doc"}, {"mine", "mine.pdf"}, {"mine.txt", "mine.txt"}}) {
    QString proposed;
    EXPECT_EQ(AskInTheRealDialog(store.PathBeside(typed), proposed), store.PathBeside(chosen));
    EXPECT_EQ(proposed, "guide.doc");
  }
}

TEST_F(RepositoryTest, InAllModulesModeTheCoursesStandSideBySideAndTheFirstOneWins) {
  store.Write("Repository/2/guide.doc", "another guide");
  store.Write("Repository/2/sheet.pdf", "the sheet");
  ReadAs("Ann", "Lee");
  CourseRecord goods = gCourses.constFirst();
  goods.RepNum = "2";
  CourseRecord all = goods;
  all.RepNum.clear();  // the course of all modules has no folder of its own
  gCourses += {goods, all};
  gCurrentCourse = 2;
  gAllModules = 1;
  Repository& repository = OpenAgain();
  EXPECT_EQ(Gui::Seen(repository, "List1 said"), "guide.doc,list.txt,guide.doc,sheet.pdf|");
  QStringList files;
  for (int line = 0; line < 4; ++line) {
    Gui::Do(repository, "focus List1, Down, wait 100, click View_Btn");
    files += opened.Take();
  }
  const QString folder = "open " + store.Path("Repository/");
  EXPECT_EQ(files, QStringList({folder + "1/guide.doc (3)", folder + "1/list.txt (3)",
                                folder + "1/guide.doc (3)", folder + "2/sheet.pdf (3)"}));
  repository.Unload();
  gCourses[0].RepNum = "none";
  EXPECT_EQ(Gui::Seen(OpenAgain(), "List1"), "guide.doc,sheet.pdf");
  EXPECT_TRUE(messages.Take().join('\n').contains("Repository/none"));
}

TEST_F(RepositoryTest, AMissingFolderIsToldAndAnEmptyOneIsNot) {
  for (const bool missing : {true, false}) {
    QDir(store.Path("Repository/1")).removeRecursively();
    if (!missing) QDir(store.Path("Repository")).mkdir("1");
    Repository& repository = Open();
    EXPECT_EQ(messages.Take().join(QString()).contains("Repository/1"), missing);
    Gui::Play(repository, "List1 View_Btn", {{"", "|disabled"}, {"click Cancel_Btn", "gone|gone"}});
    OneCopyAgain();
  }
}

}  // namespace
