#include "plist/output.h"

#include <utility>

namespace tallyfold::plist {

void Output::Write(const Value& value) {
  switch (value.kind()) {
    case Kind::None:
      break;
    case Kind::Boolean:
      Boolean(value.BooleanValue());
      break;
    case Kind::Integer:
      Integer(value.WideIntegerValue());
      break;
    case Kind::Real:
      Real(value.DoubleValue());
      break;
    case Kind::String:
      String(value.StringValue());
      break;
    case Kind::Date:
    case Kind::Data:
      Opaque(value.kind(), value.StringValue());
      break;
    case Kind::Array:
      BeginArray();
      for (const Value& element : value.ArrayValue()) Write(element);
      EndArray();
      break;
    case Kind::Dictionary:
      BeginDictionary();
      for (const DictionaryItem& item : value.DictionaryValue()) {
        if (item.value().IsNone()) continue;
        Key(item.key());
        Write(item.value());
      }
      EndDictionary();
      break;
  }
}

void TreeBuilder::Put(Value value) {
  if (levels_.empty()) {
    result_ = std::move(value);
    return;
  }
  Level& level = levels_.back();
  if (level.container.IsArray()) {
    level.container.ArrayValue().Append(std::move(value));
  } else {
    level.container.DictionaryValue().Set(level.key, std::move(value));
  }
}

void TreeBuilder::BeginDictionary() {
  levels_.push_back({Value(Dictionary()), {}});
}
void TreeBuilder::BeginArray() {
  levels_.push_back({Value(Array()), {}});
}

void TreeBuilder::EndDictionary() {
  Value finished = std::move(levels_.back().container);
  levels_.pop_back();
  Put(std::move(finished));
}

void TreeBuilder::EndArray() {
  EndDictionary();
}

void TreeBuilder::Key(std::string_view key) {
  levels_.back().key = key;
}
void TreeBuilder::Boolean(bool value) {
  Put(Value(value));
}
void TreeBuilder::Integer(std::int64_t value) {
  Put(Value(value));
}
void TreeBuilder::Real(double value) {
  Put(Value(value));
}
void TreeBuilder::String(std::string_view text) {
  Put(Value(text));
}
void TreeBuilder::Opaque(Kind kind, std::string_view text) {
  Put(Value::Opaque(kind, text));
}

Value TreeBuilder::Take() {
  return std::exchange(result_, Value());
}

}  // namespace tallyfold::plist
