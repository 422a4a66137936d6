#include "platform/files/CodePage.h"

#include "support/TestProgram.h"

TEST(CodePage, ATextIsInTheCodePageOrInUtf8WithTheMark) {
  const TestProgram program;
  const std::tuple<const char*, QString, QByteArray> cases[] = {
      {"windows-1252", u"«Café» – €"_qs,
       "\xAB"
       "Caf\xE9\xBB \x96 \x80"},
      {"windows-1252", u"Łukasz"_qs, "\xEF\xBB\xBF\xC5\x81ukasz"},
      {"windows-1250", u"Łukasz"_qs, "\xA3ukasz"},
      {"cp932", u"田中"_qs, "\x93\x63\x92\x86"},
      {"windows-1252", u"Ａ"_qs, "\xEF\xBB\xBF\xEF\xBC\xA1"},  // no similar letter in its place
      {"windows-1252", QString(QChar(0x1A)), "\x1A"},          // what encoders write for the unknown
      {"windows-1252", u"ï»¿x"_qs, "\xEF\xBB\xBF\xC3\xAF\xC2\xBB\xC2\xBFx"},  // would pass for the mark
      {"windows-1252", QString(), ""},
  };
  for (const auto& [page, text, bytes] : cases) {
    ASSERT_TRUE(SetCodePage(page));
    EXPECT_EQ(EncodeText(text), bytes) << page;
    EXPECT_EQ(DecodeText(bytes), text) << page;
  }
}

TEST(CodePage, ACourseTextIsInUtf8WhereItCanBeNothingElse) {
  const TestProgram program;
  const std::tuple<const char*, QByteArray, QString> cases[] = {
      {"windows-1252", "\xC5\x81ukasz \xE2\x82\xAC", u"Łukasz €"_qs},
      {"windows-1252", "\xC5\x81ukasz \x80", u"Å\u0081ukasz €"_qs},
      {"windows-1250", "\xEF\xBB\xBF\xC5\x81", u"Ł"_qs},
      {"windows-1253", "\xCE\xB1", u"α"_qs},
      {"cp932", "\xC2\xB1", u"ﾂｱ"_qs},  // also valid UTF-8
      {"GB18030", "\xC4\xA3", u"模"_qs},
  };
  for (const auto& [page, bytes, text] : cases) {
    ASSERT_TRUE(SetCodePage(page));
    EXPECT_EQ(DecodeCourseText(bytes), text) << page;
  }
}

TEST(CodePage, EveryByteOfASingleBytePageSurvives) {
  const TestProgram program;
  QByteArray all;
  for (int byte = 0; byte < 256; ++byte)
    all.append(static_cast<char>(byte));
  for (const char* page : {"windows-1252", "windows-1250", "windows-1251"}) {
    ASSERT_TRUE(SetCodePage(page));
    EXPECT_EQ(EncodeText(DecodeText(all)), all) << page;
  }
}

TEST(CodePage, APageThatCannotServeIsRefused) {
  const TestProgram program;
  ASSERT_TRUE(SetCodePage("windows-1250"));
  for (const char* bad : {"", "no such page", "UTF-16", "UTF-32LE", "ebcdic-cp-us"}) {
    EXPECT_FALSE(SetCodePage(bad)) << bad;
  }
  EXPECT_EQ(CodePageName(), "windows-1250");
}
