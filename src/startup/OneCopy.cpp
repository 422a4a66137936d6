#include "startup/OneCopy.h"

#include <QCryptographicHash>
#include <memory>

#include "frame/ProgramState.h"
#include "platform/DoorBell.h"
#include "platform/RunTimeError.h"
#include "platform/files/FileBytes.h"
#include "platform/files/FileLock.h"
#include "platform/forms/Event.h"
#include "platform/forms/Form.h"

namespace OneCopy {

namespace {

std::unique_ptr<FileLock> g_lock;
std::unique_ptr<DoorBell> g_bell;

// One name per data folder, whatever its length.
QByteArray BellName() {
  const QByteArray digest = QCryptographicHash::hash(gDriveRoot.toUtf8(), QCryptographicHash::Sha1);
  return "tallowmere-" + digest.toHex().left(16);
}

}  // namespace

bool Claim() {
  IgnoreErrors([] { MakeFolder(gDriveRoot); });
  auto lock = std::make_unique<FileLock>();
  const FileLock::Outcome outcome = lock->Take(gDriveRoot + QStringLiteral(".lock"));
  if (outcome == FileLock::Outcome::HeldElsewhere) return false;
  if (outcome == FileLock::Outcome::Impossible && DoorBell::Ring(BellName())) return false;
  g_lock = std::move(lock);
  g_bell = std::make_unique<DoorBell>(BellName(), [] { Dispatcher::Run([] { FormLife::BringForward(); }); });
  return true;
}

void BringFirstForward() {
  DoorBell::Ring(BellName());
}

void Release() {
  g_bell.reset();
  g_lock.reset();
}

}  // namespace OneCopy
