#include "platform/posix/sqlite_database.h"

#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <random>
#include <thread>
#include <utility>

namespace platform::posix {
namespace {

// Long enough to outwait other processes' short write transactions, short enough that a
// stuck lock does not freeze the program.
constexpr auto kBusyTimeout = std::chrono::seconds(5);
// SQLite's own handler backs off to 100 ms between tries, so under steady contention a
// waiting process keeps losing the lock to busier ones; short, jittered tries keep the
// chances even.
constexpr int kShortestWaitUs = 200;
constexpr int kLongestWaitUs = 3000;

}  // namespace

struct SqliteDatabase::BusyWait {
  std::chrono::steady_clock::time_point deadline;
  std::minstd_rand jitter{static_cast<std::minstd_rand::result_type>(
      getpid() ^ std::chrono::steady_clock::now().time_since_epoch().count())};
};

int SqliteDatabase::WaitWhileBusy(void* context, int attempt) {
  auto& wait = *static_cast<BusyWait*>(context);
  const auto now = std::chrono::steady_clock::now();
  if (attempt == 0) wait.deadline = now + kBusyTimeout;
  if (now >= wait.deadline) return 0;
  std::uniform_int_distribution<int> pause(kShortestWaitUs, kLongestWaitUs);
  std::this_thread::sleep_for(std::chrono::microseconds(pause(wait.jitter)));
  return 1;
}

void SqliteDatabase::Closer::operator()(sqlite3* db) const {
  sqlite3_close_v2(db);
}

SqliteDatabase::SqliteDatabase(sqlite3* db, std::unique_ptr<BusyWait> wait)
    : wait_(std::move(wait)), db_(db) {}
SqliteDatabase::SqliteDatabase(SqliteDatabase&&) noexcept = default;
SqliteDatabase& SqliteDatabase::operator=(SqliteDatabase&&) noexcept = default;
SqliteDatabase::~SqliteDatabase() = default;

std::optional<SqliteDatabase> SqliteDatabase::Open(const std::string& path, int flags) {
  sqlite3* raw = nullptr;
  const int opened = sqlite3_open_v2(path.c_str(), &raw, flags, nullptr);
  // Owns the handle even when opening failed.
  SqliteDatabase db(raw, std::make_unique<BusyWait>());
  if (opened != SQLITE_OK) return std::nullopt;
  sqlite3_busy_handler(raw, &SqliteDatabase::WaitWhileBusy, db.wait_.get());
  return db;
}

std::optional<SqliteDatabase> SqliteDatabase::OpenForReading(const std::string& path) {
  struct stat info {};
  if (stat(path.c_str(), &info) != 0 || !S_ISREG(info.st_mode)) return std::nullopt;
  return Open(path, SQLITE_OPEN_READONLY);
}

std::optional<SqliteDatabase> SqliteDatabase::OpenForWriting(const std::string& path) {
  auto db = Open(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
  // SQLite quietly falls back to read-only access when the file is not writable.
  if (db && sqlite3_db_readonly(db->handle(), "main") != 0) return std::nullopt;
  return db;
}

bool SqliteDatabase::Execute(const char* sql) {
  return sqlite3_exec(db_.get(), sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

void SqliteStatement::Finalizer::operator()(sqlite3_stmt* statement) const {
  sqlite3_finalize(statement);
}

SqliteStatement::SqliteStatement(SqliteDatabase& db, const char* sql) {
  sqlite3_stmt* raw = nullptr;
  failed_ = sqlite3_prepare_v2(db.handle(), sql, -1, &raw, nullptr) != SQLITE_OK;
  statement_.reset(raw);
  if (!statement_) failed_ = true;
}

SqliteStatement& SqliteStatement::Bind(int index, std::string_view bytes) {
  if (failed_) return *this;
  // A null pointer would bind SQL NULL, not an empty blob.
  const int bound = bytes.empty() ? sqlite3_bind_zeroblob(statement_.get(), index, 0)
                                  : sqlite3_bind_blob64(statement_.get(), index, bytes.data(),
                                                        bytes.size(), SQLITE_TRANSIENT);
  failed_ = bound != SQLITE_OK;
  return *this;
}

SqliteStatement& SqliteStatement::Bind(int index, std::int64_t number) {
  if (failed_) return *this;
  failed_ = sqlite3_bind_int64(statement_.get(), index, number) != SQLITE_OK;
  return *this;
}

SqliteStatement::Step SqliteStatement::Next() {
  if (failed_) return Step::kError;
  switch (sqlite3_step(statement_.get())) {
    case SQLITE_ROW:
      return Step::kRow;
    case SQLITE_DONE:
      return Step::kDone;
    default:
      failed_ = true;
      return Step::kError;
  }
}

std::string SqliteStatement::BytesAt(int column) const {
  const void* bytes = sqlite3_column_blob(statement_.get(), column);
  const int size = sqlite3_column_bytes(statement_.get(), column);
  if (bytes == nullptr || size <= 0) return {};
  return std::string(static_cast<const char*>(bytes), static_cast<std::size_t>(size));
}

std::int64_t SqliteStatement::NumberAt(int column) const {
  return sqlite3_column_int64(statement_.get(), column);
}

SqliteWriteTransaction::SqliteWriteTransaction(SqliteDatabase& db) : db_(db) {
  active_ = db_.Execute("BEGIN IMMEDIATE");
}

SqliteWriteTransaction::~SqliteWriteTransaction() {
  if (active_) db_.Execute("ROLLBACK");
}

bool SqliteWriteTransaction::Commit() {
  if (!active_ || !db_.Execute("COMMIT")) return false;
  active_ = false;
  return true;
}

}  // namespace platform::posix
