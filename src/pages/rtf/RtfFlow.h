// Puts the text of an RTF page in order: runs into paragraphs, paragraphs into cells, rows and
// tables, footnotes to the end. Finished paragraphs and tables go to the builder.
#pragma once

#include <QString>
#include <utility>
#include <vector>

#include "pages/common/PageBudget.h"
#include "pages/rtf/RtfBuilder.h"
#include "pages/rtf/RtfModel.h"

class RtfFlow {
 public:
  // Both must outlive the flow.
  RtfFlow(RtfBuilder& builder, PageBudget& budget) : builder_(builder), budget_(budget) {}

  // Text beyond the budget is left out. The rest of the flow counts what comes and leaves nothing out: the
  // parser stops once the budget is spent.
  void AddText(const QString& text, int format);
  // A picture or object in the line; its format says which.
  void AddInline(int format);
  void AddPlace(const QString& name);

  bool IsParagraphEmpty() const { return paragraph_.Text.isEmpty(); }
  // Whether it holds nothing but a few blanks.
  bool IsParagraphBlank() const {
    constexpr qsizetype kFew = 256;
    return paragraph_.Text.size() < kFew && paragraph_.Text.trimmed().isEmpty();
  }
  bool HasListText() const { return paragraph_.HasListText; }
  void SetHasListText() { paragraph_.HasListText = true; }
  void ForgetListText() { paragraph_.HasListText = false; }
  bool PutTabInFront();  // false: no text stands there

  void EndParagraph(const RtfParaProps& props, int endFormat);
  // Ends the cell of the outermost table, or of the nested one that the properties tell.
  void EndCell(const RtfParaProps& props, int endFormat, bool isNested);
  void EndRow(const RtfParaProps& props, int endFormat, bool isNested);

  // The row that is being described, and a fresh start for it.
  RtfRowProps& Row() { return row_; }
  void ResetRow();
  // The cell whose edge has not come yet.
  RtfCellProps& NextCell() { return nextCell_; }
  // The description of a nested row stands in a group of its own, amid the outer row.
  void BeginNestedRow();
  void EndNestedRow();

  // Text beside the page's own: a footnote, kept for the end, or a text box, which is put in front of
  // the paragraph it hangs on. Each begin needs its end; properties are those of the last paragraph.
  enum class Aside { Footnote, Box };
  void BeginAside(Aside kind);
  void EndAside(const RtfParaProps& props, int endFormat);
  int FootnoteCount() const { return footnoteCount_; }  // begun so far

  // The end of the page: whatever is still open comes out, footnotes last.
  void Finish(const RtfParaProps& props, int endFormat);

 private:
  struct Level {
    RtfTable Table;
    RtfRow Row;
    RtfCell Cell;
  };
  struct SavedParagraph {
    Aside Kind = Aside::Box;
    RtfParagraph Paragraph;
  };

  void Place(RtfParagraph&& paragraph, size_t level);
  void FlushOutermost();
  void OpenLevels(size_t count);
  void CloseLevelsTo(size_t count);
  static void EndCellOf(Level& level);
  void EndRowOf(Level& level, const RtfRowProps& props);
  bool IsInFootnote() const;
  RtfParagraph TakeParagraph(const RtfParaProps& props, int endFormat);

  RtfBuilder& builder_;
  PageBudget& budget_;
  RtfParagraph paragraph_;
  RtfRowProps row_;
  RtfCellProps nextCell_;
  bool isRowOpen_ = false;                               // described, and its end not yet seen
  std::vector<std::pair<RtfRowProps, bool>> outerRows_;  // with whether they are open
  std::vector<Level> levels_;
  std::vector<RtfBlock> outermost_;  // a box around paragraphs that may take in more
  std::vector<SavedParagraph> asides_;
  std::vector<RtfParagraph> footnotes_;
  int footnoteCount_ = 0;
};
