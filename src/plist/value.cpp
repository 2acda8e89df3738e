#include "plist/value.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <stdexcept>
#include <unordered_map>
#include <utility>

#include "plist/nodes.h"

namespace tallyfold::plist {

namespace internal {

TextNode* TextNode::Make(std::string_view text) {
  if (text.size() > std::numeric_limits<std::uint32_t>::max()) {
    throw std::length_error("a text is longer than 4 GiB");
  }
  void* memory = ::operator new(sizeof(TextNode) + text.size());
  auto* node = new (memory) TextNode{1, static_cast<std::uint32_t>(text.size())};
  if (!text.empty()) std::memcpy(reinterpret_cast<char*>(node + 1), text.data(), text.size());
  return node;
}

std::size_t DictionaryNode::Find(std::string_view key) {
  // Beyond this many keys an index is made for look-ups out of order.
  constexpr std::size_t kIndexThreshold = 16;

  if (expected < items.size() && items[expected].key() == key) return expected++;
  std::size_t position = kNotFound;
  if (items.size() <= kIndexThreshold) {
    for (std::size_t i = 0; i < items.size() && position == kNotFound; ++i) {
      if (items[i].key() == key) position = i;
    }
  } else {
    if (!index) index = std::make_unique<std::unordered_map<std::string_view, std::uint32_t>>();
    // Items appended since the last look-up are taken in now.
    for (std::size_t i = index->size(); i < items.size(); ++i) {
      index->emplace(items[i].key(), static_cast<std::uint32_t>(i));
    }
    const auto found = index->find(key);
    if (found != index->end()) position = found->second;
  }
  if (position != kNotFound) expected = static_cast<std::uint32_t>(position + 1);
  return position;
}

namespace {

template <typename Node>
void Retain(Node* node) noexcept {
  if (node != nullptr) ++node->references;
}

template <typename Node>
void Release(Node* node) noexcept {
  if (node == nullptr || --node->references != 0) return;
  std::destroy_at(node);
  ::operator delete(node);
}

}  // namespace
}  // namespace internal

namespace {

constexpr std::size_t kNotFound = internal::DictionaryNode::kNotFound;

const Value& NoneValue() noexcept {
  static const Value none;
  return none;
}

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

// --- Value ------------------------------------------------------------------------------------

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
      return static_cast<std::int32_t>(static_cast<std::uint32_t>(Load<std::int64_t>()));
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

// --- Array ------------------------------------------------------------------------------------

Array::Array() : node_(internal::Access::MakeArray(0)) {}
Array::Array(const Array& other) noexcept : node_(other.node_) {
  internal::Retain(node_);
}
Array::Array(Array&& other) noexcept : node_(std::exchange(other.node_, nullptr)) {}
Array& Array::operator=(Array other) noexcept {
  std::swap(node_, other.node_);
  return *this;
}
Array::~Array() {
  internal::Release(node_);
}

std::size_t Array::size() const noexcept {
  return node_->values.size();
}

const Value& Array::At(std::size_t index) const noexcept {
  return index < node_->values.size() ? node_->values[index] : NoneValue();
}

const Value* Array::begin() const noexcept {
  return node_->values.begin();
}
const Value* Array::end() const noexcept {
  return node_->values.end();
}
void Array::Reserve(std::size_t count) {
  node_->values.Reserve(count);
}
void Array::Append(Value value) {
  node_->values.Append(std::move(value));
}

void Array::Set(std::size_t index, Value value) {
  if (index < size()) node_->values[index] = std::move(value);
}

void Array::Remove(std::size_t index) {
  if (index < size()) node_->values.Remove(index);
}

void Array::Clear() noexcept {
  node_->values.Clear();
}

void Array::Adopt(Value* values, std::size_t count) {
  Clear();
  Reserve(count);
  for (std::size_t i = 0; i < count; ++i) Append(std::move(values[i]));
}

Value Array::Take(std::size_t index) noexcept {
  return index < size() ? std::move(node_->values[index]) : Value();
}

Array Array::ShallowCopy() const {
  Array copy(internal::Access::MakeArray(size()));
  for (const Value& value : *this) copy.Append(value);
  return copy;
}

Array Array::DeepCopy() const {
  Array copy(internal::Access::MakeArray(size()));
  for (const Value& value : *this) copy.Append(value.DeepCopy());
  return copy;
}

bool operator==(const Array& a, const Array& b) {
  return a.node_ == b.node_ || std::equal(a.begin(), a.end(), b.begin(), b.end());
}

// --- Dictionary -------------------------------------------------------------------------------

Dictionary::Dictionary() : node_(internal::Access::MakeDictionary(0)) {}
Dictionary::Dictionary(const Dictionary& other) noexcept : node_(other.node_) {
  internal::Retain(node_);
}
Dictionary::Dictionary(Dictionary&& other) noexcept : node_(std::exchange(other.node_, nullptr)) {}
Dictionary& Dictionary::operator=(Dictionary other) noexcept {
  std::swap(node_, other.node_);
  return *this;
}
Dictionary::~Dictionary() {
  internal::Release(node_);
}

std::size_t Dictionary::size() const noexcept {
  return node_->items.size();
}

bool Dictionary::Has(std::string_view key) const noexcept {
  return node_->Find(key) != kNotFound;
}

const Value& Dictionary::Get(std::string_view key) const noexcept {
  const std::size_t position = node_->Find(key);
  return position == kNotFound ? NoneValue() : node_->items[position].value_;
}

const DictionaryItem* Dictionary::begin() const noexcept {
  return node_->items.begin();
}
const DictionaryItem* Dictionary::end() const noexcept {
  return node_->items.end();
}
void Dictionary::Reserve(std::size_t count) {
  node_->items.Reserve(count);
}

void Dictionary::Set(std::string_view key, Value value) {
  if (value.IsNone()) return Remove(key);
  const std::size_t position = node_->Find(key);
  if (position == kNotFound) {
    node_->items.Append({Key(key), std::move(value)});
  } else {
    node_->items[position].value_ = std::move(value);
  }
}

void Dictionary::Set(const Key& key, Value value) {
  if (value.IsNone()) return Remove(key.text());
  const std::size_t position = node_->Find(key.text());
  if (position == kNotFound) {
    node_->items.Append({key, std::move(value)});
  } else {
    node_->items[position].value_ = std::move(value);
  }
}

void Dictionary::Remove(std::string_view key) {
  const std::size_t position = node_->Find(key);
  if (position == kNotFound) return;
  // The index refers to the key texts, so it goes before they do.
  node_->index.reset();
  node_->items.Remove(position);
}

void Dictionary::Clear() noexcept {
  node_->index.reset();
  node_->items.Clear();
}

Value Dictionary::Take(std::string_view key) noexcept {
  const std::size_t position = node_->Find(key);
  return position == kNotFound ? Value() : std::move(node_->items[position].value_);
}

Dictionary Dictionary::ShallowCopy() const {
  Dictionary copy(internal::Access::MakeDictionary(size()));
  for (const DictionaryItem& item : *this) copy.node_->items.Append(item);
  return copy;
}

Dictionary Dictionary::DeepCopy() const {
  Dictionary copy = ShallowCopy();
  for (DictionaryItem& item : copy.node_->items) item.value_ = item.value_.DeepCopy();
  return copy;
}

bool operator==(const Dictionary& a, const Dictionary& b) {
  if (a.node_ == b.node_) return true;
  if (a.size() != b.size()) return false;
  return std::all_of(a.begin(), a.end(), [&b](const DictionaryItem& item) {
    return b.Has(item.key()) && b.Get(item.key()) == item.value();
  });
}

}  // namespace tallyfold::plist
