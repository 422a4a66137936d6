#include "platform/shell/Opener.h"

#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>
#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>

#include "platform/files/Paths.h"
#include "platform/forms/Screen.h"

namespace {

constexpr int kPatience = 1000;  // ms until a program that still runs counts as having opened

const QString kOpener = QStringLiteral("xdg-open");
const QString kPrinter = QStringLiteral("lp");
constexpr QByteArrayView kRtfBegin("{\\rtf");
constexpr std::array kSchemes{u"http:", u"https:", u"ftp:", u"gopher:", u"mailto:"};
constexpr std::array kHostNames{u"www.", u"w3."};  // addresses that leave their scheme out

std::function<int(const ShellCall&)>& Answerer() {
  static std::function<int(const ShellCall&)> answerer;
  return answerer;
}

template <typename Beginnings>
bool BeginsWithOneOf(const QString& text, const Beginnings& beginnings) {
  return std::any_of(beginnings.begin(), beginnings.end(), [&text](const char16_t* beginning) {
    return text.startsWith(QStringView(beginning), Qt::CaseInsensitive);
  });
}

// 0 when the file can be handed on.
int LookAt(const QString& realPath) {
  if (realPath.isEmpty()) return ShellResult::kNoFile;
  if (access(QFile::encodeName(realPath).constData(), R_OK) != 0) {
    if (errno == EACCES) return ShellResult::kNoPermission;
    return QFileInfo(QFileInfo(realPath).path()).isDir() ? ShellResult::kNoFile : ShellResult::kNoFolder;
  }
  return QFileInfo(realPath).isFile() ? 0 : ShellResult::kNoFile;
}

// CUPS takes such a document for plain text: its source would be printed.
bool WouldPrintSource(const QString& realPath) {
  const QString suffix = QFileInfo(realPath).suffix().toLower();
  QFile file(realPath);
  return suffix == u"htm" || suffix == u"html" ||
         (file.open(QIODevice::ReadOnly) && file.read(kRtfBegin.size()) == kRtfBegin);
}

int ResultOf(const QString& program, const QProcess& process) {
  if (process.exitStatus() != QProcess::NormalExit) return ShellResult::kFailed;
  const int code = process.exitCode();
  if (code == 0) return ShellResult::kStarted;
  if (program == kPrinter) return ShellResult::kNoProgram;  // it refuses what it has no filter for
  switch (code) {
    case 2: return ShellResult::kNoFile;
    case 3: return ShellResult::kNoProgram;
    default: return ShellResult::kFailed;
  }
}

// The opener may stay for as long as the browser that it started: it is left to itself then, and outlives
// this program.
void LeaveRunning(std::unique_ptr<QProcess> process) {
  QProcess* left = process.release();
  QObject::connect(left, &QProcess::finished, left, &QObject::deleteLater);
}

int Run(const QString& program, const QString& argument, const QString& folder) {
  const QString found = QStandardPaths::findExecutable(program);
  if (found.isEmpty()) return ShellResult::kNoProgram;
  auto process = std::make_unique<QProcess>();
  process->setProgram(found);
  process->setArguments({argument});
  if (!folder.isEmpty()) process->setWorkingDirectory(folder);
  process->setStandardInputFile(QProcess::nullDevice());
  process->setStandardOutputFile(QProcess::nullDevice());
  process->setStandardErrorFile(QProcess::nullDevice());
  process->setChildProcessModifier([] { setsid(); });
  const Hourglass hourglass;
  process->start();
  if (!process->waitForStarted()) return ShellResult::kFailed;
  if (process->waitForFinished(kPatience)) return ResultOf(program, *process);
  LeaveRunning(std::move(process));
  return ShellResult::kStarted;
}

int Execute(const ShellCall& call) {
  const bool opens = call.Verb.compare(kVerbOpen, Qt::CaseInsensitive) == 0;
  if (!opens && call.Verb.compare(kVerbPrint, Qt::CaseInsensitive) != 0) return ShellResult::kNoProgram;
  const QString folder = call.Folder.isEmpty() ? QString() : ContainedPath(call.Folder);
  if (!call.Folder.isEmpty() && !QFileInfo(folder).isDir()) return ShellResult::kNoFolder;
  if (opens) {
    const QString address = WebAddress(call.File);
    if (!address.isEmpty()) return Run(kOpener, address, folder);
  }
  const QString file = ContainedPath(call.File);
  if (const int fault = LookAt(file); fault != 0) return fault;
  if (!opens && WouldPrintSource(file)) return ShellResult::kNoProgram;
  return Run(opens ? kOpener : kPrinter, file, folder);
}

}  // namespace

QString WebAddress(const QString& text) {
  const bool lacksScheme = BeginsWithOneOf(text, kHostNames);
  if (!lacksScheme && !BeginsWithOneOf(text, kSchemes)) return {};
  const QUrl address(lacksScheme ? QStringLiteral("http://") + text : text);
  const bool leadsNowhere =
      address.host().isEmpty() && (address.path().isEmpty() || address.path().startsWith(u'/'));
  return leadsNowhere ? QString() : QString::fromLatin1(address.toEncoded());
}

int ShellExecuteA(const ShellCall& call) {
  return Answerer() ? Answerer()(call) : Execute(call);
}

void AnswerOpener(std::function<int(const ShellCall&)> answerer) {
  Answerer() = std::move(answerer);
}
