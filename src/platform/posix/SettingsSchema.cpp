// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/posix/SettingsSchema.h"

#include "platform/CaseFold.h"

#include <array>
#include <map>
#include <set>
#include <unordered_map>
#include <utility>

namespace turfdesk {

namespace {

// A later version that changes the tables, or the rule by which names are folded, raises the number. The first version
// took more letters for the same than Windows does.
constexpr std::int64_t schemaVersion = 2;

// Both tables, in the order of their names. A row is found by what it is looked up by, and read back in the order that
// the tree in memory keeps. There is no other index: the tree in memory answers all lookups, and each index would cost
// every write a page.
constexpr std::array<const char *, 2> tables{
    R"(CREATE TABLE entries (
  key INTEGER NOT NULL,
  folded TEXT NOT NULL,
  name TEXT NOT NULL,
  type INTEGER NOT NULL,   -- 1 text, 4 a 32-bit number
  data NOT NULL,
  PRIMARY KEY (key, folded)
) WITHOUT ROWID)",
    R"(CREATE TABLE keys (
  parent INTEGER NOT NULL, -- 1 HKEY_LOCAL_MACHINE, 2 HKEY_CLASSES_ROOT, else id of a key
  folded TEXT NOT NULL,    -- the name without regard to case
  name TEXT NOT NULL,      -- the name as it was created
  id INTEGER NOT NULL,
  PRIMARY KEY (parent, folded)
) WITHOUT ROWID)"};

// Far above any count of keys, far below what adding one could overflow.
constexpr std::int64_t greatestId = std::int64_t{1} << 48;

[[noreturn]] void FailAsDamaged(const SqliteConnection &connection) { connection.Fail(SQLITE_CORRUPT); }

void WriteVersion(SqliteConnection &connection) {
  connection.Execute(("PRAGMA user_version=" + std::to_string(schemaVersion)).c_str());
}

void CreateStore(const std::string &path) {
  { const Descriptor empty = OpenAfresh(path); }
  SqliteConnection connection(path, std::chrono::milliseconds(0));
  // Nobody sees the file before it is renamed, so it needs no journal, which a crash would leave lying about.
  connection.QueryText("PRAGMA journal_mode=OFF");
  SqliteTransaction transaction(connection, "BEGIN");
  WriteVersion(connection);
  for (const char *table : tables)
    connection.Execute(table);
  transaction.Commit();
}

std::int64_t VersionOf(SqliteConnection &connection) {
  SqliteStatement version(connection, "PRAGMA user_version");
  return version.Step() ? version.Integer(0) : 0;
}

/// Where a row stands: the key that it belongs to, and its folded name.
using RowPlace = std::pair<std::int64_t, std::string>;

struct RowName {
  std::string folded;
  std::string name;
};

/// The rows whose names an earlier version has folded otherwise than FoldCase does, with the names that they are to
/// have. Where two names have become one, the second gets a number, so that nothing goes.
class Refolding {
public:
  /// names selects the keys, folded names and names of all rows of a table.
  Refolding(SqliteConnection &connection, const char *names) {
    if (VersionOf(connection) >= schemaVersion)
      return;
    std::map<RowPlace, std::string> misplaced;
    std::set<RowPlace> taken;
    SqliteStatement rows(connection, names);
    while (rows.Step()) {
      RowPlace place(rows.Integer(0), rows.Text(1));
      if (FoldCase(rows.Text(2)) == place.second)
        taken.insert(std::move(place));
      else
        misplaced.emplace(std::move(place), rows.Text(2));
    }
    for (const auto &[place, name] : misplaced)
      mRows.emplace(place, FreeName(taken, place.first, name));
  }

  /// The new name of a row; nullptr when the row keeps its own.
  const RowName *Find(std::int64_t key, std::string_view folded) const {
    if (mRows.empty())
      return nullptr;
    const auto found = mRows.find(RowPlace(key, folded));
    return found != mRows.end() ? &found->second : nullptr;
  }

