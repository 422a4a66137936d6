#include "support/Gui.h"

#include <QCoreApplication>
#include <QCursor>
#include <QDeadlineTimer>
#include <QWindow>

namespace Gui {

namespace {

constexpr int kAwaited = 120000;  // ms
constexpr int kPatience = 20000;  // polls of a script's step before it counts as never coming

QPoint Middle(const Form& form, const QString& name) {
  const QWidget* widget = Find(form, name);
  return widget->mapTo(&form, widget->rect().center());
}

}  // namespace

void Click(const Form& form, const QString& name) {
  MoveTo(form, name);
  QTest::mouseClick(form.windowHandle(), Qt::LeftButton, {}, Middle(form, name));
}

void MoveTo(const Form& form, const QString& name) {
  MoveTo(form, Middle(form, name));
}

void MoveTo(const Form& form, const QPoint& place) {
  // A move to where the pointer stands already is none: it comes from one pixel aside.
  QTest::mouseMove(form.windowHandle(), place + QPoint(1, 0));
  // The pointer of the desktop moves along: who asks for its place gets this one.
  QCursor::setPos(form.mapToGlobal(place));
  QTest::mouseMove(form.windowHandle(), place);
}

void Key(const Form& form, Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QTest::keyClick(form.windowHandle(), key, modifiers);
}

void Type(const Form& form, const QString& text) {
  for (const QChar character : text) {
    QTest::sendKeyEvent(QTest::Click, form.windowHandle(), Qt::Key_unknown, QString(character), {});
  }
}

QStringList TabWalk(const Form& form, int steps) {
  QStringList names;
  for (int i = 0; i < steps; ++i) {
    names.append(form.focusWidget()->objectName());
    Key(form, Qt::Key_Tab);
  }
  return names;
}

void Settle() {
  QCoreApplication::processEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

bool Await(const std::function<bool()>& condition) {
  // The web engine goes on in many small steps: a wait that sleeps between them makes it slow.
  const QDeadlineTimer end(kAwaited);
  QTimer bell;  // the condition is looked at now and then when nothing happens
  bell.start(20);
  while (!condition() && !end.hasExpired())
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  return condition();
}

Script::Script() = default;

Script::~Script() = default;

Script& Script::When(const QString& form, std::function<void(Form&)> action) {
  steps_.push_back({form, std::move(action)});
  if (timer_ == nullptr) StartPolling();
  return *this;
}

// A timer does not fire inside its own handler, but a step may open a modal loop: every step that runs
// leaves the polling to a fresh one.
void Script::StartPolling() {
  timer_ = std::make_unique<QTimer>();
  QObject::connect(timer_.get(), &QTimer::timeout, timer_.get(), [this] { Poll(); });
  timer_->start(0);
}

void Script::Poll() {
  Form* active = FormLife::Active();
  if (active == nullptr || active->Name() != steps_.front().Form) {
    if (++idle_ > kPatience) qFatal("the form %s never came", qPrintable(steps_.front().Form));
    return;
  }
  idle_ = 0;
  const auto action = steps_.front().Action;
  steps_.pop_front();
  timer_->stop();
  timer_.release()->deleteLater();
  if (!steps_.empty()) StartPolling();
  action(*active);
}

}  // namespace Gui
