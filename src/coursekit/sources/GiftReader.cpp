#include "coursekit/sources/GiftReader.h"

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "assessment/TestFile.h"
#include "coursekit/sources/PlainWords.h"

namespace {

constexpr QStringView kEscaped = u"~=#{}:\\";
constexpr QLatin1StringView kGap("_____");  // where the answer stands inside the question
constexpr qsizetype kLongestMark = 80;      // characters of a weight or a format with blanks in front
constexpr double kWhole = 100, kRounding = 2;

// The first place of `what` from `from` on that no backslash takes the meaning of; -1 for none.
qsizetype FindMark(QStringView text, QStringView what, qsizetype from = 0) {
  for (qsizetype at = from; at + what.size() <= text.size(); ++at) {
    if (text[at] == u'\\') {
      ++at;
    } else if (text.mid(at).startsWith(what)) {
      return at;
    }
  }
  return -1;
}

// The same of the first of some characters.
qsizetype FindAny(QStringView text, QStringView characters, qsizetype from) {
  for (qsizetype at = from; at < text.size(); ++at) {
    if (text[at] == u'\\') {
      ++at;
    } else if (characters.contains(text[at])) {
      return at;
    }
  }
  return -1;
}

QString Unescaped(QStringView text) {
  QString plain;
  for (qsizetype at = 0; at < text.size(); ++at) {
    const QChar next = text[at] == u'\\' && at + 1 < text.size() ? text[at + 1] : QChar();
    if (next == u'n') {
      plain += u'\n';
      ++at;
    } else if (!next.isNull() && kEscaped.contains(next)) {
      plain += next;
      ++at;
    } else {
      plain += text[at];
    }
  }
  return plain;
}

// A piece of a question between marks. Line ends in it are those of the file, not of the text.
struct Part {
  QStringView Text;
  qsizetype Position = 0;  // in the file

  Part Cut(qsizetype from, qsizetype length = -1) const { return {Text.mid(from, length), Position + from}; }
};

class GiftReader {
 public:
  GiftReader(const QString& text, const QString& file, const GiftWords& words, Findings& findings)
      : text_(text), file_(file), words_(words), findings_(findings) {}

  QList<GiftQuestion> Read() {
    TakeComments();
    qsizetype start = -1;
    for (qsizetype at = 0; at <= text_.size();) {
      qsizetype end = text_.indexOf(u'\n', at);
      if (end < 0) end = text_.size();
      const bool isBlank = QStringView(text_).mid(at, end - at).trimmed().isEmpty();
      if (!isBlank && start < 0) start = at;
      if (isBlank && start >= 0) ReadBlock(std::exchange(start, -1), at);
      at = end + 1;
    }
    if (start >= 0) ReadBlock(start, text_.size());
    for (; nextReview_ < reviews_.size(); ++nextReview_)
      findings_.Warn("gift-review-unused", PlaceIn(file_, text_, reviews_.at(nextReview_).Position));
    return questions_;
  }

 private:
  struct Review {
    QString Page;
    qsizetype Position;
  };

  // Comments become blanks, so that all positions stay.
  void TakeComments() {
    clean_ = text_;
    static const QRegularExpression comment(QStringLiteral("^[ \t]*//([^\n]*)"),
                                            QRegularExpression::MultilineOption);
    for (auto found = comment.globalMatch(text_); found.hasNext();) {
      const QRegularExpressionMatch match = found.next();
      const QString words = match.captured(1).trimmed();
      const QLatin1StringView review(kReviewComment);
      if (words.startsWith(review, Qt::CaseInsensitive))
        reviews_.append({words.mid(review.size()).trimmed(), match.capturedStart()});
      std::fill_n(clean_.begin() + match.capturedStart(), match.capturedLength(), u' ');
    }
  }

  void ReadBlock(qsizetype from, qsizetype to) {
    Part block = Trimmed({QStringView(clean_).mid(from, to - from), from});
    while (block.Text.startsWith(u"$CATEGORY:")) {
      const qsizetype end = block.Text.indexOf(u'\n');
      block = end < 0 ? Part() : Trimmed(block.Cut(end));
    }
    if (block.Text.isEmpty()) return;
    GiftQuestion question;
    question.Place = PlaceOf(block);
    TakeReview(question, to);
    const int before = findings_.Errors();
    ReadQuestion(block, question);
    if (findings_.Errors() > before) return;
    if (questions_.size() >= kMostQuestions) {
      findings_.Error("gift-too-many", question.Place, QString::number(kMostQuestions));
      return;
    }
    questions_.append(question);
  }

