// From a course's sources to what the player reads, and what the kit says of mistakes in them.
#include <gtest/gtest.h>

#include "Sources.h"
#include "content/REGISTRY.h"
#include "coursekit/PageFacts.h"
#include "frame/Settings.h"
#include "pages/common/PageLink.h"
#include "platform/files/FileBytes.h"
#include "platform/files/Paths.h"
#include "platform/registry/Registry.h"
#include "reference/GlossaryReader.h"

namespace {

// What stands in the built course, as a store.
class BuiltStore {
 public:
  explicit BuiltStore(const BuiltCourse& course) {
    for (const auto& [path, file] : course.Files)
      WriteFileAt(folder_.filePath(path),
                  file.CopyOf.isEmpty() ? file.Bytes : ReadFile(file.CopyOf, kPageLimit));
    SetProgramFolder(folder_.path());
    gAppPath = ProgramFolder();
    LoadInstalledRegistry({folder_.filePath("registry")});
    QStringList problems;
    LoadInstalledCourses(kCatalogueRoot, gCourses, problems);
  }
  ~BuiltStore() { SetProgramFolder({}); }

  static PageFacts Page(const QString& path) {
    return ReadPageFacts(ReadProgramFile(path, kPageLimit), path, [&path](const QString& name) {
      return ReadProgramFile(path.section('/', 0, 0) + '/' + name, kPageLimit);
    });
  }

 private:
  QTemporaryDir folder_;
};

class Pieces : public GlossaryWriter {
 public:
  void WriteGlosLetter(const QString& text) override { all += '^' + text; }
  void WriteGlosTerm(const QString& text) override { all += '%' + text; }
  void WriteGlosDefinition(const QString& text) override { all += '~' + text; }
  QString all;
};

}  // namespace

TEST(Build, ThePlayerReadsACourseAsItsAuthorMeantIt) {
  Sources sources;
  sources.Write("course.toml",
                "name = \"Käse\"\nrepository = \"7\"\n[[module]]\nid = \"rt0101\"\nname = \"Basics\"\n"
                "[[module]]\nid = \"rt0102\"\nname = \"Goods\"\npages = [\"b.html\", \"a.rtf\"]\n");
  sources.Write(
      "rt0101/1-one.md",
      "---\ntopic: \"Start: here\"\n---\n# One\n\nTo [the shelf](../rt0102/b.html#On-Top), [the "
      "end](#the-end), "
      "[rich](../rt0102/a.rtf), [the web](http://www.example.com/A) and [mail](mailto:a@example.com).\n"
      "A [list](../attachments/my%20list.txt), a [hidden one](../attachments/hidden/more.txt).\n\n"
      "![Words](../pictures/Till%201.png \"40x30\") ![Words](till.png)\n\n| A | B |\n|---|---|\n| 1 | 2 |\n\n"
      "## The end!\n");
  sources.Write("rt0101/till.png", Picture());
  sources.Write("pictures/Till 1.png", Picture("jpeg"));
  sources.Write("rt0102/a.rtf",
                "{\\rtf1 {\\field{\\*\\fldinst HYPERLINK \"rt0101\\\\0002.txm_\"}{\\fldrslt back}}}");
  sources.Write("rt0102/b.html",
                "---\ntopic: Goods\n---\n<p>x</p><a name=\"On-Top\"></a><p>Top &amp; more</p>");
  sources.Write("attachments/my list.txt", "x");
  sources.Write("attachments/hidden/more.txt", "x");
  sources.Write("glossary.md", "# Words\n## Till\nWhere money\nlies.\n## basket\nAll items.\n");
  sources.Write("about.txt", "About\n");
  sources.Write("trademark/1.md", "Ours");
  const auto course = sources.Build();
  ASSERT_TRUE(course) << sources.Said().join('\n').toStdString();
  EXPECT_EQ(sources.Said(), QStringList());

  const BuiltStore store(*course);
  ASSERT_EQ(gCourses.size(), 1);
  EXPECT_EQ(gCourses[0].CourseName, "Käse");
  EXPECT_EQ(gCourses[0].RepNum, "7");
  ASSERT_EQ(gCourses[0].Modules.size(), 2);
  EXPECT_EQ(gCourses[0].Modules[0].Topics, QStringList("Start: here"));
  EXPECT_EQ(gCourses[0].Modules[1].ModuleName, "Goods");
  QStringList links;
  for (const PageLink& link : BuiltStore::Page("rt0101/0001.txm").Links)
    links.append((link.Kind == PageLink::kPlace ? "on " : "to ") + link.Target);
  EXPECT_EQ(links, QStringList({"to rt0102\\0001.txm_#On-Top", "on the-end", "to rt0102\\0002.txm_",
                                "to http://www.example.com/A", "to mailto:a@example.com", "to my list.txt",
                                "to more.txt"}));
  EXPECT_TRUE(BuiltStore::Page("rt0101/0001.txm").MissingPictures.isEmpty());
  EXPECT_TRUE(BuiltStore::Page("rt0102/0001.txm").Places.contains("on-top"));
  for (const char* file : {"Repository/7/my list.txt", "Repository/7/Hidden/more.txt", "About/About Käse.txt",
                           "About/Trademark Käse_1.txm", "rt0101/Till 1.png"})
    EXPECT_TRUE(ProgramFileExists(file)) << file;
  Pieces glossary;
  GlossaryReader(*OpenGlossary("Käse"), glossary).ReadInGlosInfo(10000);
  EXPECT_EQ(glossary.all, "^B%basket~All items.^T%Till~Where money lies.");

  const auto again = sources.Build();
  ASSERT_EQ(again->Files.size(), course->Files.size());
  for (const auto& [path, file] : again->Files)
    EXPECT_EQ(file.Bytes, course->Files.at(path).Bytes) << path.toStdString();
}

