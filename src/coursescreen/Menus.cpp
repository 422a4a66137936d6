#include "coursescreen/Menus.h"

#include "coursescreen/CourseControls.h"
#include "coursescreen/PageTurning.h"
#include "coursescreen/ToolTip.h"
#include "pages/view/TextControl.h"
#include "platform/forms/Form.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

namespace {

constexpr Place kFocusSink{0, 0, 15, 15};  // twips at 15 per pixel: a pixel that shows nothing

PictureBox* AddFocusSink(PictureBox* container) {
  auto* sink = new PictureBox(container, QStringLiteral("Picture1"));
  sink->SetTransparent(true);
  sink->Move(kFocusSink);
  return sink;
}

}  // namespace

Menus::Menus(Form& form, const CourseControls& controls, PageTurning& pages, Hover& hover, ToolTip& tip)
    : form_(form),
      controls_(controls),
      pages_(pages),
      picture1_(AddFocusSink(controls.Picture2)),
      toolbar_(form, controls, pages, hover),
      topics_(form, controls.Picture2, hover),
      modules_(form, controls, topics_, hover) {
  controls_.Modules->Click = [this] { ModLabelClick(); };
  controls_.toolBar_But->Click = [this] { toolBarButClick(); };
  toolbar_.ItemChosen = [this] { CloseAllMenus(); };
  // A row replaces the button that the pointer came from before that one's leave has hidden its tip.
  modules_.Reached = [&tip] { tip.HideToolTip(); };
  toolbar_.Reached = [&tip] { tip.HideToolTip(); };
  topics_.RowReached = [this, &tip](int row) {
    tip.HideToolTip();
    modules_.LeaveArrows();
    TopicMoveProc(row);
  };
  topics_.RowReleased = [this](int row) { TopicClickProc(row); };
  CloseOnClicks();
}

void Menus::CloseOnClicks() {
  for (SkinButton* button : {controls_.NextBtn, controls_.Prev, controls_.Return_Btn, controls_.Exit_Pic}) {
    button->MouseDown = [this] { CloseAllMenus(); };
  }
  for (Label* label : {controls_.Label1, controls_.CourseNameLbl})
    label->Click = [this] { CloseAllMenus(); };
  controls_.TXTextControl1->Click = [this] {
    CloseAllMenus();
    controls_.Picture2->raise();
    controls_.TXTextControl1->SetCurrentObject(0);
  };
  controls_.TXTextControl1->GotFocus = [this] { CloseAllMenus(); };  // the keys now walk its links
}

void Menus::Build() {
  modules_.BuildModuleMenu();
  toolbar_.BuildToolbarMenu();
}

void Menus::Rebuild() {
  CloseAllMenus();
  modules_.UnloadModuleRows();
  topics_.UnloadTopicRows();
  modules_.BuildModuleMenu();
}

void Menus::ModLabelClick() {
  picture1_->SetFocus();
  const bool open = modules_.IsOpen();
  CloseAllMenus();
  if (open) return;
  form_.Refresh();
  modules_.OpenModuleMenu();
}

void Menus::toolBarButClick() {
  picture1_->SetFocus();
  const bool open = toolbar_.IsOpen();
  CloseAllMenus();
  if (!open) toolbar_.OpenToolbarMenu();
}

void Menus::TopicMoveProc(int row) {
  // Behind the highlight, which starts the wait where the pointer came over another module: the topics would
  // open anew under it.
  modules_.HighlightModule(modules_.OpenTopicModule());
  modules_.StopWaiting();
  topics_.HighlightTopic(row);
}

void Menus::TopicClickProc(int row) {
  const int module = modules_.OpenTopicModule();
  const QString topic = topics_.Caption(row);
  CloseAllMenus();
  pages_.JumpToTopic(module, topic);
}

void Menus::CloseAllMenus() {
  modules_.CloseModuleMenu();
  topics_.CloseTopicMenu();
  toolbar_.CloseToolbarMenu();
}

bool Menus::KeyReleased(int key, Qt::KeyboardModifiers modifiers) {
  if ((modifiers & (Qt::AltModifier | Qt::ShiftModifier | Qt::ControlModifier)) != 0) return false;
  if (!modules_.IsOpen() && !toolbar_.IsOpen()) return false;
  switch (key) {
    case Qt::Key_Down: PointAtNext(+1); return true;
    case Qt::Key_Up: PointAtNext(-1); return true;
    case Qt::Key_Return:
      if (!picture1_->HasFocus()) return false;  // the focus has gone on to a button
      Choose();
      return true;
    case Qt::Key_Escape: TakeBack(); return true;
    default: return false;
  }
}

void Menus::PointAtNext(int direction) {
  if (toolbar_.IsOpen()) {
    toolbar_.PointAtNext(direction);
  } else if (KeysAreInTopics()) {
    const int row = topics_.Neighbour(direction);
    topics_.ScrollTo(row);
    TopicMoveProc(row);
    topics_.Announce(row);
  } else {
    modules_.PointAtNext(direction);
  }
}

void Menus::Choose() {
  if (toolbar_.IsOpen()) {
    if (toolbar_.HoverTool() >= 0) toolbar_.ChooseItem(toolbar_.HoverTool());
  } else if (KeysAreInTopics()) {
    TopicClickProc(topics_.HoverTopic());
  } else if (modules_.HoverModule() >= 0) {
    if (!modules_.TopicsAreOpen()) modules_.OpenTopics();
    if (!topics_.IsOpen()) return;  // the module has none
    topics_.ScrollTo(0);
    TopicMoveProc(0);
    topics_.Announce(0);
  }
}

// Out of the topics first, then out of the menu, to the button that it came from.
void Menus::TakeBack() {
  if (topics_.IsOpen()) {
    modules_.StopWaiting();
    topics_.CloseTopicMenu();
    return;
  }
  SkinButton* button = toolbar_.IsOpen() ? controls_.toolBar_But : controls_.Modules;
  CloseAllMenus();
  button->SetFocus();
}
