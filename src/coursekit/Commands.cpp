#include "coursekit/Commands.h"

#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QString>
#include <QTemporaryDir>
#include <algorithm>
#include <ostream>

#include <CLI/CLI.hpp>

#include "coursekit/NewCourse.h"
#include "coursekit/Preview.h"
#include "coursekit/build/CourseBuilder.h"
#include "coursekit/build/CourseOutput.h"
#include "coursekit/build/PageNames.h"
#include "coursekit/check/LearnersCheck.h"
#include "coursekit/check/StoreCheck.h"
#include "coursekit/install/CourseParcel.h"
#include "coursekit/install/Install.h"
#include "coursekit/sources/CourseFile.h"
#include "platform/RunTimeError.h"
#include "platform/files/FileBytes.h"

namespace {

constexpr int kBarLength = 40;

// A bar on a terminal; nothing where nobody looks.
class ProgressBar {
 public:
  explicit ProgressBar(std::ostream& err) : err_(err), isShown_(isatty(STDERR_FILENO) != 0) {}

  void Show(int done, int all) {
    const int length = all > 0 ? done * kBarLength / all : 0;
    if (!isShown_ || length == length_) return;
    length_ = length;
    const auto filled = static_cast<size_t>(length);
    err_ << "\r[" << std::string(filled, '#') << std::string(kBarLength - filled, ' ') << ']' << std::flush;
    if (done == all) err_ << '\r' << std::string(kBarLength + 2, ' ') << '\r' << std::flush;
  }

 private:
  std::ostream& err_;
  bool isShown_;
  int length_ = -1;
};

std::string Bytes(const QString& text) {
  return text.toStdString();
}

// Places are told from where the author stands, so that an editor finds them.
void Print(const Findings& findings, const QString& source, std::ostream& err) {
  const QString folder = source.endsWith(u'/') ? source : source + u'/';
  for (const Finding& finding : findings.All()) {
    const QString& file = finding.Place.File;
    const bool isBelow = !file.isEmpty() && !file.startsWith(u'/');
    err << (isBelow ? Bytes(folder) : std::string()) << Bytes(finding.Line()) << '\n';
    if (!finding.Seen().isEmpty()) err << "    " << Bytes(KitText("seen", {finding.Seen()})) << '\n';
    if (!finding.Remedy().isEmpty()) err << "    " << Bytes(KitText("do", {finding.Remedy()})) << '\n';
  }
}

QString RequireFolder(const QString& path) {
  if (!QFileInfo(path).isDir()) throw RunTimeError(KitText("no-folder", {path}));
  return path;
}

// "courses/till" becomes till.tallowcourse where the author stands.
QString UsualOutput(const QString& source) {
  return QFileInfo(QDir(source).canonicalPath()).fileName() + QString::fromLatin1(kCourseEnding);
}

KitExit Build(const QString& source, QString output, std::ostream& out, std::ostream& err) {
  RequireFolder(source);
  if (output.isEmpty()) output = UsualOutput(source);
  while (output.size() > 1 && output.endsWith(u'/'))
    output.chop(1);
  const SourceFolder folder(source);
  const QString outputFolder = QFileInfo(QFileInfo(output).absoluteFilePath()).path();
  if (QDir(outputFolder).canonicalPath() == folder.Root())
    throw RunTimeError(KitText("output-in-source", {output}));
  Findings findings;
  ProgressBar bar(err);
  const std::optional<BuiltCourse> course =
      BuildCourse(folder, findings, [&bar](int done, int all) { bar.Show(done, all); });
  Print(findings, source, err);
  if (!course) return KitExit::ErrorsFound;
  output.endsWith(QString::fromLatin1(kCourseEnding)) ? WriteCourseFile(*course, output)
                                                      : WriteCourseFolder(*course, output);
  // Last, so that a build that was never finished has given no names.
  const QString names = folder.RealPathOf(QString::fromLatin1(kPageNamesFile));
  const QByteArray text = course->PageNames.toUtf8();
  if (!QFileInfo::exists(names) || ReadFile(names, kTextFileLimit) != text) SaveFile(names, text);
  out << Bytes(KitText("built", {course->Name, output})) << '\n';
  return KitExit::Good;
}

// Sources are checked as they stand, and then as the course that comes of them in the folder `built`.
void CheckSources(const QString& source, const QString& built, Findings& findings, std::ostream& err) {
  ProgressBar bar(err);
  const std::optional<BuiltCourse> course =
      BuildCourse(SourceFolder(source), findings, [&bar](int done, int all) { bar.Show(done, all); });
  if (!course) return;
  WriteCourseFolder(*course, built);
  Findings installed;
  CheckStore(built, installed);
  for (Finding finding : installed.All()) {
    const auto file = course->Sources.find(finding.Place.File);
    if (file != course->Sources.end()) finding.Place.File = file->second;
    findings.Add(finding);
  }
}

// `what` is a folder of sources, a store or a built folder, or a course file.
KitExit Check(const QString& what, const QString& learners, std::ostream& out, std::ostream& err) {
  const QFileInfo info(what);
  if (!info.isFile()) RequireFolder(what);
  Findings findings;
  const QTemporaryDir place;
  QString store = place.filePath(QStringLiteral("course"));
  if (QFileInfo(what + u'/' + QString::fromLatin1(kCourseFile)).isFile()) {
    CheckSources(what, store, findings, err);
  } else if (info.isFile()) {
    QDir().mkpath(store);
    UnpackCourse(what, store);
    CheckStore(store, findings);
  } else {
    store = info.canonicalFilePath();
    CheckStore(store, findings);
  }
  if (!learners.isEmpty() && QFileInfo(store).isDir())
    CheckLearners(store, QFileInfo(RequireFolder(learners)).canonicalFilePath(), findings);
  Print(findings, what, err);
  const auto warnings =
      std::count_if(findings.All().begin(), findings.All().end(),
                    [](const Finding& finding) { return finding.Kind == Severity::Warning; });
  out << Bytes(KitText("checked", {QString::number(findings.Errors()), QString::number(warnings)})) << '\n';
  return findings.HasErrors() ? KitExit::ErrorsFound : KitExit::Good;
}

KitExit New(const QString& folder, std::ostream& out) {
  WriteNewCourse(folder);
  out << Bytes(KitText("new-made", {folder})) << '\n';
  return KitExit::Good;
}

QString RealFolder(const QString& path) {
  return QFileInfo(RequireFolder(path)).canonicalFilePath();
}

KitExit Install(QString from, const QString& store, std::ostream& out, std::ostream& err) {
  while (from.size() > 1 && from.endsWith(u'/'))
    from.chop(1);
  Findings findings;
  const QString course = InstallCourse(from, RealFolder(store), findings);
  Print(findings, from, err);
  if (course.isEmpty()) return KitExit::ErrorsFound;
  out << Bytes(KitText("installed", {course, store})) << '\n';
  return KitExit::Good;
}

KitExit Remove(const QString& course, const QString& store, std::ostream& out) {
  RemoveCourse(course, RealFolder(store));
  out << Bytes(KitText("removed", {course, store})) << '\n';
  return KitExit::Good;
}

KitExit List(const QString& store, std::ostream& out, std::ostream& err) {
  for (const StoreCourse& course : ListCourses(RealFolder(store)))
    out << Bytes(KitText("listed", {course.Name, course.Modules.join(u' '), course.Registry})) << '\n';
  if (IsInstallCutShort(RealFolder(store))) err << Bytes(KitText("install-cut-short")) << '\n';
  return KitExit::Good;
}

KitExit Preview(const QString& source, QString player, bool isWatch, std::ostream& err) {
  if (player.isEmpty()) player = QCoreApplication::applicationDirPath() + QLatin1String("/tallowmere");
  const auto tell = [&](const Findings& findings) { Print(findings, source, err); };
  return PreviewCourse({RequireFolder(source), player, isWatch}, tell) ? KitExit::Good : KitExit::ErrorsFound;
}

}  // namespace

