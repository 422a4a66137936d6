// The look of rich text: characters, paragraphs, lists, tables, links and objects.
#include <QAbstractTextDocumentLayout>
#include <QGuiApplication>
#include <QScreen>
#include <QTextTable>
#include <vector>

#include "pages/common/PageLink.h"
#include "pages/rtf/rtf_pages.h"

namespace {

using ::testing::TestWithParam;

struct CharRow {
  const char* What;
  QByteArray Body;  // "x" is looked at
  bool (*Holds)(const QTextCharFormat& format);
};

class RtfCharacters : public TestWithParam<CharRow> {};

TEST_P(RtfCharacters, HaveTheirLook) {
  const RichPage page = ReadBody(GetParam().Body);
  EXPECT_TRUE(GetParam().Holds(FormatOf(page, "x")));
}

using F = QTextCharFormat;
const CharRow kCharacters[] = {
    {"Bold", "\\b x", [](const F& f) { return f.fontWeight() == QFont::Bold; }},
    {"BoldOff", "\\b a\\b0 x", [](const F& f) { return f.fontWeight() != QFont::Bold; }},
    {"GroupEndsBold", "{\\b a}x", [](const F& f) { return f.fontWeight() != QFont::Bold; }},
    {"Italic", "\\i x", [](const F& f) { return f.fontItalic(); }},
    {"Underline", "\\ul x", [](const F& f) { return f.underlineStyle() == F::SingleUnderline; }},
    {"UnderlineOff", "\\ul a\\ulnone x", [](const F& f) { return f.underlineStyle() == F::NoUnderline; }},
    {"Wave", "\\ulwave x", [](const F& f) { return f.underlineStyle() == F::WaveUnderline; }},
    {"Strike", "\\strike x", [](const F& f) { return f.fontStrikeOut(); }},
    {"Super", "\\super x", [](const F& f) { return f.verticalAlignment() == F::AlignSuperScript; }},
    {"Sub", "\\sub x", [](const F& f) { return f.verticalAlignment() == F::AlignSubScript; }},
    {"NoSuper", "\\super a\\nosupersub x",
     [](const F& f) { return f.verticalAlignment() == F::AlignNormal; }},
    {"Size", "\\fs28 x", [](const F& f) { return f.fontPointSize() == 14; }},
    {"SizeOfNothing", "\\fs40\\fs0 x", [](const F& f) { return f.fontPointSize() == 12; }},
    {"UsualSize", "x", [](const F& f) { return f.fontPointSize() == 12; }},
    {"Font", "\\f1 x", [](const F& f) { return f.fontFamilies().toStringList().first() == u"Courier New"; }},
    {"FontOfTheAuthorsSystem", "{\\fonttbl{\\f20 Helvetica;}}\\f20 x",
     [](const F& f) { return f.fontFamilies().toStringList().first() == u"Arial"; }},
    {"FontNotDescribed", "\\f99 x",
     [](const F& f) { return f.fontFamilies().toStringList().first() == u"Times New Roman"; }},
    {"DefaultFont", "x", [](const F& f) { return f.fontFamilies().toStringList().first() == u"Arial"; }},
    {"Colour", "\\cf2 x", [](const F& f) { return f.foreground().color() == QColor(0, 128, 0); }},
    {"AutomaticColour", "\\cf0 x", [](const F& f) { return f.foreground().style() == Qt::NoBrush; }},
    {"Highlight", "\\highlight3 x", [](const F& f) { return f.background().color() == QColor(255, 255, 0); }},
    {"NoHighlight", "\\highlight3 a\\highlight0 x",
     [](const F& f) { return f.background().style() == Qt::NoBrush; }},
    {"Capitals", "\\caps x", [](const F& f) { return f.fontCapitalization() == QFont::AllUppercase; }},
    {"Plain", "\\b\\i\\cf1\\fs40 a\\plain x",
     [](const F& f) { return f.fontWeight() != QFont::Bold && !f.fontItalic() && f.fontPointSize() == 12; }},
    {"OtherFontName", "{\\fonttbl{\\f20 Nowhere{\\*\\falt Courier New};}}\\f20 x",
     [](const F& f) {
       return f.fontFamilies().toStringList() == QStringList({"Courier New", "Arial", "Nowhere"});
     }},
    {"UnderlineColour", "\\ul\\ulc1 x", [](const F& f) { return f.underlineColor() == QColor(255, 0, 0); }},
    {"QuarterGrey", "\\chshdng2500 x",
     [](const F& f) { return f.background().color() == QColor(191, 191, 191); }},
    {"Hatched", "\\chbgdkhoriz\\chcfpat1\\chcbpat3 x",
     [](const F& f) { return f.background().color() == QColor(255, 170, 0); }},
    {"MixedShade", "\\chshdng5000\\chcfpat1\\chcbpat3 x",
     [](const F& f) { return f.background().color() == QColor(255, 128, 0); }},
    {"Spread", "\\expnd12 x", [](const F& f) { return f.fontLetterSpacing() == 4; }},
    {"Stretched", "\\charscalex150 x", [](const F& f) { return f.fontStretch() == 150; }},
    {"Outline", "\\outl x", [](const F& f) { return f.textOutline().style() != Qt::NoPen; }},
    {"StyleOnStyle",
     "{\\stylesheet{\\s1\\sbasedon2\\b low;}{\\s2\\sbasedon1\\f1\\fs36 up;}}\\pard\\plain\\s1 x",
     [](const F& f) {
       return f.fontWeight() == QFont::Bold && f.fontPointSize() == 18 &&
              f.fontFamilies().toStringList().first() == u"Courier New";
     }},
    {"ParagraphStyle", "{\\stylesheet{\\s1\\b\\fs36 heading;}}\\pard\\plain\\s1 x",
     [](const F& f) { return f.fontWeight() == QFont::Bold && f.fontPointSize() == 18; }},
    {"CharacterStyle", "{\\stylesheet{\\*\\cs5\\additive\\i\\cf1 mark;}}a{\\cs5 x}",
     [](const F& f) { return f.fontItalic() && f.foreground().color() == QColor(255, 0, 0); }},
};
INSTANTIATE_TEST_SUITE_P(All, RtfCharacters, ::testing::ValuesIn(kCharacters),
                         [](const auto& row) { return std::string(row.param.What); });

struct ParagraphRow {
  const char* What;
  QByteArray Body;  // the paragraph with "x" is looked at
  bool (*Holds)(const QTextBlockFormat& format);
};

class RtfParagraphs : public TestWithParam<ParagraphRow> {};

TEST_P(RtfParagraphs, HaveTheirLook) {
  const RichPage page = ReadBody(GetParam().Body);
  EXPECT_TRUE(GetParam().Holds(BlockOf(page, "x").blockFormat()));
}

using B = QTextBlockFormat;
const ParagraphRow kParagraphs[] = {
    {"Left", "\\pard x\\par", [](const B& b) { return (b.alignment() & Qt::AlignLeft) != 0; }},
    {"Centre", "\\pard\\qc x\\par", [](const B& b) { return b.alignment() == Qt::AlignHCenter; }},
    {"Right", "\\pard\\qr x\\par", [](const B& b) { return (b.alignment() & Qt::AlignRight) != 0; }},
    {"Justified", "\\pard\\qj x\\par", [](const B& b) { return b.alignment() == Qt::AlignJustify; }},
    {"PardEndsAll", "\\pard\\qc\\li720 a\\par\\pard x\\par",
     [](const B& b) { return (b.alignment() & Qt::AlignLeft) != 0 && b.leftMargin() == 0; }},
    {"LookGoesOn", "\\pard\\qc a\\par x\\par", [](const B& b) { return b.alignment() == Qt::AlignHCenter; }},
    {"Indents", "\\pard\\li720\\ri360\\fi-300 x\\par",
     [](const B& b) { return b.leftMargin() == 48 && b.rightMargin() == 24 && b.textIndent() == -20; }},
    {"Spaces", "\\pard\\sb150\\sa300 x\\par",
     [](const B& b) { return b.topMargin() == 10 && b.bottomMargin() == 20; }},
    {"DoubleLines", "\\pard\\sl480\\slmult1 x\\par",
     [](const B& b) { return b.lineHeightType() == B::ProportionalHeight && b.lineHeight() == 200; }},
    {"LinesAtLeast", "\\pard\\sl300 x\\par",
     [](const B& b) { return b.lineHeightType() == B::MinimumHeight && b.lineHeight() == 20; }},
    {"LinesExactly", "\\pard\\sl-300 x\\par",
     [](const B& b) { return b.lineHeightType() == B::FixedHeight && b.lineHeight() == 20; }},
    {"Tabs", "\\pard\\tx1500\\tqr\\tx3000\\tqc\\tx4500 x\\par",
     [](const B& b) {
       const auto tabs = b.tabPositions();
       return tabs.size() == 3 && tabs[0].position == 100 && tabs[0].type == QTextOption::LeftTab &&
              tabs[1].type == QTextOption::RightTab && tabs[2].type == QTextOption::CenterTab;
     }},
    {"SumOfSpaces", "\\pard\\sb150\\sa300 a\\par x\\par", [](const B& b) { return b.topMargin() == 30; }},
    {"LargerSpaceOfThePage", "\\htmautsp\\pard\\sb150\\sa300 a\\par x\\par",
     [](const B& b) { return b.topMargin() == 10; }},
    {"SpaceOfTheWeb", "\\pard\\sb150\\sbauto1 x\\par", [](const B& b) { return b.topMargin() * 15 == 280; }},
    {"NoSpaceWithinAStyle", "\\pard\\s3\\sb150\\sa300\\contextualspace a\\par x\\par",
     [](const B& b) { return b.topMargin() == 0; }},
    {"SpaceBetweenStyles", "\\pard\\s3\\sb150\\contextualspace a\\par\\s4 x\\par",
     [](const B& b) { return b.topMargin() == 10; }},
    {"WholeStyle", "{\\stylesheet{\\s1\\ql\\sb150\\sbasedon2 low;}{\\s2\\ql\\sa300 up;}}\\pard\\s1 x\\par",
     [](const B& b) { return b.bottomMargin() == 0; }},
    {"StyleThatTellsOnlyWhatDiffers",
     "{\\stylesheet{\\s1\\sb150\\sbasedon2 low;}{\\s2\\ql\\sa300 up;}}\\pard\\s1 x\\par",
     [](const B& b) { return b.bottomMargin() == 20; }},
    {"StyleThatTheTextRepeats", "\\stshfdbch0{\\stylesheet{\\s1\\fi300 low;}}\\pard\\s1\\ql x\\par",
     [](const B& b) { return b.textIndent() == 0; }},
    {"Shading", "\\pard\\cbpat3 x\\par",
     [](const B& b) { return b.background().color() == QColor(255, 255, 0); }},
    {"Hatched", "\\pard\\bgbdiag\\cfpat1\\cbpat3 x\\par",
     [](const B& b) { return b.background().color() == QColor(255, 170, 0); }},
    {"PageBreak", "a\\page x\\par",
     [](const B& b) { return b.pageBreakPolicy() == QTextFormat::PageBreak_AlwaysBefore; }},
};
INSTANTIATE_TEST_SUITE_P(All, RtfParagraphs, ::testing::ValuesIn(kParagraphs),
                         [](const auto& row) { return std::string(row.param.What); });

TEST(RtfMetrics, ScaleLengthsAndLettersAlike) {
  PageMetrics twice;
  twice.PixelsPerTwip = 2.0 / 15;
  const RichPage page = ReadRtf("{\\rtf1\\margl300\\pard\\li720\\fs24 x\\par}", twice, "page");
  EXPECT_EQ(FormatOf(page, "x").fontPointSize(), 24);
  EXPECT_EQ(BlockOf(page, "x").blockFormat().leftMargin(), 96);
  EXPECT_EQ(page.Document->rootFrame()->frameFormat().leftMargin(), 40);
}

TEST(RtfMetrics, GiveLettersTheirPixelsAtAnotherResolution) {
  // 12 points are 240 twips: at 12 twips a pixel 20 pixels, which a view of 120 dpi calls 12 points.
  const RichPage page = ReadRtf("{\\rtf1 x}", {1.0 / 12, 120}, "page");
  EXPECT_DOUBLE_EQ(FormatOf(page, "x").fontPointSize(), 12);
}

QTextTableCellFormat CellOf(const QTextTable& table, int row, int column) {
  return table.cellAt(row, column).format().toTableCellFormat();
}

TEST(RtfParagraphBorders, StandAroundNeighboursTogether) {
  const RichPage page = ReadBody(
      "\\pard\\li1500\\sb300\\box\\brdrs\\brdrw30\\brsp150\\brdrcf1 a\\par x\\par"
      "\\pard y\\par\\pard\\brdrb\\brdrdb z\\par");
  const QTextTable* box = page.Document->find("x").currentTable();
  ASSERT_NE(box, nullptr);
  EXPECT_EQ(page.Document->find("a").currentTable(), box);
  const QTextTableCellFormat around = CellOf(*box, 0, 0);
  EXPECT_EQ(around.topBorder(), 2);
  EXPECT_EQ(around.leftBorderBrush().color(), QColor(255, 0, 0));
  EXPECT_EQ(around.leftPadding(), 10);
  EXPECT_EQ(box->format().leftMargin(), 100 - 10 - 2);
  EXPECT_EQ(box->format().topMargin(), 20);
  EXPECT_EQ(BlockOf(page, "a").blockFormat().topMargin(), 0);
  EXPECT_EQ(page.Document->find("y").currentTable(), nullptr);
  const QTextTable* rule = page.Document->find("z").currentTable();
  ASSERT_NE(rule, nullptr);
  EXPECT_EQ(CellOf(*rule, 0, 0).bottomBorderStyle(), QTextFrameFormat::BorderStyle_Double);
  EXPECT_EQ(CellOf(*rule, 0, 0).topBorder(), 0);
}

TEST(RtfTabs, DrawWhatLeadsToThem) {
  const RichPage page = ReadBody("\\pard\\tx900\\tqr\\tldot\\tx6000 1.\\tab{\\b title}\\tab 7\\par");
  const auto at = [&page](int place) {
    QTextCursor cursor(page.Document.get());
    cursor.setPosition(place + 1);
    return cursor.charFormat();
  };
  EXPECT_EQ(at(2).underlineStyle(), QTextCharFormat::NoUnderline);
  EXPECT_EQ(at(8).underlineStyle(), QTextCharFormat::DotLine);
  EXPECT_EQ(at(9).underlineStyle(), QTextCharFormat::NoUnderline);
  EXPECT_EQ(page.Document->toPlainText(), QStringLiteral("1.\ttitle\t7"));
}

const QByteArray kLists =
    "{\\*\\listtable{\\list{\\listlevel\\levelnfc0\\levelstartat3{\\leveltext\\'02\\'00.;}{\\levelnumbers\\'"
    "01;}}"
    "{\\listlevel\\levelnfc4\\levelstartat1{\\leveltext\\'04\\'00.\\'01);}{\\levelnumbers\\'01\\'03;}}"
    "\\listid7}"
    "{\\list{\\listlevel\\levelnfc23{\\leveltext\\'01\\u-3913 ?;}{\\levelnumbers;}\\f2}\\listid8}}"
    "{\\*\\listoverridetable{\\listoverride\\listid7\\ls1}{\\listoverride\\listid8\\ls2}}";

TEST(RtfLists, CountTheirParagraphs) {
  EXPECT_EQ(
      TextOfBody(
          kLists +
          "\\pard\\ls1 a\\par b\\par\\ilvl1 c\\par d\\par\\ilvl0 e\\par\\ilvl1 f\\par\\pard\\ls2 g\\par"),
      QString("3.\ta\n4.\tb\n4.a)\tc\n4.b)\td\n5.\te\n5.a)\tf\n\u2022\tg"));
}

TEST(RtfLists, CountParagraphsOfPicturesAndOfNothing) {
  const QByteArray picture = "{\\pict\\picwgoal90\\pichgoal90}";
  EXPECT_EQ(TextOfBody(kLists + "\\pard\\ls1 a\\par\\par" + picture +
                       "b\\par{\\v gone\\par}c\\par"
                       "\\trowd\\cellx900\\pard\\intbl\\ls1\\cell\\row"),
            QString("3.\ta\n4.\t\n5.\t\uFFFCb\n6.\tc\n7.\t\n"));
  EXPECT_EQ(TextOfBody(kLists + "{\\listtext 9.\\tab}\\pard\\ls1 a\\par\\par"
                                "{\\v{\\listtext 9.\\tab}gone\\par}b\\par\\pard c"),
            QString("9.\ta\n\n3.\tb\nc"));
}

TEST(RtfLists, LeaveTheNumbersThatThePageBrings) {
  EXPECT_EQ(
      TextOfBody(kLists +
                 "{\\listtext 9.\\tab}\\pard\\ls1 a\\par{\\pntext\\f2\\'b7\\tab}{\\*\\pn\\pnlvlblt}b\\par"),
      QString("9.\ta\n\u2022\tb"));
}

TEST(RtfLists, BeginAnewAndFollowTheirOwnRules) {
  EXPECT_EQ(
      TextOfBody(
          "{\\*\\listtable{\\list{\\listlevel\\levelnfc1{\\leveltext\\'02\\'00.;}}"
          "{\\listlevel\\levelnfc5\\levellegal1\\levelfollow1{\\leveltext\\'04\\'00.\\'01);}}\\listid7}}"
          "{\\*\\listoverridetable{\\listoverride\\listid7\\ls1}"
          "{\\listoverride\\listid7{\\lfolevel\\listoverridestartat\\levelstartat9}\\ls2}}"
          "{\\stylesheet{\\s5\\ls1 item;}}"
          "\\pard\\s5 a\\par b\\par\\ilvl1 c\\par\\pard\\ls2 d\\par e\\par"),
      QString("I.\ta\nII.\tb\n2.1st) c\nIX.\td\nX.\te"));
}

TEST(RtfLists, OfTheOlderKindCountWhereThePageDoesNot) {
  const QByteArray numbers = "\\pard{\\*\\pn\\pnlvlbody\\pnlcltr\\pnstart3{\\pntxtb (}{\\pntxta )}}";
  EXPECT_EQ(TextOfBody("\\pard{\\*\\pn\\pnlvlblt\\pnf2{\\pntxtb\\'b7}}a\\par" + numbers + "b\\par" + numbers +
                       "c\\par\\pard d"),
            QString("\u2022\ta\n(c)\tb\n(d)\tc\nd"));
}

TEST(RtfLists, NumberAParagraphInItsOwnLook) {
  const RichPage page = ReadBody(
      kLists +
      "\\pard\\ls1\\b{\\field{\\*\\fldinst HYPERLINK a}{\\fldrslt\\ul\\cf1\\super\\highlight3 go}}\\par");
  const QTextCharFormat number = FormatOf(page, "3.");
  EXPECT_EQ(number.fontWeight(), QFont::Bold);
  EXPECT_FALSE(number.isAnchor());
  EXPECT_EQ(number.underlineStyle(), QTextCharFormat::NoUnderline);
  EXPECT_EQ(number.foreground().style(), Qt::NoBrush);
  EXPECT_EQ(number.background().style(), Qt::NoBrush);
  EXPECT_EQ(number.verticalAlignment(), QTextCharFormat::AlignNormal);
  EXPECT_TRUE(FormatOf(page, "go").isAnchor());
}

TEST(RtfLists, HangTheirTextBehindTheBullet) {
  const RichPage page = ReadBody("\\pard\\li720\\fi-360{\\pntext\\bullet\\tab}x\\par");
  page.Document->setTextWidth(500);
  page.Document->size();
  const QTextBlock block = BlockOf(page, "x");
  const QTextLine line = block.layout()->lineAt(0);
  const int x = 2;  // behind bullet and tab
  EXPECT_NEAR(line.cursorToX(x) - line.cursorToX(0), 24, 1);
}

TEST(RtfLists, LetTheirNumbersEndAtOnePlace) {
  const RichPage page = ReadBody(
      "{\\*\\listtable{\\list{\\listlevel\\levelnfc2\\leveljc2{\\leveltext\\'02\\'00.;}}\\listid7}}"
      "{\\*\\listoverridetable{\\listoverride\\listid7\\ls1}}"
      "\\pard\\ls1\\tx200\\tx2160\\fi-180\\li2160 a\\par{\\listtext viii.\\tab}b\\par");
  page.Document->setTextWidth(500);
  page.Document->size();
  for (const char* text : {"a", "b"}) {
    const QTextBlock block = BlockOf(page, text);
    const QTextLine line = block.layout()->lineAt(0);
    int x = static_cast<int>(block.text().lastIndexOf(u'\t'));
    EXPECT_NEAR(line.cursorToX(x), (2160 - 180) / 15, 1) << text;
    x += 1;
    EXPECT_NEAR(line.cursorToX(x), 2160 / 15, 1) << text;
  }
}

const QTextTable* TableWith(const RichPage& page, const QString& text) {
  return page.Document->find(text).currentTable();
}

TEST(RtfTables, HaveRowsAndColumnsOfTheirWidths) {
  const RichPage page = ReadBody(
      "\\trowd\\cellx1500\\cellx4500\\pard\\intbl a\\cell b\\par b2\\cell\\row"
      "\\trowd\\cellx1500\\cellx4500\\pard\\intbl c\\cell d\\cell\\row\\pard after");
  const QTextTable* table = TableWith(page, "b2");
  ASSERT_NE(table, nullptr);
  EXPECT_EQ(table->rows(), 2);
  EXPECT_EQ(table->columns(), 2);
  EXPECT_EQ(table->cellAt(1, 1), table->cellAt(page.Document->find("d")));
  const auto widths = table->format().columnWidthConstraints();
  EXPECT_EQ(widths[0].rawValue(), 100);
  EXPECT_EQ(widths[1].rawValue(), 200);
  EXPECT_EQ(TableWith(page, "after"), nullptr);
}

TEST(RtfTables, JoinCells) {
  struct Cell {
    int Row, Column, RowSpan, ColumnSpan;
    const char* Text;
  };
  const struct {
    const char* What;
    QByteArray Body;
    int Columns;
    std::vector<Cell> Cells;
  } cases[] = {
      {"each way",
       "\\trowd\\clvmgf\\cellx1000\\clmgf\\cellx2000\\clmrg\\cellx3000\\pard\\intbl down\\cell "
       "across\\cell\\cell\\row"
       "\\trowd\\clvmrg\\cellx1000\\cellx2000\\cellx3000\\pard\\intbl\\cell c\\cell last\\cell\\row"
       "\\trowd\\cellx3000\\pard\\intbl wide\\cell\\row",
       3,
       {{0, 0, 2, 1, "down"}, {0, 1, 1, 2, "across"}, {1, 2, 1, 1, "last"}, {2, 0, 1, 3, "wide"}}},
      {"no column for one of no width",
       "\\trowd\\clmgf\\cellx2000\\clmrg\\cellx2000\\cellx3000\\pard\\intbl a\\cell\\cell b\\cell\\row",
       2,
       {{0, 0, 1, 1, "a"}, {0, 1, 1, 1, "b"}}},
      {"both ways",
       "\\trowd\\cellx1000\\clmgf\\clvmgf\\cellx2000\\clmrg\\clvmgf\\cellx3000\\pard\\intbl a\\cell "
       "both\\cell\\cell\\row"
       "\\trowd\\cellx1000\\clmgf\\clvmrg\\cellx2000\\clmrg\\clvmrg\\cellx3000\\pard\\intbl "
       "low\\cell\\cell\\cell\\row",
       3,
       {{0, 1, 2, 2, "both"}, {1, 0, 1, 1, "low"}}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.What);
    const RichPage page = ReadBody(c.Body);
    const QTextTable* const table = TableWith(page, c.Cells[0].Text);
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->columns(), c.Columns);
    for (const Cell& cell : c.Cells) {
      const QTextTableCell found = table->cellAt(cell.Row, cell.Column);
      EXPECT_EQ(found, table->cellAt(page.Document->find(cell.Text))) << cell.Text;
      EXPECT_EQ(found.rowSpan(), cell.RowSpan) << cell.Text;
      EXPECT_EQ(found.columnSpan(), cell.ColumnSpan) << cell.Text;
    }
  }
}

