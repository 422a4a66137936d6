#include "FlashPage.h"

#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <QWebEnginePage>
#include <QWebEngineView>
#include <algorithm>
#include <vector>

#include "FlashEngine.h"

namespace {

constexpr int kIdle = 60000;     // ms; a page keeps 200 MB
constexpr int kPatience = 5000;  // ms; a page that has not closed its movie by then hangs
const QStringList kFiles{QStringLiteral("player.html"), QStringLiteral("player.js"),
                         QStringLiteral("ruffle.js")};
const QString kFailed = QStringLiteral("failed"), kCommand = QStringLiteral("command"),
              kEntered = QStringLiteral("entered");
// The reason on a machine where the engine plays nothing for this user.
const QString kNoSandbox =
    QStringLiteral("this user may not make the namespaces of the web engine's sandbox");
const QString kNoHelpers =
    QStringLiteral("helpers of the web engine have ended, and it can't start them again");

// All pages of the program; the one without a parent waits for the next movie.
std::vector<std::unique_ptr<FlashPage>>& Pages() {
  static std::vector<std::unique_ptr<FlashPage>> pages;
  return pages;
}
FlashPage*& Spare() {
  static FlashPage* spare = nullptr;
  return spare;
}

QString ScaleOf(MoviePlayer::Fit fit) {
  switch (fit) {
    case MoviePlayer::Fit::Whole: return QStringLiteral("showAll");
    case MoviePlayer::Fit::Cover: return QStringLiteral("noBorder");
    case MoviePlayer::Fit::Stretch: return QStringLiteral("exactFit");
  }
  return {};
}

}  // namespace

// Says nothing, asks nothing and opens nothing.
class FlashPage::WebPage final : public QWebEnginePage {
 public:
  explicit WebPage(QWebEngineProfile& profile) : QWebEnginePage(&profile) {
    connect(this, &QWebEnginePage::featurePermissionRequested, this,
            [this](const QUrl& origin, Feature feature) {
              setFeaturePermission(origin, feature, PermissionDeniedByUser);
            });
  }

 protected:
  bool acceptNavigationRequest(const QUrl& url, NavigationType, bool isMainFrame) override {
    return isMainFrame && url == FlashEngine::PageAddress();
  }
  QWebEnginePage* createWindow(WebWindowType) override { return nullptr; }
  QStringList chooseFiles(FileSelectionMode, const QStringList&, const QStringList&) override { return {}; }
  void javaScriptAlert(const QUrl&, const QString&) override {}
  bool javaScriptConfirm(const QUrl&, const QString&) override { return false; }
  bool javaScriptPrompt(const QUrl&, const QString&, const QString&, QString*) override { return false; }
  void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString&, int, const QString&) override {
  }
};

bool FlashPage::CanStart(QString& reason) {
  const auto refused = [&reason](const QString& why) {
    reason = why;
    return false;
  };
  const QDir folder(FlashEngine::Folder());
  for (const QString& file : kFiles) {
    if (!folder.exists(file)) return refused(folder.filePath(file));
  }
  if (!FlashEngine::HasSandbox()) return refused(kNoSandbox);
  if (FlashEngine::HasLostHelpers()) return refused(kNoHelpers);
  return true;
}

FlashPage& FlashPage::Take(QWidget& container) {
  FlashPage* page = std::exchange(Spare(), nullptr);
  if (page == nullptr) {
    Pages().emplace_back(new FlashPage);
    page = Pages().back().get();
  }
  page->idle_.stop();
  page->view_->setParent(&container);
  page->view_->setGeometry(0, 0, 1, 1);
  page->view_->show();
  return *page;
}

void FlashPage::GiveBack(FlashPage& page) {
  page.Command = {};
  page.Entered = {};
  page.Close();
  page.view_->hide();
  page.view_->setParent(nullptr);
  if (Spare() == nullptr) {
    Spare() = &page;
    page.idle_.start(kIdle);
    return;
  }
  const auto own =
      std::find_if(Pages().begin(), Pages().end(), [&](const auto& other) { return other.get() == &page; });
  own->release()->deleteLater();
  Pages().erase(own);
}

