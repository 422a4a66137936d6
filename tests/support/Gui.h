// Real clicks and keys on real forms, and a script that acts inside modal loops.
#pragma once

#include <QTest>
#include <QTimer>
#include <deque>
#include <functional>
#include <memory>

#include "platform/forms/Control.h"
#include "platform/forms/Form.h"
#include "support/Print.h"

namespace Gui {

// The widget of that name on a form; the test stops when it is not there.
template <typename Widget = QWidget>
Widget* Find(const Form& form, const QString& name) {
  auto* found = form.findChild<QWidget*>(name);
  auto* widget = dynamic_cast<Widget*>(found);
  if (widget == nullptr) qFatal("no control %s on %s", qPrintable(name), qPrintable(form.Name()));
  return widget;
}

// Mouse and keys go to the window, as the desktop delivers them.
void Click(const Form& form, const QString& name);
void MoveTo(const Form& form, const QString& name);
void MoveTo(const Form& form, const QPoint& place);  // pixels within the form
void Key(const Form& form, Qt::Key key, Qt::KeyboardModifiers modifiers = {});
void Type(const Form& form, const QString& text);
// The controls that have the focus, from the one now on, Tab by Tab.
QStringList TabWalk(const Form& form, int steps);

// The form of that kind, shown and in front.
template <typename ShownForm>
ShownForm& Show() {
  auto& form = Default<ShownForm>();
  form.Show();
  if (!QTest::qWaitForWindowActive(&form)) qFatal("%s does not come forward", qPrintable(form.Name()));
  return form;
}

// Lets everything that is posted be delivered, deletions included.
void Settle();

// Lets events be delivered until the condition holds, for what goes on in a time of its own. False when it
// does not within two minutes: such things start slowly on a busy machine.
bool Await(const std::function<bool()>& condition);

// Acts when a form comes to the front, also inside the modal loops of others.
class Script {
 public:
  Script();
  ~Script();
  // The steps run in order, each once its form is the active one.
  Script& When(const QString& form, std::function<void(Form&)> action);
  bool Done() const { return steps_.empty(); }

 private:
  void StartPolling();
  void Poll();

  struct Step {
    QString Form;
    std::function<void(::Form&)> Action;
  };
  std::deque<Step> steps_;
  std::unique_ptr<QTimer> timer_;
  int idle_ = 0;
};

}  // namespace Gui
