// Names for what is on its way: a file or folder that is being made lies beside what it becomes under such a
// name, and takes its place by a rename. Whoever writes or copies files uses them.
#pragma once

#include <QString>

// How they all begin. Nothing that is to last may.
inline constexpr QLatin1StringView kPassingBegin(".saving");

// A name that no other process and no other machine gives: the machine, the process and a number of its own
// stand in it.
QString PassingName();

// Takes away what was cut short in a real folder: what a process of this machine has left that is gone, and
// what is a day old. What somebody holds a lock on stays.
void ClearLeftovers(const QString& folder);
