// The glossary screen: the words of a course under a strip of their letters, on the screen and in print.
// It is filled when a course is chosen and stays, shown or hidden, until the next choice.
#pragma once

#include <optional>

#include "frame/Captions.h"
#include "frame/DialogForm.h"
#include "pages/view/PrintDocument.h"
#include "platform/forms/Timer.h"
#include "reference/GlossaryList.h"
#include "reference/PrintableGlossary.h"

class FlexGrid;

class Glossary final : public DialogForm {
 public:
  Glossary();

  // Find the glossary of the current course and read it into the list and into the printable document.
  // Without one both stay empty; one that can't be read is a RunTimeError. What a large glossary holds
  // behind its first part is read while the program waits for the learner, at the latest when the form
  // is shown.
  void GetGlosInfo();
  void GetPrintableGlosInfo();

  // Puts both grids into their empty state.
  void Clear_Form();

  // Asks for printer and pages, and prints. An error, a cancelled dialog among them, ends it quietly.
  void PrintGlossary();

  // What is printed.
  const PrintDocument& Document() const { return txTextControl1_; }

 protected:
  void Form_Load() override;
  void Form_Activate() override;
  bool Form_QueryUnload(UnloadMode mode) override;
  void Form_MouseMove() override;
  void Form_KeyUp(int key, Qt::KeyboardModifiers modifiers) override;

 private:
  void InsertFormText();
  void SetUpGrids(int selectionColour);
  void ReadOn(qsizetype characters);

  int LetterUnderMouse() const;
  void OverStrip();
  void OffStrip();
  void ClickStrip();
  void ListScrolled();
  // Jumps to a letter of the strip and marks it. An index beyond the letters is a RunTimeError.
  void SelectLetter(int index);
  bool IsMarked(int index);
  void StripKey(int key);
  void TypedLetter(QChar letter);
  // Colours of a letter as 0xBBGGRR.
  void PaintLetter(int index, int textColour, int backColour);

  void ClosePressed();
  void PrintPressed();

  Captions captions_;
  FlexGrid* msFlexGrid2_;  // the strip
  FlexGrid* msFlexGrid1_;  // the list
  SkinButton* glos_Print_;
  SkinButton* glos_Close_;
  PrintDocument txTextControl1_;
  GlossaryList list_;
  PrintableGlossary printable_;
  std::optional<GlossaryReader> listReader_, printReader_;
  int mHoverLetter = -1, mSelLetter = 0;
  bool mLetterHot = false;
  Timer tmrReading_{this, QStringLiteral("tmrReading")};
};
