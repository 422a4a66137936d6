#include "frame/CourseScreenLayout.h"

#include "platform/RunTimeError.h"
#include "platform/forms/Palette.h"
#include "platform/forms/SkinButton.h"

namespace {

constexpr int kBarText = 0xFFFFFF, kBarBack = Palette::kGrey;

}  // namespace

PictureBox* AddCourseBackground(QWidget* form, const char* name) {
  auto* background = new PictureBox(form, QString::fromLatin1(name));
  background->Move(CourseScreenLayout::kScreen);
  IgnoreErrors([background] { background->SetPicture(SkinPicture(QStringLiteral("CourseScreen.jpg"))); });
  return background;
}

Label* AddBarLabel(QWidget* background, const char* name, const Place& place, double points) {
  auto* label = new Label(background, QString::fromLatin1(name));
  label->Move(place);
  label->SetFont(points, true);
  label->SetForeColor(kBarText);
  label->SetBackColor(kBarBack);
  label->SetElided(true);
  return label;
}
