// The words that come out of rich text: control words, code pages, hidden groups, damaged files.
#include "pages/rtf/rtf_pages.h"

namespace {

using Rows = std::initializer_list<std::pair<QByteArray, QString>>;

// What comes out of each body.
void ExpectTexts(const Rows& rows) {
  for (const auto& [body, text] : rows)
    EXPECT_EQ(TextOfBody(body), text) << body.toStdString();
}

TEST(RtfWords, ComeOutAsText) {
  ExpectTexts({
      {"", ""},
      {"one\\par two", "one\ntwo"},
      {"one\\par two\\par", "one\ntwo"},
      {"one\\par\\par two", "one\n\ntwo"},
      {"one\\\ntwo", "one\ntwo"},
      {"on\r\ne t\nwo", "one two"},
      {"a\\b  b\\b0 c", "a bc"},
      {"\\{a\\\\b\\}", "{a\\b}"},
      {"\\lquote a\\rquote\\ldblquote b\\rdblquote\\emdash\\endash\\bullet",
       "\u2018a\u2019\u201Cb\u201D\u2014\u2013\u2022"},
      {"a\\~b\\_c\\-d\\tab e", "a\u00A0b\u2011c\u00ADd\te"},
      {"a\\line b", "a\nb"},
      {"a\\nosuchword12 b{\\*\\nosuchgroup gone}c", "abc"},
      {"a{\\*\\cs10 b}c", "abc"},
      {"{\\header top}{\\footerl bottom}{\\info{\\title t}}body", "body"},
      {"a{\\v hidden {\\b deep}}b\\v gone\\v0 c", "abc"},
      {"one\\par{\\v\\pard hidden para\\par}two", "one\ntwo"},
      {"one{\\v hidden\\par}two\\par three", "onetwo\nthree"},
      {"a\\v gone\\plain b", "ab"},
      {"a{\\deleted gone}b", "ab"},
      {"a{\\super\\chftn}{\\footnote\\chftn  note}b\\par c", "a1b\nc\n\n1 note"},
      {"a{\\shp{\\*\\shpinst{\\sp{\\sn x}{\\sv 1}}{\\shptxt in the box\\par}}{\\shprslt old}}b",
       "in the box\nab"},
      {"{\\shp{\\*\\shpinst{\\shptxt\\trowd\\cellx900\\row}}}a", "\na"},
      {"a{\\shp{\\*\\shpinst{\\sp{\\sn x}{\\sv 1}}}{\\shprslt\\pard old\\par}}b", "old\nab"},
      {"a{\\*\\annotation gone}{\\xe gone}b", "ab"},
      {"a{\\field{\\*\\fldinst PAGE}{\\fldrslt 7}}b", "a7b"},
      {"{\\field{\\*\\fldinst IF {\\field{\\*\\fldinst X}{\\fldrslt gone}}}{\\fldrslt shown}}", "shown"},
      {"{\\field{\\*\\fldinst FORMCHECKBOX {\\*\\formfield{\\fftype1\\ffres25\\ffdefres1}}}{\\fldrslt }}"
       "{\\field{\\*\\fldinst FORMCHECKBOX {\\*\\formfield{\\ffres0\\ffdefres1{\\*\\ffname n}}}}}",
       "\u2612\u2610"},
      {"{\\field{\\*\\fldinst FORMDROPDOWN {\\*\\formfield{\\ffres25\\ffdefres1{\\*\\ffl a}{\\*\\ffl b}}}}"
       "{\\fldrslt a}} {\\field{\\*\\fldinst FORMDROPDOWN {\\*\\formfield{\\ffres0{\\*\\ffl c}}}}{\\fldrslt "
       "}}",
       "b c"},
      {"{\\upr{a?}{\\*\\ud{a\\u381 ?}}}b", "a\u017Db"},
      {"{\\field{\\*\\fldinst SYMBOL 183 \\\\f \"Symbol\"}}", "\u2022"},
      {"a{\\mmath{\\*\\moMath{\\mr x}}{\\mmathPict{\\pict\\picwgoal90\\pichgoal90 00}}}b", "a\uFFFCb"},
      {"Page \\chpgn", "Page 1"},
      {QByteArray("a{\\*\\x\\bin4 }}{{}b\\bin2 \\}c"), "abc"},
      {"{\\object\\objemb{\\*\\objdata 00}{\\result shown}}", "shown"},
      {"a\\sect b\\column c", "a\nb\nc"},
  });
}

TEST(RtfCodePages, GiveTheirLetters) {
  ExpectTexts({
      {"\\'80\\'e9\x93q\x94", "\u20AC\u00E9\u201Cq\u201D"},
      {"\\f4\\'e8\\'ec\xb9", "\u010D\u011B\u0105"},
      {"\\f5\\'cf\xf0\\'e8", "\u041F\u0440\u0438"},
      {"\\f3\\'83\\'65\\'83X\x83g", "\u30C6\u30B9\u30C8"},
      {"\\f3\\'83\\\\\\'8e\\'ae", "\u30BD\u5F0F"},
      {"\\f3 abc", "abc"},
      {"\\f10\\'d0\\'65 a", "\uD55C a"},
      {"\\f11\\'83\\'65", "\u30C6"},
      {"\\f12\\'e1", "\u03B1"},
      {"{\\ltrch\\fcs0 \\rtlch\\fcs1\\af13 \\'c7}{\\rtlch\\af13 \\ltrch \\'c7}", "\u0627\u00C7"},
      {"\\f7\\'c7\\'d1", "\uD55C"},
      {"\\f8\\'ba\\'ba", "\u6C49"},
      {"\\f9\\'ba\\'7e", "\u6F22"},
      {"{\\f5\\'cf}\\'cf", "\u041F\u00CF"},
      {"\\f5\\'cf\\plain\\'cf", "\u041F\u00CF"},
      {"\\f2 ab\\'b7", "\u03B1\u03B2\u2022"},
      {"\\f6\\'fc\\'a7", "\u2713\u25AA"},
      {"\\f6\\u-3844 ?", "\u2713"},
      {"\\u8364 ?\\u-10179?\\u-8704?", "\u20AC\U0001F600"},
      {"\\u128512 ?", "\U0001F600"},
      {"\\uc0\\u8364 a\\uc2\\u8364 xyb{\\uc1\\u8364 x}\\u8364\\'41\\'42c", "\u20ACa\u20ACb\u20AC\u20ACc"},
      {"\\u8220\\ldblquote a\\u8364\\b b", "\u201Ca\u20ACb"},
      {"{\\uc3\\u8364 x}abc", "\u20ACabc"},
      {"\\u-10179?a\\u-8704?", "\uFFFDa\uFFFD"},
      {"a\\u-560?\\u-559?\\u8233?b", "a\uFFFD\uFFFD\uFFFDb"},
      {QByteArray("a\\'01\0b", 7), "ab"},
  });
}

TEST(RtfHeaders, NameTheCodePageOfAllText) {
  const auto text = [](const QByteArray& header) {
    return ReadRtf("{\\rtf1" + header + "\\'f0\\'e9}", {}, "page").Document->toPlainText();
  };
  EXPECT_EQ(text("\\ansi\\ansicpg1251 "), QString("\u0440\u0439"));
  EXPECT_EQ(text("\\ansi\\ansicpg1250 "), QString("\u0111\u00E9"));
  EXPECT_EQ(text("\\mac "), QString("\uF8FF\u00C8"));
  EXPECT_EQ(text("\\pc "), QString("\u2261\u0398"));
  EXPECT_EQ(text("\\ansi\\ansicpg99999 "), QString("\u00F0\u00E9"));
}

TEST(DamagedRtf, ShowsWhatWasRead) {
  const Rows rows = {
      {"{\\rtf", ""},
      {"{\\rtf1 a{\\b b", "ab"},
      {"{\\rtf1 a}}} b", "a"},
      {"{\\rtf1 a\\pa", "a"},
      {"{\\rtf1 a\\'8", "a8"},
      {"{\\rtf1 a\\'zzb}", "azzb"},
      {"{\\rtf1{\\fonttbl{\\f0 Ari", ""},
      {"{\\rtf1 a{\\pict\\pngblip\\picwgoal100\\pichgoal100 8950", "a\uFFFC"},
      {"{\\rtf1 a\\bin100 b", "a"},
      {"{\\rtf1 a{\\field{\\*\\fldinst HYPERLINK", "a"},
      {"{\\rtf1 a{\\field{\\ffl{\\field x}}}b", "ab"},
      {"{\\rtf1\\trowd\\cellx100\\pard\\intbl a\\cell b", "\na\nb\n"},
      {"{\\rtf1 a\\cell b}", "\na\nb"},
      {"{\\rtf1\\trowd\\row a}", "a"},
      {"{\\rtf1\\fs99999999999\\li-99999999999\\trowd\\cellx2147483647\\pard\\intbl a\\cell\\row}", "\na\n"},
      {"{\\rtf1\\f77\\cf99\\s88\\ls66\\highlight-5 a}", "a"},
      {"{\\rtf1{\\*\\listtable{\\list{\\listlevel{\\leveltext}}}}a}", "a"},
      {"{\\rtf1{\\themedata 504b}{\\xmlnstbl{\\xmlns1 urn:x;}}{\\wgrffmtfilter 2450}a}", "a"},
      {"\xEF\xBB\xBF \r\n{\\rtf1 a}", "a"},
  };
  for (const auto& [file, text] : rows)
    EXPECT_EQ(ReadRtf(file, {}, "page").Document->toPlainText(), text) << file.toStdString();
}

TEST(DamagedRtf, KeepsItsTextBelowAnyDepth) {
  const struct {
    QByteArray Open, Text, Told;
    int Depth;
  } rows[] = {
      {"{\\b ", "deep", "deep", 100'000},
      {"{", "{\\*\\x gone}{\\header gone}{\\v gone}{\\uc2 }{\\f5 }\\u8364 ?a\\'e9", "\u20ACa\u00E9", 600},
      {"{", "a{\\footnote b{\\shp{\\shptxt c}}}{\\field{\\*\\fldinst SYMBOL 97}}d", "abcad", 600},
      {"{\\v{\\v0 ", "deep", "deep", 120'000},
  };
  for (const auto& row : rows) {
    const QByteArray closes = QByteArray("}").repeated(row.Depth * row.Open.count('{'));
    EXPECT_EQ(TextOfBody(row.Open.repeated(row.Depth) + row.Text + closes + "after"), row.Told + "after");
  }
}

TEST(DamagedRtf, KeepsTheTextOfCellsBeyondAnyCount) {
  QByteArray row = "\\trowd\\cellx100\\pard\\intbl ";
  for (int i = 0; i < 1000; ++i)
    row += QByteArray::number(i) + "\\cell ";
  const QStringList words = TextOfBody(row + "\\row").split(u'\n', Qt::SkipEmptyParts);
  EXPECT_EQ(words.size(), 1000);
  EXPECT_EQ(words.last(), QStringLiteral("999"));
}

TEST(DamagedRtf, IsRefusedWhenItIsNoRtf) {
  for (const QByteArray& bytes : {QByteArray(), QByteArray("plain"), QByteArray("{\\html1 a}")}) {
    EXPECT_EQ(ErrorOf([&] { ReadRtf(bytes, {}, "0001.txm"); }),
              QStringLiteral("The file \"0001.txm\" holds no rich text."));
  }
}

}  // namespace
