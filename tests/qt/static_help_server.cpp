#include "static_help_server.h"

#include <QFile>
#include <QTcpSocket>
#include <QUrl>

namespace wavforge::qt {
namespace {

QByteArray TypeOf(const QString& path) {
  if (path.endsWith(".htm") || path.endsWith(".html")) return "text/html; charset=utf-8";
  if (path.endsWith(".css")) return "text/css";
  if (path.endsWith(".js")) return "text/javascript";
  // What servers send for a name they do not know, such as the navigation table's.
  return "application/octet-stream";
}

}  // namespace

StaticHelpServer::StaticHelpServer(QString folder) : folder_(std::move(folder)) {
  listen(QHostAddress::LocalHost);
  connect(this, &QTcpServer::newConnection, this, [this] {
    while (QTcpSocket* socket = nextPendingConnection()) {
      connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { Answer(socket); });
      connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    }
  });
}

QString StaticHelpServer::Base() const {
  return QStringLiteral("http://127.0.0.1:%1/").arg(serverPort());
}

void StaticHelpServer::Answer(QTcpSocket* socket) {
  const QByteArray request = socket->readAll();
  if (!request.contains("\r\n\r\n")) return;
  ++requests;
  received.append(request);
  const QString path = QUrl(QString::fromLatin1(request.split(' ').value(1))).path();
  QFile file(folder_ + path);
  const bool found = !path.contains("..") && file.open(QIODevice::ReadOnly);
  const QByteArray body = found ? file.readAll() : QByteArray("not found");
  socket->write((found ? "HTTP/1.1 200 OK\r\nContent-Type: " + TypeOf(path)
                       : QByteArray("HTTP/1.1 404 Not Found\r\nContent-Type: text/plain")) +
                "\r\nContent-Length: " + QByteArray::number(body.size()) +
                "\r\nConnection: close\r\n\r\n" + body);
  socket->disconnectFromHost();
}

}  // namespace wavforge::qt
