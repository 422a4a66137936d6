#include "coursekit/sources/WordDocument.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTextDocumentFragment>
#include <QUrl>

namespace {

constexpr int kPatience = 120'000;  // ms

QString FindLibreOffice() {
  for (const char* name : {"soffice", "libreoffice"}) {
    const QString program = QStandardPaths::findExecutable(QString::fromLatin1(name));
    if (!program.isEmpty()) return program;
  }
  return {};
}

// A profile of its own keeps it apart from one that the author has open.
bool Convert(const QString& program, const QString& document, const QString& place) {
  QProcess process;
  process.setStandardOutputFile(QProcess::nullDevice());
  process.setStandardErrorFile(QProcess::nullDevice());
  process.start(program, {QStringLiteral("-env:UserInstallation=file://") + place + QLatin1String("/profile"),
                          QStringLiteral("--headless"), QStringLiteral("--convert-to"),
                          QStringLiteral("html:HTML (StarWriter):EmbedImages"), QStringLiteral("--outdir"),
                          place, document});
  if (process.waitForFinished(kPatience)) return process.exitCode() == 0;
  process.kill();
  process.waitForFinished();
  return false;
}

// Addresses of files, which are those of this machine, lead from page to page again.
QString WithRelativeLinks(const QString& html, const QString& base, const QString& root,
                          const QString& page) {
  static const QRegularExpression link(QStringLiteral("(href|src)=\"([^\"#][^\"]*)\""),
                                       QRegularExpression::CaseInsensitiveOption);
  QString result;
  qsizetype from = 0;
  for (const auto& found : link.globalMatch(html)) {
    const QString written = QString(found.captured(2)).replace(QLatin1String("&amp;"), QLatin1String("&"));
    const QUrl url = QUrl::fromLocalFile(base + u'/').resolved(QUrl(written));
    const QString local = url.toLocalFile();
    result += QStringView(html).mid(from, found.capturedStart() - from);
    from = found.capturedEnd();
    if (!url.isLocalFile() || !local.startsWith(root + u'/')) {
      result += found.captured();
      continue;
    }
    QString target = QDir(QFileInfo(page).path()).relativeFilePath(local);
    if (url.hasFragment()) target += u'#' + url.fragment(QUrl::FullyDecoded);
    result += found.captured(1) + QLatin1String("=\"") + target.toHtmlEscaped() + u'"';
  }
  return result.append(QStringView(html).mid(from));
}

// The paragraph gives way to the lines that other pages have.
QString WithFrontMatter(QString html) {
  static const QRegularExpression paragraph(
      QStringLiteral("<(p|h[1-6])\\b[^>]*>(.*?)</\\1>"),
      QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
  const auto first = paragraph.match(html);
  const QString words = QTextDocumentFragment::fromHtml(first.captured(2)).toPlainText().simplified();
  if (!words.startsWith(QLatin1String("topic:"), Qt::CaseInsensitive)) return html;
  html.remove(first.capturedStart(), first.capturedLength());
  QString name = words.section(u':', 1).trimmed();
  return QLatin1String("---\ntopic: \"") + name.remove(u'"') + QLatin1String("\"\n---\n") + html;
}

}  // namespace

bool IsWordDocument(const QString& name) {
  return name.endsWith(QLatin1String(".docx"), Qt::CaseInsensitive) ||
         name.endsWith(QLatin1String(".odt"), Qt::CaseInsensitive);
}

std::optional<QString> HtmlOfWordDocument(const SourceFolder& folder, const QString& file,
                                          Findings& findings) {
  const QString program = FindLibreOffice();
  if (program.isEmpty()) {
    findings.Error("word-no-office", {file});
    return std::nullopt;
  }
  const QString document = folder.RealPathOf(file);
  const QTemporaryDir place;
  QFile html(place.filePath(QFileInfo(file).completeBaseName() + QLatin1String(".html")));
  if (!Convert(program, document, place.path()) || !html.open(QIODevice::ReadOnly)) {
    findings.Error("word-unreadable", {file});
    return std::nullopt;
  }
  const std::optional<QString> text = DecodeSource(html.readAll(), file, findings);
  if (!text) return std::nullopt;
  return WithFrontMatter(WithRelativeLinks(*text, place.path(), folder.Root(), document));
}
