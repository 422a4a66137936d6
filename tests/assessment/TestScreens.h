// A course with a test at the end of its first module, met by a learner who turns the page.
#pragma once

#include <QDir>

#include "assessment/QuestionForm.h"
#include "assessment/TestReview.h"
#include "platform/forms/VScrollBar.h"
#include "support/Program.h"
#include "support/ProgressLines.h"

class TestScreensTest : public ProgramTest {
 protected:
  static constexpr const char* kCourse = "Cash desk";

  // A line of a test file: its answers are "Red", "Blue" and "Green".
  static QByteArray Question(const char* text, const char* flags, const char* explanation = "",
                             const char* label = "", const char* link = "") {
    const QStringList fields{text, "Red>>Blue>>Green", flags, explanation, label, link};
    return '"' + fields.join("\",\"").toLatin1() + "\"\r\n";
  }

  // Two modules; the test is the last page of the first one, "0003.txm", behind the page "0002.txm".
  void AddCourse() {
    store.AddCourse(kCourse, "rt0101rt0102");
    store.AddModule("rt0101", "Customers", {"0001.txm*Topic*Greeting", "0002.txm*Page*", "0003.txm*Test*"});
    store.AddModule("rt0102", "Goods", {"0001.txm*Topic*Returns", "0002.txm*Topic*Shelves"});
  }
  void WriteTest(const QByteArray& type, const QByteArrayList& questions) const {
    store.Write("rt0101/rt0101_0003TST", '"' + type + "\"\r\n" + questions.join());
  }

  // Signs in at the page before the test.
  Form1& ReadToTheTest() {
    store.AddLearner("Ann", "Lee", kCourse,
                     ResumeBytes("rt0101", "0002.txm") + ModuleBytes("rt0101", "_Greeting_"));
    Form1& screen = ReadAs("Ann", "Lee");
    EXPECT_EQ(PageText(), "rt0101 0002.txm");
    return screen;
  }

  // Turns the page onto the test; `visit` is what the learner does there.
  void TakeTest(const std::function<void(QuestionForm&)>& visit) {
    script.When("QuestionForm", [&visit](Form& form) { visit(dynamic_cast<QuestionForm&>(form)); });
    Gui::Click(Default<Form1>(), "NextBtn");
    EXPECT_TRUE(script.Done());
  }

  // The eight fields of the module's tests, empty before the first.
  QString Recorded() const {
    const QString file = QString::fromLatin1(Progress("Ann Lee", kCourse)).remove(u'"');
    const QString fields = file.section("rt0101,_Greeting", 1).section("\r\n", 0, 0).section(u',', 1);
    return QString(fields).remove(u',').isEmpty() ? QString() : fields;
  }
};
