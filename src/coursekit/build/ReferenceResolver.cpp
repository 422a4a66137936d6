#include "coursekit/build/ReferenceResolver.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QUrl>
#include <algorithm>
#include <array>

#include "content/LinkTarget.h"

namespace {

constexpr std::array kPictureEndings{u".png", u".jpg", u".jpeg", u".gif", u".bmp"};

bool IsPictureName(const QString& name) {
  return std::any_of(kPictureEndings.begin(), kPictureEndings.end(), [&name](const char16_t* ending) {
    return name.endsWith(QStringView(ending), Qt::CaseInsensitive);
  });
}

bool HasScheme(const QString& target) {
  static const QRegularExpression scheme(QStringLiteral("^[A-Za-z][A-Za-z0-9+.-]+:"));
  return scheme.match(target).hasMatch();
}

// The player tells movies by their endings in lower case, and takes a name as far as its first comma.
QString MovieName(const QString& file) {
  const QFileInfo info(file);
  QString base = info.completeBaseName();
  base.replace(u',', u'-').replace(u'.', u'-');
  return base + u'.' + info.suffix().toLower();
}

}  // namespace

ReferenceResolver::ReferenceResolver(const SourceFolder& folder, const CoursePlan& plan, BuiltCourse& course)
    : folder_(folder), plan_(plan), course_(course) {}

QStringList ReferenceResolver::Targets(const QString& moduleId, const PageMarkup& page, const QString& file,
                                       Findings& findings) {
  QStringList targets;
  for (const PageReference& reference : page.References()) {
    const SourcePlace place = page.PlaceOf(reference);
    switch (reference.What) {
      case PageReference::Kind::Link: targets.append(Link(file, reference.Target, place, findings)); break;
      case PageReference::Kind::Picture:
        targets.append(Copy(moduleId + u'/', file, reference, place, findings));
        break;
      case PageReference::Kind::Movie:
        targets.append(Copy(moduleId + QLatin1String("/Movies/"), file, reference, place, findings));
        break;
    }
  }
  return targets;
}

// Names stand in a link as they are or as an address has them, "my%20list.txt".
QString ReferenceResolver::FindFile(const QString& target, const QString& file) const {
  const QString found = folder_.Find(target, file);
  return found.isEmpty() ? folder_.Find(QUrl::fromPercentEncoding(target.toUtf8()), file) : found;
}

QString ReferenceResolver::Link(const QString& file, const QString& target, const SourcePlace& place,
                                Findings& findings) const {
  if (target.isEmpty()) {
    findings.Error("link-empty", place);
    return {};
  }
  if (target.startsWith(u'#')) return target;
  if (ReadLinkTarget(target).What == LinkTarget::Form::Address) return target;
  if (HasScheme(target)) {
    findings.Error("link-scheme", place, target);
    return {};
  }
  const qsizetype mark = target.indexOf(u'#');
  const QString name = mark < 0 ? target : target.left(mark);
  const QString found = FindFile(name, file);
  if (found.isEmpty()) {
    findings.Error("link-nowhere", place, name);
    return {};
  }
  const auto page = plan_.Addresses.constFind(found);
  if (page != plan_.Addresses.cend()) {
    const QString to = mark < 0 ? QString() : QUrl::fromPercentEncoding(target.mid(mark + 1).toUtf8());
    return PageTarget(page->Module, page->Page, to);
  }
  return Attachment(found, place, findings);
}

// The player looks for a document among the attachments and then among the hidden ones.
QString ReferenceResolver::Attachment(const QString& file, const SourcePlace& place,
                                      Findings& findings) const {
  const QString folder = QString::fromLatin1(kAttachmentsFolder) + u'/';
  if (!file.startsWith(folder)) {
    findings.Error("link-no-page", place, file);
    return {};
  }
  QString name = file.mid(folder.size());
  const QString hidden = QString::fromLatin1(kHiddenAttachments) + u'/';
  if (name.startsWith(hidden)) name = name.mid(hidden.size());
  if (ReadLinkTarget(name).What != LinkTarget::Form::Document) {
    findings.Error("attachment-name", place, name);
    return {};
  }
  return name;
}

QString ReferenceResolver::Copy(const QString& store, const QString& file, const PageReference& reference,
                                const SourcePlace& place, Findings& findings) {
  const bool isMovie = reference.What == PageReference::Kind::Movie;
  const QString found = FindFile(reference.Target, file);
  if (found.isEmpty()) {
    findings.Error(isMovie ? "movie-missing" : "picture-missing", place, reference.Target);
    return {};
  }
  if (isMovie ? !IsMovieName(found) : !IsPictureName(found)) {
    findings.Error(isMovie ? "movie-kind" : "picture-kind", place, found);
    return {};
  }
  QString& name = copies_[store + found];
  if (!name.isEmpty()) return name;
  QString wanted = isMovie ? MovieName(found) : QFileInfo(found).fileName();
  // All courses of a store share this folder.
  if (store == u"About/") wanted = QStringLiteral("Trademark %1_%2").arg(plan_.Course.Name, wanted);
  const QFileInfo parts(wanted);
  name = wanted;
  // Files of two folders may bear one name, and on other systems names in other letters are the same.
  const auto isTaken = [&](const QString& its) {
    return std::any_of(course_.Files.begin(), course_.Files.end(), [&](const auto& built) {
      return built.first.compare(store + its, Qt::CaseInsensitive) == 0;
    });
  };
  for (int number = 2; isTaken(name); ++number)
    name = QStringLiteral("%1-%2.%3").arg(parts.completeBaseName()).arg(number).arg(parts.suffix());
  course_.Files[store + name].CopyOf = folder_.RealPathOf(found);
  return name;
}
