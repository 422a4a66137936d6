// What a course can write: no name, path or link in it reaches a file outside the program folder.
#include "support/OutOfBounds.h"

#include <QDir>

#include "content/REGISTRY.h"
#include "frame/Settings.h"
#include "pages/view/TextControl.h"
#include "platform/RunTimeError.h"
#include "platform/files/CodePage.h"
#include "signin/Resume.h"

namespace {

const QString kNul{QChar::Null};

QByteArray Utf8File(const QString& text) {
  return "\xEF\xBB\xBF" + text.toUtf8();
}

class OutOfBoundsCourse : public OutOfBoundsTest {
 protected:
  TextControl& Page() {
    ReadAs("Ann", "Lee");
    return PageView();
  }
  // The first page still stands, and nothing else came of the attempt.
  void ExpectFirstPage(const QString& attempt) {
    EXPECT_EQ(PageText(), "rt0101 0001.txm") << attempt.left(80).toStdString();
    ExpectUntouched(attempt);
  }
};

// Six characters each, as a module list holds them.
TEST_F(OutOfBoundsCourse, AModuleIdFindsNoFolderOutside) {
  Link(outside.Folder(), "linkto");
  for (const char* id : {"rtmap1", "rtzero"})
    QDir().mkpath(store.Path(QLatin1String(id)));
  Link(outside.Folder() + "/Map.txt", "rtmap1/Map.txt");
  Link("/dev/zero", "rtzero/Map.txt");
  const auto find = [](const QString& id) {
    QList<ModuleRecord> modules;
    bool allInstalled = true;
    QStringList problems;
    ParseModuleString(id, modules, "Cash desk", allInstalled, problems);
    EXPECT_EQ(problems, QStringList()) << id.toStdString();
    EXPECT_EQ(allInstalled, modules.size() == 1) << id.toStdString();
    return allInstalled;
  };
  for (const char* id : {"../out", "..\\out", "..\\OUT", "./../o", "......", "LINKTO", "rtmap1", "rtzero"}) {
    EXPECT_FALSE(find(id)) << id;
    ExpectUntouched(id);
  }
  EXPECT_TRUE(find("rt0101"));
}

TEST_F(OutOfBoundsCourse, APageNameShowsNoFileOutside) {
  QStringList names = outside.WaysTo("0001.txm", "../../") + QStringList{"0001.txm" + kNul + ".txm"};
  for (const QString& name : AddTraps("rt0101/", "0001", ".txm"))
    names.append(name + ".txm");
  QString map = "map\r\nCustomers\r\nmap\r\n0001.txm*Topic*Greeting\r\n";
  for (const QString& name : names)
    map += name + "*Page*\r\n";
  store.Write("rt0101/Map.txt", Utf8File(map));
  PageTurning& pages = ReadAs("Ann", "Lee").Pages();
  for (const QString& name : names) {
    EXPECT_EQ(pages.LoadModuleAtPage(0, name), QString()) << name.left(80).toStdString();
    EXPECT_EQ(messages.Take().size(), 1) << name.left(80).toStdString();
    ExpectFirstPage(name);
  }
  pages.LoadModuleAtPage(1, "0002.txm");
  EXPECT_EQ(PageText(), "rt0102 0002.txm");
}

TEST_F(OutOfBoundsCourse, AResumeLineOpensNothingThatTheCourseDoesNotList) {
  ReadAs("Ann", "Lee");
  QStringList lines{"rt0101/../../out\",\"0001.txm", "\",\""};
  for (const QString& page : outside.WaysTo("0001.txm", "../../"))
    lines.append("rt0101\",\"" + page);
  for (const QString& line : lines) {
    store.Write(store.DataPath("Ann Lee/Cash desk"), Utf8File('"' + line + "\"\r\n"));
    IgnoreErrors([] { OpenAtResumePage(MissingModule::StartOver); });
    ExpectFirstPage(line);
  }
}

// A page's own pictures, styles and fields; the page lies in a module folder.
TEST_F(OutOfBoundsCourse, WhatAPageBringsInComesFromTheProgramFolderOnly) {
  const QString red = outside.Folder() + "/red.png", css = outside.Folder() + "/sheet.css";
  const QString htm = outside.Folder() + "/page.htm", rtf = outside.Folder() + "/page.rtf";
  QStringList sources = outside.WaysTo("red.png", "../../") + QStringList{"&#46;&#46;/&#46;&#46;/out/red.png",
                                                                          "%2e%2e%5c%2e%2e%5cout%5cred.png",
                                                                          "file://" + red,
                                                                          red + "#x",
                                                                          "&#0;" + red,
                                                                          "\t../../out/\nred.png"};
  for (const QString& name : AddTraps("rt0101/", "red", ".png"))
    sources.append(name + ".png");
  QStringList bodies{"<link rel=stylesheet type=text/css href=\"" + css + "\"><p>x</p>",
                     "<style>@import url(" + css + ");</style><p>x</p>",
                     "<style>p { background-image: url(" + red + ") }</style><p>x</p>",
                     "<iframe src=\"" + htm + "\"></iframe>",
                     "<object data=\"" + htm + "\"></object>",
                     "<base href=\"file://" + outside.Folder() + "/\"><img src=\"red.png\" width=600>",
                     "{\\field{\\*\\fldinst INCLUDEPICTURE \"" + red + "\"}{\\fldrslt }}",
                     "{\\field{\\*\\fldinst INCLUDETEXT \"" + rtf + "\"}{\\fldrslt }}",
                     "{\\field{\\*\\fldinst IMPORT \"" + red + "\"}{\\fldrslt }}",
                     "{\\field{\\*\\fldinst LINK Word \"" + rtf + "\"}{\\fldrslt }}",
                     "{\\*\\template " + rtf + "}",
                     "{\\*\\nextfile " + rtf + "}",
                     "{\\object\\objlink\\objw600\\objh600{\\*\\objname " + red + "}}"};
  for (const QString& source : sources) {
    bodies.append("<img src=\"" + source + "\" width=200 height=200><table width=600 background=\"" + source +
                  "\"><tr><td>x</td></tr></table><p style=\"background-image: url(" + source +
                  ")\">x</p><ul style=\"list-style-image: url(" + source + ")\"><li>x</li></ul>");
  }
  TextControl& page = Page();
  const auto showsRed = [&](const QString& body) {
    store.Write("rt0101/p.txm", body.startsWith('{') ? ("{\\rtf1 a page " + body + "\\par}").toUtf8()
                                                     : Utf8File("<html><p>a page</p>" + body + "</html>"));
    page.Load("rt0101\\p.txm", 0, TextControl::kPageFormat);
    EXPECT_TRUE(page.PlainText().contains("a page"));
    return Shows(page.viewport()->grab().toImage(), Qt::red);
  };
  for (const QString& body : bodies) {
    EXPECT_FALSE(showsRed(body)) << body.left(200).toStdString();
    ExpectUntouched(body);
  }
  store.Write("rt0101/near.png", store.Read(red));
  EXPECT_TRUE(showsRed("<img src=\"near.png\" width=600 height=600>"));
}

TEST_F(OutOfBoundsCourse, AFileNamedWithItsPlaceIsLoadedFromTheProgramFolderOnly) {
  store.Write("rt0101/near.htm", "<html><p>near</p></html>");
  Link("/proc/self", "proc");
  const QString file = outside.Folder() + "/page.htm";
  const QStringList more{"proc/environ", file + "#place", "rt0101/near.htm" + kNul + "x", "/dev/stdin", ""};
  QStringList paths = outside.WaysTo("page.htm", "../") + more;
  for (const QString& name : AddTraps("rt0101/", "page", ".htm"))
    paths.append("rt0101/" + name + ".htm");
  TextControl& page = Page();
  for (const QString& path : paths) {
    EXPECT_FALSE(IgnoreErrors([&] { page.Load(path, 0, TextControl::kFileAndPlaceFormat); }))
        << path.left(80).toStdString();
    ExpectFirstPage(path);
  }
  page.Load("RT0101\\..\\rt0101\\near.htm", 0, TextControl::kFileAndPlaceFormat);
  EXPECT_EQ(PageText(), "near");
}

// With the real opener, behind which stands a program that shows that it ran.
TEST_F(OutOfBoundsCourse, ALinkOpensAndShowsNothingOutside) {
  store.Write("Repository/1/near.txt", "x");
  Link(outside.Folder(), "Repository/1/Hidden");
  store.Write("../bin/xdg-open", "#!/bin/sh\n: > '" + QFile::encodeName(store.PathBeside("ran")) + "'\n");
  QFile::setPermissions(store.PathBeside("bin/xdg-open"), QFile::ReadOwner | QFile::ExeOwner);
  const QByteArray path = qgetenv("PATH");
  qputenv("PATH", QFile::encodeName(store.PathBeside("bin")));
  const QString file = outside.Folder() + "/page.htm";
  const QString more = R"(..\Hidden\page.htm|page.htm||..|javascript:x|-h|)"
                       R"(..\..\..\bin\xdg-open|../out/0001.txm#x|..\out\0001.txm#x|../out\0001.txm_|#.txm)";
  QStringList targets = outside.WaysTo("page.htm", "../../../") + more.split('|') +
                        QStringList{"near.txt" + kNul, file + ".txm", file + "#x.txm"};
  for (const QString& name : AddTraps("Repository/1/", "sheet", ".txt"))
    targets.append(name + ".txt");
  TextControl& page = Page();
  for (const QString& target : targets) {
    page.LinkClicked.Raise(1, 1, target);
    EXPECT_EQ(messages.Take().size(), 1) << target.left(80).toStdString();
    EXPECT_FALSE(QFile::exists(store.PathBeside("ran"))) << target.left(80).toStdString();
    ExpectFirstPage(target);
  }
  page.LinkClicked.Raise(1, 1, "near.txt");
  EXPECT_TRUE(QFile::exists(store.PathBeside("ran")));
  qputenv("PATH", path);
}

TEST_F(OutOfBoundsCourse, ACodePageIsATableOfTheSystemAndNoFile) {
  store.Write("codepage.cnv", "x");
  for (QString name : outside.WaysTo("codepage.cnv", "../") + QStringList{"codepage", ".."}) {
    store.Write(
        "registry/courses.reg",
        Utf8File("REGEDIT4\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\TLMS\\Tallowmere Manager 1.0]\n\"CodePage\"=\"" +
                 name.replace("\\", "\\\\") + "\"\n"));
    const QStringList told = LoadInstallation({store.Path("registry")});
    EXPECT_TRUE(told.size() == 1 && told[0].startsWith("The code page \"")) << name.left(80).toStdString();
    EXPECT_EQ(CodePageName(), QString(kDefaultCodePage)) << name.left(80).toStdString();
    ExpectUntouched(name);
  }
}

}  // namespace
