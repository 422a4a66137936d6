// What a learner can write, and what may lie among the learners' folders: nothing of it reaches a file
// outside the data folder.
#include <sys/stat.h>

#include <QDir>

#include "content/LinkedList.h"
#include "frame/ProgramState.h"
#include "frame/Settings.h"
#include "learners/ProfileBox.h"
#include "learners/ProgressFile.h"
#include "learners/UserStore.h"
#include "platform/RunTimeError.h"
#include "platform/files/FileBytes.h"
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

  // Where a link with that name may lead; the steps `up` lead to the folder of the store.
  QStringList Targets(const QString& name, const QString& up) const {
    return {outside.Folder() + '/' + name,
            up + "../out/" + name,
            outside.Folder() + "/new",
            outside.Folder(),
            store.Path("rt0101"),
            up + "rt0101",
            "/",
            "/dev/zero",
            "/proc/self/cwd",
            "chain",
            name};
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
  // "uſer" is "User" without regard to case.
  const QStringList refused = outside.WaysTo("Cash desk", "../../../../").filter("/") +
                              QString(". .. User USER uſer .saving .SAVING-x ..\\Cash Cash/").split(' ') +
                              QStringList{"", kNul, QString(256, u'n'), QString(86, u'田')};
  const QStringList kept =
      QString(
          "... User. CON COM1.txt ~ ~root $HOME %2e%2e%2fout ．．／out ..\u2215out :new qrc: "
          "C: -rf * \u0001\u001B[2J\u007F \u202Eresu")
          .split(' ') +
      QStringList{".. ", "User ", QString(255, u'n')};
  for (const QString& name : refused + kept) {
    SCOPED_TRACE(name.left(80).toStdString());
    const bool isKept = kept.contains(name);
    OpenCourse(name);
    CreateUser("Ann", "Lee", "a@b.c");
    EXPECT_EQ(UseProgressFile(), isKept);
    QStringList expected{"User"};
    if (isKept) expected.append(name);
    expected.sort();
    QStringList names = NamesIn(store.DataPath("Ann Lee"));
    names.sort();
    EXPECT_EQ(names, expected);
    EXPECT_EQ(store.Read(store.DataPath("Ann Lee/User")), "\"Ann\",\"Lee\",\"a@b.c\"\r\n");
    EXPECT_EQ(NamesIn(store.DataPath()), QStringList("Ann Lee"));
    ExpectUntouched(name);
    QDir(store.DataPath()).removeRecursively();
  }
}

