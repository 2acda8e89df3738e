#pragma once

#include <initializer_list>
#include <string>
#include <utility>

#include "plist/value.h"

namespace tallyfold {

[[nodiscard]] inline plist::Array List(std::initializer_list<plist::Value> values) {
  plist::Array list;
  for (const plist::Value& value : values) list.Append(value);
  return list;
}

[[nodiscard]] inline plist::Dictionary Dict(
    std::initializer_list<std::pair<const char*, plist::Value>> items) {
  plist::Dictionary dictionary;
  for (const auto& [key, value] : items) dictionary.Set(key, value);
  return dictionary;
}

// All keys in their order, with a blank between them.
[[nodiscard]] inline std::string KeysOf(const plist::Dictionary& dictionary) {
  std::string keys;
  for (const plist::DictionaryItem& item : dictionary) {
    if (!keys.empty()) keys += ' ';
    keys += item.key();
  }
  return keys;
}

}  // namespace tallyfold