FlashPage::FlashPage() : view_(std::make_unique<QWebEngineView>()) {
  FlashEngine& engine = FlashEngine::Start();
  engine.MovieWanted = &FlashPage::GiveMovie;
  engine.Told = &FlashPage::Told;
  engine.Ending = [] {
    Spare() = nullptr;
    Pages().clear();
  };
  view_->setContextMenuPolicy(Qt::NoContextMenu);
  closing_.setSingleShot(true);
  idle_.setSingleShot(true);
  connect(&idle_, &QTimer::timeout, this, &FlashPage::Drop);
  connect(&closing_, &QTimer::timeout, this, [this] {
    Drop();
    if (number_ != 0) Load();
  });
}

FlashPage::~FlashPage() = default;

QWidget* FlashPage::View() const {
  return view_.get();
}

void FlashPage::Load() {
  page_ = std::make_unique<WebPage>(FlashEngine::Start().Profile());
  connect(page_.get(), &QWebEnginePage::loadFinished, this, [this](bool loaded) {
    hasLoaded_ = loaded;
    if (!loaded) {
      GiveUp();
    } else if (number_ != 0) {
      Begin();
    }
  });
  connect(page_.get(), &QWebEnginePage::renderProcessTerminated, this, &FlashPage::GiveUp);
  view_->setPage(page_.get());
  page_->load(FlashEngine::PageAddress());
}

// Nothing more of this movie, which would do the same again. The page goes when it is no longer at work.
void FlashPage::GiveUp() {
  number_ = 0;
  hasLoaded_ = false;
  view_->hide();
  closing_.start(0);
}

void FlashPage::Drop() {
  hasLoaded_ = false;
  page_.reset();
}

void FlashPage::Open(QByteArray movie, MoviePlayer::Fit fit, int backColor) {
  static int last = 0;
  number_ = ++last;
  movie_ = std::move(movie);
  fit_ = fit;
  backColor_ = backColor;
  isHeld_ = false;
  if (page_ == nullptr) {
    Load();
  } else if (hasLoaded_) {
    Begin();
  }
}

void FlashPage::Begin() {
  page_->setAudioMuted(isHeld_);
  const QColor back = PlayerColour(backColor_);
  page_->setBackgroundColor(back);
  Run(QStringLiteral("openMovie(%1, '%2', '%3', %4)")
          .arg(QString::number(number_), ScaleOf(fit_), back.name(),
               isHeld_ ? QStringLiteral("true") : QStringLiteral("false")));
}

void FlashPage::Hold() {
  isHeld_ = true;
  if (page_ != nullptr) page_->setAudioMuted(true);  // the sounds of the first frame
  Run(QStringLiteral("holdMovie()"));
}

void FlashPage::Play() {
  isHeld_ = false;
  if (page_ != nullptr) page_->setAudioMuted(false);
  Run(QStringLiteral("playMovie()"));
}

void FlashPage::Close() {
  number_ = 0;
  movie_.clear();
  if (!hasLoaded_) return;
  page_->setAudioMuted(true);
  closing_.start(kPatience);
  page_->runJavaScript(QStringLiteral("closeMovie(); true"),
                       [self = QPointer<FlashPage>(this)](const QVariant& done) {
                         if (self != nullptr && done.toBool()) self->closing_.stop();
                       });
}

// What is called before the page has loaded, Begin makes up for.
void FlashPage::Run(const QString& script) {
  if (hasLoaded_) page_->runJavaScript(script);
}

QByteArray FlashPage::GiveMovie(int number) {
  for (const auto& page : Pages()) {
    if (number != 0 && page->number_ == number) return std::exchange(page->movie_, {});
  }
  return {};
}

void FlashPage::Told(int number, const QString& word, const QStringList& texts) {
  for (const auto& page : Pages()) {
    if (number != 0 && page->number_ == number) return page->TellOf(word, texts);
  }
}

void FlashPage::TellOf(const QString& word, const QStringList& texts) {
  if (word == kCommand && Command) {
    Command(texts.value(0), texts.value(1));
  } else if (word == kEntered && Entered) {
    Entered();
  } else if (word == kFailed) {
    GiveUp();
  }
}