  void TakeReview(GiftQuestion& question, qsizetype end) {
    for (; nextReview_ < reviews_.size() && reviews_.at(nextReview_).Position < end; ++nextReview_) {
      question.Review = reviews_.at(nextReview_).Page;
      question.ReviewPlace = PlaceIn(file_, text_, reviews_.at(nextReview_).Position);
    }
  }

  void ReadQuestion(Part block, GiftQuestion& question) {
    if (block.Text.startsWith(u"::")) {
      const qsizetype end = FindMark(block.Text, u"::", 2);
      if (end < 0) return Refuse("gift-title", block);
      question.Title = Unescaped(block.Text.mid(2, end - 2)).simplified();
      block = Trimmed(block.Cut(end + 2));
    }
    const QString format = TakeFormat(block);
    const qsizetype open = FindMark(block.Text, u"{");
    const qsizetype close = open < 0 ? -1 : FindMark(block.Text, u"}", open + 1);
    if (open < 0) return Refuse("gift-description", block);
    if (close < 0) return Refuse("gift-open", block.Cut(open));
    const Part behind = Trimmed(block.Cut(close + 1));
    if (FindMark(behind.Text, u"{") >= 0) return Refuse("gift-two-answers", behind);
    question.Text = Words(block.Cut(0, open), format);
    if (!behind.Text.isEmpty()) {
      question.Text += u' ' + kGap;
      if (!behind.Text.front().isPunct()) question.Text += u' ';
      question.Text += Words(behind, format);
    }
    if (question.Text.trimmed().isEmpty()) Refuse("gift-no-text", block);
    ReadAnswers(block.Cut(open + 1, close - open - 1), format, question);
  }

  void ReadAnswers(Part answers, const QString& format, GiftQuestion& question) {
    const qsizetype general = FindMark(answers.Text, u"####");
    if (general >= 0) {
      Part feedback = answers.Cut(general + 4);
      const QString its = TakeFormat(feedback);
      question.GeneralFeedback = Words(feedback, its.isEmpty() ? format : its);
      answers = answers.Cut(0, general);
    }
    answers = Trimmed(answers);
    if (answers.Text.isEmpty()) return Refuse("gift-essay", answers);
    if (answers.Text.startsWith(u'#')) return Refuse("gift-number", answers);
    if (ReadTrueFalse(answers, format, question)) return;
    if (!answers.Text.startsWith(u'=') && !answers.Text.startsWith(u'~'))
      return Refuse("gift-answers", answers);
    ReadChoices(answers, format, question);
  }

  // "{T#said when it is answered wrongly#said when it is answered rightly}".
  bool ReadTrueFalse(const Part& answers, const QString& format, GiftQuestion& question) {
    const qsizetype mark = FindMark(answers.Text, u"#");
    const QString word =
        answers.Text.left(mark < 0 ? answers.Text.size() : mark).trimmed().toString().toUpper();
    const bool isTrue = word == u"T" || word == u"TRUE";
    if (!isTrue && word != u"F" && word != u"FALSE") return false;
    QString wrong, right;
    if (mark >= 0) {
      const qsizetype second = FindMark(answers.Text, u"#", mark + 1);
      wrong = Words(answers.Cut(mark + 1, second < 0 ? -1 : second - mark - 1), format);
      if (second >= 0) right = Words(answers.Cut(second + 1), format);
    }
    question.Answers = {{words_.True, isTrue, isTrue ? right : wrong},
                        {words_.False, !isTrue, isTrue ? wrong : right}};
    return true;
  }

  struct Choice {
    Part Whole;
    bool IsEqual = false;          // "=", else "~"
    std::optional<double> Weight;  // percent
  };

  void ReadChoices(const Part& answers, const QString& format, GiftQuestion& question) {
    QList<Choice> choices = Split(answers);
    const auto isEqual = [](const Choice& choice) { return choice.IsEqual; };
    const bool hasEqual = std::any_of(choices.begin(), choices.end(), isEqual);
    if (std::all_of(choices.begin(), choices.end(), isEqual)) {
      const bool isMatching = FindMark(choices.constFirst().Whole.Text, u"->") >= 0;
      return Refuse(isMatching ? "gift-matching" : "gift-short", answers);
    }
    if (choices.size() > kMostAnswers) return Refuse("gift-too-many", answers, QString::number(kMostAnswers));
    for (Choice& choice : choices) {
      TakeWeight(choice);
      GiftAnswer answer = AnswerOf(choice, format);
      answer.IsCorrect = hasEqual ? choice.IsEqual || choice.Weight >= kWhole : choice.Weight > 0;
      if (answer.Text.isEmpty()) Refuse("gift-empty-answer", choice.Whole);
      question.Answers.append(answer);
    }
    CheckCredit(choices, hasEqual, question);
  }

