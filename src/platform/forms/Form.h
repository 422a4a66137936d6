// Forms and their life: default instances, load and unload, modal loops, activation, keys.
#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QWidget>

#include "platform/forms/Event.h"

class Control;
class KeyTaker;
class QEventLoop;
class Timer;

// FullScreen: the window covers the display, docks included, and what stands on the form is centred in it as
// if the form had its own size; around it is the skin's colour.
enum class FormFrame { Framed, Frameless, Tool, FullScreen };
enum class FormMode { Modeless, Modal };
// Who asks for the unload: the learner by the window's close box, or the code.
enum class UnloadMode { ControlBox = 0, Code = 1 };

class Form : public QWidget {
 public:
  // `name` is the form's name; its caption is the run title that every form carries until it sets another.
  Form(const QString& name, FormFrame frame);
  ~Form() override;

  QString Name() const { return objectName(); }
  const QList<Control*>& Controls() const { return controls_; }
  Control* ActiveControl() const;

  // Place on the screen in twips, of the window with its frame; follows where the learner drags it. A form
  // that never got a left and top is centred when it is shown.
  double Left() const { return left_; }
  double Top() const { return top_; }
  double Width() const { return width_; }
  double Height() const { return height_; }
  void Move(double left, double top, double width, double height);
  void SetSize(double width, double height);
  bool HasPlace() const { return placed_; }

  // Shows the form; nothing happens when it is not loaded. Modal: returns when the form is hidden or
  // unloaded. The owner stays beneath it.
  void Show(FormMode mode = FormMode::Modeless, Form* owner = nullptr);
  void Hide();
  bool Shown() const { return shown_; }  // minimised counts as shown
  void Minimise();

  // Where the form's area lies in its window: pixels, {0, 0} but for a full-screen form on a larger display.
  QRect Area() const;

  // Asks Form_QueryUnload, runs Form_Unload, and takes the form out of the collection. The object
  // lives until the outermost handler has returned. False when the query cancelled it.
  bool Unload(UnloadMode mode = UnloadMode::Code);

  // Repaints the form at once.
  void Refresh();
  // Waits until the window system shows the form, a few hundred milliseconds at most, and paints it.
  // The learner's input waits meanwhile.
  void PaintFirst();

  // One of the pointer numbers of Screen.h.
  void SetMousePointer(int pointer);
  int MousePointer() const { return mousePointer_; }

  // Presses the button that has the focus, as Enter does; false when no button has it.
  bool PressFocusedButton();
  // The keys that no control has a use for go to that text, which the form shows and owns.
  void ReadWith(KeyTaker& text) { reading_ = &text; }

  void SetCaption(const QString& caption) { setWindowTitle(caption); }

  // Whether the form and its timers take part in the program; false from Form_Unload's end on.
  bool Loaded() const { return loaded_; }

 protected:
  virtual void Form_Load() {}
  virtual void Form_Activate() {}
  virtual void Form_Deactivate() {}
  virtual bool Form_QueryUnload(UnloadMode) { return true; }  // false keeps the form
  virtual void Form_Unload() {}
  virtual void Form_MouseMove() {}
  // The form sees keys before its controls do, and the release only of a key whose press it saw.
  // As long as the form has no other use for it, Enter presses the button that has the focus.
  virtual void Form_KeyUp(int key, Qt::KeyboardModifiers modifiers);

  bool event(QEvent* event) override;
  bool eventFilter(QObject* object, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  friend class Control;
  friend class Timer;
  friend class FormLife;

  void Centre();
  void Leave();
  void RunModalLoop();
  bool PreviewKey(QEvent* event);

  QList<Control*> controls_;
  QList<Timer*> timers_;
  QHash<int, Qt::KeyboardModifiers> pressedKeys_;  // and what was held with each
  QEventLoop* modalLoop_ = nullptr;
  KeyTaker* reading_ = nullptr;
  double left_ = 0, top_ = 0, width_ = 0, height_ = 0;
  bool fillsScreen_ = false, placed_ = false, shown_ = false, loaded_ = false, unloading_ = false;
  int mousePointer_ = 0;
};

// The collection of loaded forms, which of them is active, and the end of the program.
class FormLife {
 public:
  // The caption that every form carries until it sets another; message boxes without a title have it too.
  static void SetRunTitle(const QString& title);
  static QString RunTitle();

  static const QList<Form*>& Loaded();
  static Form* Active();
  // Loads a new form: it joins the collection, then its load handler runs. An error in the handler
  // takes the form out again and goes on to the caller.
  static void Load(Form* form);
  static void SetActive(Form* form);
  // The form is not on the screen any more; the one that was active before it becomes active.
  static void Deactivate(Form* form);

  // Ends the program where it stands: no unload handlers run.
  static void EndProgram();
  static bool Ended();
  // Begins a life without forms; any that an immediate end has left go without their handlers. `quit`
  // ends the event loop.
  static void Begin(std::function<void()> quit);
  // Brings the active form to the front of the desktop.
  static void BringForward();

 private:
  friend class Form;

  static void Bury(Form* form);
  static void DeleteTheGone();
  static void EndIfNothingShows();
};

// The form's position among the loaded forms, from 1; 0 when it is not loaded.
int FormLoadPosition(const Form& form);
// Whether a form of that name is loaded. Case counts.
bool IsFormLoadedByName(const QString& name);

// The loaded form of that class, or nullptr.
template <typename FormType>
FormType* LoadedForm() {
  for (Form* form : FormLife::Loaded()) {
    if (auto* found = dynamic_cast<FormType*>(form)) return found;
  }
  return nullptr;
}

// The default instance of a form class, made and loaded on first mention. A form may unload itself
// while it loads: ask Loaded() where that can be.
template <typename FormType>
FormType& Default() {
  if (FormType* loaded = LoadedForm<FormType>()) return *loaded;
  auto* form = new FormType;  // owned by the collection, deleted after its unload
  FormLife::Load(form);
  return *form;
}
