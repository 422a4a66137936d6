#include <cstdlib>

#include "Bytes.h"
#include "assessment/TestFile.h"
#include "coursekit/build/TestText.h"
#include "coursekit/sources/SourceFolder.h"

// What was read as questions is that many questions with those answers when the player reads the test.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  Findings findings;
  const QString name = QStringLiteral("input");
  const std::optional<QString> text = DecodeSource(BytesOf(data, size), name, findings);
  if (!text) return 0;
  const QList<GiftQuestion> questions =
      ReadGift(*text, name, {QStringLiteral("T"), QStringLiteral("F")}, findings);
  if (questions.isEmpty()) return 0;
  QList<TestQuestion> test;
  for (const GiftQuestion& question : questions)
    test.append({question, question.Title, {}});
  const TestContent read = ReadTest(TestText(false, test), name);
  if (read.Questions.size() != questions.size()) std::abort();
  for (qsizetype i = 0; i < questions.size(); ++i) {
    const QList<GiftAnswer>& meant = questions.at(i).Answers;
    const QList<AnswerRecord>& answers = read.Questions.at(i).Answers;
    if (answers.size() != meant.size() || read.Questions.at(i).CorrectCount < 1) std::abort();
    for (qsizetype a = 0; a < meant.size(); ++a) {
      if (IsCorrect(answers.at(a)) != meant.at(a).IsCorrect) std::abort();
    }
  }
  return 0;
}
