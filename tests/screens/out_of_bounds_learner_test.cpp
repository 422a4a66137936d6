// What a learner can write, and what may lie among the learners' folders: nothing of it reaches a file
// outside the data folder.
#include <sys/stat.h>

#include <QDir>

#include "content/PageList.h"
#include "frame/ProgramState.h"
#include "frame/Settings.h"
#include "learners/ProfileBox.h"
#include "learners/ProgressFile.h"
#include "learners/UserStore.h"
#include "platform/RunTimeError.h"
#include "platform/files/FileBytes.h"
#include "platform/forms/ComboBox.h"
#include "platform/forms/TextBox.h"
#include "signin/NewUserLogin.h"
#include "support/OutOfBounds.h"

namespace {

const QString kNul{QChar::Null};
const QString kUserData = QStringLiteral("data/Tallowmere Manager 1.0/UserData/");

QStringList NamesIn(const QString& folder) {
  return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

// One course, "Cash desk", that the learner Ann Lee has open at its first page.
class OutOfBoundsLearner : public OutOfBoundsTest {
 protected:
  OutOfBoundsLearner() {
    AddTwoModules();
    store.AddCourse("Cash desk", "rt0101rt0102");
  }

  // The state of the program behind the sign-in, without its screens.
  void OpenCourse(const QString& name = "Cash desk") {
    LoadInstallation({store.Path("registry")});
    SetProgramPaths();
    gCourses = {{name, {{name, "Customers", "rt0101", {"Greeting"}}}, "1", true}};
    gUserFirstName = "Ann";
    gUserLastName = "Lee";
    QString moduleName;
    gPageList.InitLinedList();
    gPageList.LoadExistingList(gAppPath + "\\rt0101\\Map.txt", moduleName);
  }

  // Everything that is done with a progress file; false when it is refused.
  static bool UseProgressFile() {
    const bool written = IgnoreErrors([] { WriteResumeLine(); });
    const bool recorded = IgnoreErrors([] { RecordModuleProgress("rt0101", "Greeting", "Ann", "Lee"); });
    const bool read = IgnoreErrors([] { ReadProgressFile(); });
    EXPECT_EQ(written, recorded);
    EXPECT_EQ(written, read);
    EXPECT_FALSE(gProgViewed.join(' ').contains(Outside::kMarker));
    return written;
  }
};

TEST_F(OutOfBoundsLearner, ACourseNameIsTheNameOfOneFileInTheLearnersFolder) {
  struct Row {
    QString Name;
    bool IsKept;
  };
  const Row rows[] = {
      {"..", false},
      {".", false},
      {"", false},
      {"../Cash desk", false},
      {"..\\Cash desk", false},
      {"../../../../out/Cash desk", false},
      {"..\\..\\..\\..\\out\\new", false},
      {"..\\../..\\../OUT/NEW", false},
      {outside.Folder() + "/Cash desk", false},
      {"file://" + outside.Folder() + "/new", false},
      {"\\\\localhost\\new", false},
      {"/dev/null", false},
      {"User", false},
      {"USER", false},
      {"uſer", false},  // the same letter without regard to case
      {".saving", false},
      {".SAVING", false},
      {"Cash" + kNul, false},
      {kNul, false},
      {QString(256, u'n'), false},
      {QString(86, u'田'), false},
      {QString(5000, u'n'), false},
      {"Cash desk/", false},
      {QString(255, u'n'), true},
      {"...", true},
      {".. ", true},
      {"User.", true},
      {"User ", true},
      {"CON", true},
      {"COM1.txt", true},
      {"~", true},
      {"~root", true},
      {"$HOME", true},
      {"%2e%2e%2fout", true},
      {"．．／out", true},
      {"..\u2215out", true},
      {":new", true},
      {"qrc:", true},
      {"C:", true},
      {"-rf", true},
      {"*", true},
      {"\u0001\u001B[2J\u007F", true},
      {"\u202Eresu", true},
  };
  for (const Row& row : rows) {
    const std::string what = row.Name.left(80).toStdString();
    OpenCourse(row.Name);
    CreateUser("Ann", "Lee", "a@b.c");
    EXPECT_EQ(UseProgressFile(), row.IsKept) << what;
    QStringList expected{"User"};
    if (row.IsKept) expected.append(row.Name);
    QStringList names = NamesIn(store.DataPath("Ann Lee"));
    expected.sort();
    names.sort();
    EXPECT_EQ(names, expected) << what;
    EXPECT_EQ(store.Read(store.DataPath("Ann Lee/User")), "\"Ann\",\"Lee\",\"a@b.c\"\r\n") << what;
    EXPECT_EQ(NamesIn(store.DataPath()), QStringList("Ann Lee")) << what;
    ExpectUntouched(row.Name);
    QDir(store.DataPath()).removeRecursively();
  }
}

TEST_F(OutOfBoundsLearner, AProgressFileThatLeadsOutIsNeitherReadNorWritten) {
  store.Write("rt0101/kept", "kept");
  const QString targets[] = {
      outside.Folder() + "/Cash desk",
      outside.Folder() + "/CASH DESK",
      outside.Folder() + "/new",
      "../../../../../out/Cash desk",
      store.Path("rt0101/kept"),  // outside the data folder is enough
      "../../../../rt0101/kept",
      "Cash desk",
      "/dev/zero",
      "/proc/self/environ",
      outside.Folder(),
      "chain",
  };
  for (const QString& target : targets) {
    OpenCourse();
    CreateUser("Ann", "Lee", "a@b.c");
    Link(outside.Folder() + "/Cash desk", kUserData + "Ann Lee/chain");
    Link(target, kUserData + "Ann Lee/Cash desk");
    EXPECT_FALSE(UseProgressFile()) << target.toStdString();
    EXPECT_EQ(store.Read("rt0101/kept"), "kept") << target.toStdString();
    ExpectUntouched(target);
    QDir(store.DataPath()).removeRecursively();
  }
}

TEST_F(OutOfBoundsLearner, ALearnersFolderThatLeadsOutIsNoLearner) {
  const QString targets[] = {
      outside.Folder() + "/Eve Hill",
      outside.Folder(),
      "../../../../out/Eve Hill",
      "../../../../OUT/Eve Hill",
      outside.Folder() + "/nothing",
      store.Path("rt0101"),
      "../../../rt0101",
      "/",
      "/dev",
      "/proc/self/cwd",
      "chain",
      "Bo Ek",
      outside.Folder() + "/User",
  };
  for (const QString& target : targets) {
    const std::string what = target.toStdString();
    OpenCourse();
    CreateUser("Ann", "Lee", "a@b.c");
    Link(outside.Folder() + "/Eve Hill", kUserData + "chain");
    Link(target, kUserData + "Bo Ek");
    EXPECT_EQ(ListUsers(), QStringList("Ann Lee")) << what;
    EXPECT_FALSE(IgnoreErrors([] { ReadUserFile("Bo Ek"); })) << what;
    EXPECT_FALSE(IgnoreErrors([] { CreateUser("Bo", "Ek", "b@c.d"); })) << what;
    EXPECT_FALSE(UpdateUser("Bo", "Ek", "b@c.d")) << what;
    EXPECT_EQ(gUserFirstName, "Ann") << what;
    gUserFirstName = "Bo";
    gUserLastName = "Ek";
    EXPECT_FALSE(IgnoreErrors([] { WriteResumeLine(); })) << what;
    EXPECT_FALSE(UpdateUser("Cy", "Ek", "b@c.d")) << what;
    EXPECT_FALSE(QFile::exists(store.Path("rt0101/User"))) << what;
    ExpectUntouched(target);
    QDir(store.DataPath()).removeRecursively();
  }
}

TEST_F(OutOfBoundsLearner, AFolderOnTheWayThatLeadsOutHoldsNoLearners) {
  const QString ways[] = {"data/Tallowmere Manager 1.0", "data/Tallowmere Manager 1.0/UserData"};
  const QString targets[] = {outside.Folder() + "/Tallowmere Manager 1.0",
                             outside.Folder() + "/Tallowmere Manager 1.0/UserData", outside.Folder() + "/new",
                             store.Path("rt0101"), "/dev/null"};
  for (const QString& way : ways) {
    for (const QString& target : targets) {
      QDir().mkpath(QFileInfo(store.Path(way)).path());
      Link(target, way);
      OpenCourse();
      EXPECT_EQ(ListUsers(), QStringList()) << target.toStdString();
      EXPECT_FALSE(IgnoreErrors([] { CreateUser("Ann", "Lee", "a@b.c"); })) << target.toStdString();
      EXPECT_FALSE(IgnoreErrors([] { WriteResumeLine(); })) << target.toStdString();
      EXPECT_EQ(NamesIn(store.Path("rt0101")), QStringList({"0001.txm", "0002.txm", "0003.txm", "Map.txt"}));
      ExpectUntouched(target);
      QFile::remove(store.Path(way));
    }
  }
}

TEST_F(OutOfBoundsLearner, ARecordThatLeadsOutIsNeitherReadNorWritten) {
  const QString targets[] = {outside.Folder() + "/User",
                             "../../../../../out/Eve Hill/User",
                             outside.Folder() + "/new",
                             "User",
                             "/dev/zero",
                             outside.Folder(),
                             "pipe",
                             "folder"};
  for (const QString& target : targets) {
    OpenCourse();
    CreateUser("Ann", "Lee", "a@b.c");
    QFile::remove(store.DataPath("Ann Lee/User"));
    mkfifo(QFile::encodeName(store.DataPath("Ann Lee/pipe")).constData(), 0600);
    QDir().mkpath(store.DataPath("Ann Lee/folder"));
    Link(target, kUserData + "Ann Lee/User");
    EXPECT_FALSE(IgnoreErrors([] { ReadUserFile("Ann Lee"); })) << target.toStdString();
    if (target != "pipe") {  // a pipe gives way to a file, like any name of the learner's own folder
      EXPECT_FALSE(IgnoreErrors([] { CreateUser("Ann", "Lee", "x@y.z"); })) << target.toStdString();
      EXPECT_FALSE(UpdateUser("Anna", "Lee", "x@y.z")) << target.toStdString();
    }
    ExpectUntouched(target);
    QDir(store.DataPath()).removeRecursively();
  }
}

TEST_F(OutOfBoundsLearner, ALinkWithinTheDataFolderIsTheFolderItLeadsTo) {
  OpenCourse();
  CreateUser("Ann", "Lee", "a@b.c");
  Link("Ann Lee", kUserData + "Bo Ek");
  EXPECT_EQ(ListUsers(), QStringList({"Ann Lee", "Bo Ek"}));
  EXPECT_EQ(ReadUserFile("Bo Ek").Email, "a@b.c");
}

// The folder's own record says other names than the folder: the screen that lists the learner goes on
// with the folder or not at all.
TEST_F(OutOfBoundsLearner, TheNamesInARecordLeadNowhere) {
  const std::pair<QString, QString> rows[] = {{"../../../../out/Eve", "Hill"},
                                              {"..\\..\\..\\..\\out\\Eve", "Hill"},
                                              {outside.Folder() + "/Eve", "Hill"},
                                              {"..", ""},
                                              {"../Ann", "Lee"},
                                              {kNul, kNul},
                                              {QString(300, u'n'), "Lee"},
                                              {"．．／", "Hill"},
                                              {":", ":"}};
  for (const auto& [first, last] : rows) {
    store.Write(store.DataPath("Ann Lee/User"),
                "\xEF\xBB\xBF\"" + first.toUtf8() + "\",\"" + last.toUtf8() + "\",\"a@b.c\"\r\n");
    ReadAs("Ann", "Lee").NextPage();
    EXPECT_EQ(NamesIn(store.DataPath()), QStringList("Ann Lee")) << first.left(80).toStdString();
    EXPECT_EQ(NamesIn(store.DataPath("Ann Lee")), QStringList({"Cash desk", "User"}));
    EXPECT_TRUE(NamesIn(store.PathBeside("")).size() == 2) << "beside the store lies the outside alone";
    ExpectUntouched(first);
    QDir(store.DataPath()).removeRecursively();
    Default<Form1>().Unload();
    Gui::Settle();
    OneCopyAgain();
  }
}

struct Name {
  QString Typed;
  bool IsKept;
};

// Names as a learner may type or paste them; the boxes take 32 characters.
QList<Name> TypedNames() {
  return {
      {"../Ann", false},
      {"..\\Ann", false},
      {"/tmp/Ann", false},
      {"C:\\Ann", false},
      {"\\\\host\\Ann", false},
      {"file://Ann", false},
      {":Ann", false},
      {"Ann|sh", false},
      {"Ann*", false},
      {" ..", false},
      {"..", true},
      {".", true},
      {"...", true},
      {"~", true},
      {"~root", true},
      {"$HOME", true},
      {"`id`", true},
      {"-rf", true},
      {"CON", true},
      {"COM1", true},
      {"NUL.txt", true},
      {"%2e%2e%2fout", true},
      {"．．／out", true},
      {"..\u2215out", true},
      {"..\u2044..\u2044out", true},
      {"\u202Eeve", true},
      {"Ann\u0001\u001B[2J", true},
      {"Ann.", true},
      {QString(40, u'田'), true},
  };
}

TEST_F(OutOfBoundsLearner, ARegisteredNameIsTheNameOfOneFolder) {
  ReadAs("Ann", "Lee");
  for (const Name& name : TypedNames()) {
    for (const bool isFirst : {true, false}) {
      auto& form = Default<NewUserLogin>();
      form.InitNewUserForm();
      form.Show();
      EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
      const std::pair<const char*, QString> entries[] = {{"LoginBox", isFirst ? name.Typed : "Bo"},
                                                         {"LastNameBox", isFirst ? "Ek" : name.Typed},
                                                         {"EMailBox", "b@c.d"}};
      for (const auto& [box, text] : entries) {
        Gui::Click(form, box);
        Gui::Type(form, text);
      }
      const QString folder = Gui::Find<TextBox>(form, "LoginBox")->Text() + ' ' +
                             Gui::Find<TextBox>(form, "LastNameBox")->Text();
      clock.Advance(100);
      Gui::Click(form, "SignIn_Btn");
      Gui::Settle();
      QStringList expected{"Ann Lee"};
      if (name.IsKept) expected.append(folder);
      QStringList names = NamesIn(store.DataPath());
      expected.sort();
      names.sort();
      EXPECT_EQ(names, expected) << name.Typed.toStdString();
      EXPECT_EQ(messages.Take().isEmpty(), name.IsKept) << name.Typed.toStdString();
      ExpectUntouched(name.Typed);
      if (name.IsKept) QDir(store.DataPath(folder)).removeRecursively();
      if (auto* open = LoadedForm<NewUserLogin>()) open->Unload();
      Gui::Settle();
    }
  }
}

TEST_F(OutOfBoundsLearner, ANameInTheProfileMovesTheFolderWithinItsOwn) {
  ReadAs("Ann", "Lee");
  for (const Name& name : TypedNames()) {
    auto& box = Default<ProfileBox>();
    box.Fill(name.Typed, "Lee", "a@b.c");
    box.Show();
    Gui::Click(box, "OkayBut");
    const QString first = Gui::Find<TextBox>(box, "FirstNameField")->Text();
    const QString folder = name.IsKept ? first + " Lee" : QString("Ann Lee");
    EXPECT_EQ(NamesIn(store.DataPath()), QStringList(folder)) << name.Typed.toStdString();
    EXPECT_EQ(messages.Take().isEmpty(), name.IsKept) << name.Typed.toStdString();
    ExpectUntouched(name.Typed);
    UpdateUser("Ann", "Lee", "a@b.c");
    ASSERT_EQ(NamesIn(store.DataPath()), QStringList("Ann Lee")) << name.Typed.toStdString();
    box.Unload();
    Gui::Settle();
  }
}

// Behind the forms' own checks, too, the folder stays among the others.
TEST_F(OutOfBoundsLearner, ARenameKeepsTheFolderAmongTheOthers) {
  const QString here = QDir::currentPath();
  for (const QString& first : {QString(":Ann"), QString(":/Ann"), QString("qrc:Ann"), QString("../../Ann"),
                               outside.Folder() + "/Ann", QString("Ann") + kNul, QString(300, u'n')}) {
    OpenCourse();
    CreateUser("Ann", "Lee", "a@b.c");
    const QStringList before = NamesIn(here);
    const bool renamed = UpdateUser(first, "Lee", "a@b.c");
    EXPECT_EQ(NamesIn(store.DataPath()), QStringList(renamed ? first + " Lee" : QString("Ann Lee")));
    EXPECT_EQ(NamesIn(here), before) << first.left(80).toStdString();
    ExpectUntouched(first);
    QDir(store.DataPath()).removeRecursively();
  }
}

// The installation says where the data lies, and nothing is written anywhere else.
TEST_F(OutOfBoundsLearner, TheDataLiesWhereTheInstallationSaysAndNowhereElse) {
  QDir().mkpath(store.PathBeside("elsewhere"));
  Link(store.PathBeside("elsewhere"), "link");
  Link(outside.Folder() + "/nothing", "dangling");
  Link("loop", "loop");
  struct Row {
    QString Root;
    QString Folder;  // where the data comes to lie; empty: it is refused
  };
  const Row rows[] = {
      {"", store.Path("data")},
      {"learners", store.Path("learners")},
      {"../elsewhere", store.PathBeside("elsewhere")},
      {"..\\\\elsewhere", store.PathBeside("elsewhere")},
      {store.PathBeside("elsewhere"), store.PathBeside("elsewhere")},
      {"link", store.PathBeside("elsewhere")},
      {"~", store.Path("~")},
      {"%2e%2e", store.Path("%2e%2e")},
      {"．．", store.Path("．．")},
      {"$HOME", store.Path("$HOME")},
      {"CON", store.Path("CON")},
      {"... ", store.Path("... ")},
      {"~/data", {}},
      {"%2e%2e/out", {}},
      {"file://" + outside.Folder(), {}},
      {"\\\\\\\\localhost\\\\share", {}},
      {"C:\\\\data", {}},
      {"/dev/null", {}},
      {"/proc/self", {}},
      {"dangling", {}},
      {"loop", {}},
      {QString(300, u'd'), {}},
      {QString("d/").repeated(2500), {}},
  };
  for (const Row& row : rows) {
    const QString key = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TLMS\\Tallowmere Manager 1.0]";
    store.Write("registry/courses.reg",
                "\xEF\xBB\xBF" + ("REGEDIT4\n" + key + "\n\"DataRoot\"=\"" + row.Root + "\"\n").toUtf8());
    const std::string what = row.Root.left(80).toStdString();
    const QStringList before = NamesIn(store.Path()) + NamesIn(store.PathBeside(""));
    OpenCourse();
    EXPECT_EQ(IgnoreErrors([] { CreateUser("Ann", "Lee", "a@b.c"); }), !row.Folder.isEmpty()) << what;
    if (row.Folder.isEmpty()) {
      EXPECT_EQ(NamesIn(store.Path()) + NamesIn(store.PathBeside("")), before) << what;
    } else {
      EXPECT_EQ(NamesIn(row.Folder), QStringList("Tallowmere Manager 1.0")) << what;
      EXPECT_EQ(ListUsers(), QStringList("Ann Lee")) << what;
      QDir(row.Folder + "/Tallowmere Manager 1.0").removeRecursively();
      if (row.Folder != store.PathBeside("elsewhere")) QDir(row.Folder).removeRecursively();
    }
    ExpectUntouched(row.Root);
  }
}

// The watch itself: without it every row above would pass.
TEST_F(OutOfBoundsLearner, TheWatchSeesEveryReadAndWrite) {
  EXPECT_EQ(outside.Touched(), QStringList());
  store.Read(outside.Folder() + "/Eve Hill/User");
  EXPECT_NE(outside.Touched(), QStringList());
  EXPECT_EQ(outside.Touched(), QStringList());
  SaveFile(outside.Folder() + "/new", "x");
  EXPECT_TRUE(outside.Touched().contains(outside.Folder() + "/new has other content"));
  NamesIn(outside.Folder());
  EXPECT_NE(outside.Touched(), QStringList());
}

}  // namespace
