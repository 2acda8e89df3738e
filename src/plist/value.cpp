#include "plist/value.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <new>
#include <stdexcept>
#include <utility>

#include "plist/nodes.h"

namespace tallyfold::plist {

internal::TextNode* internal::TextNode::Make(std::string_view text) {
  if (text.size() > std::numeric_limits<std::uint32_t>::max()) {
    throw std::length_error("a text is longer than 4 GiB");
  }
  void* memory = ::operator new(sizeof(TextNode) + text.size());
  auto* node = new (memory) TextNode{1, static_cast<std::uint32_t>(text.size())};
  if (!text.empty()) std::memcpy(reinterpret_cast<char*>(node + 1), text.data(), text.size());
  return node;
}

namespace {

std::int32_t Saturated(double value) noexcept {
  if (std::isnan(value)) return 0;
  if (value >= 2147483647.0) return std::numeric_limits<std::int32_t>::max();
  if (value <= -2147483648.0) return std::numeric_limits<std::int32_t>::min();
  return static_cast<std::int32_t>(value);
}

double LeadingNumber(std::string_view text) noexcept {
  const std::size_t start = text.find_first_not_of(" \t\r\n");
  if (start == std::string_view::npos) return 0.0;
  text.remove_prefix(start);
  if (text.front() == '+') {
    text.remove_prefix(1);
    if (text.starts_with('-')) return 0.0;
  }
  double value = 0.0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  // Words such as "inf" and "nan" are no decimal numbers.
  return error == std::errc() && std::isfinite(value) ? value : 0.0;
}

}  // namespace

void Value::SetText(Kind kind, std::string_view text) {
  if (text.size() <= kInlineCapacity) {
    if (!text.empty()) std::memcpy(bytes_, text.data(), text.size());
    SetTag(kind, static_cast<std::uint8_t>(text.size()));
  } else {
    Store(internal::TextNode::Make(text));
    SetTag(kind, kOnHeap);
  }
}

void Value::Retain() const noexcept {
  switch (kind()) {
    case Kind::Array:
      return internal::Retain(Load<internal::ArrayNode*>());
    case Kind::Dictionary:
      return internal::Retain(Load<internal::DictionaryNode*>());
    default:
      return Load<internal::TextNode*>()->Retain();
  }
}

void Value::Release() noexcept {
  switch (kind()) {
    case Kind::Array:
      return internal::Release(Load<internal::ArrayNode*>());
    case Kind::Dictionary:
      return internal::Release(Load<internal::DictionaryNode*>());
    default:
      return Load<internal::TextNode*>()->Release();
  }
}

Value::Value(std::string_view text) : bytes_{} {
  SetText(Kind::String, text);
}
Value::Value(const char* text) : Value(std::string_view(text)) {}
Value::Value(const std::string& text) : Value(std::string_view(text)) {}
Value::Value(Array array) noexcept : bytes_{} {
  Store(std::exchange(array.node_, nullptr));
  SetTag(Kind::Array, kOnHeap);
}
Value::Value(Dictionary dictionary) noexcept : bytes_{} {
  Store(std::exchange(dictionary.node_, nullptr));
  SetTag(Kind::Dictionary, kOnHeap);
}

Value Value::Opaque(Kind kind, std::string_view text) {
  Value value;
  value.SetText(kind, text);
  return value;
}

std::int64_t Value::WideIntegerValue() const noexcept {
  return kind() == Kind::Integer ? Load<std::int64_t>() : IntegerValue();
}

std::int32_t Value::IntegerValue() const noexcept {
  switch (kind()) {
    case Kind::Integer:
      return static_cast<std::int32_t>(
          std::clamp<std::int64_t>(Load<std::int64_t>(), std::numeric_limits<std::int32_t>::min(),
                                   std::numeric_limits<std::int32_t>::max()));
    case Kind::Boolean:
      return Load<bool>() ? 1 : 0;
    case Kind::Real:
      return Saturated(Load<double>());
    case Kind::String:
      return Saturated(LeadingNumber(StringValue()));
    default:
      return 0;
  }
}

double Value::DoubleValue() const noexcept {
  switch (kind()) {
    case Kind::Integer:
      return static_cast<double>(Load<std::int64_t>());
    case Kind::Boolean:
      return Load<bool>() ? 1.0 : 0.0;
    case Kind::Real:
      return Load<double>();
    case Kind::String:
      return LeadingNumber(StringValue());
    default:
      return 0.0;
  }
}

bool Value::BooleanValue() const noexcept {
  switch (kind()) {
    case Kind::Boolean:
      return Load<bool>();
    case Kind::Integer:
      return Load<std::int64_t>() != 0;
    default:
      return DoubleValue() != 0.0;
  }
}

std::string_view Value::StringValue() const noexcept {
  switch (kind()) {
    case Kind::String:
    case Kind::Date:
    case Kind::Data: {
      const auto length = static_cast<std::uint8_t>(bytes_[14]);
      if (length == kOnHeap) return Load<internal::TextNode*>()->view();
      return {bytes_, length};
    }
    default:
      return {};
  }
}

Array Value::ArrayValue() const {
  if (!IsArray()) return Array();
  auto* node = Load<internal::ArrayNode*>();
  internal::Retain(node);
  return Array(node);
}

Dictionary Value::DictionaryValue() const {
  if (!IsDictionary()) return Dictionary();
  auto* node = Load<internal::DictionaryNode*>();
  internal::Retain(node);
  return Dictionary(node);
}

Value Value::DeepCopy() const {
  if (IsArray()) return Value(ArrayValue().DeepCopy());
  if (IsDictionary()) return Value(DictionaryValue().DeepCopy());
  return *this;
}

bool operator==(const Value& a, const Value& b) {
  if (a.kind() != b.kind()) return false;
  switch (a.kind()) {
    case Kind::None:
      return true;
    case Kind::Boolean:
      return a.Load<bool>() == b.Load<bool>();
    case Kind::Integer:
      return a.Load<std::int64_t>() == b.Load<std::int64_t>();
    case Kind::Real: {
      const double x = a.Load<double>();
      const double y = b.Load<double>();
      return x == y || (std::isnan(x) && std::isnan(y));
    }
    case Kind::String:
    case Kind::Date:
    case Kind::Data:
      return a.StringValue() == b.StringValue();
    case Kind::Array:
      return a.ArrayValue() == b.ArrayValue();
    case Kind::Dictionary:
      return a.DictionaryValue() == b.DictionaryValue();
  }
  return false;
}

}  // namespace tallyfold::plist
