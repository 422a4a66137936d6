#include <QApplication>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "platform/RunTimeError.h"
#include "platform/forms/Form.h"
#include "platform/forms/Timer.h"

namespace {

struct Life {
  QList<Form*> Loaded;
  QList<Form*> Activation;  // shown forms, the active one last
  QList<Form*> Gone;        // unloaded forms that a handler may still be running in
  std::function<void()> Quit;
  bool Ended = false;
  QString RunTitle;
};

Life& TheLife() {
  static Life life;
  return life;
}

}  // namespace

void FormLife::SetRunTitle(const QString& title) {
  TheLife().RunTitle = title;
}

QString FormLife::RunTitle() {
  return TheLife().RunTitle;
}

const QList<Form*>& FormLife::Loaded() {
  return TheLife().Loaded;
}

Form* FormLife::Active() {
  return TheLife().Activation.isEmpty() ? nullptr : TheLife().Activation.last();
}

void FormLife::Load(Form* form) {
  TheLife().Loaded.append(form);
  form->loaded_ = true;
  try {
    form->Form_Load();
  } catch (...) {
    form->loaded_ = false;
    Bury(form);
    form->Hide();
    throw;
  }
}

void FormLife::SetActive(Form* form) {
  Form* before = Active();
  if (before == form || !form->shown_) return;
  TheLife().Activation.removeOne(form);
  TheLife().Activation.append(form);
  if (before != nullptr) before->Form_Deactivate();
  form->Form_Activate();
}

void FormLife::Deactivate(Form* form) {
  const bool wasActive = Active() == form;
  TheLife().Activation.removeOne(form);
  if (wasActive && form->loaded_) form->Form_Deactivate();
  if (!wasActive || Active() == nullptr) return;
  Active()->activateWindow();
  Active()->Form_Activate();
}

// A handler of the form may have opened the modal loop that the unload came from, so the object stays
// until the outermost handler has returned.
void FormLife::Bury(Form* form) {
  TheLife().Loaded.removeOne(form);
  TheLife().Gone.append(form);
  if (Dispatcher::Depth() == 0) DeleteTheGone();
}

void FormLife::DeleteTheGone() {
  for (Form* form : std::exchange(TheLife().Gone, {}))
    form->deleteLater();
}

void FormLife::EndProgram() {
  TheLife().Ended = true;
  for (Form* form : TheLife().Loaded) {
    for (Timer* timer : form->timers_)
      timer->SetEnabled(false);
    form->hide();
    if (form->modalLoop_ != nullptr) form->modalLoop_->quit();
  }
  if (TheLife().Quit) TheLife().Quit();
}

bool FormLife::Ended() {
  return TheLife().Ended;
}

void FormLife::Begin(std::function<void()> quit) {
  for (Form* form : std::exchange(TheLife().Loaded, {})) {
    form->loaded_ = false;
    form->hide();
    Bury(form);
  }
  TheLife().Activation.clear();
  TheLife().Ended = false;
  TheLife().Quit = std::move(quit);
  Dispatcher::SetIdleCheck([] {
    DeleteTheGone();
    EndIfNothingShows();
  });
}

void FormLife::BringForward() {
  QWidget* window = QApplication::activeModalWidget();
  if (window == nullptr) window = Active();
  if (window == nullptr) return;
  window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
  window->raise();
  window->activateWindow();
}

void FormLife::EndIfNothingShows() {
  if (TheLife().Ended) return;
  for (const Form* form : TheLife().Loaded) {
    if (form->shown_) return;
  }
  // Forms that are only hidden go with the program.
  while (!TheLife().Loaded.isEmpty()) {
    Form* form = TheLife().Loaded.last();
    IgnoreErrors([form] { form->Unload(); });
    if (form->loaded_ && !form->shown_)
      TheLife().Loaded.removeOne(form);  // it would not go: the end is the end
    if (form->shown_) return;
  }
  TheLife().Ended = true;
  if (TheLife().Quit) TheLife().Quit();
}

int FormLoadPosition(const Form& form) {
  for (int i = 0; i < FormLife::Loaded().size(); ++i) {
    if (FormLife::Loaded().at(i) == &form) return i + 1;
  }
  return 0;
}

bool IsFormLoadedByName(const QString& name) {
  const auto& loaded = FormLife::Loaded();
  return std::any_of(loaded.begin(), loaded.end(),
                     [&name](const Form* form) { return form->Name() == name; });
}
