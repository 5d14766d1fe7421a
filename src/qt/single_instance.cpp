#include "qt/single_instance.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QThread>

namespace wavforge::qt {
namespace {

const QByteArray kActivate = "activate\n";
const QByteArray kDone = "done\n";

}  // namespace

SingleInstance::SingleInstance(const QString& folder, const QString& name)
    : lock_path_(QDir(folder).filePath(name + QStringLiteral(".lock"))),
      socket_path_(QDir(folder).filePath(name + QStringLiteral(".socket"))) {}

SingleInstance::~SingleInstance() = default;

QString SingleInstance::RuntimeFolder() {
  QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
  if (folder.isEmpty()) folder = QDir::tempPath();
  QDir().mkpath(folder);
  return folder;
}

bool SingleInstance::BecomeFirst() {
  lock_ = std::make_unique<QLockFile>(lock_path_);
  // A running first start holds the lock however long it runs; only a dead one's goes.
  lock_->setStaleLockTime(0);
  if (!lock_->tryLock(0)) {
    lock_.reset();
    return false;
  }
  // A socket left by a start that died is ours to replace.
  QLocalServer::removeServer(socket_path_);
  server_ = std::make_unique<QLocalServer>();
  server_->setSocketOptions(QLocalServer::UserAccessOption);
  QObject::connect(server_.get(), &QLocalServer::newConnection, server_.get(), [this] { Serve(); });
  server_->listen(socket_path_);
  return true;
}

void SingleInstance::Serve() {
  while (QLocalSocket* socket = server_->nextPendingConnection()) {
    QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
    QObject::connect(socket, &QLocalSocket::readyRead, socket, [this, socket] {
      if (!socket->canReadLine()) return;
      if (socket->readLine() == kActivate && on_activate_) on_activate_();
      socket->write(kDone);
      socket->flush();
      socket->disconnectFromServer();
    });
  }
}

bool SingleInstance::AskFirstToActivate(int timeout_ms) const {
  // The first start may still be on its way to listening: try again until the time is up.
  const QDeadlineTimer deadline(timeout_ms);
  while (!deadline.hasExpired()) {
    QLocalSocket socket;
    socket.connectToServer(socket_path_);
    if (socket.waitForConnected(static_cast<int>(deadline.remainingTime()))) {
      socket.write(kActivate);
      if (!socket.waitForBytesWritten(static_cast<int>(deadline.remainingTime()))) return false;
      while (!socket.canReadLine()) {
        if (!socket.waitForReadyRead(static_cast<int>(deadline.remainingTime()))) return false;
      }
      return socket.readLine() == kDone;
    }
    QThread::msleep(20);
  }
  return false;
}

}  // namespace wavforge::qt
