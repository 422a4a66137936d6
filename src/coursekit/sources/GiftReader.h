// Reads questions in GIFT, the text format of many learning systems, as far as the player has such questions:
// one or several right answers, and true or false.
#pragma once

#include <QList>
#include <QString>

#include "coursekit/Findings.h"

struct GiftAnswer {
  QString Text;
  bool IsCorrect = false;
  QString Feedback;  // may be empty
};

struct GiftQuestion {
  QString Text;
  QList<GiftAnswer> Answers;  // two at least, one of them correct at least
  QString GeneralFeedback;    // may be empty
  QString Title;              // may be empty
  QString Review;             // the source of the page to review, as the author wrote it; may be empty
  SourcePlace Place, ReviewPlace;
};

// The answers of a question of true or false.
struct GiftWords {
  QString True, False;
};

inline constexpr const char* kReviewComment = "review:";

// Questions are parted by blank lines. A comment "// review: page.md" in front of a question, or in it, names
// the page to review. Findings: what breaks the format, questions of a kind that the player doesn't have, and
// what it counts otherwise, such as partial credit. A question with an error is left out.
QList<GiftQuestion> ReadGift(const QString& text, const QString& file, const GiftWords& words,
                             Findings& findings);