TEST(RtfTables, HaveBordersShadingAndAlignment) {
  const RichPage page = ReadBody(
      "\\trowd\\trgaph150\\clbrdrt\\brdrs\\brdrw30\\brdrcf1\\clbrdrl\\brdrnone\\clcbpat3\\clvertalb\\cellx200"
      "0"
      "\\pard\\intbl x\\cell\\row");
  const QTextTable* table = TableWith(page, "x");
  ASSERT_NE(table, nullptr);
  const QTextTableCellFormat cell = table->cellAt(0, 0).format().toTableCellFormat();
  EXPECT_EQ(cell.topBorder(), 2);
  EXPECT_EQ(cell.topBorderBrush().color(), QColor(255, 0, 0));
  EXPECT_EQ(cell.leftBorder(), 0);
  EXPECT_EQ(cell.background().color(), QColor(255, 255, 0));
  EXPECT_EQ(cell.verticalAlignment(), QTextCharFormat::AlignBottom);
  EXPECT_EQ(cell.leftPadding(), 10);
}

TEST(RtfTables, AreNoWiderForTheirLines) {
  const QByteArray line = "\\brdrs\\brdrw45";
  const QByteArray lines = "\\clbrdrl" + line + "\\clbrdrr" + line;
  const RichPage page = ReadBody("\\margl300\\margr300\\trowd" + lines + "\\cellx3000" + lines +
                                 "\\cellx6900\\pard\\intbl a\\cell b\\cell\\row");
  page.Document->setTextWidth(500);
  EXPECT_EQ(page.Document->size().width(), 500);
}

