// The files of a course that the reference screens show: none of them comes from outside its folder.
#include <QDir>

#include "frame/ProgramState.h"
#include "pages/view/TextControl.h"
#include "platform/forms/ListBox.h"
#include "platform/forms/SaveDialog.h"
#include "platform/forms/TextPane.h"
#include "reference/About.h"
#include "reference/Repository.h"
#include "reference/Trademark.h"
#include "support/Opened.h"
#include "support/OutOfBounds.h"

namespace {

const QString kNul{QChar::Null};

using OutOfBoundsReference = OutOfBoundsTest;

TEST_F(OutOfBoundsReference, TheAboutAndTrademarkFilesOfACourseComeFromTheirFolderOnly) {
  const QString marker = Outside::kMarker;
  store.Write("sheet.txt", marker.toLatin1());  // in the program folder, but no about text
  store.Write("sheet_1.txm", PageFile(marker));
  QStringList names =
      outside.WaysTo("sheet", "x/../../../") +
      QStringList{"x/../../sheet", "folder/../../../out/sheet", "%2", "..", "", "good.txt" + kNul};
  for (const char* prefix : {"About/About ", "About/Trademark "}) {
    store.Write(prefix + QString("good.txt"), "good");
    store.Write(prefix + QString("good_1.txm"), PageFile("good"));
    names += AddTraps(prefix, "sheet", ".txt") + AddTraps(prefix, "sheet", "_1.txm");
  }
  ReadAs("Ann", "Lee");
  const auto expect = [this](const QString& courseName, const QString& shown) {
    SCOPED_TRACE(courseName.left(80).toStdString());
    gCourses[0].CourseName = courseName;
    gCourses[0].Modules[0].CourseName = courseName;
    EXPECT_EQ(Gui::Find<TextPane>(Default<About>(), "Text1")->Text(), shown);
    auto& trademark = Default<Trademark>();
    EXPECT_EQ(Gui::Find<TextControl>(trademark, "TXTextControl1")->PlainText().trimmed(), shown);
    EXPECT_EQ(trademark.Running(), !shown.isEmpty());
    trademark.Unload();
    Default<About>().Unload();
    ExpectUntouched(courseName);
  };
  for (const QString& name : names)
    expect(name, QString());
  expect("GOOD", "good");
}

TEST_F(OutOfBoundsReference, AnAttachmentComesFromTheRepositoryOnly) {
  store.Write("Repository/1/good.txt", "good");
  store.Write("Repository/1/a\\..\\..\\..\\out\\sheet.txt", "a name with backslashes");
  AddTraps("Repository/1/", "sheet", ".txt");
  Link("../../rt0101/Map.txt", "Repository/1/map.txt");  // in the program folder, but no attachment
  Link(outside.Folder(), "Repository/out");
  Link(store.Path("rt0101"), "Repository/module");
  ReadAs("Ann", "Lee");
  Opened opened;
  const auto expect = [&](const QString& repNum, const QStringList& names) {
    SCOPED_TRACE(repNum.left(80).toStdString());
    gCourses[0].RepNum = repNum;
    const auto* list = Gui::Find<ListBox>(Default<Repository>(), "List1");
    QStringList shown;
    for (int i = 0; i < list->ListCount(); ++i)
      shown.append(list->List(i));
    EXPECT_EQ(shown, names);
    Default<Repository>().Unload();
    ExpectUntouched(repNum);
  };
  for (const QString& number :
       outside.WaysTo("Eve Hill", "../../") +
           QStringList{"..", "../rt0101", "1/../../rt0101", "out", "OUT", "module", "1" + kNul, "no"})
    expect(number, {});
  expect("1", {"good.txt"});

  // A file that has become a link since it was listed is neither opened nor copied.
  auto& repository = Default<Repository>();
  repository.Show();
  clock.Advance(100);
  Gui::Key(repository, Qt::Key_Down);
  clock.Advance(100);
  QFile::remove(store.Path("Repository/1/good.txt"));
  Link(outside.Folder() + "/sheet.txt", "Repository/1/good.txt");
  const QString copy = store.PathBeside("copy.txt");
  AnswerSaveDialogs([&copy](const SaveDialogCall&) { return copy; });
  Gui::Click(repository, "View_Btn");
  Gui::Click(repository, "Detach_Btn");
  AnswerSaveDialogs({});
  EXPECT_EQ(opened.Take(), QStringList("open  (3)"));
  EXPECT_FALSE(QFile::exists(copy));
  ExpectUntouched("a link in its place");
}

}  // namespace
