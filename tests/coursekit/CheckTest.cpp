// What the check says of an installed course, mistake by mistake.
#include <gtest/gtest.h>

#include "Sources.h"
#include "coursekit/build/CourseOutput.h"
#include "coursekit/check/LearnersCheck.h"
#include "coursekit/check/StoreCheck.h"
#include "learners/UserStore.h"

namespace {

constexpr const char* kKey = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TLMS\\Tallowmere Manager 1.0\\Till";

QByteArray Reg(const QByteArray& values) {
  return QByteArray("REGEDIT4\r\n") + kKey + "\\Modules]\r\n" + values;
}
QByteArray Page(const QByteArray& html) {
  return QByteArray(30, ' ') + "<p>" + html;
}
QByteArray Map(const QByteArray& lines) {
  return "x\r\nBasics\r\n\r\n" + lines;
}

}  // namespace

TEST(Check, NoMistakeOfAnInstalledCourseIsMetWithSilence) {
  const QByteArray q = "\"1\"\r\n\"Q\",\"A>>B\",";
  const struct {
    const char* File;
    QByteArray Content;
    const char* Said;  // the first finding
  } rows[] = {
      {"readme.txt", "x", ""},
      {"registry/Till.reg", "x", "store-unreadable registry"},
      {"registry/Till.reg", "REGEDIT4\r\n", "store-no-courses registry"},
      {"registry/Till.reg", QByteArray("REGEDIT4\r\n") + kKey + "]\r\n", "store-no-modules registry Till"},
      {"registry/Till.reg", Reg("\"ModulString\"=\"rt0101\"\r\n\"RepNum\"=\"1\"\r\n"),
       "store-unknown-value registry Till, modulstring"},
      {"registry/Till.reg", Reg("\"ModuleString\"=\"rt0101\"\r\n\"RepNum\"=dword:1\r\n"),
       "store-value-type registry Till, repnum"},
      {"registry/Till.reg", Reg("\"ModuleString\"=\"rt0101\"\r\n"),
       "store-missing-value registry Till, RepNum"},
      {"registry/Till.reg", Reg("\"ModuleString\"=\"rt0101r\"\r\n\"RepNum\"=\"rt0101\"\r\n"),
       "store-ids-length registry Till, 7"},
      {"registry/Till.reg", Reg("\"ModuleString\"=\"rt0101rt0101\"\r\n\"RepNum\"=\"rt0101\"\r\n"),
       "store-module-twice registry Till, rt0101"},
      {"registry/Till.reg", Reg("\"ModuleString\"=\"RT0101\"\r\n\"RepNum\"=\"rt0101\"\r\n"),
       "module-id registry RT0101"},
      {"registry/Till.reg", Reg("\"ModuleString\"=\"rt0101rt0102\"\r\n\"RepNum\"=\"rt0101\"\r\n"),
       "store-module-missing registry Till, rt0102"},
      {"registry/Till.reg", Reg("\"ModuleString\"=\"rt0101\"\r\n\"RepNum\"=\"9\"\r\n"),
       "store-no-repository registry Till, 9"},
      {"rt0101/Map.txt", Map("0001.txm*Topic*A\r\n0002.txm\r\n"), "store-unreadable rt0101/Map.txt"},
      {"rt0101/Map.txt", Map(""), "module-no-pages rt0101/Map.txt"},
      {"rt0101/Map.txt", Map("0001.txm*topic*A\r\n"), "topic-none-first rt0101/Map.txt"},
      {"rt0101/Map.txt", Map("0001.txm*Topic*A\r\n0002.txm*Topic*A\r\n"),
       "topic-twice rt0101/Map.txt A, 0002.txm"},
      {"rt0101/Map.txt", Map("0001.txm*Topic*A_B\r\n"), "topic-part rt0101/Map.txt A_B"},
      {"rt0101/Map.txt", Map("0001.txm*Topic*A\r\n0001.txm*Page*\r\n"),
       "store-page-twice rt0101/Map.txt 0001.txm"},
      {"rt0101/Map.txt", Map("0001.txm*Topic*A\r\n2.txm*Page*\r\n"), "store-page-name rt0101/Map.txt 2.txm"},
      {"rt0101/Map.txt", Map("0001.txm*Topic*A\r\n0009.txm*Page*\r\n"), "store-page-missing rt0101/0009.txm"},
      {"rt0101/Map.txt", Map("0001.txm*Topic*A\r\n0002.txm*Test*\r\n"),
       "store-test-missing rt0101/rt0101_0002TST 0002.txm"},
      {"rt0101/0002.txm", "<p>no lead-in at all, and text enough", "store-no-lead-in rt0101/0002.txm"},
      {"rt0101/0002.txm", "{\\rtf1 no lead-in at all}", "store-no-lead-in rt0101/0002.txm"},
      {"rt0101/0002.txm", QByteArray(40, ' ') + "words", "page-unreadable rt0101/0002.txm"},
      {"rt0101/0002.txm", Page("<img src=no.png>"), "picture-unreadable rt0101/0002.txm no.png"},
      {"rt0101/0002.txm", Page("<a href=#no>x</a>"), "place-missing rt0101/0002.txm no"},
      {"rt0101/0002.txm", Page("<a href='rt0101\\0009.txm_'>x</a>"),
       "link-no-such-page rt0101/0002.txm rt0101\\0009.txm_"},
      {"rt0101/0002.txm", Page("<a href='rt0101\\0001.txm_#no'>x</a>"), "place-missing rt0101/0002.txm no"},
      {"rt0101/0002.txm", Page("<a href='rt0109\\0001.txm_'>x</a>"),
       "store-link-module rt0101/0002.txm rt0109"},
      {"rt0101/0002.txm", Page("<a href='rt0101\\0001.txm'>x</a>"),
       "store-link-module rt0101/0002.txm rt0101"},
      {"rt0101/0002.txm", Page("<a href='book.txm#a'>x</a>"), "store-link-file rt0101/0002.txm book.txm"},
      {"rt0101/0002.txm", Page("<a href='list.pdf'>x</a>"), "store-attachment rt0101/0002.txm list.pdf"},
      {"rt0101/0002.txm", QByteArray(30, ' ') + "{\\rtf1 {\\object\\objw100\\objh100{\\objname film.wmv}}}",
       "movie-missing rt0101/0002.txm film.wmv"},
      {"rt0101/0002.txm", Page("<object data=film.wmv width=9 height=9></object>"),
       "movie-missing rt0101/0002.txm film.wmv"},
      {"rt0101/rt0101_0003TST", q + "\"1>>0\",\"\",\"\"", "store-test-unreadable rt0101/rt0101_0003TST"},
      {"rt0101/rt0101_0003TST", q + "\"0>>0\",\"\",\"\",\"\"", "store-no-right rt0101/rt0101_0003TST 1"},
      {"rt0101/rt0101_0003TST", q + "\"1\",\"\",\"\",\"\"", "store-flags rt0101/rt0101_0003TST 1"},
      {"rt0101/rt0101_0003TST", "\"1\"", "store-no-answers rt0101/rt0101_0003TST 1"},
      {"rt0101/rt0101_0003TST", "\"3\"" + q.mid(3) + "\"1>>0\",\"\",\"\",\"\"",
       "store-test-type rt0101/rt0101_0003TST 3"},
      {"rt0101/rt0101_0003TST", q + "\"1>>0\",\"\",\"L\",\"rt0101_0009.txm\"",
       "store-review rt0101/rt0101_0003TST 1"},
      {"rt0101/stray.txt", "x", "file-unused rt0101/stray.txt"},
      {"rt0101/Movies/film.wmv", "x", "file-unused rt0101/Movies/film.wmv"},
      {"Repository/rt0101/Hidden/more.txt", "x", "file-unused Repository/rt0101/Hidden/more.txt"},
      {"rt0101/Map.txt", Map("0001.txm*Topic*Till\r\n0002.txm*Topic*Till and more\r\n0003.txm*Test*\r\n"),
       "topic-inside rt0101/Map.txt Till, Till and more"},
      {"rt0101/0002.txm", Page("<a href='rt0101\\0003.txm_'>x</a>"),
       "link-to-test rt0101/0002.txm rt0101/0003.txm"},
      {"registry/User.reg",
       QByteArray("REGEDIT4\r\n") + QByteArray(kKey).replace("Till", "User") +
           "\\Modules]\r\n\"ModuleString\"=\"rt0101\"\r\n\"RepNum\"=\"rt0101\"\r\n",
       "store-course-taken registry User"},
      {"Glossary/Glossary Till.txt", "^A\r\n%A\r\n~a\r\n", "store-glossary-open Glossary/Glossary Till.txt"},
      {"Glossary/Glossary Till.txt", "A: a\r\n", "store-glossary-empty Glossary/Glossary Till.txt"},
  };
  Sources sources;
  sources.Write("rt0101/3.gift", "Q {T}");
  sources.Write("attachments/x.txt", "x");
  const auto course = sources.Build();
  ASSERT_TRUE(course) << sources.Said().join('\n').toStdString();
  for (const auto& row : rows) {
    const QTemporaryDir place;
    const QString store = place.filePath("store");
    WriteCourseFolder(*course, store);
    WriteFileAt(store + '/' + row.File, row.Content);
    sources.said = {};
    CheckStore(store, sources.said);
    const QString said = sources.Said().value(0);
    EXPECT_TRUE(*row.Said == '\0' ? said.isEmpty() : said.startsWith(row.Said))
        << row.File << ": " << row.Said << " was " << sources.Said().join('\n').toStdString();
    for (const Finding& finding : sources.said.All())
      EXPECT_NE(KitText(finding.Key, finding.Arguments), "") << finding.Key.toStdString();
  }
}

