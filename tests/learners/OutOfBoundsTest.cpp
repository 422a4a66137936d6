// What a learner can write, and what may lie among the learners' folders: nothing of it reaches a file
// outside the data folder.
#include "support/OutOfBounds.h"

#include <QDir>

#include "content/LinkedList.h"
#include "frame/ProgramState.h"
#include "frame/Settings.h"
#include "learners/ProgressFile.h"
#include "learners/UserStore.h"
#include "platform/files/FileBytes.h"
#include "signin/NewUserLogin.h"
#include "support/Play.h"

namespace {

const QString kUserData = QStringLiteral("data/Tallowmere Manager 1.0/UserData/");

// What lies in a folder, sorted.
QStringList NamesIn(const QString& folder) {
  QStringList names =
      QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
  names.sort();
  return names;
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
            "/dev/zero",
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
  const QStringList refused = outside.WaysTo("Cash desk", "../../../../") +
                              QString(". .. User USER uſer .saving .SAVING-x ..\\Cash Cash/").split(' ') +
                              QStringList{"", QString(QChar::Null), QString(256, u'n'), QString(86, u'田')};
  const QStringList kept =
      QString("... User. CON ~ $HOME %2e%2e%2fout ．．／out :new qrc: -rf \u202Eresu").split(' ') +
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
    EXPECT_EQ(NamesIn(store.DataPath("Ann Lee")), expected);
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
       {},
       [] {
         const bool read = IgnoreErrors([] { ReadUserFile("Ann Lee"); });
         const bool made = IgnoreErrors([] { CreateUser("Ann", "Lee", "x@y.z"); });
         return UpdateUser("Anna", "Lee", "x@y.z") || read || made;
       }},
      {"Bo Ek",
       "Eve Hill",
       {"Bo Ek"},
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
  for (const QString& way : {QString("data/Tallowmere Manager 1.0"), kUserData.chopped(1)}) {
    for (const QString& target : {outside.Folder() + "/Tallowmere Manager 1.0", store.Path("rt0101")}) {
      QDir().mkpath(QFileInfo(store.Path(way)).path());
      Link(target, way);
      OpenCourse();
      EXPECT_EQ(ListUsers(), QStringList()) << target.toStdString();
      EXPECT_FALSE(IgnoreErrors([] { CreateUser("Ann", "Lee", "a@b.c"); })) << target.toStdString();
      EXPECT_FALSE(IgnoreErrors([] { WriteResumeLine(); })) << target.toStdString();
      EXPECT_EQ(NamesIn(store.Path("rt0101")).size(), 4);
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
    QString("../Ann ..\\Ann /tmp/Ann C:\\Ann :Ann Ann|sh Ann* A?n A\"n A<n A>n").split(' ') +
    QStringList(" ..");
const QStringList kKept = QString(".. ~ $HOME `id` -rf CON %2e%2e%2fout ．．／out \u202Eeve Ann. ")
                              .append(QString(33, u'田'))
                              .split(' ');

// Registers a learner; told is the folder that the entries stand for.
QString Register(const QString& firstName, const QString& lastName) {
  Default<NewUserLogin>().InitNewUserForm();
  auto& form = Gui::Show<NewUserLogin>();
  Gui::Do(form, "click LoginBox, type " + firstName + ", click LastNameBox, type " + lastName +
                    ", click EMailBox, type b@c.d");
  const QString folder = Gui::Seen(form, "LoginBox LastNameBox").replace('|', ' ');
  Gui::Do(form, "wait 100, click SignIn_Btn");
  Gui::Settle();
  if (auto* open = LoadedForm<NewUserLogin>()) open->Unload();
  return folder;
}

TEST_F(OutOfBoundsLearner, ATypedNameIsTheNameOfOneFolder) {
  ReadAs("Ann", "Lee");
  for (const QString& name : kRefused + kKept) {
    SCOPED_TRACE(name.toStdString());
    const bool isKept = kKept.contains(name);
    for (const bool isFirst : {true, false}) {
      const QString folder = Register(isFirst ? name : "Bo", isFirst ? "Ek" : name);
      QStringList folders = isKept ? QStringList{"Ann Lee", folder} : QStringList("Ann Lee");
      folders.sort();
      EXPECT_EQ(NamesIn(store.DataPath()), folders);
      EXPECT_EQ(messages.Take().isEmpty(), isKept);
      ExpectUntouched(name);
      if (isKept) QDir(store.DataPath(folder)).removeRecursively();
    }
  }
}

// Behind the forms' own checks, too, the folder stays among the others.
TEST_F(OutOfBoundsLearner, ANewFolderStaysAmongTheOthers) {
  for (const QString& first :
       {QString("../../Ann"), outside.Folder() + "/Ann", QString("Ann") + QChar::Null, QString(300, u'n')}) {
    SCOPED_TRACE(first.left(80).toStdString());
    OpenCourse();
    CreateUser("Ann", "Lee", "a@b.c");
    EXPECT_FALSE(UpdateUser(first, "Lee", "a@b.c"));
    EXPECT_FALSE(IgnoreErrors([&] { CreateUser(first, "Lee", "a@b.c"); }));
    EXPECT_FALSE(IgnoreErrors([] { ReadUserFile(".."); }));
    EXPECT_EQ(NamesIn(store.DataPath()), QStringList("Ann Lee"));
    ExpectUntouched(first);
  }
}

// The installation says where the data lies, and nothing is written anywhere else.
TEST_F(OutOfBoundsLearner, TheDataLiesWhereTheInstallationSaysAndNowhereElse) {
  const QString elsewhere = store.PathBeside("elsewhere");
  QDir().mkpath(elsewhere);
  Link(elsewhere, "link");
  Link(outside.Folder() + "/nothing", "dangling");
  Link("loop", "loop");
  // Where the data comes to lie; empty: it is refused.
  QList<QPair<QString, QString>> rows{{"", store.Path("data")},    {"learners", store.Path("learners")},
                                      {"../elsewhere", elsewhere}, {elsewhere, elsewhere},
                                      {"link", elsewhere},         {"%2e%2e", store.Path("%2e%2e")},
                                      {"... ", store.Path("... ")}};
  for (const QString& root :
       {QString("~/data"), "file://" + outside.Folder(), QString("C:\\\\data"), QString("/proc/self"),
        QString("dangling"), QString("loop"), QString(300, u'd')})
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
  EXPECT_NE(outside.Touched(), QStringList());
}

}  // namespace
