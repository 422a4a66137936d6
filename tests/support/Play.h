// Plays what a learner does on a form and tells what shows, so that a test is a table of both.
#pragma once

#include <QString>
#include <initializer_list>

class Form;

namespace Gui {

// Steps, parted by commas: "click NAME", "point NAME", "press NAME", "release NAME" (the mouse), "focus
// NAME", "type TEXT", "wait MILLISECONDS" of the hand-driven clock, "close" (the window), or a key as
// QKeySequence writes it ("Alt+Left"), with "x3" behind it three times.
void Do(const Form& form, const QString& steps);

// What controls show, names parted by blanks: texts as they stand, "on", "off" or "disabled" for a button,
// "ticked" for an answer, "value/maximum" for a scroll bar, "" for what is empty and "-" for what is hidden.
// A colour is asked for with ":fore" or ":back" behind the name. Instead of a name: "focus", "hand" (the
// pointer), "page" (of the course), "active" (the form), "said" (the message boxes since the last time).
QString Seen(const Form& form, const QString& names);

struct Step {
  QString Does, Sees;
};
// Each step is done and what it says is expected to be seen.
void Play(const Form& form, const QString& watched, std::initializer_list<Step> steps);

}  // namespace Gui
