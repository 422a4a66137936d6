// Rich text of a few bytes that asks for much: what it gets is bounded, and its words are there.
#include <QImage>
#include <QTextTable>
#include <QUrl>
#include <numeric>

#include "pages/rtf/rtf_pages.h"

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
    EXPECT_EQ(page.Document->toPlainText().remove(u'\n').size(), 20'000);
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

// A document can be so high; the layout of a higher one does not end.
constexpr double kHighestDocument = 8'388'607;

TEST(RtfBombs, APageStaysWithinTheHeightOfADocument) {
  const struct {
    const char* What;
    QByteArray Body;
  } cases[] = {
      {"spaces", QByteArray("\\sb31680 x\\par").repeated(5000)},
      {"letters", QByteArray("\\fs800 x\\par ").repeated(20'000)},
      {"lines", "\\fs800 " + QByteArray("x\\line ").repeated(20'000)},
      {"a narrow column", "\\li31680\\fs400 " + QByteArray("x ").repeated(40'000)},
      {"pictures", QByteArray("x{\\pict\\picwgoal9999\\pichgoal31680}").repeated(4500)},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.What);
    const RichPage page = ReadBody(c.Body);
    page.Document->setTextWidth(900);
    EXPECT_LE(page.Document->size().height(), kHighestDocument);
    EXPECT_EQ(page.Document->toPlainText().count(u'x'),
              c.Body.count("x\\par") + c.Body.count("x\\line") + c.Body.count("x ") + c.Body.count("x{"));
  }
}

TEST(RtfBombs, ALongParagraphGoesOnAsAnother) {
  for (const char* const text : {"xxxx", "xxx ", "\\tx500 xxx\\tab "}) {
    SCOPED_TRACE(text);
    const RichPage page = ReadBody("\\sb200\\fi300 " + QByteArray(text).repeated(10'000) +
                                   "{\\*\\bkmkstart end}{\\object\\objw300\\objh300}y\\par z");
    EXPECT_GE(page.Document->blockCount(), 5);
    for (QTextBlock block = page.Document->begin(); block.isValid(); block = block.next()) {
      EXPECT_LE(block.length(), 10'001);
      EXPECT_EQ(block.blockFormat().topMargin() > 0, block.position() == 0 || block.text() == u"z");
    }
    QTextCursor object(page.Document.get());
    object.setPosition(page.Objects.at(0).Position);
    object.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
    EXPECT_EQ(object.charFormat().intProperty(kObjectIdProperty), 1);
    EXPECT_EQ(page.PlaceOf(QStringLiteral("end")), page.Objects.at(0).Position);
  }
}

TEST(RtfBombs, BoxesForMissingPicturesShareABudget) {
  QByteArray body;
  for (int i = 0; i < 3000; ++i)
    body += "{\\pict\\picwgoal" + QByteArray::number(3000 + i) + "\\pichgoal6000}";
  const RichPage page = ReadBody(body);
  QHash<QString, qint64> pixels;
  for (auto it = page.Document->begin().begin(); !it.atEnd(); ++it) {
    const QString name = it.fragment().charFormat().toImageFormat().name();
    const auto box = page.Document->resource(QTextDocument::ImageResource, QUrl(name)).value<QImage>();
    pixels[name] = qint64{box.width()} * box.height();
  }
  EXPECT_GT(pixels.size(), 100);
  EXPECT_LE(std::accumulate(pixels.cbegin(), pixels.cend(), qint64{0}), 64'000'000);
}

}  // namespace
