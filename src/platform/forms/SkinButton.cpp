#include "platform/forms/SkinButton.h"

#include "platform/files/Paths.h"
#include "platform/forms/Form.h"
#include "platform/forms/Screen.h"

namespace {
constexpr double kCaptionHeight = 255;  // twips: one line of the caption's font
}

const ButtonImages& DialogButtonImages() {
  static const ButtonImages images{QStringLiteral("Button_On.jpg"), QStringLiteral("Button_Off.jpg"),
                                   QStringLiteral("Button_Dis.jpg")};
  return images;
}

const ButtonImages& ExitButtonImages() {
  static const ButtonImages images{QStringLiteral("ExitButton_On.jpg"), QStringLiteral("ExitButton_Off.jpg"),
                                   QStringLiteral("ExitButton_Off.jpg")};
  return images;
}

QString SkinPicture(const QString& fileName) {
  return ProgramFolder() + QStringLiteral("\\GUIimages\\") + fileName;
}

SkinButton::SkinButton(QWidget* container, const QString& name, const ButtonImages& images,
                       const QString& captionName)
    : PictureBox(container, name), images_(images) {
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  if (captionName.isEmpty()) return;
  caption_ = new Label(this, captionName);
  caption_->setAlignment(Qt::AlignCenter);
  caption_->SetFont(9, true);
  // A click on the caption is a click on the button, and the pointer over it is over the button.
  caption_->setAttribute(Qt::WA_TransparentForMouseEvents);
}

void SkinButton::SetCaption(const QString& text) {
  caption_->SetCaption(text);
  SetAccessibleName(text);
}

void SkinButton::SetToolTip(const QString& text) {
  setToolTip(text);
  SetAccessibleName(text);
}

void SkinButton::Show(Look look) {
  if (look == look_) return;
  look_ = look;
  const QString& image = look == Look::On         ? images_.On
                         : look == Look::Disabled ? images_.Disabled
                                                  : images_.Off;
  Tag = image;
  if (caption_ != nullptr) {
    caption_->SetForeColor(look == Look::On ? kLitText : look == Look::Disabled ? kDisabledText : kPlainText);
    if (look != Look::Disabled) caption_->SetBackColor(look == Look::On ? kLitBack : kPlainBack);
  }
  SetPicture(SkinPicture(image));
}

void SkinButton::PlaceAt(const Place& place) {
  Move(place);
  if (caption_ != nullptr)
    caption_->Move(0, (place.Height - kCaptionHeight) / 2, place.Width, kCaptionHeight);
}

void ButtonFamily::Add(SkinButton* button) {
  members_.push_back(button);
  button->MouseMove = [this, button] {
    if (!button->Enabled()) return;
    button->Owner()->SetMousePointer(kPointerHand);
    button->SetFocus();
    LightUp(button);  // it may have had the focus already, and been put out since
  };
  button->GotFocus = [this, button] { LightUp(button); };
}

void ButtonFamily::PutOut() {
  for (SkinButton* member : members_) {
    if (member->Enabled()) member->Show(SkinButton::Look::Off);
  }
}

SkinButton* ButtonFamily::Lit() const {
  for (SkinButton* member : members_) {
    if (member->Shown() == SkinButton::Look::On) return member;
  }
  return nullptr;
}

void ButtonFamily::LightUp(SkinButton* button) {
  for (SkinButton* member : members_) {
    if (member != button && member->Enabled()) member->Show(SkinButton::Look::Off);
  }
  if (button->Enabled()) button->Show(SkinButton::Look::On);
}