  /// update sets a row's folded name and name, and takes the key and the folded name that it stands at.
  void Write(SqliteConnection &connection, const char *update) const {
    SqliteStatement statement(connection, update);
    const auto rename = [&statement](const RowPlace &place, const RowName &row) {
      statement.Bind(1, row.folded).Bind(2, row.name).Bind(3, place.first).Bind(4, place.second).Run();
    };
    // By way of names that nothing else has, since one row's new name may be another's old one.
    std::int64_t number = 0;
    for (const auto &[place, row] : mRows)
      rename(place, {Unused(++number), row.name});
    number = 0;
    for (const auto &[place, row] : mRows)
      rename({place.first, Unused(++number)}, row);
  }

private:
  static std::string Unused(std::int64_t number) { return "\x01" + std::to_string(number); }

  static RowName FreeName(std::set<RowPlace> &taken, std::int64_t key, const std::string &name) {
    RowName row{FoldCase(name), name};
    for (int number = 2; !taken.emplace(key, row.folded).second; ++number) {
      row.name = name + " (" + std::to_string(number) + ")";
      row.folded = FoldCase(row.name);
    }
    return row;
  }

  std::map<RowPlace, RowName> mRows;
};

Refolding RefoldingOfKeys(SqliteConnection &connection) {
  return Refolding(connection, "SELECT parent, folded, name FROM keys");
}

Refolding RefoldingOfValues(SqliteConnection &connection) {
  return Refolding(connection, "SELECT key, folded, name FROM entries");
}

bool HasOurTables(SqliteConnection &connection) {
  // SQLite keeps tables of its own, such as the statistics that somebody may have had it gather.
  SqliteStatement statement(connection, "SELECT sql FROM sqlite_master WHERE name NOT LIKE 'sqlite_%' ORDER BY name");
  for (const char *table : tables)
    if (!statement.Step() || statement.Text(0) != table)
      return false;
  return !statement.Step();
}

bool ReadValue(SqliteStatement &row, SettingsValue &value) {
  const std::int64_t type = row.Integer(2);
  if (type == RegSz && row.IsText(3)) {
    value.text = row.Text(3);
    return true;
  }
  value.type = SettingsType::Number;
  value.number = static_cast<std::int32_t>(row.Integer(3));
  return type == RegDword && row.IsInteger(3) && value.number == row.Integer(3);
}

using ValuesOfKeys = std::unordered_map<std::int64_t, PackedValues>;

ValuesOfKeys LoadValues(SqliteConnection &connection) {
  const Refolding refolding = RefoldingOfValues(connection);
  ValuesOfKeys valuesOfKeys;
  SqliteStatement rows(connection, "SELECT key, folded, type, data FROM entries ORDER BY key, folded");
  std::int64_t id = 0;
  PackedValues *values = nullptr;
  while (rows.Step()) {
    if (!values || id != rows.Integer(0)) {
      id = rows.Integer(0);
      values = &valuesOfKeys[id];
    }
    SettingsValue value;
    if (!ReadValue(rows, value))
      FailAsDamaged(connection);
    const RowName *renamed = refolding.Find(id, rows.Text(1));
    values->Append(renamed ? renamed->folded : rows.Text(1), value);
  }
  return valuesOfKeys;
}

/// Gives each key the values that were read for it.
class ValueGiver {
public:
  explicit ValueGiver(const ValuesOfKeys &valuesOfKeys) : mValuesOfKeys(valuesOfKeys) {}

  /// Copies, and leaves all that was read where it is: so the memory of one key, and then of its next sibling, lies
  /// side by side, and going through all keys in their order finds the next one in the processor's cache.
  void GiveTo(SettingsKey &key) {
    const auto values = mValuesOfKeys.find(key.id);
    if (values == mValuesOfKeys.end())
      return;
    key.values = values->second;
    ++mGiven;
  }
  /// False when there were values that belong to no key.
  bool HasGivenAll() const { return mGiven == mValuesOfKeys.size(); }

private:
  const ValuesOfKeys &mValuesOfKeys;
  std::size_t mGiven = 0;
};

