#include "coursekit/build/TestText.h"

#include <QStringList>

#include "coursekit/build/StoreTexts.h"
#include "platform/files/QuotedFields.h"

namespace {

const QString kAnswerMark = QStringLiteral(">>");
constexpr QChar kJoiner(0x2060);  // has no width and no look
constexpr QChar kQuoteStandIn = u'«';

// No field holds a double quote; « stands for it.
QString Field(QString text) {
  if (text.contains(kQuoteStandIn)) {
    text.replace(kQuoteStandIn, QStringLiteral("\u2039\u2039"));
    text.replace(u'»', QStringLiteral("\u203A\u203A"));
  }
  return text.replace(u'"', kQuoteStandIn);
}

// What would part the answers is held apart.
QString AnswerField(const QString& text) {
  QString field = Field(text);
  while (field.contains(kAnswerMark))
    field.replace(kAnswerMark, QString(u'>') + kJoiner + u'>');
  return field.endsWith(u'>') ? field + kJoiner : field;
}

}  // namespace

QString ExplanationOf(const GiftQuestion& question) {
  QStringList lines;
  if (!question.GeneralFeedback.isEmpty()) lines.append(question.GeneralFeedback);
  for (const GiftAnswer& answer : question.Answers) {
    if (!answer.Feedback.isEmpty()) lines.append(answer.Text + QLatin1String(": ") + answer.Feedback);
  }
  return lines.join(u'\n');
}

QByteArray TestText(bool isPractice, const QList<TestQuestion>& questions) {
  QString text = QuotedRecord({isPractice ? QStringLiteral("2") : QStringLiteral("1")});
  for (const TestQuestion& test : questions) {
    const GiftQuestion& question = test.Question;
    QStringList answers, flags;
    for (const GiftAnswer& answer : question.Answers) {
      answers.append(AnswerField(answer.Text));
      flags.append(answer.IsCorrect ? QStringLiteral("1") : QStringLiteral("0"));
    }
    text += QuotedRecord({Field(question.Text), answers.join(kAnswerMark), flags.join(kAnswerMark),
                          Field(ExplanationOf(question)), Field(test.ReviewLabel), test.ReviewLink});
  }
  return StoreBytes(text);
}
