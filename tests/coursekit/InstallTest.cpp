// Courses come into a store and go out of it, and nothing of another course is touched.
#include "coursekit/install/Install.h"

#include <archive.h>
#include <archive_entry.h>
#include <gtest/gtest.h>

#include "Sources.h"
#include "coursekit/build/CourseOutput.h"
#include "coursekit/install/StoreChange.h"
#include "platform/RunTimeError.h"
#include "platform/files/StoreLock.h"

namespace {

using Files = QMap<QString, QByteArray>;

class Store {
 public:
  Store() { QDir().mkpath(Path("registry")); }
  QString Path(const QString& name = {}) const { return folder_.filePath(name); }

  // What became of it: the error, the first finding's key, or nothing.
  static QString Said(const std::function<void(Findings&)>& act) {
    Findings findings;
    QString error;
    try {
      act(findings);
    } catch (const RunTimeError& failure) {
      error = failure.Description();
    }
    return !error.isEmpty() || !findings.HasErrors() ? error : findings.All().constFirst().Key;
  }
  QString Install(const QString& from) const {
    return Said([&](Findings& findings) { InstallCourse(from, folder_.path(), findings); });
  }
  QString Remove(const QString& course) const {
    return Said([&](Findings&) { RemoveCourse(course, folder_.path()); });
  }
  Files Content() const {
    Files files = FilesBelow(folder_.path());
    files.remove("store.lock");
    return files;
  }
  QStringList Names() const { return Content().keys(); }

 private:
  QTemporaryDir folder_;
};

// A course of modules with a page each, built into a folder.
QString Built(const Sources& sources, const QString& name, const QStringList& modules,
              const QByteArray& words) {
  const QString source = sources.Beside("source " + name), built = sources.Beside("built " + name);
  QDir(source).removeRecursively();
  QByteArray file = "name = \"" + name.toUtf8() + "\"\n";
  for (const QString& module : modules) {
    file += "[[module]]\nid = \"" + module.toUtf8() + "\"\nname = \"x\"\n";
    WriteFileAt(source + '/' + module + "/1.md", "---\ntopic: Start\n---\n" + words);
  }
  WriteFileAt(source + "/course.toml", file);
  WriteFileAt(source + "/attachments/list.txt", words);
  WriteFileAt(source + "/glossary.md", "## Till\n" + words);
  WriteFileAt(source + "/trademark/1.md", "![](logo.png)");
  WriteFileAt(source + "/trademark/logo.png", Picture());
  Findings findings;
  WriteCourseFolder(*BuildCourse(SourceFolder(source), findings), built);
  return built;
}

QString Zip(const QString& path, const QStringList& names, unsigned kind = AE_IFREG) {
  archive* zip = archive_write_new();
  archive_write_set_format_zip(zip);
  archive_write_open_filename(zip, path.toUtf8().constData());
  for (const QString& name : names) {
    archive_entry* entry = archive_entry_new();
    archive_entry_set_pathname(entry, name.toUtf8().constData());
    archive_entry_set_filetype(entry, kind);
    archive_entry_set_perm(entry, 0644);
    archive_entry_set_size(entry, kind == AE_IFREG ? 1 : 0);
    if (kind == AE_IFLNK) archive_entry_set_symlink(entry, "/etc/passwd");
    archive_write_header(zip, entry);
    if (kind == AE_IFREG) archive_write_data(zip, "x", 1);
    archive_entry_free(entry);
  }
  archive_write_free(zip);
  return path;
}

}  // namespace

TEST(Install, ACourseComesChangesAndGoesBesideOneThatSharesAModule) {
  const Sources sources;
  const Store store;
  WriteFileAt(store.Path("data/Ann/User"), "x");
  WriteFileAt(store.Path("glossary/Glossary.txt"), "x");  // as another system spells the folder
  const QString other = Built(sources, "Till_2", {"shared", "other1"}, "words");
  EXPECT_EQ(store.Install(other), "");
  const Files before = store.Content();
  EXPECT_EQ(store.Install(Built(sources, "Till", {"shared", "till01"}, "words")), "");
  EXPECT_TRUE(before.contains("glossary/Glossary Till_2.txt") &&
              before.contains("About/Trademark Till_2_logo.png"));
  EXPECT_EQ(ListCourses(store.Path()).size(), 2);

  EXPECT_EQ(store.Install(Built(sources, "Till", {"till02", "shared"}, "words")), "");
  EXPECT_FALSE(store.Names().contains("till01/Map.txt"));
  EXPECT_TRUE(store.Names().contains("till02/Map.txt"));
  const Files second = store.Content();
  EXPECT_EQ(store.Install(Built(sources, "Till", {"till02", "shared"}, "others")), "install-used");
  EXPECT_EQ(store.Content(), second);

  EXPECT_EQ(store.Remove("till"), "");
  EXPECT_EQ(store.Content(), before);
  EXPECT_TRUE(store.Remove("Till").contains("no course \"Till\""));
}

