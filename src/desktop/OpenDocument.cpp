#include "desktop/OpenDocument.h"

#include <algorithm>
#include <iterator>

#include "platform/files/Paths.h"
#include "platform/forms/MsgBox.h"
#include "platform/shell/Opener.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

namespace {

constexpr int kHidden = 0;  // show state
constexpr int kOkButton = 1;

struct ErrorText {
  int Result;
  int String;
};

// What the opener here can say. Everything else is an error without a cause.
constexpr ErrorText kErrorTexts[] = {
    {ShellResult::kNoFile, kResRepositoryFileMissing},
    {ShellResult::kNoFolder, kResRepositoryPathNotFound},
    {ShellResult::kNoPermission, kResAccessError},
    {ShellResult::kNoProgram, kResNoAssociation},
};

}  // namespace

int OpenDocument(const QString& file, int showState, const QString& parameters, const QString& folder,
                 const QString& verb) {
  // Required: a program in the repository starts invisibly, also by its folder's name.
  const bool isProgram = file.contains(QStringLiteral(".EXE"), Qt::CaseInsensitive);
  const int result = ShellExecuteA({verb, file, parameters, folder, isProgram ? kHidden : showState});
  // A file that is there was handed over, whatever the desktop says of it.
  if (result == ShellResult::kNoFile && ProgramFileExists(file)) return kOpened;
  if (result < 0 || result > ShellResult::kHighestError) return kOpened;
  return ShowShellError(result, {});
}

int ShowShellError(int result, const QString& title) {
  const auto* const found = std::find_if(std::begin(kErrorTexts), std::end(kErrorTexts),
                                         [result](const ErrorText& error) { return error.Result == result; });
  const int string = found == std::end(kErrorTexts) ? kResOpenOrPrintError : found->String;
  MsgBox(LoadStringResource(string), MsgButtons::Ok, MsgIcon::Exclamation, title);
  return kOkButton;
}
