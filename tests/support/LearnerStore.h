// Three courses on the disk-less side and a data folder on the disk, with the program-wide variables
// set as they are while "Ann Lee" reads the first course. For tests of what is kept of learners.
#pragma once

#include "content/LinkedList.h"
#include "frame/ProgramState.h"
#include "support/TestProgram.h"

class LearnerStore {
 public:
  LearnerStore() {
    ResetProgramState();
    gAppPath = Program.Folder();
    gDriveRoot = Program.Folder() + "/data\\";
    AddCourse("Selling", {"RT0101", "RT0102"});
    AddCourse("Paying", {"RT0201", "RT0102"});
    AddCourse("All modules", {"RT0101", "RT0102", "RT0201", "RT0102"});
    gUserFirstName = "Ann";
    gUserLastName = "Lee";
    ShowPage("0001.txm");
  }
  ~LearnerStore() { ResetProgramState(); }

  static void ShowPage(const QString& name) {
    gPageList.InitLinedList();
    gPageList.Add_Page(name, "Topic", "T");
  }
  static void EnterAllModules(int module) {
    gAllModules = 1;
    gCurrentCourse = 2;
    gCurrentModule = module;
  }

  // Files of the learner's folder.
  void Write(const QString& name, const QByteArray& bytes) const { Program.Write(kFolder + name, bytes); }
  QByteArray Read(const QString& name) const { return Program.Read(kFolder + name); }
  QStringList Names() const { return Program.Names(kFolder); }

  TestProgram Program;
  const QString kFolder = "data/Tallowmere Manager 1.0/UserData/Ann Lee/";

 private:
  static void AddCourse(const QString& name, const QStringList& moduleIds) {
    CourseRecord course;
    course.CourseName = name;
    for (const QString& id : moduleIds)
      course.Modules.append(ModuleRecord{name, "Module " + id, id, {}});
    gCourses.append(course);
  }
};
