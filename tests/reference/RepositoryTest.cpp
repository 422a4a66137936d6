// The repository: its list, the state of its buttons, and what they do.
#include "reference/Repository.h"

#include <sys/stat.h>

#include <QDir>
#include <QFileDialog>
#include <QLineEdit>

#include "frame/ProgramState.h"
#include "platform/forms/ListBox.h"
#include "platform/forms/SaveDialog.h"
#include "platform/forms/Screen.h"
#include "support/Errors.h"
#include "support/Opened.h"
#include "support/Program.h"
#include "support/TestPrinters.h"

namespace {

using Look = SkinButton::Look;

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
    Gui::Key(repository, Qt::Key_Down);
    clock.Advance(100);
    return repository;
  }
  static QStringList Names(const Repository& repository) {
    const auto* list = Gui::Find<ListBox>(repository, "List1");
    QStringList names;
    for (int i = 0; i < list->ListCount(); ++i)
      names.append(list->List(i));
    return names;
  }
  // Of Open, Print, Detach, Help and Close.
  static QList<Look> Looks(const Repository& repository) {
    QList<Look> looks;
    for (const char* name : {"View_Btn", "Print_Btn", "Detach_Btn", "Help_Btn", "Cancel_Btn"})
      looks.append(Gui::Find<SkinButton>(repository, name)->Shown());
    return looks;
  }

  QString target;     // what the save dialog answers
  QStringList asked;  // "title|name|extension" of each save dialog
  Opened opened;
};

TEST_F(RepositoryTest, TheListHoldsTheFilesOfTheCoursesFolder) {
  chmod(QFile::encodeName(store.Path("Repository/1/guide.doc")).constData(), 0400);
  store.Write("Repository/1/.saving", "x");
  store.Write("Repository/1/hidden/inside.txt", "x");
  store.Write("Repository/2/other.txt", "x");
  mkfifo(QFile::encodeName(store.Path("Repository/1/pipe")).constData(), 0600);
  EXPECT_EQ(Names(Open()), QStringList({"guide.doc", "list.txt"}));
}

TEST_F(RepositoryTest, TheButtonsFollowTheSelectionWithinATenthOfASecond) {
  constexpr Look kDisabled = Look::Disabled, kOff = Look::Off, kOn = Look::On;
  Repository& repository = Open();
  EXPECT_EQ(Looks(repository), QList<Look>({kDisabled, kDisabled, kDisabled, kOff, kOff}));
  Gui::MoveTo(repository, "View_Btn");  // takes no focus
  Gui::Key(repository, Qt::Key_Down);
  EXPECT_EQ(Looks(repository).first(), kDisabled);
  clock.Advance(100);
  EXPECT_EQ(Looks(repository), QList<Look>({kOff, kOff, kOff, kOff, kOff}));
  for (int i = 0; i < 2; ++i) {
    Gui::MoveTo(repository, "Detach_Btn");
    clock.Advance(100);
    EXPECT_EQ(Looks(repository), QList<Look>({kOff, kOff, kOn, kOff, kOff}));
    QTest::mouseMove(repository.windowHandle(), QPoint(3, 3));
    EXPECT_EQ(Looks(repository).at(2), kOff);
    EXPECT_EQ(repository.MousePointer(), kPointerDefault);
  }
  auto* list = Gui::Find<ListBox>(repository, "List1");
  list->SetFocus();
  list->clearSelection();
  clock.Advance(100);
  EXPECT_EQ(Looks(repository), QList<Look>({kDisabled, kDisabled, kDisabled, kOff, kOff}));
}

TEST_F(RepositoryTest, TheTabKeyReachesEveryButtonAndHelpComesBack) {
  Repository& repository = OpenAndSelect();
  EXPECT_EQ(Gui::TabWalk(repository, 6),
            QStringList({"List1", "View_Btn", "Print_Btn", "Detach_Btn", "Help_Btn", "Cancel_Btn"}));
  store.Write("RepositoryHelp.rtf", "{\\rtf1 help\\par}");
  script.When("Help", [](Form& help) { Gui::Click(help, "Command1"); });
  Gui::Click(repository, "Help_Btn");
  EXPECT_EQ(FormLife::Active(), &repository);
}

TEST_F(RepositoryTest, PrintAsksForAPrinterAndPrintsTheAttachment) {
  const TestPrinters printers(store.PathBeside("printed.pdf"));
  Repository& repository = OpenAndSelect();
  script.When("frmPrinterDialog", [](Form& dialog) {
    EXPECT_TRUE(dialog.isModal());
    Gui::Click(dialog, "cmdOK");
  });
  Gui::Click(repository, "Print_Btn");
  EXPECT_EQ(opened.Take(), QStringList("print " + store.Path("Repository/1/guide.doc") + " (1)"));
}

