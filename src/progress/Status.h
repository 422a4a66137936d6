// The check-progress screen: how far the learner is in the open course, module by module, and the way to
// any module or topic. The course screen's toolbar opens it, and the sign-in of a known learner
// ends in it.
#pragma once

#include "frame/Captions.h"
#include "frame/DialogForm.h"

class FlexGrid;
class ProgressBar;
class TextBox;

class Status final : public DialogForm {
 public:
  Status();

  // Reads the learner's progress anew and shows the screen, modal. An error goes to the caller, and the
  // screen is not shown then.
  void ShowStatusForm();

 protected:
  void Form_Load() override;
  void Form_MouseMove() override;
  void Form_KeyUp(int key, Qt::KeyboardModifiers modifiers) override;

 private:
  enum Index { kModules = 0, kTopics = 1 };

  void AddGrid(Index index);
  TextBox* AddResult(const QString& name, const Place& place);
  void AddSwatch(const QString& name, const Place& place, int colour, int text);
  void InsertFormText();
  void Clear_Form();

  void FillModuleGrid();
  void FillTopicGrid(int module);
  void ShowModuleResults(int module);

  // The row that counts as the one under the mouse; Rows of the grid or more where there is none.
  int RowUnderMouse(const FlexGrid& grid) const;
  void ModulesMouseMove();
  void TopicsMouseMove();
  void HoverModule(int row);
  void ShowTopicSelection();
  void GridClick(Index index);
  void Jump(Index index);

  void Prog_Help_MouseUp();
  void Prog_Cancel_MouseUp();

  Captions captions_;
  FlexGrid* msFlexGrid1_[2];
  TextBox* text1_;
  TextBox* text2_;
  ProgressBar* ccrpProgressBar1_;
  SkinButton* prog_Help_;
  SkinButton* prog_Cancel_;
  int mHoverModuleRow = -1;  // the module that was highlighted last, -1 when none
};