TEST(RtfTables, HaveRowsOfTheirHeight) {
  const QByteArray row = "\\trowd\\trrh1500\\clvertalb\\cellx2000\\clvertalb\\cellx4000\\pard\\intbl ";
  const PageMetrics metrics{1.0 / 15, QGuiApplication::primaryScreen()->logicalDotsPerInch()};
  const RichPage page =
      ReadRtf("{\\rtf1" + row + "x\\cell one\\line two\\cell\\row" + row + "\\cell\\cell\\row\\pard after}",
              metrics, QStringLiteral("page"));
  page.Document->setTextWidth(500);
  const auto top = [&page](const QString& text) {
    const QTextBlock block = BlockOf(page, text);
    return page.Document->documentLayout()->blockBoundingRect(block).top();
  };
  EXPECT_NEAR(top("after") - page.Document->rootFrame()->frameFormat().topMargin(), 200, 12);
  EXPECT_GT(top("x"), 70);
}

TEST(RtfTables, KeepTheSpacesAndEmptyLinesAroundThemAndInTheirCells) {
  const auto top = [](const QByteArray& body) {
    const RichPage page = ReadBody(body);
    page.Document->setTextWidth(500);
    return page.Document->documentLayout()->blockBoundingRect(BlockOf(page, "c")).top();
  };
  const auto spaced = [&top](const char* before, const char* within, const char* behind) {
    return top(QByteArray("\\pard") + before + " a\\par\\trowd\\cellx3000\\pard\\intbl" + within +
               " b\\cell\\row\\pard" + behind + " c\\par");
  };
  const double bare = spaced("", "", "");
  EXPECT_NEAR(spaced("\\sb300", "", "") - bare, 20, 0.5);
  EXPECT_NEAR(spaced("\\sa300", "", "") - bare, 20, 0.5);
  EXPECT_NEAR(spaced("", "\\sb150", "") - bare, 10, 0.5);
  EXPECT_NEAR(spaced("", "\\sa150", "") - bare, 10, 0.5);
  EXPECT_NEAR(spaced("", "", "\\sb300") - bare, 20, 0.5);
  const auto lined = [&top](const QByteArray& before, const QByteArray& between, const QByteArray& behind) {
    const QByteArray table = "\\trowd\\cellx3000\\pard\\intbl b\\cell\\row\\pard ";
    return top("\\fs40 a\\par " + before + table + between + table + behind + "c\\par");
  };
  const double none = lined("", "", "");
  const double line = lined("x\\par ", "", "") - none;
  EXPECT_NEAR(lined("\\par ", "", "") - none, line, 0.5);
  EXPECT_NEAR(lined("", "\\par ", "") - none, line, 0.5);
  EXPECT_NEAR(lined("", "", "\\par ") - none, line, 0.5);
  EXPECT_GT(lined("", "", "\\line "), none - 0.5);
}