void LoadKeys(SqliteConnection &connection, SettingsTree &tree, ValueGiver &valueGiver) {
  const Refolding refolding = RefoldingOfKeys(connection);
  // A key's id is greater than its parent's, so each parent comes before its subkeys.
  SqliteStatement rows(connection, "SELECT parent, folded, name, id FROM keys ORDER BY parent, folded");
  SettingsKey *parent = nullptr;
  while (rows.Step()) {
    if (!parent || parent->id != rows.Integer(0))
      parent = tree.FindId(rows.Integer(0));
    const std::int64_t id = rows.Integer(3);
    const bool isSound = parent && id > parent->id && id <= greatestId;
    const RowName *renamed = refolding.Find(rows.Integer(0), rows.Text(1));
    const std::string_view name = renamed ? renamed->name : rows.Text(2);
    const std::string_view folded = renamed ? renamed->folded : rows.Text(1);
    SettingsKey *key = isSound ? tree.Insert(*parent, id, name, folded) : nullptr;
    if (!key)
      FailAsDamaged(connection);
    valueGiver.GiveTo(*key);
  }
}

} // namespace

void CreateStoreIfNew(const SettingsPaths &paths, std::chrono::milliseconds patience) {
  if (SizeOfFile(paths.store) > 0)
    return;
  const SettingsLock lock(paths, SettingsLock::Mode::Alone, patience);
  if (SizeOfFile(paths.store) > 0)
    return;
  if (SizeOfFile(paths.goodCopy) >= 0)
    throw DamagedSettings("The settings file is empty or missing: " + paths.store);
  // A journal without its store would be played into the new one.
  if (SizeOfFile(JournalOf(paths.store)) > 0)
    SetAside(paths, paths.store, "settings.damaged");
  CreateStore(paths.unfinished);
  RenameDurably(paths, paths.unfinished, paths.store);
}

void UseDurableJournal(SqliteConnection &connection) {
  // With a truncated journal the end of a transaction is itself flushed, which deleting the journal would not be.
  // A store that somebody has switched to write-ahead logging is switched back: its change counter stands still.
  if (connection.QueryText("PRAGMA journal_mode=TRUNCATE") != "truncate")
    connection.Fail(SQLITE_BUSY);
  connection.Execute("PRAGMA synchronous=FULL");
}

void CheckStore(SqliteConnection &connection) {
  if (VersionOf(connection) > schemaVersion)
    throw RuntimeError(ErrorNumber::PathFileAccess,
                       "The settings file was written by a later version of this program.");
  if (!HasOurTables(connection) || connection.QueryText("PRAGMA quick_check(1)") != "ok")
    FailAsDamaged(connection);
}

bool BringUpToDate(SqliteConnection &connection) {
  if (VersionOf(connection) >= schemaVersion)
    return false;
  RefoldingOfKeys(connection).Write(connection, "UPDATE keys SET folded = ?, name = ? WHERE parent = ? AND folded = ?");
  RefoldingOfValues(connection)
      .Write(connection, "UPDATE entries SET folded = ?, name = ? WHERE key = ? AND folded = ?");
  WriteVersion(connection);
  return true;
}

SettingsTree LoadTree(SqliteConnection &connection) {
  const ValuesOfKeys valuesOfKeys = LoadValues(connection);
  ValueGiver valueGiver(valuesOfKeys);
  SettingsTree tree;
  for (const RegistryRoot root : {RegistryRoot::LocalMachine, RegistryRoot::ClassesRoot})
    valueGiver.GiveTo(tree.Root(root));
  LoadKeys(connection, tree, valueGiver);
  if (!valueGiver.HasGivenAll())
    FailAsDamaged(connection);
  return tree;
}

void VerifyStore(const std::string &storePath, std::chrono::milliseconds patience) {
  SqliteConnection connection(storePath, patience);
  const SqliteTransaction transaction(connection, "BEGIN");
  CheckStore(connection);
  LoadTree(connection);
}

} // namespace turfdesk
