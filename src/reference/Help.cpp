#include "reference/Help.h"

#include "frame/FormFitting.h"
#include "pages/view/TextControl.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

namespace {

using namespace DialogLayout;

constexpr CaptionRow kLabels[] = {
    {"Label2", 0, kResHelp, kTitle, kTitlePoints, true, kTitleColour},
};
constexpr Place kDocument{kMargin, 1020, 8880, 5730};
constexpr Place kClose{7905, kTallDialogSkin.Height - kStripToTop, 1335, 495};

}  // namespace

Help::Help()
    : DialogForm(QStringLiteral("Help"), kTallDialogSkin),
      captions_(Backdrop(), kLabels),
      txTextControl1_(new TextControl(Backdrop(), QStringLiteral("TXTextControl1"))),
      command1_(AddButton(QStringLiteral("Command1"), ElementName("Label2", 1), kClose)) {
  txTextControl1_->Move(kDocument);
  ReadWith(*txTextControl1_);
  txTextControl1_->GotFocus = [this] { Buttons().PutOut(); };
  Backdrop()->GotFocus = [this] { Buttons().PutOut(); };
  command1_->MouseUp = [this] { Command1_Click(); };
}

void Help::Form_Load() {
  ScaleFormToDisplay(*this);
  captions_.Fill();
  command1_->SetCaption(LoadStringResource(kResClose));
  txTextControl1_->SetAccessibleName(LoadStringResource(kResHelp));
  txTextControl1_->SetFocus();
}

void Help::LoadDocument(const QString& file) {
  txTextControl1_->Load(file, 0, TextControl::kRichTextFormat);
}

void Help::ProcessGotFocus(bool takeBack) {
  if (takeBack && mLastControl != nullptr) mLastControl->SetFocus();
  mLastControl = ActiveControl();
}

void Help::Form_Activate() {
  ProcessGotFocus(true);
}

void Help::Form_Deactivate() {
  ProcessGotFocus(false);
}

// Stays loaded until the program ends.
bool Help::Form_QueryUnload(UnloadMode mode) {
  if (mode != UnloadMode::ControlBox) return true;
  Command1_Click();
  return false;
}

void Help::Form_MouseMove() {
  DialogForm::Form_MouseMove();
  if (command1_->HasFocus()) Backdrop()->SetFocus();
}

void Help::Command1_Click() {
  command1_->Show(SkinButton::Look::Off);
  Hide();
}

void OpenHelp(const QString& file, Form* owner) {
  auto& help = Default<Help>();
  help.LoadDocument(file);
  help.Show(FormMode::Modal, owner);
}