TEST(RtfTables, TakeTheirShareOfTheWidthOrTheirCellsWidths) {
  const RichPage page = ReadBody(
      "\\trowd\\trftsWidth2\\trwWidth2500\\cellx1000\\cellx4000\\pard\\intbl a\\cell b\\cell\\row\\pard "
      "p\\par"
      "\\trowd\\clftsWidth3\\clwWidth1500\\cellx0\\cellx4500\\pard\\intbl c\\cell d\\cell\\row");
  const auto shares = TableWith(page, "a")->format().columnWidthConstraints();
  EXPECT_EQ(shares[0], QTextLength(QTextLength::PercentageLength, 12.5));
  EXPECT_EQ(shares[1], QTextLength(QTextLength::PercentageLength, 37.5));
  const auto widths = TableWith(page, "c")->format().columnWidthConstraints();
  EXPECT_EQ(widths[0].rawValue(), 100);
  EXPECT_EQ(widths[1].rawValue(), 200);
}

TEST(RtfTables, RunFromRightToLeft) {
  const RichPage page = ReadBody("\\trowd\\rtlrow\\cellx1500\\cellx4500\\pard\\intbl a\\cell b\\cell\\row");
  const QTextTable* table = TableWith(page, "a");
  EXPECT_EQ(table->cellAt(0, 1), table->cellAt(page.Document->find("a")));
  EXPECT_EQ(table->format().columnWidthConstraints()[0].rawValue(), 200);
}

