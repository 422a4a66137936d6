#include "coursescreen/PageLinks.h"

#include <QUrl>

#include "content/LinkTarget.h"
#include "coursescreen/PageTurning.h"
#include "coursescreen/StackControl.h"
#include "desktop/OpenDocument.h"
#include "frame/CourseQuestions.h"
#include "frame/ProgramState.h"
#include "pages/common/PageLink.h"
#include "pages/view/TextControl.h"
#include "platform/files/Paths.h"
#include "platform/forms/Form.h"
#include "platform/forms/MsgBox.h"
#include "platform/shell/Opener.h"
#include "reference/CourseFiles.h"
#include "texts/Descriptions.h"
#include "texts/ResConstants.h"
#include "texts/TextTable.h"

namespace {

const QString kHiddenFolder = QStringLiteral("Hidden\\");  // documents that the repository does not list
constexpr int kNoLeadIn = 0;
constexpr int kShowNormal = 1;  // show state of a browser

// Word processors write a name as an address has it, "my%20list.txt". A document that is nowhere gets its
// place in the hidden folder: the opener tells that it is missing.
QString DocumentPath(const QString& target) {
  for (const QString& name : {target, QUrl::fromPercentEncoding(target.toUtf8())}) {
    for (const QString& folder : {QString(), kHiddenFolder}) {
      const QString path = Attachment(CurrentCourse(), folder + name);
      if (!path.isEmpty() && FileExists(path)) return path;
    }
  }
  return Attachment(CurrentCourse(), kHiddenFolder + target);
}

}  // namespace

PageLinks::PageLinks(Form& screen, TextControl& page, PageTurning& pages)
    : screen_(screen), page_(page), pages_(pages) {
  page_.LinkClicked = [this](int identifier, int kind, QString target) {
    TextControlLinkClicked(identifier, kind, target);
  };
}

void PageLinks::TextControlLinkClicked(int /*identifier*/, int kind, QString& target) {
  const QString linkText = page_.LinkText();
  const LinkTarget read = ReadLinkTarget(target);
  target = read.Text;
  if (kind == PageLink::kPlace) {
    page_.GoToPlace(target);
    return;
  }
  if (kind != PageLink::kFile) return;
  switch (read.What) {
    case LinkTarget::Form::Address: OpenWebLink(linkText, LoadStringResource(kResSurveyHint), target); break;
    case LinkTarget::Form::Document: OpenCourseDocument(target); break;
    case LinkTarget::Form::Page: JumpToPage(linkText, read); break;
    case LinkTarget::Form::PageAndPlace: ShowPlaceInFile(read); break;
  }
}

void PageLinks::OpenWebLink(const QString& linkText, const QString& surveyText, const QString& target) {
  if (linkText == surveyText) {
    if (RefusedInAllModules()) return;
    if (!CurrentCourse().AllInstalled) {
      MsgBox(LoadStringResource(kResSurveyNeedsAllModules));
      return;
    }
  }
  if (WebAddress(target).isEmpty()) {
    MsgBox(Describe("address-malformed", target));
    return;
  }
  ShellExecuteA({QStringLiteral("Open"), target, {}, {}, kShowNormal});
  screen_.Minimise();
}

void PageLinks::OpenCourseDocument(const QString& target) {
  if (RefusedInAllModules()) return;
  OpenDocument(DocumentPath(target), kShownNormally, {}, {}, kVerbOpen);
}

// The name is used as it stands, without a module's folder and without a lead-in, and the page list stays
// where it is: Next and Previous go on from the page before.
void PageLinks::ShowPlaceInFile(const LinkTarget& target) {
  page_.Load(target.Page, kNoLeadIn, TextControl::kFileAndPlaceFormat);
  page_.GoToPlace(target.Place);
}

// The return point stays on the stack when there is no such module.
void PageLinks::JumpToPage(const QString& linkText, const LinkTarget& target) {
  PushReturnPoint();
  // The skip link is known by its words alone; what its target says is not read.
  const bool skips = linkText == LoadStringResource(kResSkipNavigation);
  const bool skipsToNone = skips && gCurrentModule == LastModule();
  const int module =
      skipsToNone ? -1 : ModuleIndex(skips ? ModuleAt(gCurrentModule + 1).ModuleId : target.Module);
  if (module < 0) {
    MsgBox(LoadStringResource(kResLinkModuleNotInstalled));
    return;
  }
  pages_.JumpByLink(module, skips ? QString() : target.Page);
  if (!skips && !target.Place.isEmpty()) page_.GoToPlace(target.Place);
}
