// Words that screen readers say at once, wherever the focus is, and the place where a test hears them.
#pragma once

#include <QString>
#include <functional>

class Control;

// Has screen readers say the control's accessible name now.
void Announce(const Control& control);

// A test hears what is announced in their place; an empty function brings the screen readers back.
void HearAnnouncements(std::function<void(const QString&)> listener);
