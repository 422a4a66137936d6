// HTML pages and the choice between the two kinds of page.
#include <QTextBlock>
#include <QTextList>
#include <QTextTable>

#include "pages/PageReader.h"
#include "pages/common/PageLink.h"
#include "pages/html/HtmlReader.h"
#include "pages/rtf/rtf_pages.h"
#include "platform/files/CodePage.h"

namespace {

RichPage Html(const QByteArray& bytes, PictureLoader loader = {}) {
  return ReadHtml(bytes, {}, "page.htm", std::move(loader));
}

const QByteArray kPicture = RedPicture({30, 20}, "png");

TEST(HtmlText, ComesOut) {
  const std::pair<QByteArray, QString> rows[] = {
      {"<p>a<script>if (1 < 2) document.write('<b>x</b>')</script>b</p>", "ab"},
      {"<p>a<script>alert(1)", "a"},
      {"<style>p { color: red }</style><p>a</p>", "a"},
      {"<p>a<!-- <b>x</b> -->b<!-- open", "ab"},
      {"<iframe src=x>in</iframe><form><input value=x>a</form>", "ina"},
      {"<p>a<xml><o:x>x</o:x></xml><o:p></o:p><![if !vml]>b<![endif]></p>", "ab"},
      {"<p>a<span style='DISPLAY: none'>x<b>y</b></span>b<p style='display:none'>z<p>c", "ab c"},
      {"<p>a<div style='display:none'><table><tr><td>x</div>y</table></div>b", "ab"},
      {"<p>a<span hidden>x</span>b</p><p hidden>x<div>c", "ab c"},
      {"<p>a<img src=n alt=x hidden>b", "ab"},
      {"<ul><li hidden>x<ul><li>x</ul><b>x</b>x<li>a</ul><dl><dd hidden>x</dl>b", "a b"},
      {"<table><tr hidden><td>x<td>x</tr><tr><td>a</table>b", "a b"},
      {"<table><tr><td hidden><p>x</p><table><tr><td>x</table>x<td>a</table>b", "a b"},
      {"<table hidden><tr><td>x</table>a<table><tr><td hidden>x</table>b", "a b"},
      {"<body style='visibility:hidden'>a", "a"},
      {"<p>a<b style='Visibility: hidden'>x</b>b<b style='backface-visibility:hidden'>c</b>", "abc"},
      {"<p><q>a <q>b</q></q> <b><q>c</b> d<i hidden><q>x</i>", "\u201Ca \u2018b\u2019\u201D \u201Cc\u201D d"},
      {"<p>a<select><option>x</select><svg><text>y</text></svg>b", "ab"},
      {"<p>a<svg>b", "ab"},
      {"<p>a<script src='x'/>b<a name='n'/>c<br/>d</p>", "abc d"},
      {"<p>&copy 2004 &#8217s AT&T &lt;b &nosuch</p>", "\u00A9 2004 \u2019s AT&T <b &nosuch"},
      {"<p>a\xEF\xB7\x95\xEF\xB7\x96&#64981;&#xFDD6;&#64976z</p>", "az"},
      {"<p>a<![CDATA[ <b>b</b> &amp; c]]>d<![CDATA[e", "a <b>b</b> &amp; cde"},
      {"<!DOCTYPE html [ <!ENTITY a 'b'> ]><p>a", "a"},
      {"<h:html xmlns:h='http://www.w3.org/1999/xhtml'><h:title>x</h:title><h:p>a<h:b hidden>x</h:b>b<o:p>c",
       "abc"},
      {"<p>1 < 2 <3</p>", "1 < 2 <3"},
      {"<p title=\"x>a</p><p>b</p>", "a b"},
      {"<p>a</p><p", "a"},
      {QByteArray("\xFF\xFE<\0p\0>\0\xE9\0", 10), "\u00E9"},
      {"<p>\xC3\xA9</p>", "\u00E9"},
      {"<p>\xE9\x93</p>", "\u00E9\u201C"},
      {"<head><meta charset='windows-1251'></head><p>\xCF</p>", "\u041F"},
      {"<meta http-equiv=Content-Type content=\"text/html; charset=Shift_JIS\"><p>\x83\x65</p>", "\u30C6"},
      {"<meta charset=utf-8><p>\xE9</p>", "\u00E9"},
      {"<meta charset=utf-16><p>a</p>", "a"},
      {"<?xml version='1.0' encoding='windows-1251'?><link href='x'/><p>\xCF</p>", "\u041F"},
      {"<meta charset=iso-8859-1><p>\x93</p>", "\u201C"},
  };
  for (const auto& [html, text] : rows)
    EXPECT_EQ(Html(html).Document->toPlainText().simplified(), text) << html.toStdString();
}

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

TEST(HtmlPlaces, StandBeforeTheNextText) {
  for (const char* html :
       {"<a name=p></a><h2>here</h2>", "<h2 id=p>here</h2>", "<a name=p><p>here</p></a>",
        "<a name=q></a><a name=P></a><p>here</p>", "<table id=p><tr><td>here</td></tr></table>",
        "<table><tr><td id=q>cell</td></tr><span id=p>here</span></table>", "<ul id=p><li>here</ul>",
        "<a id='p'/>\n<pre>here</pre>", "<p id=p>here</p><p id=p>there</p>"}) {
    const RichPage page = Html(QByteArray("<p>x</p>") + html);
    const QTextCursor here = page.Document->find("here");
    ASSERT_FALSE(here.isNull()) << html;
    EXPECT_EQ(page.PlaceOf("p"), here.selectionStart()) << html;
    EXPECT_EQ(page.Document->toPlainText().count(QChar(0xFDD5)), 0) << html;
  }
  const RichPage page = Html("<p>a</p><a name=end></a>");
  EXPECT_EQ(page.PlaceOf("end"), page.Document->characterCount() - 1);
}

// Left margin, first line, colours of letters and paper, points.
QString LookOf(const RichPage& page) {
  const QTextBlock block = page.Document->find("x").block();
  const QTextCharFormat letters = FormatOf(page, "x");
  return QStringLiteral("%1 %2 %3 %4 %5")
      .arg(block.blockFormat().leftMargin())
      .arg(block.blockFormat().textIndent())
      .arg(letters.foreground().color().name(), page.PaperColour.name())
      .arg(letters.fontPointSize());
}

TEST(HtmlLooks, FollowTheStyles) {
  const std::pair<QByteArray, const char*> rows[] = {
      {"<p style='margin-left:.5in;text-indent:-18.0pt'>x", "48 -24 #000000 #ffffff 0"},
      {"<p style='font-size:0.25in'>x", "0 0 #000000 #ffffff 18"},
      {"<p style='font-family:&quot;A; B&quot;;color:red'>x", "0 0 #ff0000 #ffffff 0"},
      {"<style><!-- /* a */ @font-face {font-family:A; panose-1:2 15;} @import x; p.M, li.M {mso-x:\"\"; "
       "margin-left:36.0pt; color:navy;} @page S {size:8in} @list l0:level1 {a:b} --></style><p class=M>x",
       "48 0 #000080 #ffffff 0"},
      {"<style><![CDATA[#a-1{color:red}]]></style><p id=a-1>x", "0 0 #ff0000 #ffffff 0"},
      {"<font color=C40001>x</font>", "0 0 #c40001 #ffffff 0"},
      {"<body bgcolor='3D#ffffff'><font color='#12'>x</font>", "0 0 #000000 #ffffff 0"},
      {"<body bgcolor=#000000 text=white>x", "0 0 #ffffff #000000 0"},
      {"<body text=navy><table><tr><td>x</table>", "0 0 #000080 #ffffff 0"},
      {"<a href=b>x</a>", "0 0 #0000ff #ffffff 0"},
      {"<body link=navy text=red><a href=b>x</a>", "0 0 #000080 #ffffff 0"},
      {"<style>a{color:red}</style><body link=navy><a href=b>x</a>", "0 0 #ff0000 #ffffff 0"},
      {"<p style='color:windowtext;background-color:nonsense'>x", "0 0 #000000 #ffffff 0"}};
  for (const auto& [html, look] : rows)
    EXPECT_EQ(LookOf(Html(html)), QLatin1String(look)) << html.toStdString();
}

TEST(HtmlLooks, TakeABorderInAnyOrder) {
  const RichPage page =
      Html("<table><tr><td style='border:solid red .5pt;padding:0in 7.5pt'>x</td></tr></table>");
  const auto cell = QTextCursor(page.Document->find("x")).currentTable()->cellAt(0, 0).format();
  EXPECT_EQ(cell.toTableCellFormat().topBorder(), 1);
  EXPECT_EQ(cell.toTableCellFormat().topBorderBrush().color(), QColor(Qt::red));
  EXPECT_EQ(cell.toTableCellFormat().leftPadding(), 10);
}

TEST(HtmlLooks, GrowWithTheScale) {
  PageMetrics twice;
  twice.PixelsPerTwip = 2.0 / 15;
  const RichPage page =
      ReadHtml("<p style='margin-left:10px;font-size:9pt'>x<img src=a></p><table><tr><td width=100>y</table>",
               twice, "page.htm", [](const QString&) { return kPicture; });
  EXPECT_EQ(LookOf(page), "20 0 #000000 #ffffff 18");
  const QTextImageFormat image = FormatOf(page, QString(QChar::ObjectReplacementCharacter)).toImageFormat();
  EXPECT_EQ(QSizeF(image.width(), image.height()), QSizeF(60, 40));
  const auto columns =
      QTextCursor(page.Document->find("y")).currentTable()->format().columnWidthConstraints();
  EXPECT_EQ(columns.first().rawValue(), 200);
}

TEST(HtmlLists, BeginWithTheNumberTheyName) {
  const std::pair<const char*, const char*> rows[] = {{"<ol>", "1."},
                                                      {"<ol start=4>", "4."},
                                                      {"<ol type=a start=4>", "d."},
                                                      {"<ol start='-2'>", "1."},
                                                      {"<ol start=x>", "1."},
                                                      {"<ol start=99999999>", "1."}};
  const double own = Html("<ol><li>x<li>y</ol>").Document->size().height();
  for (const auto& [list, number] : rows) {
    const RichPage page = Html(list + QByteArray("<li>x<li>y</ol>"));
    const QTextBlock block = BlockOf(page, "x");
    EXPECT_EQ(block.textList()->itemText(block), QLatin1String(number)) << list;
    EXPECT_EQ(page.Document->size().height(), own) << list;
    EXPECT_EQ(page.Document->toPlainText().trimmed(), "x\ny") << list;
  }
}

TEST(HtmlLists, GoOnWithTheirNumbersAsTextWhenTheyAreLong) {
  const RichPage page =
      Html("<ul><li>a<ol>" + QByteArray("<li>x<li hidden>h").repeated(501) +
           "</ol></ul><ol start=7000><li>late</ol><ul>" + QByteArray("<li>y").repeated(501) + "</ul>");
  EXPECT_EQ(page.Document->toPlainText().count("x\n"), 501);
  EXPECT_TRUE(page.Document->toPlainText().contains("\n501. x\n7000. late\ny"));
  const QTextBlock block = BlockOf(page, "7000");
  EXPECT_EQ(block.textList()->format().style(), QTextListFormat::ListStyleUndefined);
}

TEST(HtmlMovies, AreObjectsOfTheirSizeAndHideWhatStandsInForThem) {
  const struct {
    QByteArray Page;
    QString Text, Movies;  // the page's, a "#" for a movie; name and size of each
  } rows[] = {
      {"<p>a<object data='Movies/my%20film.WMV' width=48 height=36>x<object>y</object></object>b", "a#b",
       "my film.wmv 48x36"},
      {"<p>a<object classid=c width=64 height=48><param name=Movie value='b.swf'><embed "
       "src='b.swf'>x</object>b",
       "a#b", "b.swf 64x48"},
      {"<p><a name=n></a><embed src=a.swf width=10 height=20><embed src=b.dcr>b", "##b",
       "a.swf 10x20 b.dcr 320x240"},
      {"<p>a<object data=a.swf width=1 height=1>b", "a#b", "a.swf 1x1"},
      {"<p>a<object data=list.pdf>x</object><param name=movie value=a.swf><embed src=a.mid>b", "axb", ""},
      {"<p>a<object data=a.swf hidden>x</object><b hidden><embed src=b.swf></b>b", "ab", ""},
  };
  for (const auto& row : rows) {
    const RichPage page = Html(row.Page);
    QStringList movies;
    for (const PageObject& object : page.Objects) {
      QTextCursor cursor(page.Document.get());
      cursor.setPosition(object.Position + 1);
      const QTextImageFormat format = cursor.charFormat().toImageFormat();
      EXPECT_EQ(format.intProperty(kObjectIdProperty), object.Id) << row.Page.toStdString();
      movies.append(QStringLiteral("%1 %2x%3").arg(object.DataText).arg(format.width()).arg(format.height()));
    }
    EXPECT_EQ(movies.join(' '), row.Movies) << row.Page.toStdString();
    EXPECT_EQ(page.Document->toPlainText().replace(QChar::ObjectReplacementCharacter, '#'), row.Text);
  }
}

TEST(HtmlPictures, AreBoxesWhereTheyAndTheirWordsAreMissing) {
  const std::tuple<const char*, QSize, bool> rows[] = {
      {"<img src=n>", {32, 32}, true},
      {"<img src=n width=60 height=20>", {60, 20}, true},
      {"<img>", {32, 32}, true},
      {"<img src=n width=60 height=20 alt=''>", {60, 20}, false}};
  for (const auto& [picture, size, isBox] : rows) {
    const RichPage page = Html(picture);
    const QTextImageFormat shown = FormatOf(page, QString(QChar::ObjectReplacementCharacter)).toImageFormat();
    EXPECT_EQ(QSizeF(shown.width(), shown.height()), QSizeF(size)) << picture;
    const auto image = page.Document->resource(QTextDocument::ImageResource, shown.name()).value<QImage>();
    EXPECT_EQ(image.pixelColor(0, 0) == QColor(0x999999), isBox) << picture;
    EXPECT_EQ(image.size(), isBox ? size : QSize(1, 1)) << picture;
  }
}

TEST(HtmlPictures, AreWordsWhereTheyAreMissing) {
  const RichPage page = Html(
      "<p>a <img src=none.png alt='B &amp; C'> <img src=none.png> <a href=x><img src=n alt=link></a></p>");
  EXPECT_EQ(page.Document->toPlainText(), QStringLiteral("a B & C \uFFFC link"));
  EXPECT_EQ(LinkOfHref(FormatOf(page, "link").anchorHref()), (PageLink{1, "x"}));
}

TEST(HtmlPictures, ComeFromTheLoaderAlone) {
  QStringList asked;
  const RichPage page = Html(
      "<link rel=stylesheet href='/etc/hostname'><p style='background-image:url(b.png)'><p><img "
      "src='a.png'><img src='/etc/hostname'><img "
      "src='a.png'><img src='my%20a.png'><img src=':/b'><img src=':/b'><img "
      "src='http://example.com/x.png'></p>",
      [&](const QString& name) {
        asked << name;
        return name == u"a.png" ? kPicture : QByteArray();
      });
  page.Document->size();
  EXPECT_EQ(asked, QStringList(
                       {"a.png", "/etc/hostname", "my%20a.png", ":/b", "http://example.com/x.png", "b.png"}));
  EXPECT_GE(page.Document->size().height(), 20);
}

TEST(HtmlPictures, AreShownFromAddressesOfData) {
  const QByteArray code = kPicture.toBase64();
  const std::pair<QByteArray, bool> rows[] = {
      {"data:image/png;base64," + code, true},
      {" DATA:;Base64," + code.toPercentEncoding(), true},
      {"data:image/png;base64,\n" + code.left(40) + "\n " + code.mid(40), true},
      {"data:image/png," + kPicture.toPercentEncoding(), true},
      {"data:image/png;base64", false},
      {"data:text/html;base64,PGI+", false}};
  for (const auto& [source, isShown] : rows) {
    const RichPage page =
        Html("<img alt='' src='" + source + "'>", [](const QString&) { return QByteArray(); });
    const QTextImageFormat shown = FormatOf(page, QString(QChar::ObjectReplacementCharacter)).toImageFormat();
    EXPECT_EQ(shown.width(), isShown ? 30 : 1) << source.toStdString();
  }
}

TEST(HtmlEntities, AreResolvedAlikeInTextAndAttributes) {
  const std::pair<QByteArray, QString> rows[] = {
      {"K&auml;se", "K\u00E4se"},
      {"K&#228;se", u"K\u00E4se"_qs},
      {"K&#xE4;se", "K\u00E4se"},
      {"&yuml;&times;&Agrave;", u"\u00FF\u00D7\u00C0"_qs},
      {"a&#150;b", "a\u2013b"},
      {"&#x1F600;", u"\U0001F600"_qs},
      {"a&amp;auml;b", "a&auml;b"},
      {"a&b&c=d", "a&b&c=d"},
      {"&copy 2004&reg.", u"\u00A9 2004\u00AE."_qs},
      {"&#169 &#0000169;&frac12&hellip;", u"\u00A9 \u00A9\u00BD\u2026"_qs},
      {"?a=1&copy=2&copyright &euro x", "?a=1&copy=2&copyright &euro x"},
      {"a&;b&none;c&&amp;", "a&;b&none;c&&"}};
  for (const auto& [written, meant] : rows) {
    QStringList asked;
    const RichPage page =
        Html("<p>x</p><p id='" + written + "'>by id</p><p><a name='" + written +
                 "2'></a>by name</p><a href='" + written + "'>link</a><img src='" + written + "'>",
             [&](const QString& name) {
               asked << name;
               return QByteArray();
             });
    EXPECT_EQ(Html("<p>" + written).Document->toPlainText(), meant) << written.toStdString();
    EXPECT_EQ(page.PlaceOf(meant), page.Document->find("by id").selectionStart()) << written.toStdString();
    EXPECT_EQ(page.PlaceOf(meant + '2'), page.Document->find("by name").selectionStart())
        << written.toStdString();
    EXPECT_EQ(LinkOfHref(FormatOf(page, "link").anchorHref()), (PageLink{1, meant})) << written.toStdString();
    EXPECT_TRUE(asked.contains(meant)) << written.toStdString() << ' ' << asked.join(' ').toStdString();
  }
}

TEST(HtmlBombs, HoldSoManyPicturesAndFitADocument) {
  const RichPage page = Html(QByteArray("<img src=a width=9999 height=9999>x").repeated(6000));
  const QString text = page.Document->toRawText();
  EXPECT_LE(text.count(QChar::ObjectReplacementCharacter), 2000);
  EXPECT_EQ(text.count(u'x'), 6000);
  page.Document->setTextWidth(900);
  EXPECT_LE(page.Document->size().height(), 8'388'607);
  EXPECT_LE(FormatOf(Html("<p style='font-size:999999pt'>big</p>"), "big").fontPointSize(), 400);
}

TEST(HtmlBombs, KeepTheirLastWordOrSayThatTheyGoOn) {
  const struct {
    const char* What;
    QByteArray Html;
    bool IsCut = false;
  } rows[] = {
      {"Spans", "<table><tr><td colspan=99999999 rowspan=99999999>a</td></tr></table>"},
      {"HiddenSpans",
       "<table><tr><td title='colspan=1' colspan=99999999 rowspan='&#57;9999999'>a</td></tr></table>"},
      {"StyleRules", "<style>" + QByteArray("p{color:red}").repeated(2000) + "</style>" +
                         QByteArray("<p>a").repeated(10'000)},
      {"PicturesWithoutSize", "<img width='%'><table><tr><td><img width=0 height='-5'>a</td></tr></table>"},
      {"TableInAQuote", "<p a=b c\"><table><tr><td a='<table><tr><td>'>a</td></tr></table>"},
      {"TablesInAStyleSheet", "<style>" + QByteArray("<table><tr><td>").repeated(12) + "</style>"},
      {"EndsAcrossTables", QByteArray("<div><table><tr><td></div>").repeated(2000)},
      {"Cells",
       "<table><tr>" + QByteArray("<td>").repeated(20'000) + QByteArray("<tr>").repeated(20'000) + "</table>",
       true},
      {"WideLastRow",
       "<table>" + QByteArray("<tr><td>").repeated(5000) + "<tr>" + QByteArray("<td>").repeated(100), true},
      {"Paragraphs", QByteArray("<p>some words").repeated(20'000), true},
      {"Breaks", QByteArray("word<br>").repeated(50'000), true},
      {"Pictures", QByteArray("<img src=a alt=word>").repeated(100'000), true},
      {"Letters", QByteArray("&amp;").repeated(400'000), true},
      {"EmptyTags", QByteArray("<b></b>").repeated(100'000), true},
      {"Places", QByteArray("<a name=x></a>x").repeated(10'000)},
      {"Styles",
       QByteArray("<p style='margin:1pt 2cm;font:9pt \"A\";color:red;border:1pt solid'>a").repeated(5'000)},
      {"SheetWithoutEnd", "<style>" + QByteArray("@a;@b{").repeated(50'000) + "</style>"},
      {"Hidden", QByteArray("<div style='display:none'>x</div><p style='display:none'>").repeated(5'000)},
      {"SilentThings", QByteArray("<svg><xml><select>").repeated(20'000)},
      {"NestedTables",
       QByteArray("<table><tr><td>").repeated(5000) + QByteArray("</td></tr></table>").repeated(5000)},
      {"NestedBlocks", QByteArray("<div>").repeated(50'000) + QByteArray("</div>").repeated(50'000)},
      {"NestedLists", QByteArray("<ul><li>").repeated(8'000) + QByteArray("</ul>").repeated(8'000)},
      {"SkippedNumbers", "<style>" + QByteArray("p{color:red}").repeated(2000) + "</style>" +
                             QByteArray("<ol start=4999><li>a</ol>").repeated(2000)},
      {"StrayEnds", QByteArray("<b>").repeated(50) + QByteArray("</i>").repeated(50'000)},
      {"Quotes", QByteArray("<p a=\"b'>").repeated(20'000)},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.What);
    const RichPage page = Html(row.Html + "<p>last</p>");
    page.Document->setTextWidth(500);
    EXPECT_LT(page.Document->size().height(), 1e7);
    EXPECT_EQ(page.IsCut, row.IsCut);
    const QString last = page.Document->toPlainText().trimmed().section(u'\n', -1);
    EXPECT_EQ(last, page.IsCut ? "This page is too long to be shown whole. It ends here." : "last");
  }
}

TEST(HtmlPages, BeyondTheLimitAreRefused) {
  EXPECT_EQ(
      ErrorOf([] { Html(QByteArray(kHtmlLimit + 1, ' ')); }),
      QStringLiteral("The file \"page.htm\" is too large: 16777217 bytes, where at most 16777216 are read."));
}

TEST(Pages, AreToldByTheirFirstBytes) {
  const QByteArray leadIn(30, '\x7F');
  const QString unknown = "The page \"0001.txm\" holds neither rich text nor HTML behind its first 30 bytes.";
  const std::tuple<QByteArray, int, QString> rows[] = {
      // the bytes, the offset, the text or the error
      {leadIn + "{\\rtf1 a}", 30, "a"},
      {leadIn + "<!DOCTYPE html><p>a</p>", 30, "a"},
      {"<!-- x --><html><p>a</p></html>", 0, "a"},
      {leadIn + "\r\n<BLOCKQUOTE>a", 30, "a"},
      {"<p\nclass=b>a", 0, "a"},
      {"<br/>a", 0, "\na"},
      {"<?xml version='1.0'?><?xml-stylesheet href='a>b'?><!DOCTYPE html><p>a</p>", 0, "a"},
      {"<h:html xmlns:h='http://www.w3.org/1999/xhtml'><h:p>a</h:p></h:html>", 0, "a"},
      {leadIn + "a <p>b</p>", 30, unknown},
      {leadIn + "<pose>a</pose>", 30, unknown},
      {leadIn, 30, unknown},
      {leadIn + "PK\x03\x04", 30, unknown},
      {"{\\rtf1 a}", 30,
       "The page \"0001.txm\" is too short: it has 9 bytes, and its text begins behind 30."},
      {"{\\rtf1 a}", -1,
       "The page \"0001.txm\" is too short: it has 9 bytes, and its text begins behind -1."},
  };
  for (const auto& [bytes, offset, told] : rows) {
    QString text;
    const QString error = ErrorOf([&, &bytes = bytes, offset = offset] {
      text = ReadPage(bytes, offset, {}, "0001.txm").Document->toPlainText();
    });
    EXPECT_EQ(text + error, told) << bytes.toStdString();
  }
}

}  // namespace
