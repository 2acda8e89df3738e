#include <algorithm>
#include <cstdint>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "plist/nodes.h"
#include "plist/value.h"

namespace tallyfold::plist {

std::size_t internal::DictionaryNode::Find(std::string_view key) {
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

constexpr std::size_t kNotFound = internal::DictionaryNode::kNotFound;

const Value& NoneValue() noexcept {
  static const Value none;
  return none;
}

}  // namespace

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
