#include "FlashEngine.h"

#include <dlfcn.h>
#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QLoggingCategory>
#include <QOpenGLContext>
#include <QQuickRenderControl>
#include <QQuickWindow>
#include <QWebEngineCookieStore>
#include <QWebEngineDownloadRequest>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>
#include <algorithm>
#include <cstdlib>
#include <memory>

QT_BEGIN_NAMESPACE
Q_GUI_EXPORT void qt_gl_set_global_share_context(QOpenGLContext* context);
QT_END_NAMESPACE

namespace {

const QByteArray kScheme = QByteArrayLiteral("tallowmere-flash");
const QString kHost = QStringLiteral("player");
const QString kPage = QStringLiteral("/player.html");
const QString kMoviePath = QStringLiteral("movie"), kToldPath = QStringLiteral("told");

std::unique_ptr<FlashEngine>& TheEngine() {
  static std::unique_ptr<FlashEngine> engine;
  return engine;
}

// An environment variable for as long as the engine reads it, and not for those that the opener starts.
class Setting {
 public:
  Setting(const char* name, const QByteArray& value) : name_(name), before_(qgetenv(name)) {
    wasSet_ = qEnvironmentVariableIsSet(name);
    if (value.isNull()) {
      qunsetenv(name);
    } else {
      qputenv(name, value);
    }
  }
  ~Setting() {
    if (wasSet_) {
      qputenv(name_, before_);
    } else {
      qunsetenv(name_);
    }
  }
  Setting(const Setting&) = delete;
  Setting& operator=(const Setting&) = delete;

