#include "platform/forms/SkinButton.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QPainter>

#include "platform/RunTimeError.h"
#include "platform/files/Paths.h"
#include "platform/forms/AccessibleRole.h"
#include "platform/forms/DevicePixels.h"
#include "platform/forms/Form.h"
#include "platform/forms/Screen.h"

namespace {

constexpr double kCaptionHeight = 255;            // twips: one line of the caption's font
constexpr int kFrameWidth = 2, kFrameRadius = 5;  // pixels, of the focus frame along the picture's edge
constexpr int kFrameColour = 0xFFFFFF, kLitFrameColour = Palette::kText;

class AccessibleButton final : public QAccessibleWidget {
 public:
  explicit AccessibleButton(SkinButton* button)
      : QAccessibleWidget(button, AccessibleRoleOf(*button, QAccessible::Button)), button_(button) {}

  QStringList actionNames() const override { return QAccessibleWidget::actionNames() << pressAction(); }

  void doAction(const QString& action) override {
    if (action != pressAction()) {
      QAccessibleWidget::doAction(action);
      return;
    }
    // Later: who asked for it must not wait for the form that the press may open.
    QMetaObject::invokeMethod(
        button_, [button = button_] { button->Press(); }, Qt::QueuedConnection);
  }

 private:
  SkinButton* button_;
};

QAccessibleInterface* MakeAccessible(const QString& className, QObject* object) {
  auto* button = HasTypeInformation(className) ? dynamic_cast<SkinButton*>(object) : nullptr;
  return button != nullptr ? new AccessibleButton(button) : nullptr;
}

}  // namespace

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
  QAccessible::installFactory(MakeAccessible);
  setFocusPolicy(Qt::StrongFocus);
  if (captionName.isEmpty()) return;
  caption_ = new Label(this, captionName);
  caption_->setAlignment(Qt::AlignCenter);
  caption_->SetFont(9, true);
  // A click on the caption is a click on the button, and the pointer over it is over the button.
  caption_->setAttribute(Qt::WA_TransparentForMouseEvents);
}

void SkinButton::SetCaption(const QString& text) {
  if (caption_ != nullptr) caption_->SetCaption(text);
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
  LogErrors([&] { SetPicture(SkinPicture(image)); });
}

void SkinButton::PlaceAt(const Place& place) {
  Move(place);
  if (caption_ != nullptr)
    caption_->Move(0, (place.Height - kCaptionHeight) / 2, place.Width, kCaptionHeight);
}

void SkinButton::SetImages(const ButtonImages& images) {
  if (images == images_) return;
  images_ = images;
  look_ = Look::None;
}

void SkinButton::Press() {
  if (!Enabled()) return;
  Dispatcher::Run([this] {
    MouseDown.Raise();
    MouseUp.Raise();
    Click.Raise();
  });
}

void SkinButton::paintEvent(QPaintEvent* event) {
  PictureBox::paintEvent(event);
  if (!framed_) return;
  QPainter painter(this);
  DrawRoundFrame(painter, rect(), Screen::Colour(look_ == Look::On ? kLitFrameColour : kFrameColour),
                 Qt::transparent, Screen::Pixels(kFrameRadius), Screen::Pixels(kFrameWidth));
}

void SkinButton::mouseMoveEvent(QMouseEvent* event) {
  PictureBox::mouseMoveEvent(event);
  if (family_ != nullptr) Dispatcher::Run([this] { family_->PointerOver(this); });
}

void SkinButton::focusInEvent(QFocusEvent* event) {
  PictureBox::focusInEvent(event);
  // A button that was put out before its window lost the focus, as one that opened a dialog, stays so.
  if (family_ != nullptr && (event->reason() != Qt::ActiveWindowFocusReason || lightsAgain_))
    Dispatcher::Run([this] { family_->LightUp(this); });
  // The frame is for those who walk by the key; it comes back with the window.
  if (event->reason() != Qt::ActiveWindowFocusReason)
    framed_ = family_ == nullptr &&
              (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason);
  update();
}

void SkinButton::focusOutEvent(QFocusEvent* event) {
  PictureBox::focusOutEvent(event);
  spaceHeld_ = false;
  lightsAgain_ = event->reason() != Qt::ActiveWindowFocusReason || look_ == Look::On;
  if (event->reason() != Qt::ActiveWindowFocusReason) framed_ = false;
  update();
}

void SkinButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Space) {
    PictureBox::keyPressEvent(event);
  } else if (!event->isAutoRepeat()) {
    spaceHeld_ = true;
  }
}

void SkinButton::keyReleaseEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Space) {
    PictureBox::keyReleaseEvent(event);
  } else if (!event->isAutoRepeat() && spaceHeld_) {
    spaceHeld_ = false;
    Press();
  }
}

ButtonFamily::~ButtonFamily() {
  for (SkinButton* member : members_)
    member->family_ = nullptr;
}

void ButtonFamily::Add(SkinButton* button) {
  members_.push_back(button);
  button->family_ = this;
}

void ButtonFamily::PointerOver(SkinButton* button) {
  if (!button->Enabled()) return;
  button->Owner()->SetMousePointer(kPointerHand);
  button->SetFocus();
  LightUp(button);  // it may have had the focus already, and been put out since
}

void ButtonFamily::PutOut() {
  for (SkinButton* member : members_) {
    if (member->Enabled()) member->Show(SkinButton::Look::Off);
  }
}

void ButtonFamily::LightUp(SkinButton* button) {
  for (SkinButton* member : members_) {
    if (member != button && member->Enabled()) member->Show(SkinButton::Look::Off);
  }
  if (button->Enabled()) button->Show(SkinButton::Look::On);
}