TEST(Install, WhatIsNoWholeCourseOfItsOwnIsRefusedAndTheStoreStays) {
  const Sources sources;
  const Store store;
  const QString good = Built(sources, "Till", {"till01"}, "words");
  int copies = 0;
  const auto changed = [&](const QString& file, const QByteArray& bytes) {
    const QString copy = sources.Beside("copy " + QString::number(++copies));
    for (const auto& [name, content] : FilesBelow(good).asKeyValueRange())
      WriteFileAt(copy + '/' + name, content);
    WriteFileAt(copy + '/' + file, bytes);
    return copy;
  };
  const QString linked = changed("x/y", "x");
  QDir(linked + "/x").removeRecursively();
  QFile::link("/etc/passwd", linked + "/till01/0002.txm");
  WriteFileAt(store.Path("till03/mine.txt"), "x");
  WriteFileAt(store.Path("registry/Flash.reg"), "REGEDIT4\r\n");
  const QString zip = sources.Beside("a.tallowcourse");
  QByteArray damaged = BytesAt(Zip(zip + "6", {"x"}));
  const qsizetype directory = damaged.indexOf("PK\1\2");
  damaged[directory + 16] = static_cast<char>(damaged.at(directory + 16) ^ 1);  // of the checksum
  WriteFileAt(zip + "6", damaged);
  const struct {
    QString Parcel;
    QString Said;
  } rows[] = {
      {zip + "6", "CRC"},
      {changed("registry/Till.reg",
               "REGEDIT4\r\n[-HKEY_LOCAL_MACHINE\\SOFTWARE\\TLMS\\Tallowmere Manager 1.0\\Other]\r\n"
               "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TLMS\\Tallowmere Manager 1.0\\Till\\Modules]\r\n"
               "\"ModuleString\"=\"till01\"\r\n"),
       "does not hold one course"},
      {sources.Beside("none"), "There is no"},
      {sources.Beside("source Till"), "build them first"},
      {changed("data/User", "x"), "holds \"data\""},
      {changed("registry/Other.reg", "REGEDIT4\r\n"), "holds \"registry/Other.reg\""},
      {changed("About/About Other.txt", "x"), "holds \"About/About Other.txt\""},
      {changed("registry/Till.reg", "x"), "does not hold one course"},
      {changed("till01/0001.txm", "x"), "page-unreadable"},
      {linked, "is no file: \"till01/0002.txm\""},
      {Built(sources, "Three", {"till03"}, "x"), "install-in-way"},
      {Built(sources, "Flash", {"till04"}, "x"), "install-registry-taken"},
      {changed("a.zip", "x") + "/a.zip", "a.zip"},
      {Zip(zip + "1", {"../x"}), "can't be taken: \"../x\""},
      {Zip(zip + "2", {"/etc/x"}), "can't be taken: \"/etc/x\""},
      {Zip(zip + "3", {"a\\..\\x"}), "can't be taken"},
      {Zip(zip + "4", {"a/x", "A/x"}), "\"A/x\" twice"},
      {Zip(zip + "5", {"x"}, AE_IFLNK), "is no file"},
  };
  const Files before = store.Content();
  for (const auto& row : rows) {
    const QString said = store.Install(row.Parcel);
    EXPECT_TRUE(said.contains(row.Said)) << row.Said.toStdString() << " was " << said.toStdString();
    EXPECT_EQ(store.Content(), before) << row.Said.toStdString();
  }
}

TEST(Install, AReaderOfTheStoreIsToldOfAndNotDisturbed) {
  const Sources sources;
  const Store store;
  const QString course = Built(sources, "Till", {"till01"}, "words");
  StoreLock player, second;
  ASSERT_EQ(player.Take(store.Path(), StoreLock::Use::Read), StoreLock::Outcome::Taken);
  ASSERT_EQ(second.Take(store.Path(), StoreLock::Use::Read), StoreLock::Outcome::Taken);
  const QString said = store.Install(course);
  EXPECT_TRUE(said.contains("process " + QString::number(getpid()))) << said.toStdString();
  EXPECT_EQ(store.Content(), Files());
  player.Release();
  second.Release();
  EXPECT_EQ(store.Install(course), "");
}

TEST(StoreChange, AStepThatFailsLeavesTheStoreAsItWas) {
  for (const auto swap : {StoreChange::Swap::Exchange, StoreChange::Swap::TwoRenames}) {
    const Store store;
    for (const char* name :
         {"a/1", "gone/1", "file", "staging/new/a/2", "staging/new/b/1", "staging/new/file"})
      WriteFileAt(store.Path(name), name);
    Files before = store.Content();
    using Kind = StoreStep::Kind;
    const QList<StoreStep> steps = {
        {Kind::Put, "a", "a"}, {Kind::Put, "b", "b"}, {Kind::Put, "file", "file"}, {Kind::Drop, "gone", {}}};
    const QList<StoreStep> failing = steps + QList<StoreStep>{{Kind::Put, "c", "missing"}};
    EXPECT_NE(
        Store::Said([&](Findings&) { StoreChange(store.Path(), swap).Run(store.Path("staging"), failing); }),
        "");
    before.removeIf([](const auto& file) { return file.key().startsWith("staging"); });
    EXPECT_EQ(store.Content(), before);
    for (const char* name : {"staging/new/a/2", "staging/new/b/1", "staging/new/file"})
      WriteFileAt(store.Path(name), name);
    StoreChange(store.Path(), swap).Run(store.Path("staging"), steps);
    EXPECT_EQ(store.Names(), QStringList({"a/2", "b/1", "file"}));
    EXPECT_EQ(store.Content()["file"], "staging/new/file");
  }
}
