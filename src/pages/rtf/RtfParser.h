// The heart of the RTF reader: walks the tokens, keeps the stack of groups and sends text where its group
// wants it. The tables of the format, with the words that fill them, are its parts.
#pragma once

#include <QString>
#include <functional>
#include <span>
#include <string_view>
#include <vector>

#include "pages/common/PageBudget.h"
#include "pages/common/RichText.h"
#include "pages/rtf/RtfBuilder.h"
#include "pages/rtf/RtfFields.h"
#include "pages/rtf/RtfFlow.h"
#include "pages/rtf/RtfFormats.h"
#include "pages/rtf/RtfHeader.h"
#include "pages/rtf/RtfLists.h"
#include "pages/rtf/RtfObjects.h"
#include "pages/rtf/RtfState.h"
#include "pages/rtf/RtfStyles.h"
#include "pages/rtf/RtfText.h"
#include "pages/rtf/RtfTokens.h"

class RtfParser {
 public:
  RtfParser(std::string_view bytes, const PageMetrics& metrics, const std::function<void()>& goesOn);

  RichPage Read();

  // The rest is for the control words and the parts.
  RtfHeader& Header() { return header_; }
  RtfStyles& Styles() { return styles_; }
  RtfLists& Lists() { return lists_; }
  RtfFields& Fields() { return fields_; }
  RtfObjects& Objects() { return objects_; }
  RtfFormats& Formats() { return formats_; }
  RtfFlow& Flow() { return flow_; }

  RtfState& State() { return states_.back(); }
  bool IsIn(RtfDestination destination) const { return states_.back().Destination == destination; }
  void SetDestination(RtfDestination destination, RtfGroupEnd atEnd = RtfGroupEnd::Nothing);
  // Whether the group shares its look with those around it; it gets no place of its own on the page.
  bool IsDeep() const { return !deepGroups_.empty(); }

  void AddCharacter(QChar character);
  void AddText(const QString& text);
  void SetFont(int number);  // in the font table: the font that is described next
  void SetPlain();

  void EndParagraph();
  void EndParagraphWithText();  // nothing when it is empty
  void BreakPage();
  void EndCell(bool isNested);
  void EndRow(bool isNested);

  // Says which border the words of lines speak of from here on: a side, of a row also the lines within it.
  // kSideCount of a paragraph is all four sides.
  void BeginBorder(RtfBorderOf owner, size_t side);
  std::span<RtfBorder> Borders();  // good until the next token

 private:
  // Groups around a deep one, as many in a row as are the same.
  struct DeepGroup {
    RtfGroup Group;
    int Link = 0;
    bool IsHidden = false;
    int Count = 1;
  };

  void Handle(const RtfToken& token);
  void HandleSkipped(const RtfToken& token);
  void HandleWord(const RtfToken& token);
  void HandleSymbol(unsigned char symbol);
  void HandleBytes(std::string_view bytes);
  void HandleUnicode(int value);
  void OpenGroup();
  void CloseGroup();
  bool OpenDeepGroup();
  void CloseDeepGroup();
  void EndGroup(const RtfState& closed);
  void FlushText();
  void SendText(const QString& text);
  void SendBody(const QString& text);

  RtfTokenizer tokens_;
  PageMetrics metrics_;
  RichPage page_;
  PageBudget budget_;
  RtfHeader header_;
  RtfFormats formats_;
  RtfBuilder builder_;
  RtfFlow flow_;
  RtfText text_;
  RtfStyles styles_;
  RtfLists lists_;
  RtfFields fields_;
  RtfObjects objects_;

  std::vector<RtfState> states_;
  std::vector<DeepGroup> deepGroups_;
  size_t bareGroups_ = 0;  // open beyond the deepest one that is kept: their words count for nothing
  int fallbackLeft_ = 0;
  bool isIgnorable_ = false;  // the last token was \*
  bool isAtEnd_ = false;      // the page's own group is closed
  bool isPageBreakDue_ = false;
  RtfBorderOf borderOwner_ = RtfBorderOf::Nothing;
  size_t borderSide_ = 0;
};
