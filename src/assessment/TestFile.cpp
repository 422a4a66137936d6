#include "assessment/TestFile.h"

#include <utility>

#include "frame/ProgramState.h"
#include "platform/RunTimeError.h"
#include "platform/files/FileBytes.h"
#include "platform/files/Paths.h"
#include "platform/files/QuotedFields.h"
#include "texts/Descriptions.h"

namespace {

constexpr QStringView kAnswerMark = u">>";
constexpr qsizetype kExtensionLength = 4;  // of a page name

// No field can hold a double quote: the authors write this character for it.
constexpr QChar kQuoteStandIn = u'«';

// Gives the texts between the marks, one after the other, then empty ones.
class MarkedTexts {
 public:
  explicit MarkedTexts(const QString& text) : text_(text) {}

  // A mark at the very end of the text begins nothing.
  bool AtEnd() const { return position_ >= text_.size(); }

  QString Next() {
    const qsizetype mark = text_.indexOf(kAnswerMark, position_);
    const qsizetype end = mark < 0 ? text_.size() : mark;
    const QString next = text_.mid(position_, end - position_);
    position_ = mark < 0 ? end : mark + kAnswerMark.size();
    return next;
  }

 private:
  const QString& text_;
  qsizetype position_ = 0;
};

QString ReadText(QuotedFieldReader& reader) {
  return reader.ReadField().replace(kQuoteStandIn, u'"');
}

QuestionRecord ReadQuestion(QuotedFieldReader& reader, const QString& thing) {
  QuestionRecord question;
  question.QuestionText = ReadText(reader);
  const QString answerTexts = ReadText(reader);
  const QString answerFlags = reader.ReadField();
  if (answerTexts.count(kAnswerMark) >= kMostAnswers) {
    throw RunTimeError(Describe("test-answers", NamedPath(thing), QString::number(kMostAnswers)));
  }
  question.Explanation = ReadText(reader);
  question.ReviewLabel = ReadText(reader);
  question.ReviewLink = ReadText(reader);
  ParseAnswers(answerTexts, answerFlags, question.Answers, question.CorrectCount);
  return question;
}

TestContent ReadTest(QuotedFieldReader& reader, const QString& thing) {
  TestContent test;
  test.Type = reader.ReadField();
  while (!reader.AtEnd()) {
    if (test.Questions.size() >= kMostQuestions) {
      throw RunTimeError(Describe("test-too-long", NamedPath(thing), QString::number(kMostQuestions)));
    }
    test.Questions.append(ReadQuestion(reader, thing));
  }
  if (test.Questions.isEmpty()) test.Questions.append(QuestionRecord{});
  return test;
}

}  // namespace

bool IsPracticeTest() {
  return gTestType == u"2";
}

bool IsMultipleChoice(const QuestionRecord& question) {
  return question.CorrectCount >= 2;
}

bool IsCorrect(const AnswerRecord& answer) {
  return answer.AnswerFlag == u"1";
}

QString TestFilePath(const QString& pageName) {
  if (pageName.size() < kExtensionLength) throw RunTimeError(Describe("test-page-name", pageName));
  const QString& moduleId = CurrentModule().ModuleId;
  return gAppPath + u'\\' + moduleId + u'\\' + moduleId + u'_' + pageName.chopped(kExtensionLength) +
         QStringLiteral("TST");
}

bool LoadTestFile(const QString& pageName) {
  const QString path = TestFilePath(pageName);
  if (ContainedPath(path).isEmpty() || !FileExists(path)) return false;
  TestContent test = ReadTest(ReadProgramFile(path, kTextFileLimit), path);
  gTestType = test.Type;
  gQuestions = std::move(test.Questions);
  return true;
}

TestContent ReadTest(const QByteArray& bytes, const QString& thing) {
  QuotedFieldReader reader(bytes, thing, QuotedFieldReader::Origin::Course);
  return ReadTest(reader, thing);
}

TestContent ReadTest(QIODevice& device, const QString& thing) {
  QuotedFieldReader reader(device, thing, QuotedFieldReader::Origin::Course);
  return ReadTest(reader, thing);
}

void ParseAnswers(const QString& answerTexts, const QString& answerFlags, QList<AnswerRecord>& answers,
                  int& correctCount) {
  answers.clear();
  MarkedTexts texts(answerTexts);
  MarkedTexts flags(answerFlags);
  while (!texts.AtEnd()) {
    answers.append(AnswerRecord{texts.Next(), flags.Next()});
    if (IsCorrect(answers.constLast())) ++correctCount;
  }
}
