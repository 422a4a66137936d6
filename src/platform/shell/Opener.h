// The opener: hands a document or a web address to the program that the desktop has for it, and says
// what came of it. The documents of a course and its links go through here; a test may answer it.
#pragma once

#include <QString>
#include <functional>

// What comes back from the opener: one of these up to kHighestError, or anything above it for success.
namespace ShellResult {
inline constexpr int kFailed = 1;  // for a reason that has no number of its own
inline constexpr int kNoFile = 2;
inline constexpr int kNoFolder = 3;
inline constexpr int kNoPermission = 5;
inline constexpr int kNoProgram = 31;
inline constexpr int kHighestError = 32;
inline constexpr int kStarted = 33;
}  // namespace ShellResult

inline constexpr QLatin1StringView kVerbOpen("open");
inline constexpr QLatin1StringView kVerbPrint("print");

struct ShellCall {
  QString Verb;        // open or print, in any case
  QString File;        // a program path, or a web address
  QString Parameters;  // a document takes none: they are not handed on
  QString Folder;      // program path of the folder to work in; empty: the present one
  int ShowState = 1;   // how the window is wanted. The desktop's opener can't be told
};

// The address as the opener gets it, with its scheme and without a character that a program could take for
// anything else. Empty when the text is no address of a scheme that is opened here, is malformed, or names
// nothing behind its scheme.
QString WebAddress(const QString& text);

// "open" hands the file to xdg-open, "print" to the system's default printer, which takes no RTF and no HTML;
// no other verb has a program. A file that leaves the program folder, and one that is no regular file, counts
// as missing. A file that could be run is handed on like any other, never run. Waits a second at most: what
// still runs then has opened.
int ShellExecuteA(const ShellCall& call);

// Tests answer the opener themselves; an empty function brings the desktop's back.
void AnswerOpener(std::function<int(const ShellCall&)> answerer);
