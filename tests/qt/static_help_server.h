#pragma once

#include <QString>
#include <QTcpServer>

namespace wavforge::qt {

// Serves the files of one folder over HTTP on 127.0.0.1, as any static web server would serve
// the online help: the query is ignored, unknown files are 404, unknown types are bytes.
class StaticHelpServer final : public QTcpServer {
 public:
  explicit StaticHelpServer(QString folder);
  // The address of the folder, ending in "/".
  QString Base() const;
  int requests = 0;
  QByteArrayList received;

 private:
  void Answer(QTcpSocket* socket);
  QString folder_;
};

}  // namespace wavforge::qt
