// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include "platform/RegistryBranches.h"
#include "platform/posix/SettingsHome.h"
#include "platform/posix/SettingsTree.h"
#include "platform/posix/SqliteConnection.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace turfdesk {

/// The settings tree in its file, shared with other programs that use the same home folder.
///
/// Reads are answered from a copy of the tree in memory. It is valid as long as the change counter in the file's header
/// is the one that it was read with, and each read looks at that counter first, so a change made by another program is
/// seen by the next read; so is a file that was replaced, cut or removed. Every write is durable when the call returns.
/// A process that dies in the middle of a write leaves a file that opens with the state before it or after it.
///
/// Key paths and names are as RegistryService describes them. Failures are thrown as RuntimeError with words fit to
/// show; DamagedSettings when the file calls for the repair.
class SettingsStore {
public:
  /// How long a busy store is waited for.
  static constexpr std::chrono::milliseconds DefaultPatience{5000};

  /// Opens and checks the store of a home folder, making both when they are absent.
  explicit SettingsStore(const std::string &home, std::chrono::milliseconds patience = DefaultPatience);
  ~SettingsStore();

  /// nullptr when there is no such key. The key is valid until the next call of any member.
  const SettingsKey *Find(RegistryRoot root, std::string_view keyPath) {
    if (!mIsStill)
      Follow();
    if (mLastKey && root == mLastRoot && keyPath == mLastPath)
      return mLastKey;
    return FindAnew(root, keyPath);
  }

  /// From true to false, reads are answered from the tree as it was at the beginning and cost no look at the file.
  void HoldStill(bool still);

  /// Makes the key, parents included, when it is absent. Throws RuntimeError 52 when the path cannot name a key.
  void CreateKey(RegistryRoot root, std::string_view keyPath);
  enum class Deletion { Done, NoSuchKey, HasSubkeys };
  /// A root counts as a key with subkeys.
  Deletion DeleteKey(RegistryRoot root, std::string_view keyPath);
  /// What DeleteKey would give, or throw, at this moment. The key stays. All that the deletion has to write is written
  /// once, and taken back.
  Deletion TryDeleteKey(RegistryRoot root, std::string_view keyPath);
  /// False when the key does not exist; it is not created then.
  bool SetValue(RegistryRoot root, std::string_view keyPath, std::string_view valueName, const SettingsValue &value);
  /// All of them or, when it throws, none. What each does is told with RegistryChange.
  void ApplyAll(std::span<const RegistryChange> changes);
  /// As RegistryBranches::Read tells it, from the file as it is at one moment.
  std::vector<RegistryKeyContent> ReadBranches(std::span<const RegistryBranch> branches);

  /// Keeps all others, readers too, out of the file until Release; writes go on as usual meanwhile. Throws when they
  /// cannot be kept out, after the usual patience.
  void Reserve();
  void Release() noexcept;
  /// From now on WatchedKeyChanged tells of this key, whether it exists or not, and of all below it.
  void WatchKey(RegistryRoot root, std::string_view keyPath);
  /// Has somebody else changed the watched key since then, or put a store in the place of this one whose key differs?
  bool WatchedKeyChanged();

private:
  /// All that belongs to one opening of the file.
  struct Session {
    Session(const std::string &storePath, std::chrono::milliseconds patience);

    SqliteConnection connection;
    SqliteStatement insertKey;
    SqliteStatement deleteValues;
    SqliteStatement deleteKey;
    SqliteStatement writeValue;
    SqliteStatement deleteValue;
    SqliteStatement readValues;
  };

  void Open();
  /// Brings the tree up to date with the file that bears the store's name now. Throws when there is none.
  void Follow();
  void Unlock() noexcept;
  void ReadTree(Session &session);
  bool WatchedKeyDiffers(SettingsTree &other);
  const SettingsKey *FindAnew(RegistryRoot root, std::string_view keyPath);
  bool IsBesideLast(RegistryRoot root, std::string_view keyPath) const;
  SettingsKey &MakeKey(RegistryRoot root, std::string_view keyPath);
  /// The key, when it may go; else null, and result says why.
  SettingsKey *FindDeletable(RegistryRoot root, std::string_view keyPath, Deletion &result);
  void DeleteRows(const SettingsKey &key);
  void StoreValue(SettingsKey &key, std::string_view valueName, const SettingsValue &value);
  void Apply(const RegistryChange &change);
  void EraseValue(SettingsKey &key, std::string_view valueName);
  void EraseBranch(SettingsKey &top);
  void ReadBranch(const RegistryBranch &branch, std::vector<RegistryKeyContent> &contents);
  std::vector<RegistryValue> ReadValues(const SettingsKey &key);
  enum class Outcome { Commit, Undo };
  /// Runs work with the tree current and nobody else writing, and commits what it has changed or, with Undo, drops it;
  /// such work leaves the tree in memory alone. After a commit that fails work is run a second time.
  void Transact(const std::function<void()> &work, Outcome outcome = Outcome::Commit);
  enum class OnFailedCommit { Return, Throw };
  /// False when the commit has failed.
  bool TryTransact(const std::function<void()> &work, Outcome outcome, OnFailedCommit onFailedCommit);

  SettingsPaths mPaths;
  std::chrono::milliseconds mPatience;
  std::unique_ptr<Session> mSession;
  SettingsTree mTree;
  /// The counter that mTree belongs to; a number that no counter has when mTree cannot be relied on.
  std::int64_t mChangeCounter = -1;
  bool mIsStill = false;
  /// The last counter under which the file held what is known here: a write that failed has left the file at this one.
  std::int64_t mKnownCounter = -1;
  /// Held by a reservation, lest the file itself is replaced.
  std::optional<SettingsLock> mReserved;
  struct Watched {
    RegistryRoot root;
    std::string keyPath;
    bool changed;
  };
  std::optional<Watched> mWatched;
  /// The key found last, since most reads come several to a key and its neighbours next.
  const SettingsKey *mLastKey = nullptr;
  RegistryRoot mLastRoot = RegistryRoot::LocalMachine;
  std::string mLastPath;
};

} // namespace turfdesk
