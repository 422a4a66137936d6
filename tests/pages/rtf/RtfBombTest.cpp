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

// The first one is shown, the last one of so many is not.
TEST(RtfBombs, APageIsCutAndSaysSo) {
  QByteArray wideRow = "\\trowd";
  for (int i = 1; i <= 128; ++i)
    wideRow += "\\cellx" + QByteArray::number(i * 100);
  const struct {
    const char* What;
    QByteArray Piece;
    int Count;
  } cases[] = {
      {"a word", "x", 3'000'000},
      {"paragraphs", "x\\par ", 60'000},
      {"lines", "x\\line ", 100'000},
      {"looks", "x{\\b x}", 200'000},
      {"rows", wideRow + "\\pard\\intbl x\\cell\\row", 1000},
      {"tables", "\\trowd\\cellx900\\pard\\intbl x\\cell\\row\\pard x\\par ", 10'000},
      {"boxes", "\\pard\\box\\brdrs x\\par\\pard x\\par ", 10'000},
      {"pictures", "x{\\pict\\picwgoal90\\pichgoal90}", 10'000},
      {"objects", "x{\\object\\objw90\\objh90}", 10'000},
      {"foreign letters", "x\\u1575?", 400'000},
      {"places", "x{\\*\\bkmkstart a}", 60'000},
      {"words", "x\\b0" + QByteArray("\\b0").repeated(10'000), 1000},
      {"groups", "x" + QByteArray("{}").repeated(5000), 1000},
      {"footnotes", "x{\\footnote x}", 60'000},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.What);
    const RichPage page = ReadBody(c.Piece.repeated(c.Count) + "{last}");
    EXPECT_TRUE(page.IsCut);
    EXPECT_GT(page.Document->toPlainText().count(u'x'), 50);
    EXPECT_TRUE(page.Document->find("last").isNull());
    EXPECT_EQ(page.Document->lastBlock().text(), "This page is too long to be shown whole. It ends here.");
    EXPECT_LE(CellsOf(page.Document->rootFrame()), 20'000);
    EXPECT_FALSE(ReadBody(c.Piece.repeated(c.Count / 60) + "{last}").IsCut);
  }
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
  const std::pair<const char*, QByteArray> cases[] = {
      {"spaces", QByteArray("\\sb31680 x\\par").repeated(5000)},
      {"letters", QByteArray("\\fs800 x\\par ").repeated(20'000)},
      {"lines", "\\fs800 " + QByteArray("x\\line ").repeated(20'000)},
      {"a narrow column", "\\li31680\\fs400 " + QByteArray("x ").repeated(40'000)},
      {"pictures", QByteArray("x{\\pict\\picwgoal9999\\pichgoal31680}").repeated(4500)},
  };
  for (const auto& [what, body] : cases) {
    SCOPED_TRACE(what);
    const RichPage page = ReadBody(body);
    page.Document->setTextWidth(900);
    EXPECT_LE(page.Document->size().height(), kHighestDocument);
    EXPECT_EQ(page.Document->toPlainText().count(u'x'),
              body.count("x\\par") + body.count("x\\line") + body.count("x ") + body.count("x{"));
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
