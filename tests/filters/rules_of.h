#pragma once

#include <string>

#include "filters/filter.h"

namespace tallyfold {

// The rules of every list as " list logic qualifier data", lists without "filter_" before their
// names.
inline std::string RulesOf(const LDGRFilter& filter) {
  std::string text;
  for (const plist::DictionaryItem& item : filter.asDictionary()) {
    for (const plist::Value& value : item.value().ArrayValue()) {
      const plist::Dictionary rule = value.DictionaryValue();
      const plist::Value& data = rule.Get("data");
      text.append(" ").append(item.key().substr(std::string_view("filter_").size()));
      text += " " + std::to_string(rule.Get("logic").IntegerValue());
      text += " " + std::to_string(rule.Get("qualifier").IntegerValue()) + " ";
      text += data.IsString() ? "'" + std::string(data.StringValue()) + "'"
              : data.kind() == plist::Kind::Boolean
                  ? std::string(data.BooleanValue() ? "YES" : "NO")
                  : std::to_string(data.IntegerValue());
    }
  }
  return text;
}

}  // namespace tallyfold
