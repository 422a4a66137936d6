// The verbs of the program tallowmere-course. Its main and the tests call them.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

enum class KitExit { Good = 0, ErrorsFound = 1, WrongUse = 2 };

// Runs one command line, the program's name not among it. Findings and errors go to `err`, what was asked for
// to `out`.
KitExit RunKit(std::vector<std::string> arguments, std::ostream& out, std::ostream& err);
