// The look of rich text: characters, paragraphs, lists, tables, links and objects.
#include <QAbstractTextDocumentLayout>
#include <QGuiApplication>
#include <QScreen>
#include <QTextTable>

#include "pages/common/PageLink.h"
#include "pages/rtf/rtf_pages.h"

namespace {

// What differs from plain letters of 12 points in Arial: "bold 14 Courier New #ff0000 on #ffff00".
QString LettersOf(const RichPage& page, const QString& text = "x") {
  using F = QTextCharFormat;
  const F f = FormatOf(page, text);
  QStringList look;
  if (f.fontWeight() == QFont::Bold) look << "bold";
  if (f.fontItalic()) look << "italic";
  if (f.fontStrikeOut()) look << "struck";
  if (f.fontCapitalization() == QFont::AllUppercase) look << "capitals";
  if (f.textOutline().style() != Qt::NoPen) look << "outline";
  if (f.underlineStyle() == F::SingleUnderline) look << "underline";
  if (f.underlineStyle() == F::WaveUnderline) look << "wave";
  if (f.underlineStyle() == F::DotLine) look << "dots";
  if (f.underlineColor().isValid()) look << "under " + f.underlineColor().name();
  if (f.verticalAlignment() == F::AlignSuperScript) look << "super";
  if (f.verticalAlignment() == F::AlignSubScript) look << "sub";
  if (f.fontPointSize() != 12) look << QString::number(f.fontPointSize());
  if (f.fontLetterSpacing() != 0) look << "spread " + QString::number(f.fontLetterSpacing());
  if (f.fontStretch() != 0) look << "stretched " + QString::number(f.fontStretch());
  const QStringList fonts = f.fontFamilies().toStringList();
  if (fonts.first() != u"Arial") look << fonts.join('/');
  if (f.foreground().style() != Qt::NoBrush) look << f.foreground().color().name();
  if (f.background().style() != Qt::NoBrush) look << "on " + f.background().color().name();
  return look.join(' ');
}

TEST(RtfCharacters, HaveTheirLook) {
  const QByteArray heading = "{\\stylesheet{\\s1\\b\\fs36 heading;}}";
  const std::pair<QByteArray, QString> rows[] = {
      {"x", ""},
      {"\\b x", "bold"},
      {"\\b a\\b0 x", ""},
      {"{\\b a}x", ""},
      {"\\i x", "italic"},
      {"\\ul x", "underline"},
      {"\\ul a\\ulnone x", ""},
      {"\\ulwave x", "wave"},
      {"\\ul\\ulc1 x", "underline under #ff0000"},
      {"\\strike x", "struck"},
      {"\\super x", "super"},
      {"\\sub x", "sub"},
      {"\\super a\\nosupersub x", ""},
      {"\\fs28 x", "14"},
      {"\\fs40\\fs0 x", ""},
      {"\\f1 x", "Courier New/Arial"},
      {"\\f99 x", "Times New Roman"},                    // not described
      {"{\\fonttbl{\\f20 Helvetica;}}\\f1\\f20 x", ""},  // as the author's system calls it
      {"{\\fonttbl{\\f20 Nowhere{\\*\\falt Courier New};}}\\f20 x", "Courier New/Arial/Nowhere"},
      {"\\cf2 x", "#008000"},
      {"\\cf2\\cf0 x", ""},
      {"\\highlight3 x", "on #ffff00"},
      {"\\highlight3 a\\highlight0 x", ""},
      {"\\chshdng2500 x", "on #bfbfbf"},
      {"\\chbgdkhoriz\\chcfpat1\\chcbpat3 x", "on #ffaa00"},
      {"\\chshdng5000\\chcfpat1\\chcbpat3 x", "on #ff8000"},
      {"\\caps x", "capitals"},
      {"\\expnd12 x", "spread 4"},
      {"\\charscalex150 x", "stretched 150"},
      {"\\outl x", "outline #ffffff"},
      {"\\b\\i\\cf1\\fs40 a\\plain x", ""},
      {heading + "\\pard\\plain\\s1 x", "bold 18"},
      {"{\\stylesheet{\\s1\\sbasedon2\\b low;}{\\s2\\sbasedon1\\f1\\fs36 up;}}\\pard\\plain\\s1 x",
       "bold 18 Courier New/Arial"},
      {"{\\stylesheet{\\*\\cs5\\additive\\i\\cf1 mark;}}a{\\cs5 x}", "italic #ff0000"},
  };
  for (const auto& [body, look] : rows)
    EXPECT_EQ(LettersOf(ReadBody(body)), look) << body.toStdString();
}

// What differs from a paragraph at the left without spaces: "centre left 48 indent -20 tabs 100 200r".
QString ParagraphOf(const RichPage& page, const QString& text) {
  using B = QTextBlockFormat;
  const B b = BlockOf(page, text).blockFormat();
  QStringList look;
  if (b.alignment() == Qt::AlignHCenter) look << "centre";
  if (b.alignment() == Qt::AlignJustify) look << "justified";
  if ((b.alignment() & Qt::AlignRight) != 0) look << "right";
  for (const auto& [name, length] : {std::pair{"left %1", b.leftMargin()},
                                     {"until %1", b.rightMargin()},
                                     {"indent %1", b.textIndent()},
                                     {"above %1", b.topMargin()},
                                     {"below %1", b.bottomMargin()}}) {
    if (length != 0) look << QString(name).arg(length);
  }
  const char* const heights[] = {"", "lines %1%", "lines =%1", "lines >%1"};
  if (b.lineHeightType() != B::SingleHeight) look << QString(heights[b.lineHeightType()]).arg(b.lineHeight());
  if (!b.tabPositions().isEmpty()) look << "tabs";
  for (const QTextOption::Tab& tab : b.tabPositions())
    look << QString::number(tab.position) + QString("lrc").at(tab.type);
  if (b.background().style() != Qt::NoBrush) look << "on " + b.background().color().name();
  if (b.pageBreakPolicy() == QTextFormat::PageBreak_AlwaysBefore) look << "new page";
  return look.join(' ');
}

TEST(RtfParagraphs, HaveTheirLook) {
  const std::pair<QByteArray, QString> rows[] = {
      {"\\pard x\\par", ""},
      {"\\pard\\qc x\\par", "centre"},
      {"\\pard\\qr x\\par", "right"},
      {"\\pard\\qj x\\par", "justified"},
      {"\\pard\\qc\\li720 a\\par\\pard x\\par", ""},
      {"\\pard\\qc a\\par x\\par", "centre"},  // the look goes on
      {"\\pard\\li720\\ri360\\fi-300 x\\par", "left 48 until 24 indent -20 tabs 20l"},
      {"\\pard\\sb150\\sa300 x\\par", "above 10 below 20"},
      {"\\pard\\sl480\\slmult1 x\\par", "lines 200%"},
      {"\\pard\\sl300 x\\par", "lines >20"},
      {"\\pard\\sl-300 x\\par", "lines =20"},
      {"\\pard\\tx1500\\tqr\\tx3000\\tqc\\tx4500 x\\par", "tabs 100l 200r 300c"},
      // Neighbours' spaces add up, or the page takes the larger one as the web does.
      {"\\pard\\sb150\\sa300 a\\par x\\par", "above 30 below 20"},
      {"\\htmautsp\\pard\\sb150\\sa300 a\\par x\\par", "above 10 below 20"},
      {"\\pard\\sb300\\sbauto1 x\\par", "above 18.6667"},
      {"\\pard\\s3\\sb150\\sa300\\contextualspace a\\par x\\par", "below 20"},
      {"\\pard\\s3\\sb150\\contextualspace a\\par\\s4 x\\par", "above 10"},
      // A style that tells all of itself, only what differs, and one that the text repeats.
      {"{\\stylesheet{\\s1\\ql\\sb150\\sbasedon2 low;}{\\s2\\ql\\sa300 up;}}\\pard\\s1 x\\par", "above 10"},
      {"{\\stylesheet{\\s1\\sb150\\sbasedon2 low;}{\\s2\\ql\\sa300 up;}}\\pard\\s1 x\\par",
       "above 10 below 20"},
      {"\\stshfdbch0{\\stylesheet{\\s1\\fi300 low;}}\\pard\\s1\\ql x\\par", ""},
      {"\\pard\\cbpat3 x\\par", "on #ffff00"},
      {"\\pard\\bgbdiag\\cfpat1\\cbpat3 x\\par", "on #ffaa00"},
      {"a\\page x\\par", "new page"},
  };
  for (const auto& [body, look] : rows)
    EXPECT_EQ(ParagraphOf(ReadBody(body), "x"), look) << body.toStdString();
}

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
  QStringList looks;
  for (const int place : {2, 8, 9}) {
    QTextCursor cursor(page.Document.get());
    cursor.setPosition(place + 1);
    looks << QString::number(cursor.charFormat().underlineStyle());
  }
  EXPECT_EQ(page.Document->toPlainText() + looks.join(' '), QStringLiteral("1.\ttitle\t70 3 0"));
}

