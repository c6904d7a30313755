// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/RuntimeError.h"

#include <sqlite3.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace turfdesk {

/// The settings file cannot be trusted any more and calls for the repair, as opposed to one that is busy or out of
/// reach.
class DamagedSettings : public RuntimeError {
public:
  explicit DamagedSettings(const std::string &description) : RuntimeError(ErrorNumber::DeviceIo, description) {}
};

/// An open database file. Failures of all its operations, and of the statements made from it, are thrown as
/// RuntimeError with words about the settings file, or as DamagedSettings.
class SqliteConnection {
public:
  /// Opens an existing file; patience is how long each operation waits for other users of the file.
  SqliteConnection(std::string path, std::chrono::milliseconds patience);

  /// Runs statements that give no rows.
  void Execute(const char *sql);
  /// First column of the first row, as text; "" without a row.
  std::string QueryText(const char *sql);
  /// Has the file been renamed, replaced or deleted since it was opened?
  bool HasMoved();
  /// The number in the file's header that SQLite raises by one with every transaction that changes the file. Reads the
  /// file and takes no lock. 0 when the file has been cut to nothing.
  std::uint32_t ChangeCounter();
  /// Writes to disk what the transaction under way has changed so far, in a way that can still be rolled back.
  void WriteOut();
  /// Rows changed since the connection was opened.
  std::int64_t TotalChanges() const { return sqlite3_total_changes64(mDatabase.get()); }

  sqlite3 *Get() const { return mDatabase.get(); }
  /// Throws what an SQLite result code stands for.
  [[noreturn]] void Fail(int code) const;

private:
  struct Close {
    void operator()(sqlite3 *database) const { sqlite3_close(database); }
  };

  std::string mPath;
  std::unique_ptr<sqlite3, Close> mDatabase;
};

/// A transaction that is rolled back unless it is committed.
class SqliteTransaction {
public:
  /// begin is the statement that starts it: "BEGIN", or "BEGIN IMMEDIATE" to keep other writers out from here on.
  SqliteTransaction(SqliteConnection &connection, const char *begin) : mConnection(connection) {
    mConnection.Execute(begin);
  }
  SqliteTransaction(const SqliteTransaction &) = delete;
  SqliteTransaction &operator=(const SqliteTransaction &) = delete;
  ~SqliteTransaction();

  void Commit() { mConnection.Execute("COMMIT"); }

private:
  SqliteConnection &mConnection;
};

/// A prepared statement, used again and again. Texts that are bound must live until the statement has run.
class SqliteStatement {
public:
  SqliteStatement(SqliteConnection &connection, const char *sql);

  /// index is 1-based.
  SqliteStatement &Bind(int index, std::int64_t number);
  SqliteStatement &Bind(int index, std::string_view text);
  /// Runs a statement that gives no rows.
  void Run();
  /// Goes to the next row; false behind the last, after which the statement can run anew.
  bool Step();

  /// column is 0-based. The text is valid until the next Step.
  std::int64_t Integer(int column) { return sqlite3_column_int64(mStatement.get(), column); }
  std::string_view Text(int column);
  bool IsText(int column) { return sqlite3_column_type(mStatement.get(), column) == SQLITE_TEXT; }
  bool IsInteger(int column) { return sqlite3_column_type(mStatement.get(), column) == SQLITE_INTEGER; }

private:
  struct Finalize {
    void operator()(sqlite3_stmt *statement) const { sqlite3_finalize(statement); }
  };

  void Check(int code);

  SqliteConnection &mConnection;
  std::unique_ptr<sqlite3_stmt, Finalize> mStatement;
};

} // namespace turfdesk
