#include "coursekit/install/StoreChange.h"

#include <errno.h>
#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <algorithm>

#include "coursekit/Findings.h"
#include "platform/RunTimeError.h"
#include "platform/files/FileBytes.h"
#include "platform/files/Paths.h"

namespace {

const QString kPut = QStringLiteral("put"), kDrop = QStringLiteral("drop");

// 0 for nothing there; a link counts as itself.
quint64 InodeOf(const QString& path) {
  struct stat status;
  return lstat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_ino : 0;
}

int Rename(const QString& from, const QString& to, unsigned flags) {
  const int result = renameat2(AT_FDCWD, QFile::encodeName(from).constData(), AT_FDCWD,
                               QFile::encodeName(to).constData(), flags);
  return result == 0 ? 0 : errno;
}

void Move(const QString& from, const QString& to) {
  QDir().mkpath(QFileInfo(to).path());
  const int error = rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData());
  if (error != 0) throw RunTimeError(KitText(QStringLiteral("change-failed"), {to, SystemReason(errno)}));
}

// Whether a path of a step stays below the store.
bool IsBelow(const QString& path) {
  const QStringList steps = path.split(u'/');
  return std::all_of(steps.begin(), steps.end(), IsFileName);
}

// Everything that was written and renamed is on the disk.
void Flush(const QString& folder) {
  const int handle = open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (handle < 0) return;
  syncfs(handle);
  close(handle);
}

}  // namespace

StoreChange::StoreChange(const QString& store, Swap swap)
    : store_(store), folder_(store + QLatin1String("/.installing")), swap_(swap) {}

QString StoreChange::New(const QString& path) const {
  return folder_ + QLatin1String("/new/") + path;
}

QString StoreChange::Old(const QString& path) const {
  return folder_ + QLatin1String("/old/") + path;
}

bool StoreChange::IsOpen() const {
  return QFileInfo::exists(folder_ + QLatin1String("/journal"));
}

void StoreChange::Run(const QString& staging, const QList<StoreStep>& steps) {
  Resume();
  QList<Step> known;
  QStringList lines;
  for (const StoreStep& step : steps) {
    const bool isPut = step.What == StoreStep::Kind::Put;
    known.append({step, isPut ? InodeOf(staging + QLatin1String("/new/") + step.From) : 0});
    const QString inode = QString::number(known.last().Inode);
    lines.append(QStringList{isPut ? kPut : kDrop, step.Path, step.From, inode}.join(u'\t'));
  }
  Move(staging, folder_);
  Flush(folder_);  // before the journal, which says that all is there
  SaveFile(folder_ + QLatin1String("/journal"), lines.join(u'\n').toUtf8());
  Do(known);
}

void StoreChange::Resume() {
  if (!IsOpen()) return Close();
  const QList<Step> steps = ReadJournal();
  if (!QFileInfo::exists(folder_ + QLatin1String("/back"))) return Do(steps);
  TakeBack(steps);
}

QList<StoreChange::Step> StoreChange::ReadJournal() const {
  const QByteArray text = ReadFile(folder_ + QLatin1String("/journal"), kTextFileLimit);
  QList<Step> steps;
  for (const QString& line : QString::fromUtf8(text).split(u'\n', Qt::SkipEmptyParts)) {
    const QStringList fields = line.split(u'\t');
    const bool isPut = fields.at(0) == kPut, isKnown = isPut || fields.at(0) == kDrop;
    // Nothing that leads out of the store is carried out, whoever wrote it.
    if (!isKnown || fields.size() != 4 || !IsBelow(fields.at(1)) || (isPut && !IsBelow(fields.at(2))))
      throw RunTimeError(KitText(QStringLiteral("journal-damaged"), {folder_ + QLatin1String("/journal")}));
    const auto kind = isPut ? StoreStep::Kind::Put : StoreStep::Kind::Drop;
    steps.append({{kind, fields.value(1), fields.value(2)}, fields.value(3).toULongLong()});
  }
  return steps;
}

void StoreChange::Do(const QList<Step>& steps) const {
  try {
    for (const Step& step : steps)
      DoStep(step);
  } catch (const RunTimeError&) {
    // On a full disk the mark can't be saved; taking back needs no room.
    IgnoreErrors([this] { SaveFile(folder_ + QLatin1String("/back"), {}); });
    TakeBack(steps);
    throw;
  }
  Close();
}

void StoreChange::DoStep(const Step& step) const {
  const QString& path = step.What.Path;
  const quint64 there = InodeOf(Place(path));
  if (step.What.What == StoreStep::Kind::Drop) {
    if (there != 0) Move(Place(path), Old(path));
  } else if (there == 0) {
    Move(New(step.What.From), Place(path));
  } else if (there != step.Inode) {
    SwapIn(step.What);
  }
}

void StoreChange::SwapIn(const StoreStep& step) const {
  const QString fresh = New(step.From), place = Place(step.Path);
  if (swap_ == Swap::Exchange && Rename(fresh, place, RENAME_EXCHANGE) == 0) return;
  Move(place, Old(step.Path));
  Move(fresh, place);
}

void StoreChange::TakeBack(const QList<Step>& steps) const {
  for (auto step = steps.rbegin(); step != steps.rend(); ++step)
    TakeBackStep(*step);
  Close();
}

void StoreChange::TakeBackStep(const Step& step) const {
  const QString place = Place(step.What.Path), fresh = New(step.What.From), old = Old(step.What.Path);
  const quint64 there = InodeOf(place);
  const bool isNew = step.Inode != 0 && there == step.Inode;
  // What was exchanged lies where the new one came from.
  if (isNew && InodeOf(fresh) != 0) {
    if (Rename(fresh, place, RENAME_EXCHANGE) == 0) return;
    Move(fresh, old);
  }
  if (isNew) Move(place, fresh);
  if ((isNew || there == 0) && InodeOf(old) != 0) Move(old, place);
}

// The journal goes first: without it the rest says nothing any more.
void StoreChange::Close() const {
  if (!QFileInfo::exists(folder_)) return;
  Flush(store_);
  QFile::remove(folder_ + QLatin1String("/journal"));
  Flush(store_);
  if (!QDir(folder_).removeRecursively())
    throw RunTimeError(KitText(QStringLiteral("output-stuck"), {folder_}));
}