TEST(Check, RecordsThatANewVersionTouchesAreTold) {
  const struct {
    QByteArray Record;
    const char* Said;
  } rows[] = {
      {"\"rt0101\",\"0002.txm\"\r\n\"rt0101\",\"_Start_\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\"\r\n", ""},
      {"\"rt0109\",\"0002.txm\"\r\n", "learner-module-gone %1 rt0109"},
      {"\"rt0101\",\"0009.txm\"\r\n", "learner-page-gone %1 rt0101/0009.txm"},
      {"\"rt0101\",\"0001.txm\"\r\n\"rt0101\",\"_Start__End_\",\"\",\"\",\"\",\"\",\"\",\"\",\"\",\"\"\r\n",
       "learner-topic-gone %1 End, rt0101"},
      {"\"rt0101\",\"0001.txm\"\r\n\"rt0101\",\"__\",\"1\",\"50\",\"10\",\"\",\"50\",\"10\",\"\",\"50\"\r\n",
       "learner-test-gone %1 rt0101"},
      {"\"rt0101", "learner-unreadable %1"},
  };
  Sources sources;
  WriteCourseFolder(*sources.Build(), sources.Beside("built"));
  const QString learner = sources.Beside("data/" + UserDataBelow() + "/Ann Lee");
  const QString record = learner + "/Till";
  WriteFileAt(learner + "/User", "x");
  for (const auto& row : rows) {
    WriteFileAt(record, row.Record);
    sources.said = {};
    CheckLearners(sources.Beside("built"), sources.Beside("data"), sources.said);
    const QString wanted = QString(row.Said).replace("%1", record), said = sources.Said().join('\n');
    EXPECT_TRUE(wanted.isEmpty() ? said.isEmpty() : said.startsWith(wanted))
        << row.Said << " was " << said.toStdString();
  }
}