 private:
  const char* name_;
  QByteArray before_;
  bool wasSet_ = false;
};

// Set at the start of the program, this attribute would load the graphics libraries there and then: 60 MB,
// and twice the time. All that is wanted of it comes later: a view keeps its scene when its window changes.
void SetLate(Qt::ApplicationAttribute attribute) {
  const QtMessageHandler before = qInstallMessageHandler([](auto, const auto&, const auto&) {});
  QCoreApplication::setAttribute(attribute);
  qInstallMessageHandler(before);
}

// Before the engine starts; it keeps all of this to its end.
void Prepare() {
  // Drawn by the processor: without a graphics library the window needs no other kind of surface when the
  // first movie comes, and a course without movies none of the libraries.
  QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
  // The engine asks after the format of the program's common context all the same. A context that is never
  // created answers that, and loads nothing.
  if (QOpenGLContext::globalShareContext() == nullptr)
    qt_gl_set_global_share_context(new QOpenGLContext(QCoreApplication::instance()));
  SetLate(Qt::AA_ShareOpenGLContexts);
  // The first of these arranges for the end of its library, which so comes behind ours.
  const QQuickRenderControl first;
  // The engine has a page of words about a program that draws without graphics hardware.
  QLoggingCategory::setFilterRules(QStringLiteral("qt.webenginecontext=false"));
  QWebEngineUrlScheme scheme(kScheme);
  scheme.setSyntax(QWebEngineUrlScheme::Syntax::Host);
  scheme.setFlags(QWebEngineUrlScheme::SecureScheme | QWebEngineUrlScheme::CorsEnabled);
  QWebEngineUrlScheme::registerScheme(scheme);
}

void TurnOff(QWebEngineSettings& settings) {
  using S = QWebEngineSettings;
  for (const S::WebAttribute attribute : {S::LocalStorageEnabled,
                                          S::LocalContentCanAccessFileUrls,
                                          S::LocalContentCanAccessRemoteUrls,
                                          S::JavascriptCanOpenWindows,
                                          S::JavascriptCanAccessClipboard,
                                          S::PluginsEnabled,
                                          S::WebGLEnabled,
                                          S::Accelerated2dCanvasEnabled,
                                          S::AutoLoadIconsForPage,
                                          S::ScreenCaptureEnabled,
                                          S::FullScreenSupportEnabled,
                                          S::ErrorPageEnabled,
                                          S::ShowScrollBars,
                                          S::PdfViewerEnabled,
                                          S::NavigateOnDropEnabled,
                                          S::PlaybackRequiresUserGesture,
                                          S::FocusOnNavigationEnabled,
                                          S::DnsPrefetchEnabled,
                                          S::HyperlinkAuditingEnabled,
                                          S::TouchIconsEnabled}) {
    settings.setAttribute(attribute, false);
  }
}

QByteArray MimeOf(const QString& name) {
  static const QHash<QString, QByteArray> kTypes{
      {"html", "text/html"}, {"js", "text/javascript"}, {"wasm", "application/wasm"}};
  return kTypes.value(QFileInfo(name).suffix());
}

QByteArray ReadAll(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The living children of this process from which the engine makes the processes of its pages.
qsizetype CountHelpers() {
  qsizetype count = 0;
  const QString tasks = QStringLiteral("/proc/self/task/");
  const QStringList own = QDir(tasks).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
  for (const QString& task : own) {
    const QByteArrayList children = ReadAll(tasks + task + QStringLiteral("/children")).split(' ');
    count += std::count_if(children.begin(), children.end(), [](const QByteArray& child) {
      return ReadAll(QStringLiteral("/proc/%1/cmdline").arg(QString::fromLatin1(child)))
          .contains("--type=zygote");
    });
  }
  return count;
}

void Answer(QWebEngineUrlRequestJob& job, const QByteArray& type, std::unique_ptr<QIODevice> body) {
  QIODevice* device = body.release();
  QObject::connect(&job, &QObject::destroyed, device, &QObject::deleteLater);
  job.reply(type, device);
}

}  // namespace

bool FlashEngine::HasSandbox() {
  static const bool has = [] {
    if (geteuid() == 0) return true;
    const pid_t child = fork();
    if (child == 0) _exit(unshare(CLONE_NEWUSER) == 0 ? EXIT_SUCCESS : EXIT_FAILURE);
    int status = EXIT_FAILURE;
    return child > 0 && waitpid(child, &status, 0) == child && WIFEXITED(status) &&
           WEXITSTATUS(status) == EXIT_SUCCESS;
  }();
  return has;
}

bool FlashEngine::HasLostHelpers() {
  return TheEngine() != nullptr && CountHelpers() < TheEngine()->helpers_;
}

FlashEngine& FlashEngine::Start() {
  if (TheEngine() != nullptr) return *TheEngine();
  Prepare();
  // The engine's own sandbox can't be had by root, and by nobody else is it given up. A way in from
  // outside, or other words to the engine, are not for a course player.
  const bool isRoot = geteuid() == 0;
  const Setting sandbox("QTWEBENGINE_DISABLE_SANDBOX", isRoot ? QByteArrayLiteral("1") : QByteArray());
  const Setting debugging("QTWEBENGINE_REMOTE_DEBUGGING", {});
  const Setting flags("QTWEBENGINE_CHROMIUM_FLAGS", QByteArrayLiteral(""));  // else the command line is asked
  TheEngine().reset(new FlashEngine);
  TheEngine()->helpers_ = CountHelpers();
  qAddPostRoutine(&FlashEngine::End);
  return *TheEngine();
}

FlashEngine::FlashEngine() {
  profile_.setHttpCacheType(QWebEngineProfile::NoCache);
  profile_.setPersistentCookiesPolicy(QWebEngineProfile::NoPersistentCookies);
  profile_.setSpellCheckEnabled(false);
  profile_.setUrlRequestInterceptor(&gate_);
  profile_.installUrlSchemeHandler(kScheme, &desk_);
  profile_.cookieStore()->setCookieFilter([](const auto&) { return false; });
  TurnOff(*profile_.settings());
  QObject::connect(&profile_, &QWebEngineProfile::downloadRequested,
                   [](QWebEngineDownloadRequest* download) { download->cancel(); });
}

void FlashEngine::End() {
  if (TheEngine() == nullptr) return;
  if (TheEngine()->Ending) TheEngine()->Ending();
  TheEngine().reset();
}

QString FlashEngine::Folder() {
  Dl_info own;
  if (dladdr(reinterpret_cast<const void*>(&FlashEngine::Folder), &own) == 0) return {};
  return QFileInfo(QFile::decodeName(own.dli_fname)).absolutePath() + QStringLiteral("/flash");
}

QUrl FlashEngine::PageAddress() {
  QUrl address;
  address.setScheme(QString::fromLatin1(kScheme));
  address.setHost(kHost);
  address.setPath(kPage);
  return address;
}

void FlashEngine::Gate::interceptRequest(QWebEngineUrlRequestInfo& info) {
  if (info.requestUrl().scheme().toLatin1() != kScheme) info.block(true);
}

void FlashEngine::Desk::requestStarted(QWebEngineUrlRequestJob* job) {
  const QStringList path = job->requestUrl().path(QUrl::FullyEncoded).mid(1).split(u'/');
  const int movie = path.value(1).toInt();
  if (path.size() == 1) {
    auto file = std::make_unique<QFile>(Folder() + QLatin1Char('/') + path.first());
    const QByteArray type = MimeOf(path.first());
    if (!type.isEmpty() && file->open(QIODevice::ReadOnly)) return Answer(*job, type, std::move(file));
  } else if (path.first() == kMoviePath && engine_.MovieWanted) {
    auto bytes = std::make_unique<QBuffer>();
    bytes->setData(engine_.MovieWanted(movie));
    if (bytes->open(QIODevice::ReadOnly)) {
      return Answer(*job, QByteArrayLiteral("application/octet-stream"), std::move(bytes));
    }
  } else if (path.first() == kToldPath && engine_.Told) {
    QStringList texts;
    for (const QString& part : path.mid(3))
      texts.append(QUrl::fromPercentEncoding(part.toUtf8()));
    // What is told may take the page away, and the request with it.
    auto nothing = std::make_unique<QBuffer>();
    if (nothing->open(QIODevice::ReadOnly)) Answer(*job, QByteArrayLiteral("text/plain"), std::move(nothing));
    return engine_.Told(movie, path.value(2), texts);
  }
  job->fail(QWebEngineUrlRequestJob::UrlNotFound);
}