TEST(Build, APageOfAWordProcessorHasItsLinksAndPicturesAsThePlayerReadsThem) {
  Sources sources;
  // What LibreOffice writes: addresses of files, pictures in the page, dates, a version.
  WriteFileAt(sources.Beside("bin/soffice"),
              "#!/bin/sh\nfor a; do [ \"$last\" = --outdir ] && out=$a; last=$a; done\n"
              "cp \"$last\" \"$out/$(basename \"${last%.*}\").html\"\n");
  QFile::setPermissions(sources.Beside("bin/soffice"), QFile::ExeOwner | QFile::ExeUser | QFile::ReadOwner);
  const QByteArray root = QFileInfo(sources.Path()).canonicalFilePath().toUtf8();
  const QByteArray page =
      "<html><head><meta name=\"created\" content=\"2026-01-02\"></head><body><p class=\"western\">\n"
      "topic: <b>Goods</b> &amp; more</p><h1>Goods</h1><a href=\"file://" +
      root + "/rt0101/2-two.md#two\">a</a><a href=\"#there\">b</a><a name=\"there\"></a>" +
      "<img src=\"data:image/png;base64," + Picture().toBase64() + "\">x</body></html>";
  sources.Write("rt0101/3-word.odt", page);
  sources.Write("rt0101/4.rtf", QByteArray(page).replace("Goods", "Rich") + "<!-- HYPERLINK \"file:// -->");
  const QByteArray path = qgetenv("PATH");
  qputenv("PATH", "/nowhere");
  EXPECT_FALSE(sources.Build());
  EXPECT_EQ(sources.Said().value(0), "word-no-office rt0101/3-word.odt");
  qputenv("PATH", sources.Beside("bin").toUtf8() + ':' + path);
  const auto course = sources.Build();
  qputenv("PATH", path);
  ASSERT_TRUE(course) << sources.Said().join('\n').toStdString();
  const QByteArray built = course->Files.at("rt0101/0003.txm").Bytes;
  EXPECT_TRUE(built.contains("href=\"rt0101\\0002.txm_#two\"") && !built.contains("2026"))
      << built.constData();
  EXPECT_TRUE(course->Files.at("rt0101/Map.txt").Bytes.contains("0003.txm*Topic*Goods & more\r\n"));
  EXPECT_TRUE(course->Files.at("rt0101/0004.txm").Bytes.contains("0002.txm_#two"));
}

