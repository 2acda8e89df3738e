#pragma once

#include <charconv>
#include <string>

#include "plist/value.h"

namespace tallyfold::plist {

// A value in one line in which every kind looks different: true 5 5.0 "text" date(...) data(...)
// [a,b] {key:value}.
inline std::string Describe(const Value& value) {
  std::string text;
  switch (value.kind()) {
    case Kind::None:
      return "none";
    case Kind::Boolean:
      return value.BooleanValue() ? "true" : "false";
    case Kind::Integer:
      return std::to_string(value.WideIntegerValue());
    case Kind::Real: {
      char digits[32];
      text.assign(digits, std::to_chars(digits, digits + sizeof digits, value.DoubleValue()).ptr);
      const bool is_whole = text.find_first_of(".enf") == std::string::npos;
      return is_whole ? text + ".0" : text;
    }
    case Kind::String:
      return '"' + std::string(value.StringValue()) + '"';
    case Kind::Date:
      return "date(" + std::string(value.StringValue()) + ")";
    case Kind::Data:
      return "data(" + std::string(value.StringValue()) + ")";
    case Kind::Array:
      for (const Value& element : value.ArrayValue()) {
        text += (text.empty() ? "" : ",") + Describe(element);
      }
      return "[" + text + "]";
    case Kind::Dictionary:
      for (const DictionaryItem& item : value.DictionaryValue()) {
        text += (text.empty() ? "" : ",") + std::string(item.key()) + ":" + Describe(item.value());
      }
      return "{" + text + "}";
  }
  return {};
}

}  // namespace tallyfold::plist
