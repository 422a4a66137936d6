// All words that the learner sees, by number. Every screen takes its captions and messages from here.
#pragma once

#include <QString>

// The text of a number (see ResConstants.h). Leading, trailing and doubled blanks are part of it:
// callers join these texts to each other and to values. A number that the table does not have gives an
// empty text.
QString LoadStringResource(int number);
