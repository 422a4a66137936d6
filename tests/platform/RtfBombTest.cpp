// Rich text of a few bytes that asks for much: what it gets is bounded, and its words are there.
#include <QTextTable>

#include "platform/rtf_pages.h"

namespace {

int CellsOf(const QTextFrame* frame) {
  int cells = 0;
  for (const QTextFrame* child : frame->childFrames()) {
    const auto* table = qobject_cast<const QTextTable*>(child);
    cells += CellsOf(child) + (table == nullptr ? 0 : table->rows() * table->columns());
  }
  return cells;
}

TEST(RtfBombs, RowsOfManyCellsBecomeLines) {
  QByteArray row = "\\trowd";
  for (int i = 1; i <= 128; ++i)
    row += "\\cellx" + QByteArray::number(i * 100);
  const RichPage page =
      ReadBody(row + QByteArray("\\pard\\intbl x\\cell\\row").repeated(2000) + "\\pard end");
  EXPECT_LE(CellsOf(page.Document->rootFrame()), 50'000);
  EXPECT_GT(CellsOf(page.Document->rootFrame()), 10'000);
  EXPECT_EQ(page.Document->toPlainText().count(u'x'), 2000);
}

TEST(RtfBombs, NumbersOfListsStayShort) {
  const QByteArray number = "\\'00";
  const RichPage page =
      ReadBody("{\\*\\listtable{\\list{\\listlevel\\levelnfc1\\levelstartat888{\\leveltext\\'ff" +
               number.repeated(4000) +
               ";}}\\listid7}}{\\*\\listoverridetable{\\listoverride\\listid7\\listoverridecount0\\ls1}}"
               "\\ls1 x\\par{\\pn\\pnlvlbody\\pndec{\\pntxtb " +
               QByteArray("b").repeated(4000) + "}}\\pard y\\par");
  for (QTextBlock block = page.Document->begin(); block.isValid(); block = block.next())
    EXPECT_LT(block.length(), 250);
  EXPECT_TRUE(page.Document->toPlainText().contains(u'x'));
}

TEST(RtfBombs, AParagraphHasSoManyLooks) {
  QByteArray body;
  for (int i = 0; i < 20'000; ++i)
    body += i % 2 == 0 ? "\\b0 x" : "\\b x";
  const RichPage page = ReadBody(body);
  int fragments = 0;
  for (auto fragment = page.Document->begin().begin(); !fragment.atEnd(); ++fragment)
    ++fragments;
  EXPECT_LE(fragments, 5001);
  EXPECT_EQ(page.Document->toPlainText(), QString(u'x').repeated(20'000));
}

TEST(RtfBombs, ALookBeyondTheLastIsNoLink) {
  QByteArray body = "{\\field{\\*\\fldinst HYPERLINK \"a.txm\"}{\\fldrslt link}}\\par ";
  for (int i = 0; i < 5000; ++i)
    body += "\\fs" + QByteArray::number(2 + i % 70) + "\\expndtw" + QByteArray::number(i / 70) + " x\\par ";
  const RichPage page = ReadBody(body);
  for (QTextBlock block = page.Document->begin().next(); block.isValid(); block = block.next())
    for (auto fragment = block.begin(); !fragment.atEnd(); ++fragment)
      ASSERT_FALSE(fragment.fragment().charFormat().isAnchor());
}

}  // namespace
