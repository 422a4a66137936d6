#include "platform/forms/MsgBox.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFontMetrics>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <algorithm>

#include "platform/forms/Form.h"
#include "platform/forms/Screen.h"
#include "platform/forms/WrappedText.h"
#include "texts/Descriptions.h"

namespace {

std::function<MsgAnswer(const MsgBoxCall&)>& Answerer() {
  static std::function<MsgAnswer(const MsgBoxCall&)> answerer;
  return answerer;
}

QMessageBox::Icon QtIcon(MsgIcon icon) {
  switch (icon) {
    case MsgIcon::Exclamation: return QMessageBox::Warning;
    case MsgIcon::Information: return QMessageBox::Information;
    case MsgIcon::None: break;
  }
  return QMessageBox::NoIcon;
}

constexpr qsizetype kListLines = 12;          // of a list that are told
constexpr int kTextWidth = 440;               // pixels of the design
constexpr int kAround = 160;                  // of icon, buttons, margins and frame, in either direction
constexpr int kTitleAround = 130;             // of a frame's boxes and icon
constexpr qsizetype kMostCharacters = 20000;  // more than a screen can hold

// Stands in the middle of its owner, and without one in that of the display; Qt would place it higher.
class CentredBox final : public QMessageBox {
 public:
  using QMessageBox::QMessageBox;

 protected:
  void showEvent(QShowEvent* event) override {
    QMessageBox::showEvent(event);
    const QRect display = screen()->geometry();
    const QWidget* owner = parentWidget();
    const bool hasOwner = owner != nullptr && owner->isVisible() && !owner->isMinimized();
    QRect place(QPoint(), size());
    place.moveCenter(hasOwner ? owner->frameGeometry().center() : display.center());
    const QPoint last = display.bottomRight() - QPoint(width(), height());
    move(std::clamp(place.x(), display.left(), std::max(last.x(), display.left())),
         std::clamp(place.y(), display.top(), std::max(last.y(), display.top())));
  }
};

// A text of more lines is a list: the first of them, and how many more there are.
QString FirstLines(const QString& text, qsizetype most) {
  const QStringList lines = text.split(QLatin1Char('\n'));
  if (lines.size() <= most) return text;
  const QStringList shown = lines.mid(0, most) << Describe("list-more", QString::number(lines.size() - most));
  return shown.join(QLatin1Char('\n'));
}

// The widest text that Qt gives a message box room for on that screen.
int WidestText(const QSize& screen) {
  const bool isSmall = screen.width() <= 1024;
  return std::max(std::min(isSmall ? screen.width() : screen.width() - 480, 1000) - Screen::Pixels(kAround),
                  Screen::Pixels(kTextWidth));
}

// As much of the text as the screen has room for, in lines: across it only where it would be too high.
QString OntoScreen(const QString& text, const QFont& font, const QSize& screen) {
  const int height = screen.height() - Screen::Pixels(kAround);
  QString shown = FirstLines(text, kListLines).left(kMostCharacters);
  if (WrappedHeight(font, Screen::Pixels(kTextWidth), shown) <= height)
    return WrappedLines(font, Screen::Pixels(kTextWidth), shown);
  const int width = WidestText(screen);
  for (qsizetype most = kListLines - 1; most > 0 && WrappedHeight(font, width, shown) > height; --most)
    shown = FirstLines(text, most).left(kMostCharacters);
  const QStringList lines = WrappedLines(font, width, shown).split(QLatin1Char('\n'));
  const int room = std::max(height / QFontMetrics(font).height() - 1, 1);
  if (lines.size() <= room) return lines.join(QLatin1Char('\n'));
  return lines.mid(0, room).join(QLatin1Char('\n')) + QStringLiteral("...");
}

// The text as lines that stay as they are, in a box in which the title has room too.
void SetText(QMessageBox& box, const QString& text) {
  auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
  label->ensurePolished();
  const QSize screen = box.screen()->availableSize();
  const QString lines = OntoScreen(text, label->font(), screen);
  box.setText(lines);
  QFont titleFont = label->font();
  titleFont.setBold(true);
  const int title =
      QFontMetrics(titleFont).horizontalAdvance(box.windowTitle()) + Screen::Pixels(kTitleAround);
  const int widest = QFontMetrics(label->font()).size(0, lines).width() + 1;
  label->setFixedWidth(std::max(widest, std::min(title, WidestText(screen))));
}

MsgAnswer Show(const MsgBoxCall& call) {
  // A box raised while the program is in the background must not lie behind its forms.
  QWidget* owner = QApplication::activeWindow();
  CentredBox box(owner != nullptr ? owner : FormLife::Active());
  box.setObjectName(QStringLiteral("MsgBox"));
  box.setTextFormat(Qt::PlainText);
  box.setIcon(QtIcon(call.Icon));
  box.setWindowTitle(call.Title.isEmpty() ? FormLife::RunTitle() : call.Title);
  box.setStandardButtons(call.Buttons == MsgButtons::Ok ? QMessageBox::Ok
                                                        : QMessageBox::Yes | QMessageBox::No);
  SetText(box, call.Text);
  for (QAbstractButton* button : box.buttons())
    button->setIcon({});
  if (call.Buttons == MsgButtons::YesNo) {
    box.setDefaultButton(QMessageBox::Yes);
    box.setEscapeButton(QMessageBox::No);
  }
  const HourglassPause pause;
  const int answer = box.exec();
  if (call.Buttons == MsgButtons::Ok) return MsgAnswer::Ok;
  return answer == QMessageBox::Yes ? MsgAnswer::Yes : MsgAnswer::No;
}

}  // namespace

MsgAnswer MsgBox(const QString& text, MsgButtons buttons, MsgIcon icon, const QString& title) {
  if (Answerer()) return Answerer()({FirstLines(text, kListLines), buttons, icon, title});
  return Show({text, buttons, icon, title});
}

void AnswerMessageBoxes(std::function<MsgAnswer(const MsgBoxCall&)> answerer) {
  Answerer() = std::move(answerer);
}
