#include "FlashPlayer.h"

#include <QEvent>
#include <QFile>
#include <QFileInfo>

#include "FlashPage.h"

namespace {

constexpr qint64 kShortestMovie = 8;  // bytes: signature, version, length

// The bytes of a movie, empty when the file holds none.
QByteArray ReadMovie(const QString& path) {
  if (!QFileInfo(path).isFile()) return {};  // a pipe would keep its reader waiting
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly) || file.size() > FlashPlayer::kLargestMovie) return {};
  QByteArray bytes = file.read(FlashPlayer::kLargestMovie);
  // Plain, deflated, or by LZMA.
  const bool isMovie = bytes.startsWith("FWS") || bytes.startsWith("CWS") || bytes.startsWith("ZWS");
  return isMovie && bytes.size() > kShortestMovie ? bytes : QByteArray();
}

}  // namespace

FlashPlayer::FlashPlayer(QWidget* container) : MoviePlayer(container) {
  hide();
}

FlashPlayer::~FlashPlayer() {
  LeavePage();
}

void FlashPlayer::SetMovie(const QString& file) {
  LeavePage();
  QByteArray movie = ReadMovie(file);
  if (movie.isEmpty()) return;
  FlashPage& page = FlashPage::Take(*parentWidget());
  page_ = &page;
  page.Command = [this](const QString& command, const QString& arguments) {
    if (Command) Command(command, arguments);
  };
  page.Entered = [this] {
    if (Entered) Entered();
  };
  setFocusProxy(page.View());
  page.Open(std::move(movie), fit_, backColor_);
  PlacePage();
}

void FlashPlayer::SetFit(Fit fit) {
  fit_ = fit;
}

void FlashPlayer::SetBackColor(int colour) {
  backColor_ = colour;
}

void FlashPlayer::Stop() {
  if (page_ != nullptr) page_->Hold();
}

void FlashPlayer::Play() {
  if (page_ != nullptr) page_->Play();
}

bool FlashPlayer::event(QEvent* event) {
  switch (event->type()) {
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::Move:
    case QEvent::Resize: PlacePage(); break;
    case QEvent::ParentChange:
      // Taken off the page, and to be deleted when the events allow it. The movie ends now.
      if (parentWidget() == nullptr) LeavePage();
      break;
    default: break;
  }
  return MoviePlayer::event(event);
}

// A hidden view gets no animation frames, so that a movie in it would never tell its size; one of a
// single pixel does. So the view stands beside this widget, as large as this one once it shows.
void FlashPlayer::PlacePage() {
  if (page_ == nullptr) return;
  page_->View()->setAccessibleName(accessibleName());
  page_->View()->setGeometry(isHidden() ? QRect(0, 0, 1, 1) : geometry());
  page_->View()->raise();
}

void FlashPlayer::LeavePage() {
  if (page_ == nullptr) return;
  setFocusProxy(nullptr);
  FlashPage::GiveBack(*page_);
  page_.clear();
}
