#include "coursekit/install/Install.h"

#include <errno.h>

#include <QDir>
#include <QFileInfo>
#include <algorithm>

#include "coursekit/StoreInForce.h"
#include "coursekit/check/StoreCheck.h"
#include "coursekit/install/CourseParcel.h"
#include "coursekit/install/StoreChange.h"
#include "coursekit/sources/CourseFile.h"
#include "platform/RunTimeError.h"
#include "platform/files/FileBytes.h"
#include "platform/files/PassingNames.h"
#include "platform/files/Paths.h"
#include "platform/files/StoreLock.h"
#include "platform/registry/Registry.h"

namespace {

const QString kRegistry = QStringLiteral("registry");

template <typename... Arguments>
[[noreturn]] void Fail(const char* key, const Arguments&... arguments) {
  throw RunTimeError(KitText(QString::fromLatin1(key), QStringList{QString(arguments)...}));
}

void RequireStore(const QString& store) {
  if (!QFileInfo(store + u'/' + kRegistry).isDir()) Fail("no-store", store);
}

// A course is not pulled from under a learner, nor a store changed by two at a time.
void LockForChange(StoreLock& lock, const QString& store) {
  if (lock.Take(store, StoreLock::Use::Change) != StoreLock::Outcome::HeldElsewhere) return;
  QStringList holders;
  for (const StoreLock::Holder& holder : StoreLock::Holders(store))
    holders.append(KitText(QStringLiteral("store-holder"), {holder.Process, holder.User}));
  if (holders.isEmpty()) holders.append(KitText(QStringLiteral("store-holder-elsewhere")));
  Fail("store-in-use", store, holders.join(QLatin1String(", ")));
}

// A folder of the store in which a course lies before it is put in place. It goes with its owner, and one of
// a process that was killed with the next.
class Staging {
 public:
  explicit Staging(const QString& store) : path_(store + u'/' + PassingName()) {
    ClearLeftovers(store);
    QDir(path_).removeRecursively();
    if (!QDir().mkpath(Course())) Fail("output-unwritten", path_, SystemReason(errno));
  }
  ~Staging() { QDir(path_).removeRecursively(); }
  Staging(const Staging&) = delete;
  Staging& operator=(const Staging&) = delete;

  const QString& Path() const { return path_; }
  QString Course() const { return path_ + QLatin1String("/new"); }

