#include "coursekit/Preview.h"

#include <errno.h>
#include <signal.h>
#include <unistd.h>

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QMap>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

#include "content/REGISTRY.h"
#include "coursekit/StoreInForce.h"
#include "coursekit/build/CourseBuilder.h"
#include "coursekit/build/CourseOutput.h"
#include "coursekit/build/PageNames.h"
#include "coursekit/install/Install.h"
#include "frame/Settings.h"
#include "learners/ProgressFile.h"
#include "learners/ProgressRecords.h"
#include "learners/UserStore.h"
#include "platform/RunTimeError.h"
#include "platform/files/FileBytes.h"
#include "platform/files/Paths.h"
#include "platform/registry/Registry.h"

namespace {

const QString kFirstName = QStringLiteral("Preview"), kLastName = QStringLiteral("Learner");
constexpr int kQuiet = 300;      // ms without another save before a build
constexpr int kLook = 200;       // ms between looks for a signal
constexpr int kPatience = 3000;  // ms that a player gets to end by itself

volatile sig_atomic_t g_isAsked = 0;

void AskForEnd(int) {
  g_isAsked = 1;
}

// Links where the disk can, since a player is large.
void LinkOrCopy(const QString& from, const QString& to) {
  if (!QDir().mkpath(QFileInfo(to).path()))
    throw RunTimeError(KitText(QStringLiteral("output-unwritten"), {to, SystemReason(errno)}));
  if (link(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0) return;
  QFile source(from);
  if (!source.copy(to))
    throw RunTimeError(KitText(QStringLiteral("output-unwritten"), {to, source.errorString()}));
}

// Registry files that speak of the player's machine, not of courses, settings and learners.
bool IsOfPlayers(const QString& file) {
  Registry registry;
  IgnoreErrors([&] { registry.LoadText(ReadFile(file, kTextFileLimit)); });
  return registry.OpenKey(QString::fromLatin1(kCatalogueRoot)) == nullptr;
}

// When each file of the sources was written, by its name below them.
using Snapshot = QMap<QString, QDateTime>;

Snapshot Look(const QString& source) {
  Snapshot files;
  for (QDirIterator it(source, QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
    it.next();
    files.insert(it.filePath().mid(source.size() + 1), it.fileInfo().lastModified());
  }
  files.remove(QString::fromLatin1(kPageNamesFile));
  return files;
}

class Preview {
 public:
  Preview(const PreviewOptions& options, const std::function<void(const Findings&)>& tell)
      : source_(QFileInfo(options.Source).canonicalFilePath()), player_(options.Player), tell_(tell) {
    const QFileInfo player(player_);
    if (!player.isFile() || !player.isExecutable() || !place_.isValid())
      throw RunTimeError(KitText(QStringLiteral("preview-no-player"), {player_}));
    program_ = store_ + u'/' + player.fileName();
    LinkOrCopy(player.canonicalFilePath(), program_);
    // The machine's own settings would lead to its learners.
    qputenv("TALLOWMERE_REGISTRY", QFile::encodeName(store_ + QLatin1String("/no-registry")));
    const QString beside = player.canonicalPath();
    for (const QString& folder :
         {QStringLiteral("GUIimages"), QStringLiteral("players"), QStringLiteral("Help")})
      TakeFolder(beside, folder);
    QDir().mkpath(store_ + QLatin1String("/registry"));
    const QDir registry(beside + QLatin1String("/registry"));
    for (const QString& file : registry.entryList({QStringLiteral("*.reg")}, QDir::Files)) {
      if (IsOfPlayers(registry.filePath(file)))
        LinkOrCopy(registry.filePath(file), store_ + QLatin1String("/registry/") + file);
    }
  }

  // Builds the course into the store; false when it has errors.
  bool Build() {
    seen_ = Look(source_);
    Findings findings;
    const std::optional<BuiltCourse> course = BuildCourse(SourceFolder(source_), findings);
    QString installed;
    if (course) {
      Stop();
      const QString built = place_.filePath(QStringLiteral("built"));
      WriteCourseFolder(*course, built);
      installed = InstallCourse(built, store_, findings);
    }
    tell_(findings);
    if (installed.isEmpty()) return false;
    OpenAt(*course);
    changed_.clear();
    return true;
  }

  void Start() {
    process_.setProcessChannelMode(QProcess::ForwardedChannels);
    process_.start(program_, QStringList());
    if (!process_.waitForStarted())
      throw RunTimeError(KitText(QStringLiteral("preview-no-player"), {player_}));
  }

  // Until the player ends.
  void Wait(bool isWatch) {
    QEventLoop loop;
    QFileSystemWatcher watcher;
    QTimer quiet, look;
    quiet.setSingleShot(true);
    const auto watch = [&] {
      if (isWatch) watcher.addPaths(WatchedPaths());
    };
    const auto rebuild = [&] {
      if (Note()) BuildAgain();
      // An author who watches mends what is told and saves again; meanwhile the former version shows.
      if (process_.state() == QProcess::NotRunning) Start();
      watch();
    };
    QObject::connect(&watcher, &QFileSystemWatcher::fileChanged, &loop, [&] { quiet.start(kQuiet); });
    QObject::connect(&watcher, &QFileSystemWatcher::directoryChanged, &loop, [&] { quiet.start(kQuiet); });
    QObject::connect(&quiet, &QTimer::timeout, &loop, rebuild);
    QObject::connect(&look, &QTimer::timeout, &loop, [&] {
      if (g_isAsked != 0 || process_.state() == QProcess::NotRunning) loop.quit();
    });
    watch();
    look.start(kLook);
    quiet.start(isWatch ? kQuiet : 0);  // what was saved while the player started
    loop.exec();
    Stop();
  }

 private:
  void TakeFolder(const QString& beside, const QString& name) {
    const QString folder = RealPath(beside + u'/' + name);
    for (QDirIterator it(folder, QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
      const QString path = it.next();
      LinkOrCopy(path, store_ + u'/' + name + path.mid(folder.size()));
    }
  }

  QStringList WatchedPaths() const {
    QStringList paths = {source_};
    const auto kinds = QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot;
    for (QDirIterator it(source_, kinds, QDirIterator::Subdirectories); it.hasNext();)
      paths.append(it.next());
    return paths;
  }

  // Whether anything was saved since the last build, and what.
  bool Note() {
    const Snapshot now = Look(source_);
    for (const auto& [name, time] : now.asKeyValueRange()) {
      if (seen_.value(name) != time) changed_ = name;
    }
    return now != seen_;
  }

  void BuildAgain() {
    try {
      Build();
    } catch (const RunTimeError& error) {
      Findings findings;
      findings.Error("store-unreadable", {}, error.Description());
      tell_(findings);
    }
  }

  // The record that the player goes on from.
  void OpenAt(const BuiltCourse& course) {
    const StoreInForce inForce(store_);
    const QString learner = LearnerFolder(kFirstName, kLastName);
    if (!FolderExists(LearnerPath(learner))) CreateUser(kFirstName, kLastName, {});
    for (const auto& [path, source] : course.Sources) {
      if (source != changed_ || !path.endsWith(QLatin1String(".txm"))) continue;
      const QString record = ProgressPath(learner, course.Name);
      ProgressRecords records = FileExists(record) ? ProgressRecords::Load(record) : ProgressRecords(record);
      records.SetResume(path.section(u'/', 0, 0), path.section(u'/', 1));
      records.Save();
      return;
    }
  }

  void Stop() {
    if (process_.state() == QProcess::NotRunning) return;
    process_.terminate();
    if (process_.waitForFinished(kPatience)) return;
    process_.kill();
    process_.waitForFinished(kPatience);
  }

  QTemporaryDir place_;
  QString store_ = place_.filePath(QStringLiteral("store"));
  QString source_, player_, program_;
  const std::function<void(const Findings&)>& tell_;
  QProcess process_;
  Snapshot seen_;
  QString changed_;  // the file that was saved last, below the sources
};

}  // namespace

bool PreviewCourse(const PreviewOptions& options, const std::function<void(const Findings&)>& tell) {
  g_isAsked = 0;
  signal(SIGINT, AskForEnd);
  signal(SIGTERM, AskForEnd);
  Preview preview(options, tell);
  const bool isBuilt = preview.Build();
  if (isBuilt) {
    preview.Start();
    preview.Wait(options.IsWatch);
  }
  signal(SIGINT, SIG_DFL);
  signal(SIGTERM, SIG_DFL);
  return isBuilt;
}
