#include "frame/DialogForm.h"

#include "platform/RunTimeError.h"
#include "platform/forms/Screen.h"

DialogForm::DialogForm(const QString& name, const DialogSkin& skin, const QString& backdropName)
    : Form(name, FormFrame::Framed), backdrop_(new PictureBox(this, backdropName)) {
  SetSize(skin.Width, skin.Height);
  backdrop_->Move(0, 0, skin.Width, skin.Height);
  IgnoreErrors([&] { backdrop_->SetPicture(SkinPicture(QString::fromLatin1(skin.Picture))); });
  backdrop_->MouseMove = [this] { Form_MouseMove(); };
}

SkinButton* DialogForm::AddButton(const QString& name, const QString& captionName, const Place& place) {
  auto* button = new SkinButton(backdrop_, name, DialogButtonImages(), captionName);
  button->PlaceAt(place);
  button->Show(SkinButton::Look::Off);
  buttons_.Add(button);
  return button;
}

SkinButton* DialogForm::AddExitButton(const QString& name) {
  auto* button = new SkinButton(backdrop_, name, ExitButtonImages());
  button->PlaceAt(DialogLayout::kExit);
  button->Show(SkinButton::Look::Off);
  buttons_.Add(button);
  return button;
}

void DialogForm::Form_MouseMove() {
  SetMousePointer(kPointerDefault);
}
