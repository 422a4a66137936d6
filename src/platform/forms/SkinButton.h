// The skinned button: a picture box with its caption label, and the family whose members light up
// one at a time. Every form's picture buttons are of this class.
#pragma once

#include <QString>
#include <vector>

#include "platform/forms/Label.h"
#include "platform/forms/Palette.h"
#include "platform/forms/PictureBox.h"

// File names of a button's pictures in the folder of the skin.
struct ButtonImages {
  QString On, Off, Disabled;

  bool operator==(const ButtonImages&) const = default;
};

// The dialog button ("Button_On.jpg" and its kin) and the exit button without a disabled look.
const ButtonImages& DialogButtonImages();
const ButtonImages& ExitButtonImages();

class ButtonFamily;

// Reached by Tab it shows a frame, unless a family lights it. The space bar presses it; a screen reader
// finds a button and can press it too.
class SkinButton : public PictureBox {
 public:
  enum class Look { None, Off, On, Disabled };

  // Caption colours, as 0xBBGGRR; they double as the button's state.
  static constexpr int kLitText = 0x000000, kPlainText = 0xFFFFFF, kDisabledText = 0x808080;
  static constexpr int kLitBack = Palette::kLight, kPlainBack = Palette::kBlue;

  // A button without a caption name has no label; its words are its accessible name alone.
  SkinButton(QWidget* container, const QString& name, const ButtonImages& images,
             const QString& captionName = {});

  // Puts the button, and its caption in the middle of it.
  void PlaceAt(const Place& place);

  Label* Caption() const { return caption_; }
  void SetCaption(const QString& text);
  void SetToolTip(const QString& text);

  // Changes picture, caption colours and Tag (the picture's name). Asked for the look that it has, does
  // nothing. A picture that can't be loaded is logged and the one before stays: none is worth an error.
  void Show(Look look);
  Look Shown() const { return look_; }
  // Other pictures from the next Show on.
  void SetImages(const ButtonImages& images);

  // Raises what a click raises. Does nothing while the button is disabled.
  void Press();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;

 private:
  friend class ButtonFamily;

  ButtonImages images_;
  Label* caption_ = nullptr;
  ButtonFamily* family_ = nullptr;
  Look look_ = Look::None;
  bool lightsAgain_ = true;
  bool framed_ = false, spaceHeld_ = false;
};

// The buttons of one form: the mouse over an enabled member sets the form's pointer to the hand and
// gives the member the focus, and the focus lights it and puts the others out. A disabled member keeps
// its disabled look. The buttons' own events are left to the form.
class ButtonFamily {
 public:
  ButtonFamily() = default;
  ~ButtonFamily();
  ButtonFamily(const ButtonFamily&) = delete;
  ButtonFamily& operator=(const ButtonFamily&) = delete;

  // The button outlives the family: the form owns both, and its widgets go last.
  void Add(SkinButton* button);
  // Puts all enabled members out; a form calls it when another control gets the focus.
  void PutOut();

 private:
  friend class SkinButton;

  void PointerOver(SkinButton* button);
  void LightUp(SkinButton* button);

  std::vector<SkinButton*> members_;
};

// A picture of the skin, which lies in "\GUIimages\" under the program folder, as a program path.
QString SkinPicture(const QString& fileName);
