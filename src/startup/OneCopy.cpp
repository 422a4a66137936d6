#include "startup/OneCopy.h"

#include <QCryptographicHash>
#include <QLocalServer>
#include <QLocalSocket>
#include <memory>

#include "frame/ProgramState.h"
#include "platform/RunTimeError.h"
#include "platform/files/FileBytes.h"
#include "platform/files/FileLock.h"
#include "platform/forms/Event.h"
#include "platform/forms/Form.h"

namespace OneCopy {

namespace {

constexpr int kConnectTime = 300;  // ms

std::unique_ptr<FileLock> g_lock;
std::unique_ptr<QLocalServer> g_server;

// One name per data folder, whatever its length.
QString ServerName() {
  const QByteArray digest = QCryptographicHash::hash(gDriveRoot.toUtf8(), QCryptographicHash::Sha1);
  return QStringLiteral("tallowmere-") + QString::fromLatin1(digest.toHex().left(16));
}

bool FirstAnswers() {
  QLocalSocket socket;
  socket.connectToServer(ServerName());
  return socket.waitForConnected(kConnectTime);
}

void Listen() {
  g_server = std::make_unique<QLocalServer>();
  QLocalServer::removeServer(ServerName());  // of a copy that was killed
  g_server->setSocketOptions(QLocalServer::UserAccessOption);
  g_server->listen(ServerName());
  QObject::connect(g_server.get(), &QLocalServer::newConnection, g_server.get(), [] {
    while (QLocalSocket* later = g_server->nextPendingConnection())
      later->deleteLater();
    Dispatcher::Run([] { FormLife::BringForward(); });
  });
}

}  // namespace

bool Claim() {
  IgnoreErrors([] { MakeFolder(gDriveRoot); });
  auto lock = std::make_unique<FileLock>();
  const FileLock::Outcome outcome = lock->Take(gDriveRoot + QStringLiteral(".lock"));
  if (outcome == FileLock::Outcome::HeldElsewhere) return false;
  if (outcome == FileLock::Outcome::Impossible && FirstAnswers()) return false;
  g_lock = std::move(lock);
  Listen();
  return true;
}

void BringFirstForward() {
  FirstAnswers();
}

void Release() {
  g_server.reset();
  g_lock.reset();
}

}  // namespace OneCopy