KitExit RunKit(std::vector<std::string> arguments, std::ostream& out, std::ostream& err) {
  CLI::App app(Bytes(KitText("help")), "tallowmere-course");
  app.require_subcommand(1);
  std::string source, output, folder, store, course, learners;
  CLI::App* make = app.add_subcommand("new", Bytes(KitText("help-new")));
  make->add_option("FOLDER", folder, Bytes(KitText("help-folder")))->required();
  CLI::App* build = app.add_subcommand("build", Bytes(KitText("help-build")));
  build->add_option("SOURCE", source, Bytes(KitText("help-source")))->required();
  build->add_option("-o,--output", output, Bytes(KitText("help-output")));
  CLI::App* check = app.add_subcommand("check", Bytes(KitText("help-check")));
  check->add_option("FOLDER", folder, Bytes(KitText("help-checked")))->required();
  check->add_option("--learners", learners, Bytes(KitText("help-learners")));
  CLI::App* install = app.add_subcommand("install", Bytes(KitText("help-install")));
  install->add_option("COURSE", folder, Bytes(KitText("help-installed")))->required();
  CLI::App* remove = app.add_subcommand("remove", Bytes(KitText("help-remove")));
  remove->add_option("COURSE", course, Bytes(KitText("help-removed")))->required();
  CLI::App* list = app.add_subcommand("list", Bytes(KitText("help-list")));
  CLI::App* preview = app.add_subcommand("preview", Bytes(KitText("help-preview")));
  std::string player;
  bool isWatch = false;
  preview->add_option("SOURCE", source, Bytes(KitText("help-source")))->required();
  preview->add_option("--player", player, Bytes(KitText("help-player")));
  preview->add_flag("--watch", isWatch, Bytes(KitText("help-watch")));
  for (CLI::App* verb : {install, remove, list})
    verb->add_option("--store", store, Bytes(KitText("help-store")))->required();
  try {
    std::reverse(arguments.begin(), arguments.end());  // as CLI11 takes them
    app.parse(arguments);
  } catch (const CLI::ParseError& error) {
    return app.exit(error, out, err) == 0 ? KitExit::Good : KitExit::WrongUse;
  }
  try {
    if (make->parsed()) return New(QString::fromStdString(folder), out);
    if (check->parsed())
      return Check(QString::fromStdString(folder), QString::fromStdString(learners), out, err);
    const QString storeFolder = QString::fromStdString(store);
    if (install->parsed()) return Install(QString::fromStdString(folder), storeFolder, out, err);
    if (preview->parsed())
      return Preview(QString::fromStdString(source), QString::fromStdString(player), isWatch, err);
    if (remove->parsed()) return Remove(QString::fromStdString(course), storeFolder, out);
    if (list->parsed()) return List(storeFolder, out, err);
    return Build(QString::fromStdString(source), QString::fromStdString(output), out, err);
  } catch (const RunTimeError& error) {
    err << Bytes(KitText("error")) << ": " << Bytes(error.Description()) << '\n';
    return KitExit::ErrorsFound;
  }
}
