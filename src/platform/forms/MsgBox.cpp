#include "platform/forms/MsgBox.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>

#include "platform/forms/Form.h"
#include "platform/forms/Screen.h"

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

MsgAnswer Show(const MsgBoxCall& call) {
  // A box raised while the program is in the background must not lie behind its forms.
  QWidget* owner = QApplication::activeWindow();
  QMessageBox box(owner != nullptr ? owner : FormLife::Active());
  box.setObjectName(QStringLiteral("MsgBox"));
  box.setTextFormat(Qt::PlainText);
  box.setText(call.Text);
  box.setIcon(QtIcon(call.Icon));
  box.setWindowTitle(call.Title.isEmpty() ? FormLife::RunTitle() : call.Title);
  box.setStandardButtons(call.Buttons == MsgButtons::Ok ? QMessageBox::Ok
                                                        : QMessageBox::Yes | QMessageBox::No);
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
  const MsgBoxCall call{text, buttons, icon, title};
  return Answerer() ? Answerer()(call) : Show(call);
}

void AnswerMessageBoxes(std::function<MsgAnswer(const MsgBoxCall&)> answerer) {
  Answerer() = std::move(answerer);
}
