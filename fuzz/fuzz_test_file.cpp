#include <algorithm>

#include "Bytes.h"
#include "assessment/TestFile.h"
#include "platform/RunTimeError.h"
#include "platform/files/QuotedFields.h"

namespace {

const QString kMark = QStringLiteral(">>");

// A mark more, where the last text is empty: at the end of a text the last mark begins nothing.
QString Joined(const QStringList& texts) {
  return texts.join(kMark) + (!texts.isEmpty() && texts.constLast().isEmpty() ? kMark : QString());
}

QString Field(QString text) {
  return text.replace(u'"', u'«');
}

QStringList FlagsOf(const QuestionRecord& question) {
  QStringList flags;
  for (const AnswerRecord& answer : question.Answers)
    flags.append(answer.AnswerFlag);
  return flags;
}

QByteArray Written(const TestContent& test) {
  QString text = QuotedRecord({test.Type});
  for (const QuestionRecord& question : test.Questions) {
    QStringList answers;
    for (const AnswerRecord& answer : question.Answers)
      answers.append(Field(answer.AnswerText));
    text +=
        QuotedRecord({Field(question.QuestionText), Joined(answers), FlagsOf(question).join(kMark),
                      Field(question.Explanation), Field(question.ReviewLabel), Field(question.ReviewLink)});
  }
  return "\xEF\xBB\xBF" + text.toUtf8();
}

// A double quote stands inside an unquoted text only, and nothing stands for it there.
bool CanBeWritten(const TestContent& test) {
  return !test.Type.contains(u'"') &&
         std::none_of(test.Questions.begin(), test.Questions.end(), [](const QuestionRecord& question) {
           return FlagsOf(question).join(u',').contains(u'"');
         });
}

void CheckCounts(const TestContent& test) {
  if (test.Questions.isEmpty() || test.Questions.size() > kMostQuestions) __builtin_trap();
  for (const QuestionRecord& question : test.Questions) {
    if (question.Answers.size() > kMostAnswers) __builtin_trap();
    if (question.CorrectCount != FlagsOf(question).count(QStringLiteral("1"))) __builtin_trap();
  }
}

// A test that can be read must be the same test after it was written.
void ReadTestAgain(const QByteArray& bytes) {
  const TestContent first = ReadTest(bytes, QStringLiteral("input"));
  CheckCounts(first);
  if (!CanBeWritten(first)) return;
  const QByteArray written = Written(first);
  const TestContent second = ReadTest(written, QStringLiteral("written"));
  CheckCounts(second);
  if (Written(second) != written) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  IgnoreErrors([&] { ReadTestAgain(BytesOf(data, size)); });
  return 0;
}
