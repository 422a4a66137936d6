#include "content/REGISTRY.h"
#include "frame/Settings.h"
#include "platform/registry/Registry.h"
#include "support/TestProgram.h"

namespace {

// Installed modules and the registry lines behind the catalogue's root key.
class Catalogue {
 public:
  Catalogue() {
    LocalMachine().Clear();
    Map("RT0101", "a\r\nSelling\r\nb\r\n0001.txm*Topic*Start\r\n0002.txm*Topic*End\r\n");
    Map("RT0102", "a\r\nPaying\r\nb\r\n0001.txm*Page*\r\n");
    Map("RT0103", "only one line\r\n");
    Map("RT0104", "a\r\nBroken\r\nb\r\nno page\r\n");
  }

  void Map(const QString& moduleId, const QByteArray& text) { Program.Write(moduleId + "/Map.txt", text); }

  CatalogueResult Load(const QByteArray& lines) {
    LocalMachine().LoadText("REGEDIT4\n" + QByteArray(lines).replace("[+",
                                                                     "[HKEY_LOCAL_MACHINE\\SOFTWARE\\TLMS\\"
                                                                     "Tallowmere Manager 1.0"));
    return LoadInstalledCourses(kCatalogueRoot, Courses, Problems);
  }

  // course(repository)[+ when all are installed]: id=name/topic/topic@course ...
  QStringList Table() const {
    QStringList table;
    for (const CourseRecord& course : Courses) {
      QString line = course.CourseName + "(" + course.RepNum + ")" + (course.AllInstalled ? "+" : "") + ":";
      for (const ModuleRecord& module : course.Modules) {
        line += " " + (QStringList(module.ModuleId + "=" + module.ModuleName) + module.Topics).join('/') +
                "@" + module.CourseName;
      }
      table.append(line);
    }
    return table;
  }

  TestProgram Program;
  QList<CourseRecord> Courses;
  QStringList Problems;
};

}  // namespace

TEST(Catalogue, IsReadFromTheRegistryAndTheModuleFolders) {
  const QString selling = " RT0101=Selling/Start/End@B";
  const std::pair<QByteArray, QStringList> cases[] = {
      {"[+\\B\\Modules]\n\"ModuleString\"=\"RT0101RT0102\"\n\"RepNum\"=\"3\"",
       {"B(3)+:" + selling + " RT0102=Paying@B"}},
      {"[+\\B\\Modules]\n\"ModuleString\"=\"RT0101RT0999\"", {"B():" + selling}},
      {"[+\\B\\Modules]\n\"ModuleString\"=\"RT0103RT0101\"", {"B():" + selling}},
      {"[+\\B]", {"B()+:"}},
      {"[+\\B\\Modules]\n\"ModuleString\"=\"rt0101\"\n\"RepNum\"=dword:3",
       {"B()+: rt0101=Selling/Start/End@B"}},
      {"[+\\B\\Modules]\n\"ModuleString\"=\"RT0101\"\n[+\\a\\Modules]\n\"ModuleString\"=\"RT0999\"",
       {"a():", "B()+:" + selling, "All modules():" + selling}},
      {"[+\\B\\Modules]\n\"ModuleString\"=\"RT0101\"\n[+\\a\\Modules]\n\"ModuleString\"=\"RT0101\"",
       {"a()+: RT0101=Selling/Start/End@a", "B()+:" + selling,
        "All modules(): RT0101=Selling/Start/End@a" + selling}},
  };
  for (const auto& [lines, table] : cases) {
    Catalogue catalogue;
    EXPECT_EQ(catalogue.Load(lines), CatalogueResult::Loaded);
    EXPECT_EQ(catalogue.Table(), table) << lines.toStdString();
    EXPECT_EQ(catalogue.Problems, QStringList());
    EXPECT_TRUE(HasCourses(catalogue.Courses));
  }
}

TEST(Catalogue, WhatIsMalformedIsToldAndTheCourseStays) {
  const std::tuple<QByteArray, QString, QString> cases[] = {
      {"RT0102RT01", "B(): RT0102=Paying@B",
       "The module list of the course \"B\" ends in \"RT01\", which is no module."},
      {"RT0104RT0102", "B()+: RT0104=Broken@B RT0102=Paying@B",
       "The module \"RT0104\" of the course \"B\" has no topics: The file \"%1\" has a page line without "
       "\"*\": \"no "
       "page\""},
  };
  for (const auto& [modules, course, problem] : cases) {
    Catalogue catalogue;
    catalogue.Load("[+\\B\\Modules]\n\"ModuleString\"=\"" + modules + "\"");
    EXPECT_EQ(catalogue.Table(), QStringList(course));
    const QString map = catalogue.Program.Path("RT0104/Map.txt");
    EXPECT_EQ(catalogue.Problems, QStringList(QString(problem).replace("%1", map)));
  }
}

TEST(RegistryValues, AreTextsOrTheFirstNumberOfBinaries) {
  const std::pair<QByteArray, const char*> cases[] = {
      {"\"text\"", "text"},   {"hex(1):61,62,00,63", "ab"},
      {"hex:ff,ff,01", "-1"}, {"hex:34,12", "4660"},
      {"hex:07", "7"},        {"hex:", ""},
      {"dword:3", ""},        {"hex(2):61,00", ""},
  };
  for (const auto& [data, text] : cases) {
    LocalMachine().Clear();
    LocalMachine().LoadText("REGEDIT4\n[HKEY_LOCAL_MACHINE\\K]\n@=" + data + "\n");
    EXPECT_EQ(ReadValueFromPath("K", ""), text) << data.toStdString();
  }
  EXPECT_EQ(ReadValueFromPath("K", "absent"), "");
  EXPECT_EQ(ReadValueFromPath("Absent", ""), "");
}
