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
  static constexpr const char* kPairs[] = {"\\b0 x\\b x", "x\\tab ", "\\b0 x\\b\\tab "};
  for (const char* const pair : kPairs) {
    SCOPED_TRACE(pair);
    const RichPage page = ReadBody("\\pard\\tldot\\tx5000 " + QByteArray(pair).repeated(10'000));
    int fragments = 0;
    for (auto fragment = page.Document->begin().begin(); !fragment.atEnd(); ++fragment)
      ++fragments;
    EXPECT_LE(fragments, 10'001);
    EXPECT_EQ(page.Document->characterCount(), 20'001);
  }
}

TEST(RtfBombs, StylesAreRepeatedWithinBounds) {
  QByteArray styles = "{\\stylesheet{\\s1 all;}";
  for (int i = 2; i <= 12; ++i) {
    const QByteArray number = QByteArray::number(i);
    styles += "{\\s" + number + "\\sbasedon" + QByteArray::number(i - 1) + QByteArray("\\b\\i").repeated(24) +
              " x;}";
  }
  const auto isBold = [&styles](const QByteArray& body) {
    return FormatOf(ReadBody(styles + "}" + body + "\\pard\\plain\\s12 last"), "last").fontWeight() ==
           QFont::Bold;
  };
  EXPECT_TRUE(isBold(QByteArray("\\pard\\plain\\s12 x\\par ").repeated(1000)));
  EXPECT_FALSE(isBold(QByteArray("\\s12").repeated(10'000)));
}

TEST(RtfBombs, ALookBeyondTheLastIsNoLink) {
  QByteArray looks;
  for (int i = 0; i < 5000; ++i)
    looks += "\\fs" + QByteArray::number(2 + i % 70) + "\\expndtw" + QByteArray::number(i / 70) + " x\\par ";
  const QByteArray link = "{\\field{\\*\\fldinst HYPERLINK \"a.txm\"}{\\fldrslt ";
  for (const QByteArray& body : {link + "link}}\\par " + looks, link + looks + "}}" + looks}) {
    const RichPage page = ReadBody(body);
    const QTextBlock last = page.Document->lastBlock().previous();
    ASSERT_EQ(last.text(), QStringLiteral("x"));
    EXPECT_FALSE(last.begin().fragment().charFormat().isAnchor());
  }
}

}  // namespace
