// Opens and prints documents by the desktop's programs, with a message when that fails. Page links and
// the repository go through here.
#pragma once

#include <QString>

inline constexpr int kOpened = -1;
// Show states that documents are opened with.
inline constexpr int kShownMaximised = 3;
inline constexpr int kShownNormally = 5;

// Hands a file to the opener; parameters and folder may be empty. The verb is kVerbOpen or kVerbPrint.
// kOpened on success, else what ShowShellError gives.
int OpenDocument(const QString& file, int showState, const QString& parameters, const QString& folder,
                 const QString& verb);

// Shows the message of a result of the opener. Gives the number of the box's OK button, 1.
int ShowShellError(int result, const QString& title);