TEST_F(OutOfBoundsLearner, NothingIsReadOrWrittenThroughALinkThatLeadsOut) {
  store.Write("rt0101/kept", "kept");
  const struct {
    QString Link, Name;  // in the data folder; what it stands for
    QStringList More;    // places where it may lead, too
    std::function<bool()> IsUsed;
  } rows[] = {
      // Outside the data folder is enough.
      {"Ann Lee/Cash desk", "Cash desk", {"../../../../rt0101/kept"}, UseProgressFile},
      {"Ann Lee/User",
       "User",
       {"folder"},
       [] {
         const bool read = IgnoreErrors([] { ReadUserFile("Ann Lee"); });
         const bool made = IgnoreErrors([] { CreateUser("Ann", "Lee", "x@y.z"); });
         return UpdateUser("Anna", "Lee", "x@y.z") || read || made;
       }},
      {"Bo Ek",
       "Eve Hill",
       {"Bo Ek", outside.Folder() + "/User"},
       [] {
         EXPECT_EQ(ListUsers(), QStringList("Ann Lee"));
         const bool read = IgnoreErrors([] { ReadUserFile("Bo Ek"); });
         const bool made = IgnoreErrors([] { CreateUser("Bo", "Ek", "b@c.d"); });
         const bool changed = UpdateUser("Bo", "Ek", "b@c.d");
         EXPECT_EQ(gUserFirstName, "Ann");
         gUserFirstName = "Bo";
         gUserLastName = "Ek";
         const bool turned = IgnoreErrors([] { WriteResumeLine(); });
         return UpdateUser("Cy", "Ek", "b@c.d") || read || made || changed || turned;
       }},
  };
  for (const auto& row : rows) {
    const QString up = QString("../").repeated(3 + row.Link.count('/'));
    for (const QString& target : Targets(row.Name, up) + row.More) {
      SCOPED_TRACE((row.Link + " to " + target).toStdString());
      OpenCourse();
      CreateUser("Ann", "Lee", "a@b.c");
      QDir().mkpath(store.DataPath("Ann Lee/folder"));
      QFile::remove(store.DataPath(row.Link));
      Link(outside.Folder() + '/' + row.Name, QFileInfo(kUserData + row.Link).path() + "/chain");
      Link(target, kUserData + row.Link);
      EXPECT_FALSE(row.IsUsed());
      EXPECT_EQ(store.Read("rt0101/kept"), "kept");
      EXPECT_FALSE(QFile::exists(store.Path("rt0101/User")));
      ExpectUntouched(target);
      QDir(store.DataPath()).removeRecursively();
    }
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

TEST_F(OutOfBoundsLearner, ALinkWithinTheDataFolderIsTheFolderItLeadsTo) {
  OpenCourse();
  CreateUser("Ann", "Lee", "a@b.c");
  Link("Ann Lee", kUserData + "Bo Ek");
  EXPECT_EQ(ListUsers(), QStringList({"Ann Lee", "Bo Ek"}));
  EXPECT_EQ(ReadUserFile("Bo Ek").Email, "a@b.c");
}

// Names as a learner may type or paste them; the boxes take 32 characters.
const QStringList kRefused =
    QString("../Ann ..\\Ann /tmp/Ann C:\\Ann \\\\host\\Ann file://Ann :Ann Ann|sh Ann* A?n A\"n A<n A>n")
        .split(' ') +
    QStringList(" ..");
const QStringList kKept =
    QString(
        ".. . ... ~ ~root $HOME `id` -rf CON NUL.txt %2e%2e%2fout ．．／out ..\u2215out \u202Eeve "
        "Ann\u0001\u001B[2J Ann. 田田田田田田田田田田田田田田田田田田田田田田田田田田田田田田田田田田")
        .split(' ');

// Registers a learner; told is the folder that the entries stand for.
QString Register(HandClock& clock, const QString& firstName, const QString& lastName) {
  Default<NewUserLogin>().InitNewUserForm();
  auto& form = Gui::Show<NewUserLogin>();
  const std::pair<const char*, QString> entries[] = {
      {"LoginBox", firstName}, {"LastNameBox", lastName}, {"EMailBox", "b@c.d"}};
  QStringList taken;
  for (const auto& [box, text] : entries) {
    Gui::Click(form, box);
    Gui::Type(form, text);
    taken.append(Gui::Find<TextBox>(form, box)->Text());
  }
  clock.Advance(100);
  Gui::Click(form, "SignIn_Btn");
  Gui::Settle();
  if (auto* open = LoadedForm<NewUserLogin>()) open->Unload();
  return taken[0] + ' ' + taken[1];
}

// Changes the first name of Ann Lee.
QString Rename(const QString& firstName) {
  auto& box = Default<ProfileBox>();
  box.Fill(firstName, "Lee", "a@b.c");
  box.Show();
  Gui::Click(box, "OkayBut");
  const QString folder = Gui::Find<TextBox>(box, "FirstNameField")->Text() + " Lee";
  box.Unload();
  return folder;
}

TEST_F(OutOfBoundsLearner, ATypedNameIsTheNameOfOneFolder) {
  ReadAs("Ann", "Lee");
  for (const QString& name : kRefused + kKept) {
    SCOPED_TRACE(name.toStdString());
    const bool isKept = kKept.contains(name);
    const auto expect = [&](QStringList folders) {
      folders.sort();
      QStringList there = NamesIn(store.DataPath());
      there.sort();
      EXPECT_EQ(there, folders);
      EXPECT_EQ(messages.Take().isEmpty(), isKept);
      ExpectUntouched(name);
      Gui::Settle();
    };
    for (const bool isFirst : {true, false}) {
      const QString folder = Register(clock, isFirst ? name : "Bo", isFirst ? "Ek" : name);
      expect(isKept ? QStringList{"Ann Lee", folder} : QStringList("Ann Lee"));
      if (isKept) QDir(store.DataPath(folder)).removeRecursively();
    }
    gUserFirstName = "Ann";
    gUserLastName = "Lee";
    const QString folder = Rename(name);
    expect(QStringList(isKept ? folder : "Ann Lee"));
    UpdateUser("Ann", "Lee", "a@b.c");
    ASSERT_EQ(NamesIn(store.DataPath()), QStringList("Ann Lee"));
  }
}

// Behind the forms' own checks, too, the folder stays among the others.
TEST_F(OutOfBoundsLearner, ANewFolderStaysAmongTheOthers) {
  const QString here = QDir::currentPath();
  for (const QString& first : {QString(":Ann"), QString(":/Ann"), QString("qrc:Ann"), QString("../../Ann"),
                               outside.Folder() + "/Ann", QString("Ann") + kNul, QString(300, u'n')}) {
    SCOPED_TRACE(first.left(80).toStdString());
    OpenCourse();
    CreateUser("Ann", "Lee", "a@b.c");
    const QStringList before = NamesIn(here);
    const bool renamed = UpdateUser(first, "Lee", "a@b.c");
    EXPECT_EQ(NamesIn(store.DataPath()), QStringList(renamed ? first + " Lee" : QString("Ann Lee")));
    QDir(store.DataPath()).removeRecursively();
    const bool made = IgnoreErrors([&] { CreateUser(first, "Lee", "a@b.c"); });
    EXPECT_EQ(made, renamed);
    EXPECT_EQ(NamesIn(store.DataPath()), made ? QStringList(first + " Lee") : QStringList());
    EXPECT_FALSE(IgnoreErrors([] { ReadUserFile(".."); }));
    EXPECT_EQ(NamesIn(here), before);
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
  const QString elsewhere = store.PathBeside("elsewhere");
  // Where the data comes to lie; empty: it is refused.
  QList<QPair<QString, QString>> rows{{"", store.Path("data")}, {"learners", store.Path("learners")}};
  for (const QString& root :
       {QString("../elsewhere"), QString("..\\\\elsewhere"), elsewhere, QString("link")})
    rows.append({root, elsewhere});
  for (const char* root : {"~", "%2e%2e", "．．", "$HOME", "CON", "... "})
    rows.append({root, store.Path(root)});
  for (const QString& root : {QString("~/data"), QString("%2e%2e/out"), "file://" + outside.Folder(),
                              QString("\\\\\\\\localhost\\\\share"), QString("C:\\\\data"),
                              QString("/dev/null"), QString("/proc/self"), QString("dangling"),
                              QString("loop"), QString(300, u'd'), QString("d/").repeated(2500)})
    rows.append({root, {}});
  for (const auto& [root, folder] : rows) {
    SCOPED_TRACE(root.left(80).toStdString());
    store.Write("registry/courses.reg",
                "\xEF\xBB\xBFREGEDIT4\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\TLMS\\Tallowmere Manager "
                "1.0]\n\"DataRoot\"=\"" +
                    root.toUtf8() + "\"\n");
    const QStringList before = NamesIn(store.Path()) + NamesIn(store.PathBeside(""));
    OpenCourse();
    EXPECT_EQ(IgnoreErrors([] { CreateUser("Ann", "Lee", "a@b.c"); }), !folder.isEmpty());
    if (folder.isEmpty()) {
      EXPECT_EQ(NamesIn(store.Path()) + NamesIn(store.PathBeside("")), before);
    } else {
      EXPECT_EQ(NamesIn(folder), QStringList("Tallowmere Manager 1.0"));
      EXPECT_EQ(ListUsers(), QStringList("Ann Lee"));
      QDir(folder + "/Tallowmere Manager 1.0").removeRecursively();
      if (folder != elsewhere) QDir(folder).removeRecursively();
    }
    ExpectUntouched(root);
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
