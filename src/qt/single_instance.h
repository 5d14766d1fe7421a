#pragma once

#include <QLocalServer>
#include <QLockFile>
#include <QString>
#include <functional>
#include <memory>

namespace wavforge::qt {

// One running program per user: the first start holds a lock in the user's runtime folder and
// listens on a local socket beside it; a later start finds the lock taken, asks the first
// through the socket to bring its window forward, and ends.
class SingleInstance {
 public:
  // folder: where lock and socket live, normally the user's runtime folder.
  explicit SingleInstance(const QString& folder, const QString& name = QStringLiteral("wavforge"));
  ~SingleInstance();
  SingleInstance(const SingleInstance&) = delete;
  SingleInstance& operator=(const SingleInstance&) = delete;

  // The user's runtime folder.
  static QString RuntimeFolder();

  // True when this is the first start: the lock is held and later starts are listened for.
  bool BecomeFirst();
  // What a later start's request runs in the first one.
  void OnActivationRequest(std::function<void()> handler) { on_activate_ = std::move(handler); }
  // From a later start: asks the first to come forward; false when it did not answer in time.
  bool AskFirstToActivate(int timeout_ms) const;

 private:
  void Serve();

  QString lock_path_;
  QString socket_path_;
  std::unique_ptr<QLockFile> lock_;
  std::unique_ptr<QLocalServer> server_;
  std::function<void()> on_activate_;
};

}  // namespace wavforge::qt