TEST(Build, MistakesAreToldWithTheirPlace) {
  const QByteArray head = "name = \"Till\"\n[[module]]\nid = \"rt0101\"\nname = \"Basics\"\n";
  const QByteArray page = "---\ntopic: Start\n---\n";
  const struct {
    const char* File;
    QByteArray Content;
    const char* Said;
  } rows[] = {
      {"course.toml", "name = \"Till\n", "course-file course.toml:1:13"},
      {"course.toml", "name = \"Till\"\n[[module]]\n[[module]]\n", "course-missing-key course.toml:2 id"},
      {"course.toml", "[[ = module]]\n", "course-file course.toml:1:4"},
      {"course.toml", "name = \"A/B\"\n" + head.mid(14), "course-name course.toml:1:8 A/B"},
      {"course.toml", "nmae = \"Till\"\n" + head.mid(14), "course-unknown-key course.toml:1 nmae"},
      {"course.toml", "name = \"Till\"\n", "course-no-modules course.toml:1"},
      {"course.toml", head + "[[module]]\nid = \"rt0101\"\nname = \"x\"\n",
       "module-twice course.toml:6:6 rt0101"},
      {"course.toml", head + "[[module]]\nid = \"RT0102\"\nname = \"x\"\n",
       "module-id course.toml:6:6 RT0102"},
      {"course.toml", head + "[[module]]\nid = \"rt0102\"\nname = \"x\"\n",
       "module-no-folder course.toml:5 rt0102"},
      {"course.toml", head + "pages = [\"1-one.md\", \"no.md\"]\n",
       "page-listed-missing course.toml:2 no.md, rt0101"},
      {"course.toml", head + "pages = [\"1-one.md\"]\n", "page-not-listed rt0101/2-two.md course.toml"},
      {"course.toml", head + "practice = [\"no.gift\"]\n", "practice-no-test course.toml:2 no.gift, rt0101"},
      {"rt0101/1-one.rtf", "{\\rtf1 x}", "page-two-sources rt0101/1-one.rtf rt0101/1-one.md"},
      {"rt0101/1-one.md", "# One\n", "topic-none-first rt0101/1-one.md:1 rt0101"},
      {"rt0101/1-one.md", "---\ntopic: x\n", "front-open rt0101/1-one.md:1"},
      {"rt0101/1-one.md", "---\ntopic: x\nTopc: y\n---\n", "front-unknown rt0101/1-one.md:3 Topc"},
      {"rt0101/1-one.md", "---\ntopic: a_b\n---\n", "topic-part rt0101/1-one.md:2 a_b"},
      {"rt0101/1-one.md", page + "\xE4", "source-encoding rt0101/1-one.md:4"},
      {"rt0101/2-two.md", "---\ntopic: Start\n---\n", "topic-twice rt0101/2-two.md:2 Start, rt0101/1-one.md"},
      {"rt0101/2-two.md", "# x\nSee [a](3.md) now", "link-nowhere rt0101/2-two.md:2:9 3.md"},
      {"rt0101/2-two.md", "[a](../../outside.md)", "link-nowhere rt0101/2-two.md:1:5 ../../outside.md"},
      {"rt0101/2-two.md", "[a](../course.toml)", "link-no-page rt0101/2-two.md:1:5 course.toml"},
      {"rt0101/2-two.md", "[a](file:///etc/passwd)", "link-scheme rt0101/2-two.md:1:5 file:///etc/passwd"},
      {"rt0101/2-two.md", "[a]()", "link-empty rt0101/2-two.md"},
      {"rt0101/2-two.md", "[a](1-one.md#no-place)", "place-missing rt0101/2-two.md:1:5 no-place"},
      {"rt0101/2-two.md", "\n[a](#two)", "place-missing rt0101/2-two.md:2:5 two"},
      {"rt0101/2-two.md", "![a](no.png)", "picture-missing rt0101/2-two.md:1:6 no.png"},
      {"rt0101/2-two.md", "![a](1-one.md)", "picture-kind rt0101/2-two.md:1:6 rt0101/1-one.md"},
      {"rt0101/2-two.md", "![a](../damaged.png)", "picture-unreadable rt0101/2-two.md damaged.png"},
      {"rt0101/2-two.md", "![a](../film.wmv)", "movie-no-size rt0101/2-two.md:1:6 ../film.wmv"},
      {"rt0101/3.rtf", "{\\rtf1 {\\field{\\*\\fldinst HYPERLINK \"rt0109\\\\0002.txm_\"}{\\fldrslt x}}}",
       "link-no-such-page rt0101/3.rtf rt0109\\0002.txm_"},
      {"rt0101/3.rtf", "plain", "page-no-rich-text rt0101/3.rtf"},
      {"page-names.txt", "rt0101/1.txm\tx\n", "names-line page-names.txt:1 rt0101/1.txm\tx"},
      {"glossary.md", "## A\n50 % of it\n", "glossary-mark glossary.md:2:4 %"},
      {"glossary.md", "## A\n\n## B\nb\n", "glossary-no-meaning glossary.md:1 A"},
      {"glossary.md", "## A\na\n## a\nb\n", "glossary-twice glossary.md:3 a"},
  };
  for (const auto& row : rows) {
    Sources sources;
    sources.Write("damaged.png", Picture().left(40));
    sources.Write("film.wmv", "x");
    WriteFileAt(sources.Beside("outside.md"), "x");
    sources.Write(row.File, row.Content);
    sources.Build();
    const QStringList said = sources.Said();
    EXPECT_TRUE(said.value(0).startsWith(row.Said)) << row.Said << " was " << said.join('\n').toStdString();
    for (const Finding& finding : sources.said.All())
      EXPECT_NE(KitText(finding.Key, finding.Arguments), "") << finding.Key.toStdString();
  }
}
