// Writes a test as the player's file holds it, whatever its texts hold.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include "coursekit/sources/GiftReader.h"

struct TestQuestion {
  GiftQuestion Question;
  QString ReviewLabel;
  QString ReviewLink;  // "rt0102_0007.txm"; empty for none
};

// Feedback of single answers joins the explanation. A text comes out of the player's reader with the quotes
// and the ">>" that it had; a «, which stands for a quote there, as two single ones.
QByteArray TestText(bool isPractice, const QList<TestQuestion>& questions);

// The explanation that a learner reads behind the answer.
QString ExplanationOf(const GiftQuestion& question);
