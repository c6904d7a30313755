// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/posix/SettingsStore.h"

#include "platform/ShownText.h"
#include "platform/posix/FoldedText.h"
#include "platform/posix/SettingsSchema.h"

#include <algorithm>
#include <utility>

namespace turfdesk {

namespace {

constexpr std::int64_t noCounter = -1;

/// The lock that the next transaction takes stays behind its end.
constexpr const char *lockForGood = "PRAGMA locking_mode=EXCLUSIVE";

bool CanNameKey(std::string_view keyPath) {
  constexpr std::ptrdiff_t greatestDepth = 512;
  return !keyPath.starts_with('\\') && !keyPath.ends_with('\\') && keyPath.find("\\\\") == std::string_view::npos &&
         std::count(keyPath.begin(), keyPath.end(), '\\') < greatestDepth;
}

SettingsValue ValueOf(const RegistryData &data) {
  if (data.type == RegDword)
    return {SettingsType::Number, data.number, {}};
  return {SettingsType::Text, 0, data.text};
}

} // namespace

SettingsStore::Session::Session(const std::string &storePath, std::chrono::milliseconds patience)
    : connection(storePath, patience),
      insertKey(connection, "INSERT INTO keys (parent, folded, name, id) VALUES (?, ?, ?, ?)"),
      deleteValues(connection, "DELETE FROM entries WHERE key = ?"),
      deleteKey(connection, "DELETE FROM keys WHERE parent = ? AND folded = ?"),
      // A value keeps the case of its first name.
      writeValue(connection, "INSERT INTO entries (key, folded, name, type, data) VALUES (?, ?, ?, ?, ?) "
                             "ON CONFLICT (key, folded) DO UPDATE SET type = excluded.type, data = excluded.data"),
      deleteValue(connection, "DELETE FROM entries WHERE key = ? AND folded = ?"),
      // The tree in memory has no need of the names' case.
      readValues(connection, "SELECT name, type, data FROM entries WHERE key = ? ORDER BY folded") {}

SettingsStore::SettingsStore(const std::string &home, std::chrono::milliseconds patience)
    : mPaths(home), mPatience(patience) {
  MakeHomeFolder(mPaths);
  CreateStoreIfNew(mPaths, mPatience);
  const SettingsLock lock(mPaths, SettingsLock::Mode::Shared, mPatience);
  Open();
}

SettingsStore::~SettingsStore() = default;

void SettingsStore::Open() {
  if (SizeOfFile(mPaths.store) < 0)
    throw RuntimeError(ErrorNumber::PathFileAccess, "The settings file is missing: " + mPaths.store);
  // The numbers of another file mean nothing.
  mKnownCounter = noCounter;
  auto session = std::make_unique<Session>(mPaths.store, mPatience);
  UseDurableJournal(session->connection);
  SqliteTransaction transaction(session->connection, "BEGIN");
  CheckStore(session->connection);
  ReadTree(*session);
  transaction.Commit();
  mSession = std::move(session);
}

void SettingsStore::Follow() {
  const bool hasMoved = mSession->connection.HasMoved();
  if (!hasMoved && mSession->connection.ChangeCounter() == mChangeCounter)
    return;
  const SettingsLock lock(mPaths, SettingsLock::Mode::Shared, mPatience);
  if (hasMoved || mSession->connection.HasMoved()) {
    Open();
    return;
  }
  SqliteTransaction transaction(mSession->connection, "BEGIN");
  ReadTree(*mSession);
  transaction.Commit();
}

void SettingsStore::ReadTree(Session &session) {
  mLastKey = nullptr;
  mChangeCounter = noCounter;
  SettingsTree tree = LoadTree(session.connection);
  // Reading has locked the file, so until the transaction ends the counter is the one that belongs to what was read.
  const std::uint32_t counter = session.connection.ChangeCounter();
  if (mWatched && counter != mKnownCounter)
    mWatched->changed = mWatched->changed || WatchedKeyDiffers(tree);
  mTree = std::move(tree);
  mChangeCounter = mKnownCounter = counter;
}

void SettingsStore::HoldStill(bool still) {
  mIsStill = false;
  if (!still)
    return;
  Follow();
  mIsStill = true;
}

bool SettingsStore::WatchedKeyDiffers(SettingsTree &other) {
  const SettingsKey *here = mTree.Find(mWatched->root, mWatched->keyPath);
  const SettingsKey *there = other.Find(mWatched->root, mWatched->keyPath);
  return here && there ? !HaveSameContent(*here, *there) : here != there;
}

void SettingsStore::WatchKey(RegistryRoot root, std::string_view keyPath) {
  mWatched.reset();
  Find(root, keyPath);
  mWatched = Watched{root, std::string(WithoutTrailingBackslash(keyPath)), false};
}

bool SettingsStore::WatchedKeyChanged() {
  if (!mWatched)
    return false;
  Find(mWatched->root, mWatched->keyPath);
  return mWatched->changed;
}

void SettingsStore::Reserve() {
  CheckWritable(mPaths);
  mReserved.emplace(mPaths, SettingsLock::Mode::Shared, mPatience);
  try {
    if (mSession->connection.HasMoved())
      Open();
    mSession->connection.Execute(lockForGood);
    SqliteTransaction transaction(mSession->connection, "BEGIN EXCLUSIVE");
    if (mSession->connection.ChangeCounter() != mChangeCounter)
      ReadTree(*mSession);
    transaction.Commit();
  } catch (...) {
    Release();
    throw;
  }
}

void SettingsStore::Release() noexcept {
  Unlock();
  mReserved.reset();
}

void SettingsStore::Unlock() noexcept {
  sqlite3 *database = mSession->connection.Get();
  sqlite3_exec(database, "PRAGMA locking_mode=NORMAL", nullptr, nullptr, nullptr);
  // The lock goes with the end of the next transaction.
  sqlite3_exec(database, "SELECT 1 FROM keys LIMIT 1", nullptr, nullptr, nullptr);
}

const SettingsKey *SettingsStore::FindAnew(RegistryRoot root, std::string_view keyPath) {
  keyPath = WithoutTrailingBackslash(keyPath);
  const SettingsKey *key = nullptr;
  if (IsBesideLast(root, keyPath))
    key = mTree.FindSibling(*mLastKey, keyPath.substr(keyPath.rfind('\\') + 1));
  else
    key = mTree.Find(root, keyPath);
  if (!key)
    return nullptr;
  mLastKey = key;
  mLastRoot = root;
  mLastPath = keyPath;
  return key;
}

bool SettingsStore::IsBesideLast(RegistryRoot root, std::string_view keyPath) const {
  const std::size_t cut = keyPath.rfind('\\');
  return mLastKey && root == mLastRoot && cut != std::string_view::npos && mLastPath.rfind('\\') == cut &&
         std::string_view(mLastPath).substr(0, cut) == keyPath.substr(0, cut);
}

void SettingsStore::CreateKey(RegistryRoot root, std::string_view keyPath) {
  if (Find(root, keyPath) && !mSession->connection.HasMoved())
    return;
  Transact([&] { MakeKey(root, keyPath); });
}

SettingsStore::Deletion SettingsStore::DeleteKey(RegistryRoot root, std::string_view keyPath) {
  Deletion result = Deletion::Done;
  bool deleted = false;
  Transact([&] {
    SettingsKey *key = FindDeletable(root, keyPath, result);
    if (!key)
      return;
    DeleteRows(*key);
    mLastKey = nullptr;
    mTree.Erase(*key);
    deleted = true;
  });
  // When it was run twice, the first run may have done it.
  return deleted && result == Deletion::NoSuchKey ? Deletion::Done : result;
}

SettingsStore::Deletion SettingsStore::TryDeleteKey(RegistryRoot root, std::string_view keyPath) {
  Deletion result = Deletion::Done;
  const auto tryIt = [&] {
    if (const SettingsKey *key = FindDeletable(root, keyPath, result)) {
      DeleteRows(*key);
      mSession->connection.WriteOut();
    }
  };
  Transact(tryIt, Outcome::Undo);
  return result;
}

SettingsKey *SettingsStore::FindDeletable(RegistryRoot root, std::string_view keyPath, Deletion &result) {
  SettingsKey *key = mTree.Find(root, keyPath);
  if (!key)
    result = Deletion::NoSuchKey;
  else if (!key->parent || !key->subkeys.empty())
    result = Deletion::HasSubkeys;
  return result == Deletion::Done ? key : nullptr;
}

bool SettingsStore::SetValue(RegistryRoot root, std::string_view keyPath, std::string_view valueName,
                             const SettingsValue &value) {
  // A value that is there already is not written again: it is as durable as it can be, and a flush takes long.
  const SettingsKey *present = Find(root, keyPath);
  if (present && present->FindValue(valueName) == value && !mSession->connection.HasMoved())
    return true;
  bool keyExists = false;
  Transact([&] {
    SettingsKey *key = mTree.Find(root, keyPath);
    keyExists = key != nullptr;
    if (keyExists)
      StoreValue(*key, valueName, value);
  });
  return keyExists;
}

void SettingsStore::ApplyAll(std::span<const RegistryChange> changes) {
  Transact([&] {
    for (const RegistryChange &change : changes)
      Apply(change);
  });
}

void SettingsStore::Apply(const RegistryChange &change) {
  switch (change.kind) {
  case RegistryChange::Kind::CreateKey:
    MakeKey(change.root, change.keyPath);
    break;
  case RegistryChange::Kind::SetValue:
    StoreValue(MakeKey(change.root, change.keyPath), change.valueName, ValueOf(change.data));
    break;
  case RegistryChange::Kind::DeleteValue:
    if (SettingsKey *key = mTree.Find(change.root, change.keyPath))
      EraseValue(*key, change.valueName);
    break;
  case RegistryChange::Kind::DeleteKey:
    if (SettingsKey *key = mTree.Find(change.root, change.keyPath))
      EraseBranch(*key);
    break;
  }
}

std::vector<RegistryKeyContent> SettingsStore::ReadBranches(std::span<const RegistryBranch> branches) {
  const SettingsLock lock(mPaths, SettingsLock::Mode::Shared, mPatience);
  if (mSession->connection.HasMoved())
    Open();
  SqliteTransaction transaction(mSession->connection, "BEGIN");
  ReadTree(*mSession);
  std::vector<RegistryKeyContent> contents;
  for (const RegistryBranch &branch : branches)
    ReadBranch(branch, contents);
  transaction.Commit();
  return contents;
}

void SettingsStore::ReadBranch(const RegistryBranch &branch, std::vector<RegistryKeyContent> &contents) {
  const std::string topPath(WithoutTrailingBackslash(branch.keyPath));
  std::vector<std::pair<const SettingsKey *, std::string>> pending;
  if (const SettingsKey *top = mTree.Find(branch.root, topPath))
    pending.emplace_back(top, topPath);
  while (!pending.empty()) {
    const auto [key, path] = std::move(pending.back());
    pending.pop_back();
    contents.push_back({branch.root, path, ReadValues(*key)});
    std::for_each(key->subkeys.rbegin(), key->subkeys.rend(), [&pending, &path = path](const SettingsKey *subkey) {
      pending.emplace_back(subkey, path.empty() ? subkey->name : path + '\\' + subkey->name);
    });
  }
}

std::vector<RegistryValue> SettingsStore::ReadValues(const SettingsKey &key) {
  std::vector<RegistryValue> values;
  SqliteStatement &row = mSession->readValues.Bind(1, key.id);
  while (row.Step()) {
    RegistryValue &value = values.emplace_back();
    value.name = row.Text(0);
    value.data.type = static_cast<std::uint32_t>(row.Integer(1));
    if (value.data.type == RegDword)
      value.data.number = static_cast<std::int32_t>(row.Integer(2));
    else
      value.data.text = row.Text(2);
  }
  return values;
}

SettingsKey &SettingsStore::MakeKey(RegistryRoot root, std::string_view keyPath) {
  keyPath = WithoutTrailingBackslash(keyPath);
  if (!CanNameKey(keyPath))
    throw RuntimeError(ErrorNumber::BadFileName, "This is no name for a settings key: " + AsOneLine(keyPath));
  SettingsKey *key = &mTree.Root(root);
  while (!keyPath.empty()) {
    const std::string_view name = TakePart(keyPath);
    SettingsKey *subkey = mTree.FindSubkey(*key, name);
    if (!subkey) {
      const FoldedText folded(name);
      const std::int64_t id = mTree.NextId();
      mSession->insertKey.Bind(1, key->id).Bind(2, folded.View()).Bind(3, name).Bind(4, id).Run();
      subkey = mTree.Insert(*key, id, name, folded.View());
    }
    key = subkey;
  }
  return *key;
}

void SettingsStore::DeleteRows(const SettingsKey &key) {
  mSession->deleteValues.Bind(1, key.id).Run();
  mSession->deleteKey.Bind(1, key.parent->id).Bind(2, key.foldedName).Run();
}

void SettingsStore::StoreValue(SettingsKey &key, std::string_view valueName, const SettingsValue &value) {
  const FoldedText folded(valueName);
  // SQLite does not raise the change counter for a row that is replaced by its like, and Transact counts on it.
  if (key.values.Find(folded.View()) == value)
    return;
  SqliteStatement &statement = mSession->writeValue;
  statement.Bind(1, key.id).Bind(2, folded.View()).Bind(3, valueName).Bind(4, static_cast<std::int64_t>(value.type));
  if (value.type == SettingsType::Text)
    statement.Bind(5, value.text).Run();
  else
    statement.Bind(5, std::int64_t{value.number}).Run();
  key.values.Set(folded.View(), value);
}

void SettingsStore::EraseValue(SettingsKey &key, std::string_view valueName) {
  const FoldedText folded(valueName);
  if (key.values.Erase(folded.View()))
    mSession->deleteValue.Bind(1, key.id).Bind(2, folded.View()).Run();
}

void SettingsStore::EraseBranch(SettingsKey &top) {
  if (!top.parent)
    throw RuntimeError(ErrorNumber::PathFileAccess, "A root of the settings is not deleted");
  // Each key stands ahead of its subkeys, and these in their order, so going backwards only last ones are erased.
  std::vector<SettingsKey *> keys{&top};
  for (std::size_t i = 0; i < keys.size(); ++i)
    keys.insert(keys.end(), keys[i]->subkeys.begin(), keys[i]->subkeys.end());
  mLastKey = nullptr;
  for (; !keys.empty(); keys.pop_back()) {
    DeleteRows(*keys.back());
    mTree.Erase(*keys.back());
  }
}

void SettingsStore::Transact(const std::function<void()> &work, Outcome outcome) {
  CheckWritable(mPaths);
  const SettingsLock lock(mPaths, SettingsLock::Mode::Shared, mPatience);
  if (mSession->connection.HasMoved())
    Open();
  // A commit whose last step fails, the flush of the journal that it has cut off, has taken effect all the same. The
  // second run finds out: either nothing is left to do, or it tries once more.
  if (TryTransact(work, outcome, OnFailedCommit::Return))
    return;
  // Whoever keeps the lock is not given a fresh look at the file.
  if (mReserved)
    Unlock();
  TryTransact(work, outcome, OnFailedCommit::Throw);
  if (mReserved)
    mSession->connection.Execute(lockForGood);
}

bool SettingsStore::TryTransact(const std::function<void()> &work, Outcome outcome, OnFailedCommit onFailedCommit) {
  SqliteConnection &connection = mSession->connection;
  SqliteTransaction transaction(connection, "BEGIN IMMEDIATE");
  if (BringUpToDate(connection) || connection.ChangeCounter() != mChangeCounter)
    ReadTree(*mSession);
  // Until the commit has succeeded the tree in memory may hold what the file will not.
  const auto counter = static_cast<std::uint32_t>(std::exchange(mChangeCounter, noCounter));
  const std::int64_t changesBefore = connection.TotalChanges();
  work();
  if (outcome == Outcome::Undo) {
    mChangeCounter = counter;
    return true;
  }
  try {
    transaction.Commit();
  } catch (const RuntimeError &error) {
    const bool isBusy = error.Number() == ErrorNumber::PermissionDenied;
    if (isBusy || onFailedCommit == OnFailedCommit::Throw)
      throw;
    return false;
  }
  const std::uint32_t ownCounter = connection.TotalChanges() == changesBefore ? counter : counter + 1;
  const std::uint32_t newCounter = connection.ChangeCounter();
  // During a reservation nobody else writes, and SQLite raises the counter only once.
  if (newCounter == ownCounter || mReserved)
    mChangeCounter = mKnownCounter = newCounter;
  return true;
}

} // namespace turfdesk
