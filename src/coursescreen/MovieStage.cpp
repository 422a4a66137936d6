#include "coursescreen/MovieStage.h"

#include <algorithm>
#include <utility>

#include "content/REGISTRY.h"
#include "frame/ProgramState.h"
#include "pages/view/TextControl.h"
#include "platform/MovieKind.h"
#include "platform/RunTimeError.h"
#include "platform/files/Paths.h"
#include "platform/forms/MsgBox.h"
#include "platform/forms/PictureBox.h"
#include "platform/forms/Screen.h"
#include "platform/movies/MoviePlayer.h"
#include "platform/movies/PlayerPlugins.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

namespace {

constexpr int kWhite = 0xFFFFFF;
const QString kFrameName = QStringLiteral("ImageFrame");
const QString kFlashName = QStringLiteral("ShockwaveFlash1");
const QString kOtherName = QStringLiteral("ShockwaveCtl1");  // of both others: never two at once
const QString kSizeCommand = QStringLiteral("size");
// Classes of players, behind which a version number may stand.
const QString kShockwaveClass = QStringLiteral("SWCtl.SWCtl");
const QString kFlashClass = QStringLiteral("ShockwaveFlash.ShockwaveFlash");

// The file of the movie; empty when the name leads out of the program folder.
QString MovieFile() {
  return ContainedPath(gAppPath + QLatin1Char('\\') + CurrentModule().ModuleId +
                       QStringLiteral("\\Movies\\") + gMovieName);
}

// Takes a widget off the screen at once. It dies when the event that led here is over: that may be its own.
void Discard(QWidget* widget) {
  if (widget == nullptr) return;
  widget->hide();
  widget->setParent(nullptr);
  widget->deleteLater();
}
void DiscardPlayer(QPointer<MoviePlayer>& player) {
  MoviePlayer* playing = player.data();
  if (playing != nullptr) {
    playing->Stop();
    playing->Command = nullptr;  // it may outlive the stage
    playing->Entered = nullptr;
  }
  Discard(playing);
  player.clear();
}

}  // namespace

QString PlayerMessage(const RunTimeError& error, PlayersToldOf players) {
  const auto* failure = dynamic_cast<const PlayerError*>(&error);
  if (failure == nullptr) return error.Description();
  if (failure->Class().startsWith(kShockwaveClass, Qt::CaseInsensitive))
    return LoadStringResource(kResNeedsShockwave);
  const bool isFlash = players == PlayersToldOf::ShockwaveAndFlash &&
                       failure->Class().startsWith(kFlashClass, Qt::CaseInsensitive);
  return isFlash ? LoadStringResource(kResNeedsFlash) : error.Description();
}

MovieStage::MovieStage(TextControl& page, std::function<void()> closeMenus)
    : page_(page), closeMenus_(std::move(closeMenus)) {
  page_.ObjectCreating = [this](int id) { TextControlObjectCreating(id); };
  page_.ObjectData = [this](int id, const QString& text) { TextControlObjectData(id, text); };
  page_.ObjectActive = [this](int id) { TextControlObjectActive(id); };
  page_.ObjectsMoved = [this] { PlaceFrame(); };
}

void MovieStage::TextControlObjectCreating(int id) {
  frameObject_ = id;
  QWidget* window = nullptr;
  InsertMovieObject(window);
  gMovieName.clear();
}

void MovieStage::InsertMovieObject(QWidget*& window) {
  RemovePlayers();  // with the frame that they play in
  Discard(frame_);
  objExt_ = new PictureBox(page_.viewport(), kFrameName);
  frame_ = objExt_;
  sizeIsOwn_ = false;
  objExt_->SetBackColor(kWhite);
  objExt_->MouseDown = [this] {
    closeMenus_();
    page_.SetCurrentObject(frameObject_);
  };
  PlaceFrame();
  objExt_->SetVisible(true);
  window = objExt_;
}

void MovieStage::TextControlObjectData(int id, const QString& text) {
  try {
    gMovieName = text.section(u',', 0, 0);
    // Required: the object that a movie brings is the current one at other scales alone.
    if (Screen::TwipsPerPixelX() != Screen::kDesignScale) MakeCurrent(id);
    switch (MovieKindOf(text)) {
      case MovieKind::Flash: InsertFlashMovie(); break;
      case MovieKind::Director: InsertDirectorMovie(); break;
      case MovieKind::Video: InsertVideo(); break;
      case MovieKind::None: break;
    }
  } catch (const RunTimeError& error) {
    MsgBox(PlayerMessage(error, PlayersToldOf::ShockwaveAndFlash));
  }
}

void MovieStage::TextControlObjectActive(int id) {
  IgnoreErrors([&] { MakeCurrent(id); });
}