const QByteArray kLists =
    "{\\*\\listtable{\\list{\\listlevel\\levelnfc0\\levelstartat3{\\leveltext\\'02\\'00.;}{\\levelnumbers\\'"
    "01;}}"
    "{\\listlevel\\levelnfc4\\levelstartat1{\\leveltext\\'04\\'00.\\'01);}{\\levelnumbers\\'01\\'03;}}"
    "\\listid7}"
    "{\\list{\\listlevel\\levelnfc23{\\leveltext\\'01\\u-3913 ?;}{\\levelnumbers;}\\f2}\\listid8}}"
    "{\\*\\listoverridetable{\\listoverride\\listid7\\ls1}{\\listoverride\\listid8\\ls2}}";

TEST(RtfLists, CountTheirParagraphs) {
  const QByteArray numbers = "\\pard{\\*\\pn\\pnlvlbody\\pnlcltr\\pnstart3{\\pntxtb (}{\\pntxta )}}";
  const QByteArray ownRules =
      "{\\*\\listtable{\\list{\\listlevel\\levelnfc1{\\leveltext\\'02\\'00.;}}"
      "{\\listlevel\\levelnfc5\\levellegal1\\levelfollow1{\\leveltext\\'04\\'00.\\'01);}}\\listid7}}"
      "{\\*\\listoverridetable{\\listoverride\\listid7\\ls1}"
      "{\\listoverride\\listid7{\\lfolevel\\listoverridestartat\\levelstartat9}\\ls2}}"
      "{\\stylesheet{\\s5\\ls1 item;}}";
  const std::pair<QByteArray, QString> rows[] = {
      {kLists +
           "\\pard\\ls1 a\\par b\\par\\ilvl1 c\\par d\\par\\ilvl0 e\\par\\ilvl1 f\\par\\pard\\ls2 g\\par",
       "3.\ta\n4.\tb\n4.a)\tc\n4.b)\td\n5.\te\n5.a)\tf\n\u2022\tg"},
      // Paragraphs of nothing, of a picture, of a cell, and hidden ones
      {kLists + "\\pard\\ls1 a\\par\\par{\\pict\\picwgoal90\\pichgoal90}b\\par{\\v gone\\par}c\\par"
                "\\trowd\\cellx900\\pard\\intbl\\ls1\\cell\\row",
       "3.\ta\n4.\t\n5.\t\uFFFCb\n6.\tc\n7.\t\n"},
      // Numbers that the page brings
      {kLists + "{\\listtext 9.\\tab}\\pard\\ls1 a\\par\\par{\\v{\\listtext 9.\\tab}gone\\par}b\\par\\pard c",
       "9.\ta\n\n3.\tb\nc"},
      {kLists + "{\\listtext 9.\\tab}\\pard\\ls1 a\\par{\\pntext\\f2\\'b7\\tab}{\\*\\pn\\pnlvlblt}b\\par",
       "9.\ta\n\u2022\tb"},
      {ownRules + "\\pard\\s5 a\\par b\\par\\ilvl1 c\\par\\pard\\ls2 d\\par e\\par",
       "I.\ta\nII.\tb\n2.1st) c\nIX.\td\nX.\te"},
      // The older kind
      {"\\pard{\\*\\pn\\pnlvlblt\\pnf2{\\pntxtb\\'b7}}a\\par" + numbers + "b\\par" + numbers +
           "c\\par\\pard d",
       "\u2022\ta\n(c)\tb\n(d)\tc\nd"},
  };
  for (const auto& [body, text] : rows)
    EXPECT_EQ(TextOfBody(body), text) << body.toStdString();
}

