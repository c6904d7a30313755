// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace turfdesk {

/// What is going to be done with a key.
enum class KeyChange {
  /// Values are written to a key that exists.
  Write,
  /// The same, and a key that is absent is made.
  Create,
  Delete,
};

/// What a change of the tree needs, taken beforehand and held as long as the object lives: what other processes do can
/// no longer make the change fail. They have to wait meanwhile, so none is held across a question or a long copy.
class RegistryReservation {
public:
  RegistryReservation() = default;
  RegistryReservation(const RegistryReservation &) = delete;
  RegistryReservation &operator=(const RegistryReservation &) = delete;
  virtual ~RegistryReservation() = default;
};

/// The settings tree: keys that hold named values and subkeys. Stateful: it knows one root and one open key at a time.
///
/// All texts are UTF-8. A key path is relative to the root, its parts separated by backslashes; a trailing backslash
/// is ignored. Key and value names are found without regard to case and keep the case that they were created with.
/// The empty value name is the key's default value.
///
/// A false result is an answer; a call that the tree itself cannot carry out (damaged, busy for too long, no key open)
/// throws RuntimeError with words fit to show. The exceptions are the writes: SetLongValue and SetStringValue, whose
/// failure shows in LastError and LastErrorText, and OpenKey that creates a key, which is false then.
class RegistryService {
public:
  RegistryService() = default;
  RegistryService(const RegistryService &) = delete;
  RegistryService &operator=(const RegistryService &) = delete;
  virtual ~RegistryService() = default;

  /// Selects the root for the operations that follow. The program uses "HKEY_LOCAL_MACHINE" only.
  virtual void SetRootKey(std::string_view rootName) = 0;
  /// From true to false, what is read may be as it was at the beginning, for those who read thousands of values. A tree
  /// that can be read quickly anyway need not do anything.
  virtual void HoldStill(bool) {}
  /// Zero when the last operation succeeded.
  virtual long LastError() const = 0;
  /// Words for the failure of the last operation, "" when there was none. Closing the key counts as no operation, so
  /// that they can be fetched after it.
  virtual std::string LastErrorText() const = 0;
  /// Closes the open key; nothing happens when none is open.
  virtual void CloseKey() = 0;
  /// Deletes the key and its values, and is true when that worked. A key with subkeys is not deleted.
  virtual bool DeleteKey(std::string_view keyPath) = 0;
  /// Makes sure that a key can be changed, and holds what that needs; for work that has to touch files first. Null when
  /// the change would be refused, and LastErrorText has the words. Throws RuntimeError 70, after the usual patience,
  /// while another process uses the tree. At most one reservation at a time.
  virtual std::unique_ptr<RegistryReservation> Reserve(KeyChange change, std::string_view keyPath) = 0;
  /// From now on WatchedKeyChanged tells of this key, which need not exist, and of all below it.
  virtual void WatchKey(std::string_view keyPath) = 0;
  /// Has another process changed the watched key since WatchKey? Changes made through this platform object do not
  /// count, nor does what left the content as it was. Cheap when nobody has changed anything.
  virtual bool WatchedKeyChanged() = 0;
  /// Number of subkeys of the open key.
  virtual std::int32_t SubkeyCount() = 0;
  /// Does the key exist under the root? Needs no open key and leaves an open one as it is.
  virtual bool KeyExists(std::string_view keyPath) = 0;
  /// Opens the key, closing the one that was open. With create it is made, parents included, when absent.
  /// False when it is not open afterwards.
  virtual bool OpenKey(std::string_view keyPath, bool create) = 0;
  /// 0, with the reason in LastError, for a value that is absent or no number.
  virtual std::int32_t GetLongValue(std::string_view valueName) = 0;
  /// A number as its decimal text; "", with the reason in LastError, for a value that is absent. Throws RuntimeError
  /// 13, naming the value, for one of another type: taken for an empty text it would be lost without a word.
  virtual std::string GetStringValue(std::string_view valueName) = 0;
  virtual bool ValueExists(std::string_view valueName) = 0;
  /// Durable when the call returns.
  virtual void SetLongValue(std::string_view valueName, std::int32_t value) = 0;
  /// Durable when the call returns.
  virtual void SetStringValue(std::string_view valueName, std::string_view value) = 0;
  /// Name of the subkey at a 0-based index of the open key. Subkeys are in the order of their names.
  virtual std::string SubkeyName(std::int32_t index) = 0;
};

} // namespace turfdesk
