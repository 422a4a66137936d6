// HTML pages and the choice between the two kinds of page.
#include "platform/files/CodePage.h"
#include "platform/richtext/HtmlReader.h"
#include "platform/richtext/PageLink.h"
#include "platform/richtext/PageReader.h"
#include "platform/rtf_pages.h"

namespace {

RichPage Html(const QByteArray& bytes, PictureLoader loader = {}) {
  return ReadHtml(bytes, {}, "page.htm", std::move(loader));
}

struct HtmlRow {
  const char* What;
  QByteArray Bytes;
  QString Text;
};

class HtmlText : public ::testing::TestWithParam<HtmlRow> {};

TEST_P(HtmlText, ComesOut) {
  EXPECT_EQ(Html(GetParam().Bytes).Document->toPlainText().simplified(), GetParam().Text);
}

const HtmlRow kRows[] = {
    {"Plain", "<html><body><p>a <b>b</b></p><p>c</p></body></html>", "a b c"},
    {"ScriptsGo", "<p>a<script>if (1 < 2) document.write('<b>x</b>')</script>b</p>", "ab"},
    {"UnclosedScript", "<p>a<script>alert(1)", "a"},
    {"StylesAreNoText", "<style>p { color: red }</style><p>a</p>", "a"},
    {"CommentsGo", "<p>a<!-- <b>x</b> -->b<!-- open", "ab"},
    {"FramesAndForms", "<iframe src=x>in</iframe><form><input value=x>a</form>", "ina"},
    {"LessThan", "<p>1 < 2 <3</p>", "1 < 2 <3"},
    {"UnclosedQuote", "<p title=\"x>a</p><p>b</p>", "a b"},
    {"UnclosedTag", "<p>a</p><p", "a"},
    {"Utf8Mark", "\xEF\xBB\xBF<p>\xC3\xA9</p>", "\u00E9"},
    {"Utf16Mark", QByteArray("\xFF\xFE<\0p\0>\0\xE9\0", 10), "\u00E9"},
    {"Utf8Unsaid", "<p>\xC3\xA9</p>", "\u00E9"},
    {"CodePageUnsaid", "<p>\xE9\x93</p>", "\u00E9\u201C"},
    {"CharsetNamed", "<head><meta charset='windows-1251'></head><p>\xCF</p>", "\u041F"},
    {"CharsetInContent",
     "<meta http-equiv=Content-Type content=\"text/html; charset=Shift_JIS\"><p>\x83\x65</p>", "\u30C6"},
    {"CharsetFalselyUtf8", "<meta charset=utf-8><p>\xE9</p>", "\u00E9"},
    {"CharsetFalselyUtf16", "<meta charset=utf-16><p>a</p>", "a"},
    {"CharsetUnknown", "<meta charset=no-such-thing><p>\xE9</p>", "\u00E9"},
};
INSTANTIATE_TEST_SUITE_P(All, HtmlText, ::testing::ValuesIn(kRows),
                         [](const auto& row) { return std::string(row.param.What); });

TEST(HtmlLinks, HaveKindAndTarget) {
  const RichPage page = Html(
      "<p><a href=\"#More%20here\">place</a> <a href='a b.doc'>file</a> <a "
      "href='http://example.com/?a=b'>web</a> "
      "<a href=''>none</a></p><p id='More here'>there</p><p><a name=old></a>older</p>");
  EXPECT_EQ(LinkOfHref(FormatOf(page, "place").anchorHref()), (PageLink{2, "More here"}));
  EXPECT_EQ(LinkOfHref(FormatOf(page, "file").anchorHref()), (PageLink{1, "a b.doc"}));
  EXPECT_EQ(LinkOfHref(FormatOf(page, "web").anchorHref()), (PageLink{1, "http://example.com/?a=b"}));
  EXPECT_EQ(LinkOfHref(FormatOf(page, "none").anchorHref()).Kind, 0);
  EXPECT_EQ(page.PlaceOf("more here"), page.Document->find("there").selectionStart());
  EXPECT_EQ(page.PlaceOf("OLD"), page.Document->find("older").selectionStart());
}

TEST(HtmlPictures, ComeFromTheLoaderAlone) {
  QStringList asked;
  const RichPage page = Html(
      "<link rel=stylesheet href='/etc/hostname'><p><img src='a.png'><img src='/etc/hostname'><img "
      "src='http://example.com/x.png'></p>",
      [&](const QString& name) {
        asked << name;
        QImage image(30, 20, QImage::Format_RGB32);
        image.fill(Qt::red);
        return name == u"a.png" ? image : QImage();
      });
  page.Document->size();
  asked.removeDuplicates();
  EXPECT_EQ(asked, QStringList({"a.png", "/etc/hostname", "http://example.com/x.png"}));
  EXPECT_GE(page.Document->size().height(), 20);
}

struct BombRow {
  const char* What;
  QByteArray Html;
};

class HtmlBombs : public ::testing::TestWithParam<BombRow> {};

TEST_P(HtmlBombs, KeepTheirLastWord) {
  const RichPage page = Html(GetParam().Html + "<p>last</p>");
  page.Document->setTextWidth(500);
  EXPECT_LT(page.Document->size().height(), 1e7);
  EXPECT_TRUE(page.Document->toPlainText().trimmed().endsWith("last"));
}

const BombRow kBombs[] = {
    {"Spans", "<table><tr><td colspan=99999999 rowspan=99999999>a</td></tr></table>"},
    {"HiddenSpans",
     "<table><tr><td title='colspan=1' colspan=99999999 rowspan='&#57;9999999'>a</td></tr></table>"},
    {"StyleRules", "<style>" + QByteArray("p{color:red}").repeated(2000) + "</style>" +
                       QByteArray("<p>a").repeated(20'000)},
    {"PicturesWithoutSize", "<img width='%'><table><tr><td><img width=0 height='-5'>a</td></tr></table>"},
    {"TableInAQuote", "<p a=b c\"><table><tr><td a='<table><tr><td>'>a</td></tr></table>"},
    {"TablesInAStyleSheet", "<style>" + QByteArray("<table><tr><td>").repeated(12) + "</style>"},
    {"EndsAcrossTables", QByteArray("<div><table><tr><td></div>").repeated(2000)},
    {"Cells",
     "<table><tr>" + QByteArray("<td>").repeated(20'000) + QByteArray("<tr>").repeated(20'000) + "</table>"},
    {"NestedTables",
     QByteArray("<table><tr><td>").repeated(5000) + QByteArray("</td></tr></table>").repeated(5000)},
    {"NestedBlocks", QByteArray("<div>").repeated(50'000) + QByteArray("</div>").repeated(50'000)},
    {"NestedLists", QByteArray("<ul><li>").repeated(20'000) + QByteArray("</ul>").repeated(20'000)},
    {"StrayEnds", QByteArray("<b>").repeated(50) + QByteArray("</i>").repeated(50'000)},
    {"Quotes", QByteArray("<p a=\"b'>").repeated(20'000)},
};
INSTANTIATE_TEST_SUITE_P(All, HtmlBombs, ::testing::ValuesIn(kBombs),
                         [](const auto& row) { return std::string(row.param.What); });

TEST(HtmlBombs, HaveLettersOfBearableSize) {
  const RichPage page = Html("<p style='font-size:999999pt'>big</p>");
  EXPECT_LE(FormatOf(page, "big").fontPointSize(), 400);
}

TEST(HtmlPages, BeyondTheLimitAreRefused) {
  EXPECT_EQ(
      ErrorOf([] { Html(QByteArray(kHtmlLimit + 1, ' ')); }),
      QStringLiteral("The file \"page.htm\" is too large: 4194305 bytes, where at most 4194304 are read."));
}

struct PageRow {
  const char* What;
  QByteArray Bytes;
  int Offset;
  QString Text;  // empty: refused
  QString Error;
};

class Pages : public ::testing::TestWithParam<PageRow> {};

TEST_P(Pages, AreToldByTheirFirstBytes) {
  QString text;
  const QString error = ErrorOf(
      [&] { text = ReadPage(GetParam().Bytes, GetParam().Offset, {}, "0001.txm").Document->toPlainText(); });
  EXPECT_EQ(text, GetParam().Text);
  EXPECT_EQ(error, GetParam().Error);
}

const QByteArray kLeadIn(30, '\x7F');
const PageRow kPages[] = {
    {"RichTextBehindLeadIn", kLeadIn + "{\\rtf1 a}", 30, "a", ""},
    {"RichTextFromTheStart", "{\\rtf1 a}", 0, "a", ""},
    {"HtmlBehindLeadIn", kLeadIn + "<!DOCTYPE html><p>a</p>", 30, "a", ""},
    {"HtmlWithComment", "<!-- x --><html><p>a</p></html>", 0, "a", ""},
    {"TooShort", "{\\rtf1 a}", 30, "",
     "The page \"0001.txm\" is too short: it has 9 bytes, and its text begins behind 30."},
    {"LeadInAlone", kLeadIn, 30, "",
     "The page \"0001.txm\" holds neither rich text nor HTML behind its first 30 bytes."},
    {"LeadInNotSkipped", kLeadIn + "{\\rtf1 a}", 0, "",
     "The page \"0001.txm\" holds neither rich text nor HTML behind its first 0 bytes."},
    {"SomethingElse", kLeadIn + "PK\x03\x04", 30, "",
     "The page \"0001.txm\" holds neither rich text nor HTML behind its first 30 bytes."},
    {"NegativeOffset", "{\\rtf1 a}", -1, "",
     "The page \"0001.txm\" is too short: it has 9 bytes, and its text begins behind -1."},
};
INSTANTIATE_TEST_SUITE_P(All, Pages, ::testing::ValuesIn(kPages),
                         [](const auto& row) { return std::string(row.param.What); });

}  // namespace