 private:
  QString path_;
};

// What a store holds of a course, as paths below it.
QString GlossaryPath(const QString& course) {
  return QStringLiteral("Glossary/Glossary %1.txt").arg(course);
}
QString RepositoryPath(const QString& repository) {
  return QLatin1String("Repository/") + repository;
}

QStringList EntriesOf(const QString& folder) {
  return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

// One course and nothing else may come: whatever is not known to be a course's would get into others' places.
StoreCourse ReadParcel(const QString& folder, const QString& from) {
  const QList<StoreCourse> courses = ReadStoreCourses({folder + u'/' + kRegistry});
  if (courses.size() != 1 || !courses.constFirst().IsAlone) Fail("parcel-no-course", from);
  StoreCourse course = courses.constFirst();
  const auto require = [&](const QString& below, const QStringList& known) {
    for (const QString& name : EntriesOf(folder + u'/' + below)) {
      if (!known.contains(name)) Fail("parcel-foreign", from, below.isEmpty() ? name : below + u'/' + name);
    }
  };
  const bool isNamed =
      IsFileName(course.Name) && (course.Repository.isEmpty() || IsFileName(course.Repository));
  const bool hasIds = std::all_of(course.Modules.begin(), course.Modules.end(), IsModuleId);
  if (!isNamed || !hasIds) Fail("parcel-no-course", from);
  require({}, QStringList{kRegistry, QStringLiteral("About"), QStringLiteral("Glossary"),
                          QStringLiteral("Repository")} +
                  course.Modules);
  require(kRegistry, {course.Name + QLatin1String(".reg")});
  require(QStringLiteral("Glossary"), {QStringLiteral("Glossary %1.txt").arg(course.Name)});
  require(QStringLiteral("Repository"), {course.Repository});
  require(QStringLiteral("About"), AboutFilesOf(folder, course.Name, {}));
  return course;
}

// Finds the steps from what a store is to what it is to be.
class Planner {
 public:
  Planner(const QString& store, Findings& findings) : store_(store), findings_(findings) {
    all_ = ReadStoreCourses(RegistryFolders());
  }

  const StoreCourse* Find(const QString& name) const {
    const auto found =
        std::find_if(all_.begin(), all_.end(), [&](const StoreCourse& its) { return its.Is(name); });
    return found == all_.end() ? nullptr : &*found;
  }

  QList<StoreStep> Install(const StoreCourse& course, const QString& parcel) {
    const StoreCourse* former = Find(course.Name);
    const QString registry = RegistryFor(course, former);
    for (const QString& id : course.Modules)
      PutFolder(course, former, id, parcel, [&](const StoreCourse& its) { return its.Uses(id); });
    if (QFileInfo(parcel + u'/' + RepositoryPath(course.Repository)).isDir() && !course.Repository.isEmpty())
      PutFolder(course, former, RepositoryPath(course.Repository), parcel,
                [&](const StoreCourse& its) { return UsesRepository(its, course.Repository); });
    for (const QString& file : AboutFilesOf(parcel, course.Name, {}))
      PutAboutFile(course, file, parcel);
    if (QFileInfo::exists(parcel + u'/' + GlossaryPath(course.Name))) Put(GlossaryPath(course.Name));
    Put(registry);  // last: until then the store has the former version
    if (former != nullptr) DropRest(*former);
    return steps_;
  }

  QList<StoreStep> Remove(const StoreCourse& course) {
    if (!IsOurs(course) || IsToldTwice(course.Name))
      Fail("install-registry-shared", course.Name, course.Registry);
    Drop(Below(course.Registry));  // first: from then on no course lacks anything
    DropRest(course);
    return steps_;
  }

 private:
  // Whether the registry file is one that the kit may replace.
  bool IsOurs(const StoreCourse& course) const {
    return course.IsAlone && course.Registry.startsWith(store_ + u'/' + kRegistry + u'/');
  }

  // Whether more than one registry file tells of the course.
  bool IsToldTwice(const QString& name) const {
    return std::count_if(all_.begin(), all_.end(), [&](const StoreCourse& its) { return its.Is(name); }) > 1;
  }

  static bool UsesRepository(const StoreCourse& course, const QString& repository) {
    return course.Repository.compare(repository, Qt::CaseInsensitive) == 0;
  }

  QString Below(const QString& realPath) const { return realPath.mid(store_.size() + 1); }
  // As the store spells it.
  QString InStore(const QString& path) const { return Below(RealPath(store_ + u'/' + path)); }

  QString RegistryFor(const StoreCourse& course, const StoreCourse* former) {
    const QString path = kRegistry + u'/' + course.Name + QLatin1String(".reg");
    if (former != nullptr) {
      const bool isSpelled =
          IsOurs(*former) && !IsToldTwice(course.Name) && InStore(path) == Below(former->Registry);
      if (!isSpelled) findings_.Error("install-registry-shared", {}, course.Name, former->Registry);
    } else if (FileExists(store_ + u'/' + path)) {
      findings_.Error("install-registry-taken", {}, path);
    }
    return path;
  }

  void Put(const QString& path) {
    kept_.append(InStore(path).toCaseFolded());
    steps_.append({StoreStep::Kind::Put, InStore(path), path});
  }

  // The name may be that of a file of a course with a longer one.
  void PutAboutFile(const StoreCourse& course, const QString& file, const QString& parcel) {
    const QString path = QLatin1String("About/") + file;
    for (const StoreCourse& other : std::as_const(all_)) {
      if (other.Is(course.Name) || !AboutFilesOf(store_, other.Name, all_).contains(file)) continue;
      if (!AreSame(parcel + u'/' + path, store_ + u'/' + path))
        findings_.Error("install-used", {}, path, other.Name);
      kept_.append(InStore(path).toCaseFolded());
      return;
    }
    Put(path);
  }

  template <typename Uses>
  void PutFolder(const StoreCourse& course, const StoreCourse* former, const QString& path,
                 const QString& parcel, Uses uses) {
    const QString there = store_ + u'/' + InStore(path);
    const auto user = std::find_if(all_.begin(), all_.end(),
                                   [&](const StoreCourse& its) { return !its.Is(course.Name) && uses(its); });
    const bool isThere = QFileInfo::exists(there);
    const bool isFormers = former != nullptr && uses(*former);
    if (isThere && AreSame(parcel + u'/' + path, there)) {
      kept_.append(InStore(path).toCaseFolded());
    } else if (user != all_.end() && isThere) {
      findings_.Error("install-used", {}, path, user->Name);
    } else if (isThere && !isFormers) {
      findings_.Error("install-in-way", {}, path);
    } else {
      Put(path);
    }
  }

  void Drop(const QString& path) { steps_.append({StoreStep::Kind::Drop, path, {}}); }

  // What the course has in the store, but for what stays or is another's.
  void DropRest(const StoreCourse& course) {
    QStringList paths;
    const auto isUsed = [&](auto uses) {
      return std::any_of(all_.begin(), all_.end(),
                         [&](const StoreCourse& its) { return !its.Is(course.Name) && uses(its); });
    };
    for (const QString& id : course.Modules) {
      const bool isModule = IsModuleId(id) && FileExists(store_ + u'/' + id + QLatin1String("/Map.txt"));
      if (isModule && !isUsed([&](const StoreCourse& its) { return its.Uses(id); })) paths.append(id);
    }
    const QString& repository = course.Repository;
    if (IsFileName(repository) &&
        !isUsed([&](const StoreCourse& its) { return UsesRepository(its, repository); }))
      paths.append(RepositoryPath(repository));
    if (IsFileName(course.Name)) paths.append(GlossaryPath(course.Name));
    for (const QString& file : AboutFilesOf(store_, course.Name, all_))
      paths.append(QLatin1String("About/") + file);
    paths.removeDuplicates();
    for (const QString& path : paths) {
      const QString its = InStore(path);
      if (!kept_.contains(its.toCaseFolded()) && QFileInfo::exists(store_ + u'/' + its)) Drop(its);
    }
  }

  QString store_;
  Findings& findings_;
  QList<StoreCourse> all_;
  QList<StoreStep> steps_;
  QStringList kept_;  // what the new version has, in small letters
};

}  // namespace

QString InstallCourse(const QString& from, const QString& store, Findings& findings) {
  RequireStore(store);
  if (QFileInfo::exists(from + u'/' + QLatin1String(kCourseFile))) Fail("install-source", from);
  const Staging staging(store);
  UnpackCourse(from, staging.Course());
  const StoreCourse course = ReadParcel(staging.Course(), from);
  const int before = findings.Errors();
  CheckStore(staging.Course(), findings);
  if (findings.Errors() > before) return {};
  const StoreInForce inForce(store);
  StoreLock lock;
  LockForChange(lock, store);
  StoreChange change(store);
  change.Resume();
  const QList<StoreStep> steps = Planner(store, findings).Install(course, staging.Course());
  if (findings.Errors() > before) return {};
  change.Run(staging.Path(), steps);
  return course.Name;
}

void RemoveCourse(const QString& course, const QString& store) {
  RequireStore(store);
  const StoreInForce inForce(store);
  StoreLock lock;
  LockForChange(lock, store);
  StoreChange change(store);
  change.Resume();
  Findings none;
  Planner planner(store, none);
  const StoreCourse* found = planner.Find(course);
  if (found == nullptr) Fail("remove-no-course", course);
  const QList<StoreStep> steps = planner.Remove(*found);
  const Staging staging(store);
  change.Run(staging.Path(), steps);
}

QList<StoreCourse> ListCourses(const QString& store) {
  RequireStore(store);
  const StoreInForce inForce(store);
  return ReadStoreCourses(RegistryFolders());
}

bool IsInstallCutShort(const QString& store) {
  return StoreChange(store).IsOpen();
}
