#include "platform/files/TextStream.h"

#include "support/TestProgram.h"

namespace {

QStringList LinesOf(const QByteArray& bytes) {
  TextStream stream(bytes, "text");
  QStringList lines;
  while (!stream.AtEndOfStream())
    lines.append(stream.ReadLine());
  return lines;
}

}  // namespace

TEST(TextStream, LinesEndWithLineFeedOrBoth) {
  const std::pair<QByteArray, QStringList> cases[] = {
      {"", {}},
      {"a", {"a"}},
      {"a\r\n", {"a"}},
      {"a\n", {"a"}},
      {"a\r\n\r\n", {"a", ""}},
      {"a\nb\r\nc", {"a", "b", "c"}},
      {"\n\rb", {"", "\rb"}},
      {"a\rb\r", {"a\rb\r"}},
      {"\xEF\xBB\xBF\xC5\x81\n", {u"Ł"_qs}},
      {"\xC5\x81\n", {u"Ł"_qs}},
      {"\xABx\xBB", {u"«x»"_qs}},
  };
  for (const auto& [bytes, lines] : cases)
    EXPECT_EQ(LinesOf(bytes), lines) << bytes.toStdString();
}

TEST(TextStream, ReadsCharactersBetweenLines) {
  TextStream stream("ab\r\ncd", "/glossary");
  EXPECT_EQ(stream.Read(1), "a");
  EXPECT_EQ(stream.ReadLine(), "b");
  EXPECT_EQ(stream.ReadChar(), u'c');
  EXPECT_EQ(stream.Read(5), "d");
  EXPECT_TRUE(stream.AtEndOfStream());
  EXPECT_EQ(ErrorOf([&] { stream.Read(1); }), "The file \"/glossary\" ends too early.");
}
