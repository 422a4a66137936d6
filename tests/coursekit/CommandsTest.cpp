// The program's verbs, as an author types them.
#include "coursekit/Commands.h"

#include <archive.h>
#include <archive_entry.h>
#include <gtest/gtest.h>

#include <sstream>

#include "Sources.h"

namespace {

struct Ran {
  int Exit;
  QString Out, Err;
};

Ran Type(const QStringList& arguments) {
  std::vector<std::string> words;
  for (const QString& argument : arguments)
    words.push_back(argument.toStdString());
  std::ostringstream out, err;
  const KitExit exit = RunKit(words, out, err);
  return {static_cast<int>(exit), QString::fromStdString(out.str()), QString::fromStdString(err.str())};
}

QMap<QString, QByteArray> InZip(const QString& path) {
  QMap<QString, QByteArray> files;
  archive* zip = archive_read_new();
  archive_read_support_format_zip(zip);
  EXPECT_EQ(archive_read_open_filename(zip, path.toUtf8().constData(), 4096), ARCHIVE_OK);
  for (archive_entry* entry = nullptr; archive_read_next_header(zip, &entry) == ARCHIVE_OK;) {
    QByteArray bytes(static_cast<qsizetype>(archive_entry_size(entry)), '\0');
    EXPECT_EQ(archive_read_data(zip, bytes.data(), static_cast<size_t>(bytes.size())), bytes.size());
    files.insert(QString::fromUtf8(archive_entry_pathname_utf8(entry)), bytes);
  }
  archive_read_free(zip);
  return files;
}

}  // namespace

TEST(Commands, ANewCourseBuildsIntoAFolderAndIntoAFileAlike) {
  const QTemporaryDir place;
  const QString source = place.filePath("first"), folder = place.filePath("out"),
                file = place.filePath("c.tallowcourse");
  ASSERT_EQ(Type({"new", source}).Exit, 0);
  const Ran built = Type({"build", source, "-o", folder});
  EXPECT_EQ(built.Exit, 0);
  EXPECT_EQ(built.Err, "");
  EXPECT_TRUE(QFile::exists(source + "/page-names.txt"));
  ASSERT_EQ(Type({"build", source, "-o", file}).Exit, 0);
  const QByteArray bytes = BytesAt(file);
  EXPECT_EQ(FilesBelow(folder), InZip(file));
  EXPECT_TRUE(FilesBelow(folder).contains("rt0101/0001.txm"));

  // Again, under another clock and another language.
  qputenv("TZ", "Asia/Tokyo");
  tzset();
  ASSERT_EQ(Type({"build", source + '/', "-o", file}).Exit, 0);
  qunsetenv("TZ");
  EXPECT_EQ(BytesAt(file), bytes);
  WriteFileAt(source + "/rt0101/4.md", "# More\n");
  ASSERT_EQ(Type({"build", source, "-o", folder}).Exit, 0);
  EXPECT_TRUE(FilesBelow(folder).contains("rt0101/0004.txm"));
  EXPECT_EQ(QDir(place.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
            QStringList({"c.tallowcourse", "first", "out"}));
}

TEST(Commands, WhatGoesWrongIsToldAndLeavesThingsAsTheyWere) {
  Sources sources;
  sources.Write("rt0101/2-two.md", "See [a](3.md)");
  const QString source = sources.Path().chopped(1);
  WriteFileAt(sources.Beside("mine/letter.txt"), "x");
  WriteFileAt(sources.Beside("whole/course.toml"),
              "name = \"A\"\n[[module]]\nid = \"rt0101\"\nname = \"B\"\n");
  WriteFileAt(sources.Beside("whole/rt0101/1.md"), "---\ntopic: x\n---\n");
  const struct {
    QStringList Words;
    int Exit;
    QString Said;
  } rows[] = {
      {{"build", source, "-o", sources.Beside("out")},
       1,
       source + "/rt0101/2-two.md:1:9: error: There is no file \"3.md\"."},
      {{"build", sources.Beside("none")}, 1, "error: There is no folder"},
      {{"build", sources.Beside("whole"), "-o", sources.Beside("mine")},
       1,
       "error: \"" + sources.Beside("mine") + "\" holds other"},
      {{"build", sources.Beside("whole"), "-o", sources.Beside("whole/out")},
       1,
       "error: The course can't be built into"},
      {{"build", sources.Beside("whole"), "-o", "/proc/none/out"}, 1, "error: \"/proc/none/out"},
      {{"new", sources.Beside("mine")}, 1, "error: The folder"},
      {{}, 2, "A subcommand is required"},
      {{"build"}, 2, "SOURCE is required"},
      {{"biuld"}, 2, "A subcommand is required"},
  };
  for (const auto& row : rows) {
    const Ran ran = Type(row.Words);
    EXPECT_EQ(ran.Exit, row.Exit) << row.Words.join(' ').toStdString();
    EXPECT_TRUE(ran.Err.contains(row.Said))
        << row.Said.toStdString() << " is not in " << ran.Err.toStdString();
  }
  EXPECT_FALSE(QFile::exists(sources.Beside("out")));
  EXPECT_FALSE(QFile::exists(source + "/page-names.txt"));
  EXPECT_EQ(FilesBelow(sources.Beside("mine")).keys(), QStringList("letter.txt"));
  for (const QStringList& help :
       {QStringList{"--help"}, QStringList{"new", "--help"}, QStringList{"build", "--help"}}) {
    EXPECT_EQ(Type(help).Exit, 0);
    EXPECT_TRUE(Type(help).Out.contains("--help"));
  }
}

TEST(Commands, APreviewGoesOnAtThePageThatWasSaved) {
  Sources sources;
  const QString player = sources.Beside("program/tallowmere"), log = sources.Beside("log");
  WriteFileAt(sources.Beside("program/registry/Flash.reg"), "REGEDIT4\r\n");
  WriteFileAt(sources.Beside("program/registry/Other.reg"),
              "REGEDIT4\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\TLMS\\Tallowmere Manager 1.0\\Other]\r\n");
  WriteFileAt(sources.Beside("program/GUIimages/a.png"), "x");
  // At its first start it saves a broken page and then a good one, and waits; at its second it ends.
  WriteFileAt(player,
              QString("#!/bin/sh\ncd $(dirname $0)\nsources='%1'\n"
                      "echo start $(ls registry GUIimages) $(cat data/*/UserData/Preview*/Till) >> '%2'\n"
                      "[ $(grep -c start '%2') = 2 ] && exit\n"
                      "echo '[x](no.md)' > $sources/rt0101/2-two.md; sleep 1\n"
                      "echo '# New' > $sources/rt0101/2-two.md; exec sleep 60\n")
                  .arg(sources.Path(), log)
                  .toUtf8());
  QFile::setPermissions(player, QFile::permissions(player) | QFile::ExeOwner | QFile::ExeUser);
  const Ran ran = Type({"preview", sources.Path(), "--player", player, "--watch"});
  EXPECT_EQ(ran.Exit, 0);
  EXPECT_TRUE(ran.Err.contains("There is no file \"no.md\"")) << ran.Err.toStdString();
  const QList<QByteArray> starts = BytesAt(log).trimmed().split('\n');
  ASSERT_EQ(starts.size(), 2) << ran.Err.toStdString();
  EXPECT_EQ(starts[0], "start GUIimages: a.png registry: Flash.reg Till.reg");
  EXPECT_TRUE(starts[1].contains("\"rt0101\",\"0002.txm\""))
      << starts[1].constData() << ran.Err.toStdString();
}