TEST(RtfTables, NestAndLoseNoText) {
  const RichPage page = ReadBody(
      "\\trowd\\cellx4000\\cellx6000\\pard\\intbl before\\par\\pard\\intbl\\itap2 in1\\nestcell in2\\nestcell"
      "{\\*\\nesttableprops\\trowd\\cellx1000\\cellx2000\\nestrow}{\\nonesttables\\par}"
      "\\pard\\intbl after\\cell right\\cell\\row\\pard end");
  const QTextTable* outer = TableWith(page, "right");
  const QTextTable* inner = TableWith(page, "in2");
  ASSERT_NE(outer, nullptr);
  ASSERT_NE(inner, nullptr);
  EXPECT_EQ(inner->columns(), 2);
  EXPECT_EQ(inner->parentFrame(), outer);
  EXPECT_EQ(outer->columns(), 2);
  EXPECT_EQ(outer->format().columnWidthConstraints()[0].rawValue(), 4000 / 15.0);
  EXPECT_EQ(page.Document->toPlainText().simplified(), QStringLiteral("before in1 in2 after right end"));
}

struct LinkRow {
  const char* What;
  QByteArray Instruction;
  PageLink Link;
};

class RtfLinks : public TestWithParam<LinkRow> {};

TEST_P(RtfLinks, HaveKindAndTarget) {
  const RichPage page = ReadBody("a {\\field{\\*\\fldinst{" + GetParam().Instruction + "}}{\\fldrslt{x}}} b");
  EXPECT_EQ(LinkOfHref(FormatOf(page, "x").anchorHref()), GetParam().Link);
  EXPECT_FALSE(FormatOf(page, "b").isAnchor());
  EXPECT_EQ(page.Document->toPlainText(), QStringLiteral("a x b"));
}

