// What a course can write: no name, path or link in it reaches a file outside the program folder.
#include <sys/stat.h>

#include <QDir>

#include "content/REGISTRY.h"
#include "frame/ProgramState.h"
#include "frame/Settings.h"
#include "platform/RunTimeError.h"
#include "platform/files/CodePage.h"
#include "platform/forms/Label.h"
#include "platform/forms/ListBox.h"
#include "platform/forms/SaveDialog.h"
#include "platform/forms/TextPane.h"
#include "platform/richtext/TextControl.h"
#include "reference/About.h"
#include "reference/Repository.h"
#include "reference/Trademark.h"
#include "signin/Resume.h"
#include "support/Opened.h"
#include "support/OutOfBounds.h"

namespace {

using OutOfBoundsCourse = OutOfBoundsTest;

const QString kNul{QChar::Null};

QByteArray Utf8File(const QString& text) {
  return "\xEF\xBB\xBF" + text.toUtf8();
}

// Six characters each, as a module list holds them.
TEST_F(OutOfBoundsCourse, AModuleIdFindsNoFolderOutside) {
  AddTwoModules();
  QDir().mkpath(store.PathBeside("o"));
  QFile::link(outside.Folder() + "/Map.txt", store.PathBeside("o/Map.txt"));
  Link(outside.Folder(), "linkto");
  Link(store.Path("linkto"), "chain1");
  Link("../out", "relatv");
  Link(outside.Folder() + "/nothing", "danglg");
  Link("loop01", "loop01");
  for (const char* id : {"rtmap1", "rtmap2", "rtfifo", "rtdir1", "rtzero"})
    QDir().mkpath(store.Path(QLatin1String(id)));
  Link(outside.Folder() + "/Map.txt", "rtmap1/Map.txt");
  Link("../rtmap1/Map.txt", "rtmap2/Map.txt");
  mkfifo(QFile::encodeName(store.Path("rtfifo/Map.txt")).constData(), 0600);
  QDir().mkpath(store.Path("rtdir1/Map.txt"));
  Link("/dev/zero", "rtzero/Map.txt");

  const QString ids[] = {
      "../out",    "..\\out", "../Out",      "..\\OUT",     "./../o",           "/../o/",
      "\\..\\o/",  ".\\../o", "../o/.",      "//out/",      "\\\\out\\",        "......",
      "linkto",    "LINKTO",  "chain1",      "relatv",      "danglg",           "loop01",
      "rtmap1",    "rtmap2",  "rtfifo",      "rtdir1",      "rtzero",           "%2e%2e",
      "~/out/",    "~root/",  "file:/",      "CON   ",      "COM1.t",           "/dev/.",
      "．．／out", "..∕out",  "..\u2044out", "\u202E../o/", "\u0001../o\u007F", "../o" + kNul + "/",
  };
  for (const QString& id : ids) {
    ASSERT_EQ(id.size(), 6) << id.toStdString();
    QList<ModuleRecord> modules;
    bool allInstalled = true;
    QStringList problems;
    ParseModuleString(id, modules, "Cash desk", allInstalled, problems);
    EXPECT_TRUE(modules.isEmpty()) << id.toStdString();
    EXPECT_FALSE(allInstalled) << id.toStdString();
    EXPECT_EQ(problems, QStringList()) << id.toStdString();
    ExpectUntouched(id);
  }
  QList<ModuleRecord> modules;
  bool allInstalled = true;
  QStringList problems;
  ParseModuleString("rt0101", modules, "Cash desk", allInstalled, problems);
  EXPECT_EQ(modules.size(), 1);
}

TEST_F(OutOfBoundsCourse, APageNameShowsNoFileOutside) {
  QStringList names = {
      "../../out/0001.txm",
      "..\\..\\out\\0001.txm",
      "..\\../out\\0001.txm",
      "../../OUT/0001.TXM",
      "./.././..//out/0001.txm",
      "nowhere/../../../out/0001.txm",
      outside.Folder() + "/0001.txm",
      "/../.." + outside.Folder() + "/0001.txm",
      "link.txm",
      "LINK.TXM",
      "chain.txm",
      "relative.txm",
      "folder/0001.txm",
      "dangling.txm",
      "loop.txm",
      "zero.txm",
      "fifo.txm",
      "/dev/zero",
      "../../../../../../dev/zero",
      "CON",
      "COM1.txm",
      "0001.txm.",
      "0001.txm ",
      "0001.txm::$DATA",
      "0001.txm" + kNul + ".txm",
      "../../out/0001.txm" + kNul,
      "\u0001\u001B[2J.txm",
      "．．／．．／out／0001.txm",
      "..\u2215..\u2215out\u22150001.txm",
      "\u202Emxt.1000",
      "~/0001.txm",
      "~root/0001.txm",
      "$HOME/0001.txm",
      "%2e%2e/%2e%2e/out/0001.txm",
      "..%2f..%2fout%2f0001.txm",
      "file://" + outside.Folder() + "/0001.txm",
      "file:../../out/0001.txm",
      "\\\\localhost" + outside.Folder() + "\\0001.txm",
      "//?/" + outside.Folder() + "/0001.txm",
      "C:\\0001.txm",
      ":/tallowmere/descriptions.txt",
      "qrc:/tallowmere/descriptions.txt",
      QString(300, u'n') + ".txm",
      QString("n/").repeated(2500) + "0001.txm",
      QString("../").repeated(1500) + "0001.txm",
      QString(100, u'田') + ".txm",
  };
  AddTwoModules();
  QString map = "map\r\nCustomers\r\nmap\r\n0001.txm*Topic*Greeting\r\n";
  for (const QString& name : names)
    map += name + "*Page*\r\n";
  store.Write("rt0101/Map.txt", Utf8File(map));
  Link(outside.Folder() + "/0001.txm", "rt0101/link.txm");
  Link("link.txm", "rt0101/chain.txm");
  Link("../../out/0001.txm", "rt0101/relative.txm");
  Link(outside.Folder(), "rt0101/folder");
  Link(outside.Folder() + "/nothing.txm", "rt0101/dangling.txm");
  Link("loop.txm", "rt0101/loop.txm");
  Link("/dev/zero", "rt0101/zero.txm");
  mkfifo(QFile::encodeName(store.Path("rt0101/fifo.txm")).constData(), 0600);
  store.AddCourse("Cash desk", "rt0101rt0102");
  PageTurning& pages = ReadAs("Ann", "Lee").Pages();
  for (const QString& name : names) {
    EXPECT_EQ(pages.LoadModuleAtPage(0, name), QString()) << name.left(80).toStdString();
    EXPECT_EQ(messages.Take().size(), 1) << name.left(80).toStdString();
    EXPECT_EQ(PageText(), "rt0101 0001.txm") << name.left(80).toStdString();
    ExpectUntouched(name);
  }
  pages.LoadModuleAtPage(1, "0002.txm");
  EXPECT_EQ(PageText(), "rt0102 0002.txm");
}

TEST_F(OutOfBoundsCourse, AResumeLineOpensNothingThatTheCourseDoesNotList) {
  AddTwoModules();
  store.AddCourse("Cash desk", "rt0101rt0102");
  ReadAs("Ann", "Lee");
  const struct {
    QString Module, Page;
  } rows[] = {
      {"../out", "0001.txm"},
      {"..\\out", "0001.txm"},
      {outside.Folder(), "0001.txm"},
      {"rt0101", "../../out/0001.txm"},
      {"rt0101", "..\\..\\out\\0001.txm"},
      {"rt0101", outside.Folder() + "/0001.txm"},
      {"rt0101", "file://" + outside.Folder() + "/0001.txm"},
      {"rt0101/../../out", "0001.txm"},
      {"RT0101", "%2e%2e/%2e%2e/out/0001.txm"},
      {"rt0101" + kNul, "0001.txm" + kNul},
      {"．．／out", "．．／0001.txm"},
      {"", ""},
      {"~", "~/0001.txm"},
      {"CON", "COM1"},
      {QString(5000, u'm'), QString(5000, u'p')},
  };
  for (const auto& row : rows) {
    const QString what = row.Module + ", " + row.Page;
    for (const MissingModule missing : {MissingModule::Keep, MissingModule::StartOver}) {
      const QByteArray line = '"' + row.Module.toUtf8() + "\",\"" + row.Page.toUtf8() + "\"\r\n";
      store.Write(store.DataPath("Ann Lee/Cash desk"), "\xEF\xBB\xBF" + line);
      IgnoreErrors([&] { OpenAtResumePage(missing); });
      EXPECT_EQ(PageText(), "rt0101 0001.txm") << what.left(80).toStdString();
      ExpectUntouched(what);
    }
  }
}

TEST_F(OutOfBoundsCourse, ACourseAndItsRepositoryNumberReachNothingWhileTheCourseIsRead) {
  AddTwoModules();
  Link(outside.Folder(), "Repository");
  const QStringList numbers = {QString("../out"),     QString("..\\\\out"),         outside.Folder(),
                               QString("%2e%2e/out"), "file://" + outside.Folder(), QString("."),
                               QString(5000, u'9')};
  for (const QString& number : numbers) {
    SCOPED_TRACE(number.left(80).toStdString());
    QFile::remove(store.Path("registry/courses.reg"));
    store.Write(
        "registry/courses.reg",
        ("REGEDIT4\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\TLMS\\Tallowmere Manager 1.0\\Cash desk\\Modules]\n"
         "\"ModuleString\"=\"rt0101../out\"\n\"RepNum\"=\"" +
         number + "\"\n")
            .toUtf8());
    ReadAs("Ann", "Lee").NextPage();
    EXPECT_EQ(PageText(), "rt0101 0002.txm");
    EXPECT_EQ(gCourses.constFirst().Modules.size(), 1);
    ExpectUntouched(number);
    QDir(store.DataPath()).removeRecursively();
    Default<Form1>().Unload();
    Gui::Settle();
    OneCopyAgain();
  }
}

// A page's own pictures; each attempt is tried on a page that lies in a module folder.
TEST_F(OutOfBoundsCourse, APictureOrStyleOfAPageComesFromTheProgramFolderOnly) {
  AddTwoModules();
  store.AddCourse("Cash desk", "rt0101rt0102");
  Link(outside.Folder() + "/red.png", "rt0101/link.png");
  Link("link.png", "rt0101/chain.png");
  Link(outside.Folder(), "rt0101/folder");
  Link(outside.Folder() + "/nothing.png", "rt0101/dangling.png");
  Link("/dev/zero", "rt0101/zero.png");
  mkfifo(QFile::encodeName(store.Path("rt0101/fifo.png")).constData(), 0600);
  const QString red = outside.Folder() + "/red.png";
  const QStringList sources = {
      red,
      "../../out/red.png",
      "..\\..\\out\\red.png",
      "../../OUT/RED.PNG",
      "file://" + red,
      "file:" + red,
      "FILE://localhost" + red,
      "file:///../../.." + red,
      "//localhost" + red,
      "\\\\localhost" + red,
      "%2e%2e/%2e%2e/out/red.png",
      "..%2F..%2Fout%2Fred.png",
      "%2e%2e%5c%2e%2e%5cout%5cred.png",
      "&#46;&#46;/&#46;&#46;/out/red.png",
      "．．／．．／out／red.png",
      "link.png",
      "chain.png",
      "folder/red.png",
      "dangling.png",
      "zero.png",
      "fifo.png",
      "/dev/zero",
      "~" + red,
      "red.png?" + red,
      red + "#x",
      red + "&#0;",
      "&#0;" + red,
      " " + red,
      "\t../../out/\nred.png",
      QString("x/../").repeated(2000) + "../../out/red.png",
      QString(5000, u'n'),
  };
  const QString forms[] = {
      "<img src=\"%1\" width=600 height=600>",
      "<table width=600 background=\"%1\"><tr><td>x</td></tr></table>",
      "<p style=\"background-image: url(%1)\">x</p>",
      "<ul style=\"list-style-image: url(%1)\"><li>x</li></ul>",
  };
  TextControl* page = Gui::Find<TextControl>(ReadAs("Ann", "Lee"), "TXTextControl1");
  const auto expectNoRed = [&](const QString& body, const QString& what) {
    store.Write("rt0101/p.htm", Utf8File("<html><body><p>a page</p>" + body + "</body></html>"));
    page->Load("rt0101\\p.htm", 0, TextControl::kPageFormat);
    const QImage shown = page->viewport()->grab().toImage();
    EXPECT_FALSE(Shows(shown, Qt::red)) << what.toStdString();
    EXPECT_TRUE(page->PlainText().contains("a page"));
    ExpectUntouched(what);
  };
  for (const QString& form : forms) {
    for (const QString& source : sources)
      expectNoRed(form.arg(source), form + ' ' + source.left(80));
  }
  const QString css = outside.Folder() + "/sheet.css";
  const QStringList sheets = {
      "<link rel=stylesheet type=text/css href=\"" + css + "\"><p>x</p>",
      "<style>@import url(" + css + ");</style><p>x</p>",
      "<style>@import \"../../out/sheet.css\";</style><p>x</p>",
      "<style>p { background-image: url(" + red + ") }</style><p>x</p>",
      "<iframe src=\"" + outside.Folder() + "/page.htm\"></iframe>",
      "<object data=\"" + outside.Folder() + "/page.htm\"></object>",
      "<base href=\"file://" + outside.Folder() + "/\"><img src=\"red.png\" width=600>"};
  for (const QString& form : sheets) {
    expectNoRed(form, form);
  }
  store.Write("rt0101/near.png", store.Read(red));
  outside.Touched();
  store.Write("rt0101/p.htm", "<html><p><img src=\"near.png\" width=600 height=600></p></html>");
  page->Load("rt0101\\p.htm", 0, TextControl::kPageFormat);
  EXPECT_TRUE(Shows(page->viewport()->grab().toImage(), Qt::red));
}

TEST_F(OutOfBoundsCourse, AFieldOfARichTextPageBringsInNoFile) {
  AddTwoModules();
  store.AddCourse("Cash desk", "rt0101rt0102");
  TextControl* page = Gui::Find<TextControl>(ReadAs("Ann", "Lee"), "TXTextControl1");
  const QString red = outside.Folder() + "/red.png";
  const QString rtf = outside.Folder() + "/page.rtf";
  const QStringList bodies = {"{\\field{\\*\\fldinst INCLUDEPICTURE \"" + red + "\"}{\\fldrslt }}",
                              "{\\field{\\*\\fldinst INCLUDETEXT \"" + rtf + "\"}{\\fldrslt }}",
                              "{\\field{\\*\\fldinst IMPORT \"" + red + "\"}{\\fldrslt }}",
                              "{\\field{\\*\\fldinst LINK Word \"" + rtf + "\"}{\\fldrslt }}",
                              "{\\*\\template " + rtf + "}",
                              "{\\*\\nextfile " + rtf + "}",
                              "{\\object\\objlink\\objw600\\objh600{\\*\\objname " + red + "}}"};
  for (const QString& body : bodies) {
    store.Write("rt0101/p.txm", ("{\\rtf1 a page " + body + "\\par}").toUtf8());
    page->Load("rt0101\\p.txm", 0, TextControl::kPageFormat);
    EXPECT_FALSE(Shows(page->viewport()->grab().toImage(), Qt::red)) << body.toStdString();
    EXPECT_TRUE(page->PlainText().startsWith("a page")) << body.toStdString();
    ExpectUntouched(body);
  }
}

TEST_F(OutOfBoundsCourse, AFileNamedWithItsPlaceIsLoadedFromTheProgramFolderOnly) {
  AddTwoModules();
  store.AddCourse("Cash desk", "rt0101rt0102");
  store.Write("rt0101/near.htm", "<html><p>near</p></html>");
  Link(outside.Folder() + "/page.htm", "rt0101/link.htm");
  Link("rt0101/link.htm", "chain.htm");
  Link(outside.Folder(), "folder");
  Link("/proc/self", "proc");
  TextControl* page = Gui::Find<TextControl>(ReadAs("Ann", "Lee"), "TXTextControl1");
  const QString file = outside.Folder() + "/page.htm";
  const QStringList paths = {
      file,
      "../out/page.htm",
      "..\\out\\page.htm",
      "rt0101\\..\\..\\OUT\\page.htm",
      store.Path() + "/../out/page.htm",
      store.Path() + "x/../out/page.htm",
      "rt0101/link.htm",
      "chain.htm",
      "folder\\page.htm",
      "proc/environ",
      "file://" + file,
      "\\\\localhost" + file,
      "%2e%2e/out/page.htm",
      "~/page.htm",
      "near.htm#" + file,
      file + "#place",
      "．．／out／page.htm",
      "rt0101/near.htm" + kNul + "x",
      QString("rt0101/../").repeated(1000) + "../out/page.htm",
      QString("/dev/stdin"),
      QString(),
  };
  for (const QString& path : paths) {
    EXPECT_FALSE(IgnoreErrors([&] { page->Load(path, 0, TextControl::kFileAndPlaceFormat); }))
        << path.left(80).toStdString();
    EXPECT_EQ(PageText(), "rt0101 0001.txm");
    ExpectUntouched(path);
  }
  page->Load("RT0101\\..\\rt0101\\near.htm", 0, TextControl::kFileAndPlaceFormat);
  EXPECT_EQ(PageText(), "near");
}

// With the real opener, behind which stands a program that shows that it ran.
TEST_F(OutOfBoundsCourse, ALinkOpensAndShowsNothingOutside) {
  AddTwoModules();
  store.AddCourse("Cash desk", "rt0101rt0102", "1");
  store.Write("Repository/1/near.txt", "x");
  Link(outside.Folder() + "/page.htm", "Repository/1/link.txt");
  Link("link.txt", "Repository/1/chain.txt");
  Link(outside.Folder() + "/nothing", "Repository/1/dangling.txt");
  Link(outside.Folder(), "Repository/1/Hidden");
  mkfifo(QFile::encodeName(store.Path("Repository/1/fifo.txt")).constData(), 0600);
  store.Write("../bin/xdg-open", "#!/bin/sh\n: > '" + QFile::encodeName(store.PathBeside("ran")) + "'\n");
  QFile::setPermissions(store.PathBeside("bin/xdg-open"), QFile::ReadOwner | QFile::ExeOwner);
  const QByteArray path = qgetenv("PATH");
  qputenv("PATH", QFile::encodeName(store.PathBeside("bin")));
  TextControl* page = Gui::Find<TextControl>(ReadAs("Ann", "Lee"), "TXTextControl1");
  const QString file = outside.Folder() + "/page.htm";
  const QStringList targets = {
      "..\\..\\..\\out\\page.htm",
      "../../../OUT/page.htm",
      "..\\Hidden\\page.htm",
      "page.htm",
      "link.txt",
      "chain.txt",
      "dangling.txt",
      "fifo.txt",
      "",
      "..",
      file,
      "file://" + file,
      "https://www.example.com",
      "mailto:x@example.com",
      "javascript:x",
      "-h",
      "..\\..\\..\\bin\\xdg-open",
      "..\\..\\..\\..\\..\\..\\..\\etc\\passwd",
      "near.txt" + kNul,
      kNul + file,
      "..∕..∕..∕out∕page.htm",
      QString("../").repeated(1500) + file,
      QString(5000, u'n'),
      file + ".txm",
      file + "#x.txm",
      "../out/0001.txm#x",
      "..\\out\\0001.txm#x",
      "../out\\0001.txm_",
      "#.txm",
  };
  for (const QString& target : targets) {
    page->LinkClicked.Raise(1, 1, target);
    EXPECT_EQ(messages.Take().size(), 1) << target.left(80).toStdString();
    EXPECT_FALSE(QFile::exists(store.PathBeside("ran"))) << target.left(80).toStdString();
    EXPECT_EQ(PageText(), "rt0101 0001.txm");
    ExpectUntouched(target);
  }
  page->LinkClicked.Raise(1, 1, "near.txt");
  EXPECT_TRUE(QFile::exists(store.PathBeside("ran")));
  qputenv("PATH", path);
}

TEST_F(OutOfBoundsCourse, ACodePageIsATableOfTheSystemAndNoFile) {
  store.Write("codepage.cnv", "x");
  const QStringList codePages = {
      outside.Folder() + "/codepage",
      outside.Folder() + "/codepage.cnv",
      QString("../out/codepage"),
      QString("..\\\\out\\\\codepage"),
      "file://" + outside.Folder() + "/codepage",
      QString("~/codepage"),
      QString("%2e%2e/out/codepage"),
      QString("/dev/zero"),
      QString("CON"),
      QString("．．"),
      QString("codepage"),
      QString("windows-1252,") + outside.Folder() + "/codepage",
      QString("\u0001\u001B"),
      QString(100000, u'x'),
      QString(".."),
  };
  for (const QString& name : codePages) {
    store.Write(
        "registry/courses.reg",
        Utf8File("REGEDIT4\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\TLMS\\Tallowmere Manager 1.0]\n\"CodePage\"=\"" +
                 name + "\"\n"));
    EXPECT_EQ(LoadInstallation({store.Path("registry")}).size(), 1) << name.left(80).toStdString();
    EXPECT_EQ(CodePageName(), QString(kDefaultCodePage)) << name.left(80).toStdString();
    ExpectUntouched(name);
  }
}

TEST_F(OutOfBoundsCourse, TheAboutAndTrademarkFilesOfACourseComeFromTheirFolderOnly) {
  AddTwoModules();
  store.AddCourse("Cash desk", "rt0101rt0102");
  const QByteArray marker = Outside::kMarker;
  store.Write("sheet.txt", marker);
  store.Write("sheet_1.txm", PageFile(QString::fromLatin1(marker)));
  for (const char* kind : {"About ", "Trademark "}) {
    const QString prefix = QString("About/") + kind;
    store.Write(prefix + "good.txt", "good");
    store.Write(prefix + "good_1.txm", PageFile("good"));
    Link(outside.Folder(), prefix + "folder");
    Link(outside.Folder() + "/sheet.txt", prefix + "link.txt");
    Link(outside.Folder() + "/sheet_1.txm", prefix + "link_1.txm");
    Link(outside.Folder() + "/nothing", prefix + "dangling.txt");
    Link("/dev/zero", prefix + "zero.txt");
    Link("/dev/zero", prefix + "zero_1.txm");
    mkfifo(QFile::encodeName(store.Path(prefix + "fifo.txt")).constData(), 0600);
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
  const QStringList names = {
      "x/../../../out/sheet",
      "x\\..\\..\\..\\out\\sheet",
      "x/../../../OUT/Sheet",
      "folder/../../../out/sheet",
      "x/../../sheet",  // in the program folder, but no about text
      "x/../../../" + outside.Folder() + "/sheet",
      outside.Folder() + "/sheet",
      "folder/sheet",
      "link",
      "dangling",
      "zero",
      "fifo",
      "%2",
      "..",
      "",
      "good.txt" + kNul,
      "good" + kNul,
      "%2e%2e/%2e%2e/out/sheet",
      "x／．．／．．／out／sheet",
      QString("x/../").repeated(1000) + "../../out/sheet",
      QString(5000, u'n'),
  };
  for (const QString& name : names)
    expect(name, QString());
  expect("GOOD", "good");
}

TEST_F(OutOfBoundsCourse, AnAttachmentComesFromTheRepositoryOnly) {
  AddTwoModules();
  store.AddCourse("Cash desk", "rt0101rt0102", "1");
  store.Write("Repository/1/good.txt", "good");
  store.Write("Repository/1/a\\..\\..\\..\\out\\sheet.txt", "a name with backslashes");
  Link(outside.Folder() + "/sheet.txt", "Repository/1/link.txt");
  Link("link.txt", "Repository/1/chain.txt");
  Link("../../rt0101/Map.txt", "Repository/1/map.txt");  // in the program folder, but no attachment
  Link(outside.Folder() + "/nothing", "Repository/1/dangling.txt");
  Link("/dev/zero", "Repository/1/zero");
  Link(outside.Folder(), "Repository/out");
  Link(store.Path("rt0101"), "Repository/module");
  mkfifo(QFile::encodeName(store.Path("Repository/1/fifo")).constData(), 0600);
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
  const QStringList numbers = {
      "..",
      "../rt0101",
      "..\\..\\out",
      "../../OUT",
      "1/../../rt0101",
      "out",
      "OUT",
      "module",
      outside.Folder(),
      "/../.." + outside.Folder(),
      "1" + kNul,
      "%2e%2e/%2e%2e/out",
      "．．／．．／out",
      "file://" + outside.Folder(),
      "~",
      "no",
      QString("1/../").repeated(1000) + "../../out",
      QString(5000, u'9'),
  };
  for (const QString& number : numbers)
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
