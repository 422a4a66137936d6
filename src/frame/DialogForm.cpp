#include "frame/DialogForm.h"

#include "platform/RunTimeError.h"
#include "platform/forms/Screen.h"

DialogForm::DialogForm(const QString& name) : Form(name, FormFrame::Framed) {
  SetSize(DialogLayout::kWidth, DialogLayout::kHeight);
  backdrop_ = new PictureBox(this, QStringLiteral("Picture1"));
  backdrop_->Move(0, 0, DialogLayout::kWidth, DialogLayout::kHeight);
  IgnoreErrors([this] { backdrop_->SetPicture(SkinPicture(QStringLiteral("Dialog.jpg"))); });
  backdrop_->MouseMove = [this] { Form_MouseMove(); };
}

SkinButton* DialogForm::AddButton(const QString& name, const QString& captionName, const Place& place) {
  auto* button = new SkinButton(backdrop_, name, DialogButtonImages(), captionName);
  button->PlaceAt(place);
  IgnoreErrors([button] { button->Show(SkinButton::Look::Off); });
  buttons_.Add(button);
  return button;
}

SkinButton* DialogForm::AddExitButton(const QString& name) {
  auto* button = new SkinButton(backdrop_, name, ExitButtonImages());
  button->PlaceAt(DialogLayout::kExit);
  IgnoreErrors([button] { button->Show(SkinButton::Look::Off); });
  buttons_.Add(button);
  return button;
}

void DialogForm::Form_MouseMove() {
  SetMousePointer(kPointerDefault);
}
