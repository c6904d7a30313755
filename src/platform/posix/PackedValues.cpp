// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 Turf Desk contributors

#include "platform/posix/PackedValues.h"

#include <cstring>

namespace turfdesk {

namespace {

constexpr std::size_t mostPacked = 4096;

} // namespace

std::optional<SettingsValue> PackedValues::Find(std::string_view foldedName) const {
  if (mMany) {
    const auto found = mMany->find(foldedName);
    return found == mMany->end()
               ? std::nullopt
               : std::optional(SettingsValue{found->second.type, found->second.number, found->second.text});
  }
  const std::size_t offset = OffsetOf(foldedName);
  return offset == mBytes.size() ? std::nullopt : std::optional(ValueAt(offset));
}

SettingsValue PackedValues::ValueAt(std::size_t offset) const {
  const Head head = HeadAt(offset);
  const char *data = mBytes.data() + offset + sizeof head + head.nameLength;
  SettingsValue value{head.type, 0, {}};
  if (head.type == SettingsType::Number)
    std::memcpy(&value.number, data, sizeof value.number);
  else
    value.text = {data, head.dataLength};
  return value;
}

void PackedValues::Set(std::string_view foldedName, const SettingsValue &value) {
  Erase(foldedName);
  Append(foldedName, value);
}

bool PackedValues::Erase(std::string_view foldedName) {
  if (mMany) {
    const auto found = mMany->find(foldedName);
    if (found == mMany->end())
      return false;
    mMany->erase(found);
    return true;
  }
  const std::size_t offset = OffsetOf(foldedName);
  if (offset == mBytes.size())
    return false;
  mBytes.erase(offset, HeadAt(offset).Size());
  return true;
}

void PackedValues::Append(std::string_view foldedName, const SettingsValue &value) {
  if (!mMany && mBytes.size() > mostPacked)
    Unpack();
  if (mMany) {
    mMany->emplace(foldedName, Content{value.type, value.number, std::string(value.text)});
    return;
  }
  const std::string_view number(reinterpret_cast<const char *>(&value.number), sizeof value.number);
  const std::string_view data = value.type == SettingsType::Number ? number : value.text;
  const Head head{static_cast<std::uint32_t>(foldedName.size()), value.type, static_cast<std::uint32_t>(data.size())};
  mBytes.append(reinterpret_cast<const char *>(&head), sizeof head).append(foldedName).append(data);
}

void PackedValues::Unpack() {
  auto many = std::make_unique<Many>();
  for (std::size_t offset = 0; offset < mBytes.size(); offset += HeadAt(offset).Size()) {
    const SettingsValue value = ValueAt(offset);
    const std::string_view name(mBytes.data() + offset + sizeof(Head), HeadAt(offset).nameLength);
    many->emplace(name, Content{value.type, value.number, std::string(value.text)});
  }
  mMany = std::move(many);
  mBytes.clear();
}

bool PackedValues::operator==(const PackedValues &other) const {
  if (mMany || other.mMany)
    return mMany && other.mMany && *mMany == *other.mMany;
  bool isSame = mBytes.size() == other.mBytes.size();
  for (std::size_t offset = 0; isSame && offset < mBytes.size(); offset += HeadAt(offset).Size()) {
    const std::string_view name(mBytes.data() + offset + sizeof(Head), HeadAt(offset).nameLength);
    isSame = Find(name) == other.Find(name);
  }
  return isSame;
}

PackedValues::Head PackedValues::HeadAt(std::size_t offset) const {
  Head head{};
  std::memcpy(&head, mBytes.data() + offset, sizeof head);
  return head;
}

std::size_t PackedValues::OffsetOf(std::string_view foldedName) const {
  std::size_t offset = 0;
  while (offset < mBytes.size()) {
    const Head head = HeadAt(offset);
    if (std::string_view(mBytes.data() + offset + sizeof head, head.nameLength) == foldedName)
      return offset;
    offset += head.Size();
  }
  return offset;
}

} // namespace turfdesk
