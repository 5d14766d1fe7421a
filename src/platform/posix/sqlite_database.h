#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

// Small owners for the parts of the SQLite C interface the registry store uses.
namespace platform::posix {

// One open connection, closed when the object goes. Both kinds wait a few seconds for locks
// other processes hold before giving up.
class SqliteDatabase {
 public:
  SqliteDatabase(SqliteDatabase&&) noexcept;
  SqliteDatabase& operator=(SqliteDatabase&&) noexcept;
  ~SqliteDatabase();

  // An existing database file opened read-only; nothing when it is missing or unreadable.
  static std::optional<SqliteDatabase> OpenForReading(const std::string& path);
  // The database file opened for writing, created when missing; nothing when it cannot be
  // written.
  static std::optional<SqliteDatabase> OpenForWriting(const std::string& path);

  // Runs statements that return no rows.
  bool Execute(const char* sql);

  sqlite3* handle() const { return db_.get(); }

 private:
  struct Closer {
    void operator()(sqlite3* db) const;
  };
  struct BusyWait;
  static int WaitWhileBusy(void* wait, int attempt);
  static std::optional<SqliteDatabase> Open(const std::string& path, int flags);
  SqliteDatabase(sqlite3* db, std::unique_ptr<BusyWait> wait);

  // Declared first so it outlives the connection whose busy handler points at it.
  std::unique_ptr<BusyWait> wait_;
  std::unique_ptr<sqlite3, Closer> db_;
};

// A prepared statement. Texts are bound and read as bytes (blobs), so names and values may
// hold any byte. A statement that failed to prepare, or a failed bind, makes Next an error.
class SqliteStatement {
 public:
  enum class Step { kRow, kDone, kError };

  SqliteStatement(SqliteDatabase& db, const char* sql);

  SqliteStatement& Bind(int index, std::string_view bytes);
  SqliteStatement& Bind(int index, std::int64_t number);
  Step Next();

  std::string BytesAt(int column) const;
  std::int64_t NumberAt(int column) const;

 private:
  struct Finalizer {
    void operator()(sqlite3_stmt* statement) const;
  };
  std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
  bool failed_ = false;
};

// A write transaction taken at once (BEGIN IMMEDIATE), so two writers never both read and
// then fight over the upgrade; rolled back unless committed.
class SqliteWriteTransaction {
 public:
  explicit SqliteWriteTransaction(SqliteDatabase& db);
  ~SqliteWriteTransaction();
  SqliteWriteTransaction(const SqliteWriteTransaction&) = delete;
  SqliteWriteTransaction& operator=(const SqliteWriteTransaction&) = delete;

  bool active() const { return active_; }
  bool Commit();

 private:
  SqliteDatabase& db_;
  bool active_ = false;
};

}  // namespace platform::posix