// An object that is current already is not made so again: the page view tells of it each time.
void MovieStage::MakeCurrent(int id) {
  if (gActiveObjectSet && gActiveObjectId == id) return;
  gActiveObjectId = id;
  gActiveObjectSet = true;
  page_.SetCurrentObject(id);
}

MoviePlayer& MovieStage::AddPlayerToFrame(const QString& classText, const QString& name) {
  MoviePlayer& player = AddPlayer(*objExt_, classText, name);
  player.setAccessibleName(gMovieName);
  player.Entered = [this] { Dispatcher::Run(closeMenus_); };
  FillFrame(player);
  return player;
}

void MovieStage::FillFrame(MoviePlayer& player) const {
  player.setGeometry(objExt_->rect());
}

void MovieStage::InsertFlashMovie() {
  const bool inserted = LogErrors([this] {
    GetFlashVersion(flashClass_);
    MoviePlayer& movie = AddPlayerToFrame(flashClass_, kFlashName);
    objSWF_ = &movie;
    movie.Command = [this, &movie](const QString& command, const QString& arguments) {
      if (command == kSizeCommand) Dispatcher::Run([&] { TakeSize(movie, arguments); });
    };
    movie.SetFit(MoviePlayer::Fit::Stretch);
    movie.SetMovie(MovieFile());
    movie.Stop();
  });
  if (!inserted) MsgBox(LoadStringResource(kResPageHasFlash));
}

void MovieStage::TakeSize(MoviePlayer& movie, const QString& arguments) {
  if (objSWF_ != &movie || frame_ == nullptr) return;  // one that has been removed
  const qsizetype cross = arguments.indexOf(u'x');
  bool hasWidth = false, hasHeight = false;
  const int width = arguments.left(std::max<qsizetype>(cross, 0)).toInt(&hasWidth);
  const int height = arguments.mid(cross + 1).toInt(&hasHeight);
  if (!hasWidth || !hasHeight || width <= 0 || height <= 0) return;
  // A player's pictures take as much memory as they are large: what the page can't show at once is made
  // smaller.
  QSize size(width, height);
  const QSize room = page_.viewport()->size() / Screen::Shrink();  // as the design counts pixels
  if (width > room.width() || height > room.height()) {
    size = size.scaled(room, Qt::KeepAspectRatio).expandedTo({1, 1});
  }
  sizeIsOwn_ = true;
  objExt_->SetHeight(size.height() * Screen::TwipsPerPixelY());
  objExt_->SetWidth(size.width() * Screen::TwipsPerPixelX());
  movie.SetFit(MoviePlayer::Fit::Stretch);
  FillFrame(movie);
  movie.show();
  movie.Play();
}

void MovieStage::InsertDirectorMovie() {
  const bool inserted = LogErrors([this] {
    GetShockwaveVersion(shockwaveClass_);
    MoviePlayer& movie = AddPlayerToFrame(shockwaveClass_, kOtherName);
    objDir_ = &movie;
    movie.SetMovie(MovieFile());
    movie.SetFit(MoviePlayer::Fit::Stretch);
    movie.SetBackColor(kWhite);
    movie.show();
  });
  if (!inserted) MsgBox(LoadStringResource(kResPageHasShockwave));
}

void MovieStage::InsertVideo() {
  LogErrors([this] {
    GetMediaPlayerVersion(mediaClass_);
    MoviePlayer& movie = AddPlayerToFrame(mediaClass_, kOtherName);
    objVideo_ = &movie;
    movie.ShowControlBar(false);
    movie.SetMovie(MovieFile());
    movie.show();
  });
}

void MovieStage::RemovePlayers() {
  DiscardPlayer(objSWF_);
  DiscardPlayer(objDir_);
  DiscardPlayer(objVideo_);
}

void MovieStage::RemoveMovieControl() {
  RemovePlayers();
  // The frame stays for the next object, out of the sight of pages without one.
  if (frame_ != nullptr) objExt_->SetVisible(false);
}

// The frame stands where the object stands on the page, and goes with it when the page scrolls.
void MovieStage::PlaceFrame() {
  if (frame_ == nullptr) return;
  const QRect place = page_.ObjectRect(frameObject_);
  if (place.isNull()) return;  // a file that a link shows has no such object: the movie stays over it
  const double left = Screen::TwipsX(place.x()), top = Screen::TwipsY(place.y());
  if (sizeIsOwn_) {
    objExt_->Move(left, top, objExt_->Width(), objExt_->Height());
  } else {
    objExt_->Move(left, top, Screen::TwipsX(place.width()), Screen::TwipsY(place.height()));
  }
  for (MoviePlayer* player : {objSWF_.data(), objDir_.data(), objVideo_.data()}) {
    if (player != nullptr && player->parentWidget() == objExt_) FillFrame(*player);
  }
}
