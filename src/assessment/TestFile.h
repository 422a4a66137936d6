// The questions of a test page, from the file beside the module's pages. TestRun reads them at the start
// of each run of a test.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

class QIODevice;

struct AnswerRecord {
  QString AnswerText;
  QString AnswerFlag;  // "1" marks a correct answer, any other text a wrong one
};

struct QuestionRecord {
  QString QuestionText;
  int CorrectCount = 0;         // how many answers are correct
  QString Explanation;          // may be empty
  QList<AnswerRecord> Answers;  // in display order; empty when the file has none
  QString ReviewLabel;
  QString ReviewLink;  // ModuleId, a separator, page name; empty for none
};

// The most questions of a test, and the most answers of a question.
inline constexpr int kMostQuestions = 32767;
inline constexpr int kMostAnswers = 32767;

// The test that was read last. Never without a question once a test was read.
inline QString gTestType;
inline QList<QuestionRecord> gQuestions;

// "2" marks a practice test: it ends without a result and records nothing. Everything else is scored.
bool IsPracticeTest();
// Decides the kind of a question: boxes to tick, else one choice.
bool IsMultipleChoice(const QuestionRecord& question);
bool IsCorrect(const AnswerRecord& answer);

// The program path of the test file of a page of the current module. A page name shorter than its
// four-character extension is a RunTimeError.
QString TestFilePath(const QString& pageName);

// Reads the test of a page of the current module into gTestType and gQuestions. False when there is no
// such file, or when it lies outside the program folder. A file that is empty, ends inside a question,
// cannot be read, is larger than kTextFileLimit, or holds too many questions or answers is a
// RunTimeError. In all these cases both stay as they were. Nothing in the texts is validated: questions
// without answers or without a correct one are read as they are.
bool LoadTestFile(const QString& pageName);

// What a test file holds.
struct TestContent {
  QString Type;
  QList<QuestionRecord> Questions;  // a file with the type alone has one question, without any text
};

// Reads a whole test; `thing` is the program path that errors name; they are those of LoadTestFile.
TestContent ReadTest(const QByteArray& bytes, const QString& thing);
TestContent ReadTest(QIODevice& device, const QString& thing);

// Splits the answers and their flags at ">>" into `answers`, in place of what they held, and adds the
// correct ones to `correctCount`. There are as many answers as texts: flags that are missing are empty,
// more flags than that are ignored, and no text at all makes no answer.
void ParseAnswers(const QString& answerTexts, const QString& answerFlags, QList<AnswerRecord>& answers,
                  int& correctCount);