const LinkRow kLinks[] = {
    {"Address",
     "HYPERLINK \"http://www.example.com/a?b=c&d%20e\"",
     {1, "http://www.example.com/a?b=c&d%20e"}},
    {"PageWithDoubledBackslash", "HYPERLINK \"rt0102\\\\\\\\0007.txmx\"", {1, "rt0102\\0007.txmx"}},
    {"PageWithOneBackslash", "HYPERLINK \"rt0102\\\\0007.txmx\"", {1, "rt0102\\0007.txmx"}},
    {"WithoutQuotes", "HYPERLINK list.doc", {1, "list.doc"}},
    {"Place", "HYPERLINK \\\\l \"More\"", {2, "More"}},
    {"PlaceInFile", "HYPERLINK \"file.txm\" \\\\l \"More\"", {1, "file.txm#More"}},
    {"TipIsNoTarget", "HYPERLINK \"a.doc\" \\\\o \"tip\"", {1, "a.doc"}},
    {"PlaceAndLook", "HYPERLINK \\\\l \"x\" \\\\* MERGEFORMAT", {2, "x"}},
    {"LookBeforeAddress", "HYPERLINK \\\\* MERGEFORMAT a.doc", {1, "a.doc"}},
    {"DoubledBackslashWithoutQuotes", "HYPERLINK rt0102\\\\\\\\0007.txmx", {1, "rt0102\\0007.txmx"}},
    {"LowerCaseWord", " hyperlink \"a.doc\" ", {1, "a.doc"}},
    {"OtherLetters", "HYPERLINK \"\\u1046?\\'e9 \\{x\\}.doc\"", {1, "\u0416\u00E9 {x}.doc"}},
    {"PlaceAsAddress", "HYPERLINK \"#More%20here\"", {2, "More here"}},
    {"PlaceBehindPlaceAsAddress", "HYPERLINK \"#a\" \\\\l \"b\"", {1, "#a#b"}},
    {"OtherField", "PAGEREF More", {0, ""}},
    {"NoTarget", "HYPERLINK", {0, ""}},
};
INSTANTIATE_TEST_SUITE_P(All, RtfLinks, ::testing::ValuesIn(kLinks),
                         [](const auto& row) { return std::string(row.param.What); });

