// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/posix/SqliteConnection.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <endian.h>
#include <utility>

namespace turfdesk {

namespace {

struct FailureWords {
  int code;
  ErrorNumber number;
  const char *words;
};

constexpr std::int64_t changeCounterOffset = 24;

constexpr std::array<FailureWords, 11> failureTable{{
    {SQLITE_BUSY, ErrorNumber::PermissionDenied, "The settings are in use by another program: "},
    {SQLITE_LOCKED, ErrorNumber::PermissionDenied, "The settings are in use by another program: "},
    {SQLITE_READONLY, ErrorNumber::PathFileAccess, "The settings file cannot be written: "},
    {SQLITE_PERM, ErrorNumber::PathFileAccess, "The settings file cannot be opened: "},
    {SQLITE_CANTOPEN, ErrorNumber::PathFileAccess, "The settings file cannot be opened: "},
    {SQLITE_FULL, ErrorNumber::DiskFull, "The disk has no room for the settings: "},
    {SQLITE_TOOBIG, ErrorNumber::Overflow, "A text is too long for the settings: "},
    {SQLITE_NOMEM, ErrorNumber::OutOfMemory, "There is not enough memory to read the settings: "},
    {SQLITE_IOERR, ErrorNumber::DeviceIo, "The settings file cannot be read or written: "},
    {SQLITE_PROTOCOL, ErrorNumber::DeviceIo, "The settings file cannot be locked: "},
    {SQLITE_NOLFS, ErrorNumber::DeviceIo, "The settings file cannot be read or written: "},
}};

/// What a result code stands for, which may be one that came from a shortage.
int CauseOf(int code, sqlite3 *database) {
  // A failure of the memory allocation comes as one of the reading where the file's size was to be learned.
  return sqlite3_extended_errcode(database) == SQLITE_IOERR_NOMEM ? SQLITE_NOMEM : code & 0xff;
}

bool IsShortOfFiles(int primaryCode, sqlite3 *database) {
  const int error = sqlite3_system_errno(database);
  return (primaryCode == SQLITE_CANTOPEN || primaryCode == SQLITE_IOERR) && (error == EMFILE || error == ENFILE);
}

} // namespace

SqliteConnection::SqliteConnection(std::string path, std::chrono::milliseconds patience) : mPath(std::move(path)) {
  sqlite3 *database = nullptr;
  const int code = sqlite3_open_v2(mPath.c_str(), &database, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
  mDatabase.reset(database);
  if (code != SQLITE_OK)
    Fail(code);
  sqlite3_busy_timeout(database, static_cast<int>(patience.count()));
  // What another program may have put beside our tables does no harm as long as it does nothing.
  sqlite3_db_config(database, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
}

void SqliteConnection::Execute(const char *sql) {
  const int code = sqlite3_exec(mDatabase.get(), sql, nullptr, nullptr, nullptr);
  if (code != SQLITE_OK)
    Fail(code);
}

std::string SqliteConnection::QueryText(const char *sql) {
  SqliteStatement statement(*this, sql);
  return statement.Step() ? std::string(statement.Text(0)) : std::string();
}

bool SqliteConnection::HasMoved() {
  int hasMoved = 0;
  sqlite3_file_control(mDatabase.get(), nullptr, SQLITE_FCNTL_HAS_MOVED, &hasMoved);
  return hasMoved != 0;
}

std::uint32_t SqliteConnection::ChangeCounter() {
  // Through SQLite's own descriptor: closing another one would drop the locks that SQLite has on the file.
  sqlite3_file *file = nullptr;
  sqlite3_file_control(mDatabase.get(), nullptr, SQLITE_FCNTL_FILE_POINTER, &file);
  std::uint32_t bytes = 0;
  const int code = file->pMethods->xRead(file, &bytes, sizeof bytes, changeCounterOffset);
  if (code != SQLITE_OK && code != SQLITE_IOERR_SHORT_READ)
    Fail(code);
  return be32toh(bytes);
}

void SqliteConnection::WriteOut() {
  if (const int code = sqlite3_db_cacheflush(mDatabase.get()); code != SQLITE_OK)
    Fail(code);
}

void SqliteConnection::Fail(int code) const {
  const int primaryCode = CauseOf(code, mDatabase.get());
  if (IsShortOfFiles(primaryCode, mDatabase.get()))
    throw RuntimeError(ErrorNumber::TooManyFiles, "Too many files are open to use the settings: " + mPath);
  const auto *const failure = std::find_if(failureTable.begin(), failureTable.end(),
                                           [&](const FailureWords &row) { return row.code == primaryCode; });
  // What is left says that the file is no database, or not one with our tables.
  if (failure == failureTable.end())
    throw DamagedSettings("The settings file is damaged: " + mPath);
  throw RuntimeError(failure->number, failure->words + mPath);
}

SqliteTransaction::~SqliteTransaction() {
  // Some failures make SQLite roll back by itself.
  if (sqlite3_get_autocommit(mConnection.Get()) == 0)
    sqlite3_exec(mConnection.Get(), "ROLLBACK", nullptr, nullptr, nullptr);
}

SqliteStatement::SqliteStatement(SqliteConnection &connection, const char *sql) : mConnection(connection) {
  sqlite3_stmt *statement = nullptr;
  const int code = sqlite3_prepare_v3(connection.Get(), sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
  mStatement.reset(statement);
  Check(code);
}

SqliteStatement &SqliteStatement::Bind(int index, std::int64_t number) {
  Check(sqlite3_bind_int64(mStatement.get(), index, number));
  return *this;
}

SqliteStatement &SqliteStatement::Bind(int index, std::string_view text) {
  // A null pointer would bind NULL instead of the empty text.
  const char *data = text.empty() ? "" : text.data();
  Check(sqlite3_bind_text64(mStatement.get(), index, data, text.size(), SQLITE_STATIC, SQLITE_UTF8));
  return *this;
}

void SqliteStatement::Run() {
  while (Step()) {
  }
}

bool SqliteStatement::Step() {
  const int code = sqlite3_step(mStatement.get());
  if (code == SQLITE_ROW)
    return true;
  sqlite3_reset(mStatement.get());
  if (code != SQLITE_DONE)
    mConnection.Fail(code);
  return false;
}

std::string_view SqliteStatement::Text(int column) {
  const auto *data = reinterpret_cast<const char *>(sqlite3_column_text(mStatement.get(), column));
  return data ? std::string_view(data, static_cast<std::size_t>(sqlite3_column_bytes(mStatement.get(), column)))
              : std::string_view();
}

void SqliteStatement::Check(int code) {
  if (code != SQLITE_OK)
    mConnection.Fail(code);
}

} // namespace turfdesk
