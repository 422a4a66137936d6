#include "content/LinkTarget.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array kAddressBeginnings{u"http:", u"https:", u"mailto:", u"www.",
                                        u"ftp:",  u"w3.",    u"gopher:"};
constexpr QStringView kPageExtension = u".txm";
constexpr QChar kPlaceMark = u'#';
constexpr QChar kBehindPage = u'_';  // any one character will do

// The target of a page: "rt0102\0007.txm" and one character more.
constexpr qsizetype kBehindModule = 10, kPageAt = 7, kPageLength = 8;
constexpr qsizetype kTargetLength = kPageAt + kPageLength + 1;

bool IsAddress(const QString& target) {
  return std::any_of(
      kAddressBeginnings.begin(), kAddressBeginnings.end(),
      [&target](const char16_t* beginning) { return target.startsWith(QStringView(beginning)); });
}

// A file with a place is a name as it stands; a page's target has its own form, in which a module's folder
// and the character behind the page's name can't be missing.
bool IsPageOfModule(QStringView target) {
  return target.size() == kTargetLength && target[kPageAt - 1] == u'\\' &&
         target.mid(kPageAt, kPageLength).endsWith(kPageExtension);
}

}  // namespace

LinkTarget ReadLinkTarget(QString target) {
  while (target.endsWith(u' '))
    target.chop(1);
  LinkTarget read;
  read.Text = target.toLower();
  if (IsAddress(read.Text)) {
    read.What = LinkTarget::Form::Address;
    return read;
  }
  if (!read.Text.contains(kPageExtension)) return read;
  const qsizetype mark = read.Text.indexOf(kPlaceMark);
  const QString page = mark < 0 ? read.Text : read.Text.left(mark);
  if (mark >= 0) read.Place = read.Text.mid(mark + 1);
  if (mark >= 0 && !IsPageOfModule(page)) {
    read.What = LinkTarget::Form::PageAndPlace;
    read.Page = page;
    return read;
  }
  read.What = LinkTarget::Form::Page;
  read.Module = page.left(std::max<qsizetype>(page.size() - kBehindModule, 0));
  read.Page = page.mid(kPageAt, kPageLength);
  return read;
}

QString PageTarget(const QString& moduleId, const QString& page, const QString& place) {
  const QString target = moduleId + u'\\' + page + kBehindPage;
  return place.isEmpty() ? target : target + kPlaceMark + place;
}
