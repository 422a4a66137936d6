#include "desktop/Animation_Viewer.h"

#include "content/REGISTRY.h"
#include "platform/RunTimeError.h"
#include "platform/files/Paths.h"
#include "platform/forms/Palette.h"
#include "platform/forms/Screen.h"
#include "platform/forms/SkinButton.h"
#include "platform/movies/MoviePlayer.h"
#include "platform/movies/PlayerPlugins.h"
#include "texts/Descriptions.h"

namespace {

namespace Layout {  // pixels, on every display
constexpr double Width = 340, Height = 150;
constexpr QRect Animation1{50, 22, 240, 72};
constexpr Place Label1{24, 108, 292, 24};
constexpr double Points = 10;
}  // namespace Layout

void PlaceInPixels(Control& control, const Place& place) {
  const double x = Screen::TwipsPerPixelX(), y = Screen::TwipsPerPixelY();
  control.Move(place.Left * x, place.Top * y, place.Width * x, place.Height * y);
}

}  // namespace

Animation_Viewer::Animation_Viewer()
    : Form(QStringLiteral("Animation_Viewer"), FormFrame::Framed),
      picture1_(new PictureBox(this, QStringLiteral("Picture1"))),
      label1_(new Label(picture1_, QStringLiteral("Label1"))) {
  SetSize(Layout::Width * Screen::TwipsPerPixelX(), Layout::Height * Screen::TwipsPerPixelY());
  PlaceInPixels(*picture1_, {0, 0, Layout::Width, Layout::Height});
  IgnoreErrors([this] { picture1_->SetPicture(SkinPicture(QStringLiteral("Wait.jpg"))); });
  PlaceInPixels(*label1_, Layout::Label1);
  label1_->SetFont(Layout::Points, true);
  label1_->SetForeColor(Palette::kText);
  label1_->setAlignment(Qt::AlignCenter);
}

Animation_Viewer::~Animation_Viewer() = default;

void Animation_Viewer::LoadAnimatedGif(const QString& file, const QString& title, const QString& label) {
  SetCaption(title);
  label1_->SetCaption(label);
  if (!ProgramFileExists(file)) throw RunTimeError(Describe("file-missing", NamedPath(file)));
  LogErrors([&] { Play(file); });  // without a player the picture stands still
}

void Animation_Viewer::Play(const QString& file) {
  QString mediaClass;
  GetMediaPlayerVersion(mediaClass);
  animation1_.reset(&AddPlayer(*picture1_, mediaClass, QStringLiteral("Animation1")));
  animation1_->setAccessibleName(label1_->Caption());
  animation1_->setGeometry(Layout::Animation1);
  animation1_->SetEndless(true);
  animation1_->SetMovie(ContainedPath(file));
  animation1_->show();
}

void Animation_Viewer::CloseAnimatedGif() {
  Unload();
}

void Animation_Viewer::Form_Unload() {
  animation1_.reset();
}
