// The dialogs of one family: sign-in, registration, profile, course choice and the reference screens share
// their backgrounds, the header bar with the exit button, and the button strip.
#pragma once

#include "platform/forms/Form.h"
#include "platform/forms/Palette.h"
#include "platform/forms/SkinButton.h"

namespace DialogLayout {  // twips at 15 per pixel

inline constexpr double kMargin = 360;
inline constexpr Place kTitle{kMargin, 225, 6600, 390};
inline constexpr Place kExit{7155, 180, 465, 465};
inline constexpr Place kLeftButton{4590, 4703, 1335, 495};
inline constexpr Place kRightButton{6105, 4703, 1335, 495};
inline constexpr double kStripToTop = 697;  // from the lower edge of a dialog up to the top of its buttons
inline constexpr double kTitlePoints = 14.25, kTextPoints = 10;
inline constexpr int kTitleColour = 0xFFFFFF, kTextColour = Palette::kText, kStrongColour = Palette::kEdge;

}  // namespace DialogLayout

// A background and the size of the form that it fills, in twips at 15 per pixel.
struct DialogSkin {
  double Width, Height;
  const char* Picture;
};

inline constexpr DialogSkin kDialogSkin{7800, 5400, "Dialog.jpg"};
inline constexpr DialogSkin kTallDialogSkin{9600, 7800, "DialogTall.jpg"};

class DialogForm : public Form {
 protected:
  // `backdropName` is the name of the picture box that bears the background.
  explicit DialogForm(const QString& name, const DialogSkin& skin = kDialogSkin,
                      const QString& backdropName = QStringLiteral("Picture1"));

  // The picture that fills the form; controls of the dialog stand on it.
  PictureBox* Backdrop() const { return backdrop_; }
  ButtonFamily& Buttons() { return buttons_; }
  // A dialog button at a place, a member of the family.
  SkinButton* AddButton(const QString& name, const QString& captionName, const Place& place);
  // The exit button in the header bar, a member of the family.
  SkinButton* AddExitButton(const QString& name);

  void Form_MouseMove() override;

 private:
  PictureBox* backdrop_;
  ButtonFamily buttons_;
};
