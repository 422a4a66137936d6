#include "platform/files/QuotedFields.h"

#include "support/TestProgram.h"

namespace {

// All fields up to the end of the file, or the error.
QStringList FieldsOf(const QByteArray& bytes) {
  QStringList fields;
  const QString error = ErrorOf([&] {
    QuotedFieldReader reader(bytes, "/test");
    while (!reader.AtEnd())
      fields.append(reader.ReadField());
  });
  return error.isEmpty() ? fields : fields + QStringList(error);
}

}  // namespace

TEST(QuotedFields, AreReadAsAStream) {
  const std::pair<QByteArray, QStringList> cases[] = {
      {"", {}},
      {"\r\n \r\n", {}},
      {"\"1\"\r\n\"a, b\",\"c\"\r\n", {"1", "a, b", "c"}},
      {"\"1\"\n\"a\"", {"1", "a"}},
      {"\"1\"\r\"a\"", {"1", "a"}},
      {"\"a\" , \"b\"\t,c", {"a", "b", "c"}},
      {"  un quoted ,x\r\n", {"un quoted", "x"}},
      {"a\"b,c", {"a\"b", "c"}},
      {"\"over\r\na line\",\"x\"", {"over\r\na line", "x"}},
      {"\"\",,\"\"", {"", "", ""}},
      {"a,\r\nb", {"a", "", "b"}},
      {"a\r\n\r\nb\r\n\r\n", {"a", "", "b"}},
      {"\"a\",", {"a", ""}},
      {"\"a\",\r\n", {"a", ""}},
      {"\"a\"\"b\"c", {"a", "b", "c"}},
      {"\"a\"\r\n\x1A", {"a"}},
      {"\"a\",\"b\r\n", {"a", "The file \"/test\" ends inside a quoted text."}},
      {"\"", {"The file \"/test\" ends inside a quoted text."}},
      {"\xEF\xBB\xBF\"\xC5\x81\",\xC5\x81", {u"Ł"_qs, u"Ł"_qs}},
      {"\"\xABSale\xBB\"", {u"«Sale»"_qs}},
  };
  for (const auto& [bytes, fields] : cases)
    EXPECT_EQ(FieldsOf(bytes), fields) << bytes.toStdString();
}

TEST(QuotedFields, ReadingOnBehindTheLastRecordIsAnError) {
  QuotedFieldReader reader(QByteArray("\"a\"\r\n\r\n\r\n"), "/test");
  reader.ReadField();
  EXPECT_TRUE(reader.AtEnd());
  EXPECT_EQ(ErrorOf([&] { reader.ReadField(); }), "The file \"/test\" ends too early.");
}

TEST(QuotedFields, AWrittenRecordReadsBack) {
  const QStringList fields{"RT0102", "_a, b_", "", " x "};
  const QString record = QuotedRecord(fields);
  EXPECT_EQ(record, "\"RT0102\",\"_a, b_\",\"\",\" x \"\r\n");
  EXPECT_EQ(FieldsOf(record.toLatin1()), fields);
}