TEST(RtfLinks, AreThoseOfAllResultsOfTheirField) {
  const RichPage page = ReadBody(
      "{\\field{\\fldrslt first}{\\*\\fldinst HYPERLINK a}{\\fldrslt one}{\\fldrslt two}}"
      "{\\field{\\*\\fldinst " +
      QByteArray("x ").repeated(2000) + "}" + QByteArray("{\\fldrslt y}").repeated(20'000) + "}");
  EXPECT_FALSE(FormatOf(page, "first").isAnchor());
  EXPECT_EQ(LinkOfHref(FormatOf(page, "one").anchorHref()), (PageLink{1, "a"}));
  EXPECT_EQ(LinkOfHref(FormatOf(page, "two").anchorHref()), (PageLink{1, "a"}));
  EXPECT_FALSE(FormatOf(page, "y").isAnchor());
  EXPECT_EQ(page.Document->toPlainText().count(u'y'), 20'000);
}

TEST(RtfLinks, AreUnderlinedAndBlueUnlessTheAuthorColouredThem) {
  const RichPage page = ReadBody(
      "{\\field{\\*\\fldinst HYPERLINK a}{\\fldrslt plain}}{\\field{\\*\\fldinst HYPERLINK b}{\\fldrslt\\cf1 "
      "red}}");
  EXPECT_EQ(FormatOf(page, "plain").foreground().color(), QColor(Qt::blue));
  EXPECT_EQ(FormatOf(page, "plain").underlineStyle(), QTextCharFormat::SingleUnderline);
  EXPECT_EQ(FormatOf(page, "red").foreground().color(), QColor(255, 0, 0));
  EXPECT_EQ(FormatOf(page, "red").underlineStyle(), QTextCharFormat::SingleUnderline);
}

TEST(RtfPlaces, AreFoundByNameInAnyCase) {
  const RichPage page = ReadBody(
      "ab\\par{\\*\\bkmkstart Second}cd{\\*\\bkmkstart Mid}{\\*\\bkmkend Second}e\\par"
      "\\trowd\\cellx900\\pard\\intbl x\\cell\\row\\trowd\\cellx900\\pard\\intbl {\\*\\bkmkstart "
      "InCell}y\\cell\\row");
  EXPECT_EQ(page.PlaceOf("second"), 3);
  EXPECT_EQ(page.PlaceOf("MID"), 5);
  EXPECT_EQ(page.PlaceOf("incell"), page.Document->find("y").selectionStart());
  EXPECT_EQ(page.PlaceOf("none"), -1);
}

TEST(RtfObjects, KeepSizeDataTextAndOrder) {
  const RichPage page = ReadBody(
      "a{\\footnote{\\object\\objw300\\objh300}}{\\object\\objemb\\objw3000\\objh1500{\\*\\objclass "
      "X}{\\*\\objname intro.swf,400}{\\*\\objdata 01}"
      "{\\result{\\pict\\wmetafile8 00}}}b\\par"
      "\\trowd\\cellx4000\\pard\\intbl{\\object\\objw750\\objh600{\\objname b.wmv}}\\cell\\row");
  ASSERT_EQ(page.Objects.size(), 3);
  EXPECT_EQ(page.Objects[0].Id, 1);
  EXPECT_EQ(page.Objects[0].DataText, QStringLiteral("intro.swf,400"));
  EXPECT_EQ(page.Objects[0].Position, 1);
  EXPECT_EQ(page.Objects[1].DataText, QStringLiteral("b.wmv"));
  EXPECT_EQ(page.Objects[2].DataText, QString());
  const QSizeF sizes[] = {{200, 100}, {50, 40}, {20, 20}};
  for (int i = 0; i < 3; ++i) {
    QTextCursor at(page.Document.get());
    at.setPosition(page.Objects[i].Position + 1);
    EXPECT_EQ(at.charFormat().intProperty(kObjectIdProperty), page.Objects[i].Id);
    EXPECT_EQ(QSizeF(at.charFormat().toImageFormat().width(), at.charFormat().toImageFormat().height()),
              sizes[i]);
  }
}

TEST(RtfPaper, HasTheBorderOfThePage) {
  const QTextFrameFormat frame =
      ReadBody("\\margl600\\pgbrdrt\\brdrs\\brdrw30\\brdrcf1 x").Document->rootFrame()->frameFormat();
  EXPECT_EQ(frame.border(), 2);
  EXPECT_EQ(frame.borderBrush().color(), QColor(255, 0, 0));
}

TEST(RtfPaper, HasTheColourOfThePage) {
  EXPECT_EQ(
      ReadBody("{\\*\\background{\\shp{\\*\\shpinst{\\sp{\\sn fillColor}{\\sv 16711935}}}}}x").PaperColour,
      QColor(255, 0, 255));
  EXPECT_EQ(ReadBody("{\\shp{\\*\\shpinst{\\sp{\\sn fillColor}{\\sv 255}}}}x").PaperColour,
            QColor(Qt::white));
}

}  // namespace
