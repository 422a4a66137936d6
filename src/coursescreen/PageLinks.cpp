#include "coursescreen/PageLinks.h"

#include <QUrl>
#include <algorithm>
#include <array>

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

constexpr std::array kAddressBeginnings{u"http:", u"https:",  u"www.",   u"ftp:",
                                        u"w3.",   u"gopher:", u"mailto:"};
const QString kPageExtension = QStringLiteral(".txm");
const QString kHiddenFolder = QStringLiteral("Hidden\\");  // documents that the repository does not list
constexpr int kNoLeadIn = 0;
constexpr int kShowNormal = 1;  // show state of a browser

// The target of a page: "rt0102\0007.txm" and one character more.
constexpr qsizetype kBehindModule = 10, kPageAt = 7, kPageLength = 8;

bool IsAddress(const QString& target) {
  return std::any_of(
      kAddressBeginnings.begin(), kAddressBeginnings.end(),
      [&target](const char16_t* beginning) { return target.startsWith(QStringView(beginning)); });
}

QString Normalised(QString target) {
  while (target.endsWith(u' '))
    target.chop(1);
  return target.toLower();
}

// A target of another length than that of a page gives an id that no module has.
QString ModuleOf(const QString& target) {
  return target.left(std::max<qsizetype>(target.size() - kBehindModule, 0));
}

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
  target = Normalised(target);
  if (kind == PageLink::kPlace) {
    page_.GoToPlace(target);
    return;
  }
  if (kind != PageLink::kFile) return;
  if (IsAddress(target)) {
    OpenWebLink(linkText, LoadStringResource(kResSurveyHint), target);
    return;
  }
  if (!target.contains(kPageExtension)) {
    OpenCourseDocument(target);
    return;
  }
  const qsizetype mark = target.indexOf(u'#');
  mark >= 0 ? ShowPlaceInFile(target, mark) : JumpToPage(linkText, target);
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
void PageLinks::ShowPlaceInFile(const QString& target, qsizetype mark) {
  page_.Load(target.left(mark), kNoLeadIn, TextControl::kFileAndPlaceFormat);
  page_.GoToPlace(target.mid(mark + 1));
}

// The return point stays on the stack when there is no such module.
void PageLinks::JumpToPage(const QString& linkText, const QString& target) {
  PushReturnPoint();
  // The skip link is known by its words alone; what its target says is not read.
  const bool skips = linkText == LoadStringResource(kResSkipNavigation);
  const bool skipsToNone = skips && gCurrentModule == LastModule();
  const int module =
      skipsToNone ? -1 : ModuleIndex(skips ? ModuleAt(gCurrentModule + 1).ModuleId : ModuleOf(target));
  if (module < 0) {
    MsgBox(LoadStringResource(kResLinkModuleNotInstalled));
    return;
  }
  pages_.JumpByLink(module, skips ? QString() : target.mid(kPageAt, kPageLength));
}