TEST(RtfLists, NumberAParagraphInItsOwnLook) {
  const RichPage page = ReadBody(
      kLists +
      "\\pard\\ls1\\b{\\field{\\*\\fldinst HYPERLINK a}{\\fldrslt\\ul\\cf1\\super\\highlight3 go}}\\par");
  EXPECT_EQ(LettersOf(page, "3."), "bold");
  EXPECT_FALSE(FormatOf(page, "3.").isAnchor());
  EXPECT_TRUE(FormatOf(page, "go").isAnchor());
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

// The cells of the table that holds a text, "a|b 2x1/c", with the rows and columns that a cell spans.
QString CellsOf(const RichPage& page, const QString& text) {
  const QTextTable* table = TableWith(page, text);
  if (table == nullptr) return "no table";
  QStringList rows;
  for (int row = 0; row < table->rows(); ++row) {
    QStringList cells;
    for (int column = 0; column < table->columns(); ++column) {
      const QTextTableCell cell = table->cellAt(row, column);
      if (cell.row() != row || cell.column() != column) continue;
      QTextCursor words = cell.firstCursorPosition();
      words.setPosition(cell.lastCursorPosition().position(), QTextCursor::KeepAnchor);
      QString shown = words.selectedText().replace(QChar::ParagraphSeparator, ' ');
      if (cell.rowSpan() * cell.columnSpan() > 1)
        shown += QString(" %1x%2").arg(cell.rowSpan()).arg(cell.columnSpan());
      cells.append(shown);
    }
    rows.append(cells.join('|'));
  }
  return rows.join('/');
}
// The widths of its columns in pixels, or in percent.
QString WidthsOf(const RichPage& page, const QString& text) {
  QStringList widths;
  for (const QTextLength& width : TableWith(page, text)->format().columnWidthConstraints())
    widths << QString::number(width.rawValue()) + (width.type() == QTextLength::PercentageLength ? "%" : "");
  return widths.join(' ');
}

TEST(RtfTables, HaveTheirCellsAndWidths) {
  const struct {
    QByteArray Body;
    QString Cells, Widths;
  } rows[] = {
      {"\\trowd\\cellx1500\\cellx4500\\pard\\intbl x\\cell b\\par b2\\cell\\row"
       "\\trowd\\cellx1500\\cellx4500\\pard\\intbl c\\cell d\\cell\\row\\pard after",
       "x|b b2/c|d", "100 200"},
      {"\\trowd\\clvmgf\\cellx1500\\clmgf\\cellx3000\\clmrg\\cellx4500\\pard\\intbl down\\cell "
       "x\\cell\\cell\\row"
       "\\trowd\\clvmrg\\cellx1500\\cellx3000\\cellx4500\\pard\\intbl\\cell c\\cell last\\cell\\row"
       "\\trowd\\cellx4500\\pard\\intbl wide\\cell\\row",
       "down 2x1|x 1x2/c|last/wide 1x3", "100 100 100"},
      {"\\trowd\\clmgf\\cellx1500\\clmrg\\cellx1500\\cellx3000\\pard\\intbl x\\cell\\cell b\\cell\\row",
       "x|b", "100 100"},  // no column for one of no width
      {"\\trowd\\cellx1500\\clmgf\\clvmgf\\cellx3000\\clmrg\\clvmgf\\cellx4500\\pard\\intbl a\\cell "
       "x\\cell\\cell\\row"
       "\\trowd\\cellx1500\\clmgf\\clvmrg\\cellx3000\\clmrg\\clvmrg\\cellx4500\\pard\\intbl "
       "low\\cell\\cell\\cell\\row",
       "a|x 2x2/low", "100 100 100"},
      {"\\trowd\\trftsWidth2\\trwWidth2500\\cellx1000\\cellx4000\\pard\\intbl x\\cell b\\cell\\row\\pard",
       "x|b", "12.5% 37.5%"},
      {"\\trowd\\clftsWidth3\\clwWidth1500\\cellx0\\cellx4500\\pard\\intbl x\\cell d\\cell\\row", "x|d",
       "100 200"},
      {"\\trowd\\rtlrow\\cellx1500\\cellx4500\\pard\\intbl x\\cell b\\cell\\row", "b|x", "200 100"},
  };
  for (const auto& row : rows) {
    const RichPage page = ReadBody(row.Body);
    EXPECT_EQ(CellsOf(page, "x"), row.Cells) << row.Body.toStdString();
    EXPECT_EQ(WidthsOf(page, "x"), row.Widths) << row.Body.toStdString();
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

TEST(RtfTables, NestAndLoseNoText) {
  const RichPage page = ReadBody(
      "\\trowd\\cellx4000\\cellx6000\\pard\\intbl before\\par\\pard\\intbl\\itap2 in1\\nestcell in2\\nestcell"
      "{\\*\\nesttableprops\\trowd\\cellx1000\\cellx2000\\nestrow}{\\nonesttables\\par}"
      "\\pard\\intbl after\\cell right\\cell\\row\\pard end");
  EXPECT_EQ(TableWith(page, "in2")->parentFrame(), TableWith(page, "right"));
  EXPECT_EQ(TableWith(page, "right")->columns(), 2);
  EXPECT_EQ(TableWith(page, "in2")->columns(), 2);
  EXPECT_EQ(page.Document->toPlainText().simplified(), QStringLiteral("before in1 in2 after right end"));
}

TEST(RtfLinks, HaveKindAndTarget) {
  const std::pair<QByteArray, PageLink> rows[] = {
      {"HYPERLINK \"http://www.example.com/a?b=c&d%20e\"", {1, "http://www.example.com/a?b=c&d%20e"}},
      {"HYPERLINK \"rt0102\\\\\\\\0007.txmx\"", {1, "rt0102\\0007.txmx"}},
      {"HYPERLINK \"rt0102\\\\0007.txmx\"", {1, "rt0102\\0007.txmx"}},
      {"HYPERLINK list.doc", {1, "list.doc"}},
      {"HYPERLINK \\\\l \"More\"", {2, "More"}},
      {"HYPERLINK \"file.txm\" \\\\l \"More\"", {1, "file.txm#More"}},
      {"HYPERLINK \"a.doc\" \\\\o \"tip\"", {1, "a.doc"}},
      {"HYPERLINK \\\\l \"x\" \\\\* MERGEFORMAT", {2, "x"}},
      {"HYPERLINK \\\\* MERGEFORMAT a.doc", {1, "a.doc"}},
      {"HYPERLINK rt0102\\\\\\\\0007.txmx", {1, "rt0102\\0007.txmx"}},
      {" hyperlink \"a.doc\" ", {1, "a.doc"}},
      {"HYPERLINK \"\\u1046?\\'e9 \\{x\\}.doc\"", {1, "\u0416\u00E9 {x}.doc"}},
      {"HYPERLINK \"#More%20here\"", {2, "More here"}},
      {"HYPERLINK \"#a\" \\\\l \"b\"", {1, "#a#b"}},
      {"PAGEREF More", {0, ""}},
      {"HYPERLINK", {0, ""}},
  };
  for (const auto& [instruction, link] : rows) {
    const RichPage page = ReadBody("a {\\field{\\*\\fldinst{" + instruction + "}}{\\fldrslt{x}}} b");
    EXPECT_EQ(LinkOfHref(FormatOf(page, "x").anchorHref()), link) << instruction.toStdString();
    EXPECT_FALSE(FormatOf(page, "b").isAnchor());
    EXPECT_EQ(page.Document->toPlainText(), QStringLiteral("a x b"));
  }
}

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
  EXPECT_EQ(LettersOf(page, "plain"), "underline #0000ff");
  EXPECT_EQ(LettersOf(page, "red"), "underline #ff0000");
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

TEST(RtfPaper, HasTheBorderAndTheColourOfThePage) {
  const RichPage page = ReadBody(
      "{\\*\\background{\\shp{\\*\\shpinst{\\sp{\\sn fillColor}{\\sv 16711935}}}}}"
      "\\margl600\\pgbrdrt\\brdrs\\brdrw30\\brdrcf1 x");
  EXPECT_EQ(page.Document->rootFrame()->frameFormat().border(), 2);
  EXPECT_EQ(page.Document->rootFrame()->frameFormat().borderBrush().color(), QColor(255, 0, 0));
  EXPECT_EQ(page.PaperColour, QColor(255, 0, 255));
  EXPECT_EQ(ReadBody("{\\shp{\\*\\shpinst{\\sp{\\sn fillColor}{\\sv 255}}}}x").PaperColour,
            QColor(Qt::white));
}

}  // namespace
