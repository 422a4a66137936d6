// The files of a course that the reference screens show: none of them comes from outside its folder.
#include "support/OutOfBounds.h"

#include <QDir>

#include "frame/ProgramState.h"
#include "pages/view/TextControl.h"
#include "platform/forms/SaveDialog.h"
#include "platform/forms/TextPane.h"
#include "reference/About.h"
#include "reference/Repository.h"
#include "reference/Trademark.h"
#include "support/Opened.h"
#include "support/Play.h"

namespace {

using OutOfBoundsReference = OutOfBoundsTest;

TEST_F(OutOfBoundsReference, TheAboutAndTrademarkFilesOfACourseComeFromTheirFolderOnly) {
  const QString marker = Outside::kMarker;
  store.Write("sheet.txt", marker.toLatin1());  // in the program folder, but no about text
  store.Write("sheet_1.txm", PageFile(marker));
  QStringList names = outside.WaysTo("sheet", "x/../../../") +
                      QStringList{"x/../../sheet", "%2", "..", "", QString("good.txt") + QChar::Null};
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
  const auto expect = [&](const QString& repNum, const QString& names) {
    gCourses[0].RepNum = repNum;
    EXPECT_EQ(Gui::Seen(Gui::Show<Repository>(), "List1"), names) << repNum.toStdString();
    Default<Repository>().Unload();
    ExpectUntouched(repNum);
  };
  for (const QString& number :
       outside.WaysTo("Eve Hill", "../../") + QStringList{"..", "OUT", "module", "no"})
    expect(number, "");
  expect("1", "good.txt");

  // A file that has become a link since it was listed is neither opened nor copied.
  auto& repository = Gui::Show<Repository>();
  Gui::Do(repository, "wait 100, Down, wait 100");
  QFile::remove(store.Path("Repository/1/good.txt"));
  Link(outside.Folder() + "/sheet.txt", "Repository/1/good.txt");
  const QString copy = store.PathBeside("copy.txt");
  AnswerSaveDialogs([&copy](const SaveDialogCall&) { return copy; });
  Gui::Do(repository, "click View_Btn, click Detach_Btn");
  AnswerSaveDialogs({});
  EXPECT_EQ(opened.Take(), QStringList("open  (3)"));
  EXPECT_FALSE(QFile::exists(copy));
  ExpectUntouched("a link in its place");
}

}  // namespace
