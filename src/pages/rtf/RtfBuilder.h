// Writes finished paragraphs and tables of an RTF page into the document.
#pragma once

#include <QTextCursor>
#include <QTextFrameFormat>
#include <QTextTable>
#include <vector>

#include "pages/common/RichText.h"
#include "pages/rtf/RtfFormats.h"
#include "pages/rtf/RtfModel.h"

class RtfBuilder {
 public:
  // The page's document must be there and empty. All three must outlive the builder.
  RtfBuilder(RichPage& page, RtfFormats& formats);

  void InsertParagraph(const RtfParagraph& paragraph);
  void Insert(const RtfBlock& block);

  // No more will come: the page gets its measures. Before it the document's positions are not final.
  void Finish();

 private:
  void InsertTable(const RtfTable& table);
  void InsertRows(const RtfTable& table, size_t first, size_t count);
  void InsertCell(const RtfCell& cell, const QTextCursor& at);
  void InsertAsText(const RtfTable& table, size_t first, size_t count);
  QTextCharFormat EmptyLineFont(const RtfCell* cell) const;
  void SetUpDocument();
  void SetPageBorder(QTextFrameFormat& frame) const;
  void FlattenBlock();
  void KeepEmptyLine(const QTextTable& table, QTextBlockFormat format);
  void InsertSpans(const RtfParagraph& paragraph);
  void InsertWithLeaders(const RtfParagraph& paragraph);
  const QTextBlockFormat& FormatBehindLast(const RtfParaProps& props);
  void PutSpaceAbove(int twips);

  RichPage& page_;
  RtfFormats& formats_;
  QTextCursor cursor_;
  bool isAtFreshBlock_ = true;  // the cursor stands in an empty block that nobody asked for
  RtfParaProps last_;           // of the paragraph right above, if there is one
  bool hasLast_ = false;
  QTextTable* lastTable_ = nullptr;  // that the fresh block stands behind
  int spaceAtTop_ = 0;               // above the first paragraph of the page, twips
  QTextBlockFormat spaced_;
  int tables_ = 0;
  size_t cells_ = 0;  // of all tables
  long long mergeWork_ = 0;
};
