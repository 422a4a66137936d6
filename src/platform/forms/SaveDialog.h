// The dialog that asks where to save a file, and the place where a test answers it.
#pragma once

#include <QString>
#include <functional>

struct SaveDialogCall {
  QString Title;
  QString FileName;          // what is proposed, without a folder
  QString DefaultExtension;  // for a name that is typed without one; no dot
};

// The real path that the learner has chosen, empty when the dialog was cancelled. It does not ask before
// a file is overwritten: that is the caller's matter.
QString AskWhereToSave(const SaveDialogCall& call);

// Tests answer the dialog themselves; an empty function brings the real one back.
void AnswerSaveDialogs(std::function<QString(const SaveDialogCall&)> answerer);