TEST_F(RepositoryTest, AnAttachmentIsOpenedByTheButtonByEnterAndByADoubleClick) {
  Repository& repository = OpenAndSelect();
  const QString file = store.Path("Repository/1/guide.doc");
  Gui::Click(repository, "View_Btn");
  EXPECT_EQ(opened.Take(), QStringList("open " + file + " (3)"));
  Gui::MoveTo(repository, "View_Btn");
  Gui::Key(repository, Qt::Key_Return);
  EXPECT_EQ(opened.Take(), QStringList("open " + file + " (3)"));
  const auto* list = Gui::Find<ListBox>(repository, "List1");
  const QPoint line = list->visualItemRect(list->item(1)).center();
  QTest::mouseDClick(repository.windowHandle(), Qt::LeftButton, {},
                     list->viewport()->mapTo(&repository, line));
  EXPECT_EQ(opened.Take(), QStringList("open " + store.Path("Repository/1/list.txt") + " (5)"));
  Gui::Key(repository, Qt::Key_Return);  // the list has the focus
  EXPECT_EQ(opened.Take(), QStringList());
  EXPECT_EQ(messages.Take(), QStringList());
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
    QStringList Said;
  } cases[] = {
      {"a new file", mine, "", MsgAnswer::No, "the guide", {}},
      {"overwriting refused", mine, "old", MsgAnswer::No, "old", {question}},
      {"overwriting agreed to", mine, "old", MsgAnswer::Yes, "the guide", {question}},
      {"cancelled", "", "old", MsgAnswer::Yes, "old", {}},
      {"no such folder", store.PathBeside("no/copy.doc"), "", MsgAnswer::Yes, "", {}},
      {"a folder of that name", store.PathBeside("mine"), "", MsgAnswer::Yes, "", {question}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Case);
    QFile::remove(mine);
    if (!c.Before.isEmpty()) store.Write(mine, c.Before);
    target = c.Target;
    messages.Answer({c.Answer});
    Gui::Click(repository, "Detach_Btn");
    EXPECT_EQ(store.Read(mine), c.After);
    EXPECT_EQ(messages.Take(), c.Said);
    EXPECT_EQ(
        QDir(store.PathBeside("mine")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
        c.After.isEmpty() ? QStringList() : QStringList("copy.doc"));
  }
  EXPECT_EQ(messages.Calls().back().Title, "Repository error");
  EXPECT_EQ(asked.first(), "Save attachment|guide.doc|pdf");
  EXPECT_EQ(asked.size(), 6);
}

TEST_F(RepositoryTest, AnAttachmentThatHasGoneIsToldAndLeavesTheOlderCopy) {
  Repository& repository = OpenAndSelect();
  QFile::remove(store.Path("Repository/1/guide.doc"));
  opened.Result = ShellResult::kNoFile;
  Gui::Click(repository, "View_Btn");
  EXPECT_EQ(messages.Take(), QStringList("The repository file could not be located."));
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
  const struct {
    QString Typed, Chosen;
  } cases[] = {
      {store.PathBeside("there.doc"), store.PathBeside("there.doc")},
      {store.PathBeside("mine"), store.PathBeside("mine.pdf")},
      {store.PathBeside("mine.txt"), store.PathBeside("mine.txt")},
  };
  for (const auto& c : cases) {
    QString proposed;
    EXPECT_EQ(AskInTheRealDialog(c.Typed, proposed), c.Chosen);
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
  EXPECT_EQ(Names(repository), QStringList({"guide.doc", "list.txt", "guide.doc", "sheet.pdf"}));
  EXPECT_EQ(messages.Take(), QStringList());
  QStringList files;
  for (int line = 0; line < 4; ++line) {
    Gui::Find<ListBox>(repository, "List1")->SetFocus();
    Gui::Key(repository, Qt::Key_Down);
    clock.Advance(100);
    Gui::Click(repository, "View_Btn");
    files += opened.Take();
  }
  const QString folder = "open " + store.Path("Repository/");
  EXPECT_EQ(files, QStringList({folder + "1/guide.doc (3)", folder + "1/list.txt (3)",
                                folder + "1/guide.doc (3)", folder + "2/sheet.pdf (3)"}));
  repository.Unload();
  gCourses[0].RepNum = "none";
  EXPECT_EQ(Names(OpenAgain()), QStringList({"guide.doc", "sheet.pdf"}));
  EXPECT_TRUE(messages.Take().join('\n').contains("Repository\\none"));
}

TEST_F(RepositoryTest, AMissingFolderIsToldAndAnEmptyOneIsNot) {
  for (const bool missing : {true, false}) {
    QDir(store.Path("Repository/1")).removeRecursively();
    if (!missing) QDir(store.Path("Repository")).mkdir("1");
    Repository& repository = Open();
    const QStringList said = messages.Take();
    EXPECT_EQ(said.size(), missing ? 1 : 0);
    EXPECT_EQ(said.join(QString()).contains("Repository\\1"), missing);
    EXPECT_EQ(ErrorOf([&] { repository.InitRepository(); }).isEmpty(), !missing);
    EXPECT_EQ(Names(repository), QStringList());
    EXPECT_EQ(Looks(repository).mid(0, 3), QList<Look>(3, Look::Disabled));
    Gui::Click(repository, "Cancel_Btn");
    EXPECT_EQ(LoadedForm<Repository>(), nullptr);
    OneCopyAgain();
  }
}

}  // namespace
