// The words that come out of rich text: control words, code pages, hidden groups, damaged files.
#include "pages/rtf/rtf_pages.h"

namespace {

struct TextRow {
  const char* What;
  QByteArray Body;
  QString Text;
};

class RtfWords : public ::testing::TestWithParam<TextRow> {};

TEST_P(RtfWords, ComeOutAsText) {
  EXPECT_EQ(TextOfBody(GetParam().Body), GetParam().Text);
}

const TextRow kWords[] = {
    {"NoBody", "", ""},
    {"LastParagraphWithoutEnd", "one\\par two", "one\ntwo"},
    {"LastParagraphWithEnd", "one\\par two\\par", "one\ntwo"},
    {"EmptyParagraph", "one\\par\\par two", "one\n\ntwo"},
    {"BackslashLineEndIsParagraph", "one\\\ntwo", "one\ntwo"},
    {"LineEndsAreNoText", "on\r\ne t\nwo", "one two"},
    {"OneSpaceEndsAWord", "a\\b  b\\b0 c", "a bc"},
    {"Escapes", "\\{a\\\\b\\}", "{a\\b}"},
    {"Quotes", "\\lquote a\\rquote\\ldblquote b\\rdblquote\\emdash\\endash\\bullet",
     "\u2018a\u2019\u201Cb\u201D\u2014\u2013\u2022"},
    {"SpacesAndHyphens", "a\\~b\\_c\\-d\\tab e", "a\u00A0b\u2011c\u00ADd\te"},
    {"LineBreak", "a\\line b", "a\nb"},
    {"UnknownWordsAreSilent", "a\\nosuchword12 b{\\*\\nosuchgroup gone}c", "abc"},
    {"IgnorableKnownGroup", "a{\\*\\cs10 b}c", "abc"},
    {"HeadersAreSkipped", "{\\header top}{\\footerl bottom}{\\info{\\title t}}body", "body"},
    {"HiddenText", "a{\\v hidden {\\b deep}}b\\v gone\\v0 c", "abc"},
    {"HiddenParagraph", "one\\par{\\v\\pard hidden para\\par}two", "one\ntwo"},
    {"HiddenEndOfAParagraph", "one{\\v hidden\\par}two\\par three", "onetwo\nthree"},
    {"PlainEndsHidden", "a\\v gone\\plain b", "ab"},
    {"DeletedText", "a{\\deleted gone}b", "ab"},
    {"NotesComeLast", "a{\\super\\chftn}{\\footnote\\chftn  note}b\\par c", "a1b\nc\n\n1 note"},
    {"TextBox", "a{\\shp{\\*\\shpinst{\\sp{\\sn x}{\\sv 1}}{\\shptxt in the box\\par}}{\\shprslt old}}b",
     "in the box\nab"},
    {"RowInATextBox", "{\\shp{\\*\\shpinst{\\shptxt\\trowd\\cellx900\\row}}}a", "\na"},
    {"ShapeThatOnlyOthersTell", "a{\\shp{\\*\\shpinst{\\sp{\\sn x}{\\sv 1}}}{\\shprslt\\pard old\\par}}b",
     "old\nab"},
    {"AnnotationsAreSkipped", "a{\\*\\annotation gone}{\\xe gone}b", "ab"},
    {"FieldShowsItsResult", "a{\\field{\\*\\fldinst PAGE}{\\fldrslt 7}}b", "a7b"},
    {"NestedField", "{\\field{\\*\\fldinst IF {\\field{\\*\\fldinst X}{\\fldrslt gone}}}{\\fldrslt shown}}",
     "shown"},
    {"CheckBoxes",
     "{\\field{\\*\\fldinst FORMCHECKBOX {\\*\\formfield{\\fftype1\\ffres25\\ffdefres1}}}{\\fldrslt }}"
     "{\\field{\\*\\fldinst FORMCHECKBOX {\\*\\formfield{\\ffres0\\ffdefres1{\\*\\ffname n}}}}}",
     "\u2612\u2610"},
    {"ChoiceOfAForm",
     "{\\field{\\*\\fldinst FORMDROPDOWN {\\*\\formfield{\\ffres25\\ffdefres1{\\*\\ffl a}{\\*\\ffl b}}}}"
     "{\\fldrslt a}} {\\field{\\*\\fldinst FORMDROPDOWN {\\*\\formfield{\\ffres0{\\*\\ffl c}}}}{\\fldrslt }}",
     "b c"},
    {"ToldTwice", "{\\upr{a?}{\\*\\ud{a\\u381 ?}}}b", "a\u017Db"},
    {"SymbolField", "{\\field{\\*\\fldinst SYMBOL 183 \\\\f \"Symbol\"}}", "\u2022"},
    {"FormulaByItsPicture",
     "a{\\mmath{\\*\\moMath{\\mr x}}{\\mmathPict{\\pict\\picwgoal90\\pichgoal90 00}}}b", "a\uFFFCb"},
    {"NumberOfTheSheet", "Page \\chpgn", "Page 1"},
    {"BinarySkipped", QByteArray("a{\\*\\x\\bin4 }}{{}b\\bin2 \\}c"), "abc"},
    {"ObjectResultWithoutData", "{\\object\\objemb{\\*\\objdata 00}{\\result shown}}", "shown"},
    {"ColumnsAndSections", "a\\sect b\\column c", "a\nb\nc"},
};

class RtfCodePages : public RtfWords {};

TEST_P(RtfCodePages, GiveTheirLetters) {
  EXPECT_EQ(TextOfBody(GetParam().Body), GetParam().Text);
}

const TextRow kCodePages[] = {
    {"Western", "\\'80\\'e9\x93q\x94", "\u20AC\u00E9\u201Cq\u201D"},
    {"CentralEurope", "\\f4\\'e8\\'ec\xb9", "\u010D\u011B\u0105"},
    {"Cyrillic", "\\f5\\'cf\xf0\\'e8", "\u041F\u0440\u0438"},
    {"Japanese", "\\f3\\'83\\'65\\'83X\x83g", "\u30C6\u30B9\u30C8"},
    {"JapaneseTrailByteIsBackslash", "\\f3\\'83\\\\\\'8e\\'ae", "\u30BD\u5F0F"},
    {"JapaneseAsciiStays", "\\f3 abc", "abc"},
    {"KoreanBySyllables", "\\f10\\'d0\\'65 a", "\uD55C a"},
    {"JapaneseOfTheMac", "\\f11\\'83\\'65", "\u30C6"},
    {"GreekOfTheMac", "\\f12\\'e1", "\u03B1"},
    {"ArabicRunFromRightToLeft", "{\\ltrch\\fcs0 \\rtlch\\fcs1\\af13 \\'c7}{\\rtlch\\af13 \\ltrch \\'c7}",
     "\u0627\u00C7"},
    {"Korean", "\\f7\\'c7\\'d1", "\uD55C"},
    {"SimplifiedChinese", "\\f8\\'ba\\'ba", "\u6C49"},
    {"TraditionalChinese", "\\f9\\'ba\\'7e", "\u6F22"},
    {"GroupEndsTheFont", "{\\f5\\'cf}\\'cf", "\u041F\u00CF"},
    {"PlainEndsTheFont", "\\f5\\'cf\\plain\\'cf", "\u041F\u00CF"},
    {"GreekBySymbolFont", "\\f2 ab\\'b7", "\u03B1\u03B2\u2022"},
    {"Dingbats", "\\f6\\'fc\\'a7", "\u2713\u25AA"},
    {"SymbolFontByUnicode", "\\f6\\u-3844 ?", "\u2713"},
    {"Unicode", "\\u8364 ?\\u-10179?\\u-8704?", "\u20AC\U0001F600"},
    {"UnicodeBeyond16Bits", "\\u128512 ?", "\U0001F600"},
    {"FallbackCount", "\\uc0\\u8364 a\\uc2\\u8364 xyb{\\uc1\\u8364 x}\\u8364\\'41\\'42c",
     "\u20ACa\u20ACb\u20AC\u20ACc"},
    {"FallbackByWord", "\\u8220\\ldblquote a\\u8364\\b b", "\u201Ca\u20ACb"},
    {"FallbackEndsWithGroup", "{\\uc3\\u8364 x}abc", "\u20ACabc"},
    {"LoneSurrogates", "\\u-10179?a\\u-8704?", "\uFFFDa\uFFFD"},
    {"CharactersOfDocumentStructure", "a\\u-560?\\u-559?\\u8233?b", "a\uFFFD\uFFFD\uFFFDb"},
    {"ControlCharactersGo", QByteArray("a\\'01\0b", 7), "ab"},
};

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

class DamagedRtf : public RtfWords {};

TEST_P(DamagedRtf, ShowsWhatWasRead) {
  const RichPage page = ReadRtf(GetParam().Body, {}, "page");
  EXPECT_EQ(page.Document->toPlainText(), GetParam().Text);
}

const TextRow kDamaged[] = {
    {"OnlyTheBeginning", "{\\rtf", ""},
    {"NoEnd", "{\\rtf1 a{\\b b", "ab"},
    {"TooManyEnds", "{\\rtf1 a}}} b", "a"},
    {"CutInAWord", "{\\rtf1 a\\pa", "a"},
    {"CutInHex", "{\\rtf1 a\\'8", "a8"},
    {"BadHex", "{\\rtf1 a\\'zzb}", "azzb"},
    {"CutInFontTable", "{\\rtf1{\\fonttbl{\\f0 Ari", ""},
    {"CutInPicture", "{\\rtf1 a{\\pict\\pngblip\\picwgoal100\\pichgoal100 8950", "a\uFFFC"},
    {"CutInBinary", "{\\rtf1 a\\bin100 b", "a"},
    {"CutInField", "{\\rtf1 a{\\field{\\*\\fldinst HYPERLINK", "a"},
    {"FieldInAChoice", "{\\rtf1 a{\\field{\\ffl{\\field x}}}b", "ab"},
    {"CutInTable", "{\\rtf1\\trowd\\cellx100\\pard\\intbl a\\cell b", "\na\nb\n"},
    {"CellWithoutTable", "{\\rtf1 a\\cell b}", "\na\nb"},
    {"RowWithoutCells", "{\\rtf1\\trowd\\row a}", "a"},
    {"HugeNumbers",
     "{\\rtf1\\fs99999999999\\li-99999999999\\trowd\\cellx2147483647\\pard\\intbl a\\cell\\row}", "\na\n"},
    {"NumbersOfNothing", "{\\rtf1\\f77\\cf99\\s88\\ls66\\highlight-5 a}", "a"},
    {"ListTextInTheBodyOfAList", "{\\rtf1{\\*\\listtable{\\list{\\listlevel{\\leveltext}}}}a}", "a"},
    {"LostStars", "{\\rtf1{\\themedata 504b}{\\xmlnstbl{\\xmlns1 urn:x;}}{\\wgrffmtfilter 2450}a}", "a"},
    {"LeadingMarkAndBlanks", "\xEF\xBB\xBF \r\n{\\rtf1 a}", "a"},
};

std::string NameOf(const ::testing::TestParamInfo<TextRow>& row) {
  return row.param.What;
}
INSTANTIATE_TEST_SUITE_P(All, RtfWords, ::testing::ValuesIn(kWords), NameOf);
INSTANTIATE_TEST_SUITE_P(All, RtfCodePages, ::testing::ValuesIn(kCodePages), NameOf);
INSTANTIATE_TEST_SUITE_P(All, DamagedRtf, ::testing::ValuesIn(kDamaged), NameOf);

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