  QList<Choice> Split(const Part& answers) {
    QList<Choice> choices;
    for (qsizetype at = 0; at < answers.Text.size();) {
      qsizetype end = FindAny(answers.Text, u"=~", at + 1);
      if (end < 0) end = answers.Text.size();
      choices.append({answers.Cut(at + 1, end - at - 1), answers.Text[at] == u'=', {}});
      at = end;
    }
    return choices;
  }

  static void TakeWeight(Choice& choice) {
    static const QRegularExpression weight(QStringLiteral("^\\s*%(-?[0-9]{1,3}(?:\\.[0-9]{1,6})?)%"));
    const auto match = weight.match(choice.Whole.Text.left(kLongestMark).toString());
    if (!match.hasMatch()) return;
    choice.Weight = match.captured(1).toDouble();
    choice.Whole = choice.Whole.Cut(match.capturedEnd());
  }

  GiftAnswer AnswerOf(const Choice& choice, const QString& format) {
    const qsizetype mark = FindMark(choice.Whole.Text, u"#");
    Part text = Trimmed(mark < 0 ? choice.Whole : choice.Whole.Cut(0, mark));
    const QString its = TakeFormat(text);
    GiftAnswer answer{Words(text, its.isEmpty() ? format : its), false, {}};
    if (mark >= 0) answer.Feedback = Words(choice.Whole.Cut(mark + 1), format);
    return answer;
  }

  // The player counts an answer as right or wrong as a whole.
  void CheckCredit(const QList<Choice>& choices, bool hasEqual, const GiftQuestion& question) {
    const auto right = std::count_if(question.Answers.begin(), question.Answers.end(),
                                     [](const GiftAnswer& answer) { return answer.IsCorrect; });
    if (right == 0) {
      findings_.Error("gift-no-right", question.Place);
      return;
    }
    if (hasEqual && right > 1) findings_.Warn("gift-several-right", question.Place);
    if (!hasEqual && right == 1) findings_.Warn("gift-one-right", question.Place);
    bool isPartial = false;
    double sum = 0, first = 0;
    for (const Choice& choice : choices) {
      const double weight = choice.Weight.value_or(choice.IsEqual ? kWhole : 0);
      if (hasEqual && weight > 0 && weight < kWhole) isPartial = true;
      if (weight <= 0) continue;
      if (first == 0) first = weight;
      if (std::abs(weight - first) > kRounding) isPartial = true;
      sum += weight;
    }
    if (!hasEqual && std::abs(sum - kWhole) > kRounding) isPartial = true;
    if (isPartial) findings_.Warn("gift-partial", question.Place);
  }

  static Part Trimmed(Part part) {
    while (!part.Text.isEmpty() && part.Text.front().isSpace())
      part = part.Cut(1);
    part.Text = part.Text.trimmed();
    return part;
  }

  // "[html]" and the like in front of a text.
  static QString TakeFormat(Part& part) {
    static const QRegularExpression format(QStringLiteral("^\\s*\\[(html|markdown|plain|moodle)\\]"));
    const auto match = format.match(part.Text.left(kLongestMark).toString());
    if (!match.hasMatch()) return {};
    part = part.Cut(match.capturedEnd());
    return match.captured(1);
  }

  QString Words(const Part& part, const QString& format) {
    const QString text = Unescaped(part.Text.toString().replace(u'\n', u' ').trimmed());
    if (HasPicture(text, format)) findings_.Warn("gift-picture", PlaceOf(part));
    return PlainWords(text, format);
  }

  SourcePlace PlaceOf(const Part& part) const { return PlaceIn(file_, text_, part.Position); }

  void Refuse(const char* key, const Part& part, const QString& argument = {}) {
    findings_.Error(key, PlaceOf(part), argument);
  }

  const QString& text_;
  QString file_;
  GiftWords words_;
  Findings& findings_;
  QString clean_;  // the text without its comments
  QList<Review> reviews_;
  qsizetype nextReview_ = 0;
  QList<GiftQuestion> questions_;
};

}  // namespace

QList<GiftQuestion> ReadGift(const QString& text, const QString& file, const GiftWords& words,
                             Findings& findings) {
  return GiftReader(text, file, words, findings).Read();
}
