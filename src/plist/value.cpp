#include "plist/value.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <new>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tallyfold::plist {

namespace internal {

// A shared immutable text: this header, then the characters.
struct TextNode {
  std::uint32_t references;
  std::uint32_t length;

  [[nodiscard]] const char* characters() const noexcept {
    return reinterpret_cast<const char*>(this + 1);
  }
  [[nodiscard]] std::string_view view() const noexcept { return {characters(), length}; }

  static TextNode* Make(std::string_view text) {
    void* memory = ::operator new(sizeof(TextNode) + text.size());
    auto* node = new (memory) TextNode{1, static_cast<std::uint32_t>(text.size())};
    if (!text.empty()) {
      std::memcpy(reinterpret_cast<char*>(node + 1), text.data(), text.size());
    }
    return node;
  }
};

struct ArrayNode {
  std::uint32_t references = 1;
  std::vector<Value> values;
};

// Beyond this many keys a dictionary finds them through an index.
constexpr std::size_t kIndexThreshold = 16;

struct DictionaryNode {
  std::uint32_t references = 1;
  std::vector<DictionaryItem> items;
  std::unique_ptr<std::unordered_map<std::string_view, std::size_t>> index;

  static constexpr std::size_t kNotFound = std::numeric_limits<std::size_t>::max();

  [[nodiscard]] std::size_t Find(std::string_view key) const noexcept {
    if (index) {
      const auto found = index->find(key);
      return found == index->end() ? kNotFound : found->second;
    }
    for (std::size_t i = 0; i < items.size(); ++i) {
      if (items[i].key() == key) return i;
    }
    return kNotFound;
  }

  void Added() {
    if (index) {
      index->emplace(items.back().key(), items.size() - 1);
    } else if (items.size() > kIndexThreshold) {
      BuildIndex();
    }
  }

  void BuildIndex() {
    index = std::make_unique<std::unordered_map<std::string_view, std::size_t>>();
    index->reserve(items.size() * 2);
    for (std::size_t i = 0; i < items.size(); ++i) index->emplace(items[i].key(), i);
  }
};

namespace {

void Retain(TextNode* node) noexcept {
  ++node->references;
}
void Release(TextNode* node) noexcept {
  if (node != nullptr && --node->references == 0) ::operator delete(node);
}
template <typename Node>
void RetainNode(Node* node) noexcept {
  if (node != nullptr) ++node->references;
}
template <typename Node>
void ReleaseNode(Node* node) noexcept {
  if (node != nullptr && --node->references == 0) delete node;
}

}  // namespace
}  // namespace internal

namespace {

constexpr std::uint8_t kOnHeap = 0xFF;
constexpr std::size_t kInlineCapacity = 14;

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
  if (text.front() == '+') text.remove_prefix(1);
  double value = 0.0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  // Words such as "inf" and "nan" are no decimal numbers.
  return error == std::errc() && std::isfinite(value) ? value : 0.0;
}

}  // namespace

// --- Value ------------------------------------------------------------------------------------

template <typename T>
T Value::Load() const noexcept {
  T value;
  std::memcpy(&value, bytes_, sizeof value);
  return value;
}

template <typename T>
void Value::Store(T value) noexcept {
  std::memcpy(bytes_, &value, sizeof value);
}

void Value::SetTag(Kind kind, std::uint8_t length) noexcept {
  bytes_[14] = static_cast<char>(length);
  bytes_[15] = static_cast<char>(kind);
}

void Value::SetText(Kind kind, std::string_view text) {
  if (text.size() <= kInlineCapacity) {
    if (!text.empty()) std::memcpy(bytes_, text.data(), text.size());
    SetTag(kind, static_cast<std::uint8_t>(text.size()));
  } else {
    Store(internal::TextNode::Make(text));
    SetTag(kind, kOnHeap);
  }
}

Kind Value::kind() const noexcept {
  return static_cast<Kind>(bytes_[15]);
}

void Value::Retain() const noexcept {
  switch (kind()) {
    case Kind::String:
    case Kind::Date:
    case Kind::Data:
      if (static_cast<std::uint8_t>(bytes_[14]) == kOnHeap) {
        internal::Retain(Load<internal::TextNode*>());
      }
      break;
    case Kind::Array:
      internal::RetainNode(Load<internal::ArrayNode*>());
      break;
    case Kind::Dictionary:
      internal::RetainNode(Load<internal::DictionaryNode*>());
      break;
    default:
      break;
  }
}

void Value::Release() noexcept {
  switch (kind()) {
    case Kind::String:
    case Kind::Date:
    case Kind::Data:
      if (static_cast<std::uint8_t>(bytes_[14]) == kOnHeap) {
        internal::Release(Load<internal::TextNode*>());
      }
      break;
    case Kind::Array:
      internal::ReleaseNode(Load<internal::ArrayNode*>());
      break;
    case Kind::Dictionary:
      internal::ReleaseNode(Load<internal::DictionaryNode*>());
      break;
    default:
      break;
  }
}

Value::Value() noexcept : bytes_{} {}

Value::Value(const Value& other) noexcept {
  std::memcpy(bytes_, other.bytes_, sizeof bytes_);
  Retain();
}

Value::Value(Value&& other) noexcept {
  std::memcpy(bytes_, other.bytes_, sizeof bytes_);
  other.SetTag(Kind::None, 0);
}

Value& Value::operator=(const Value& other) noexcept {
  Value copy(other);
  return *this = std::move(copy);
}

Value& Value::operator=(Value&& other) noexcept {
  if (this == &other) return *this;
  char old[sizeof bytes_];
  std::memcpy(old, bytes_, sizeof bytes_);
  std::memcpy(bytes_, other.bytes_, sizeof bytes_);
  // The old content is freed by `other`, after this value no longer refers to it.
  std::memcpy(other.bytes_, old, sizeof bytes_);
  other.Release();
  other.SetTag(Kind::None, 0);
  return *this;
}

Value::~Value() {
  Release();
}

Value::Value(bool value) noexcept : bytes_{} {
  Store(value);
  SetTag(Kind::Boolean, 0);
}
Value::Value(std::int32_t value) noexcept : Value(static_cast<std::int64_t>(value)) {}
Value::Value(std::int64_t value) noexcept : bytes_{} {
  Store(value);
  SetTag(Kind::Integer, 0);
}
Value::Value(double value) noexcept : bytes_{} {
  Store(value);
  SetTag(Kind::Real, 0);
}
Value::Value(std::string_view text) : bytes_{} {
  SetText(Kind::String, text);
}
Value::Value(const char* text) : Value(std::string_view(text)) {}
Value::Value(const std::string& text) : Value(std::string_view(text)) {}
Value::Value(Array array) noexcept : bytes_{} {
  Store(std::exchange(array.node_, nullptr));
  SetTag(Kind::Array, 0);
}
Value::Value(Dictionary dictionary) noexcept : bytes_{} {
  Store(std::exchange(dictionary.node_, nullptr));
  SetTag(Kind::Dictionary, 0);
}

Value Value::Opaque(Kind kind, std::string_view text) {
  Value value;
  value.SetText(kind, text);
  return value;
}

bool Value::IsNumber() const noexcept {
  return kind() == Kind::Integer || kind() == Kind::Real || kind() == Kind::Boolean;
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
  internal::RetainNode(node);
  return Array(node);
}

Dictionary Value::DictionaryValue() const {
  if (!IsDictionary()) return Dictionary();
  auto* node = Load<internal::DictionaryNode*>();
  internal::RetainNode(node);
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

Array::Array() : node_(new internal::ArrayNode) {}
Array::Array(const Array& other) noexcept : node_(other.node_) {
  internal::RetainNode(node_);
}
Array::Array(Array&& other) noexcept : node_(std::exchange(other.node_, nullptr)) {}
Array& Array::operator=(Array other) noexcept {
  std::swap(node_, other.node_);
  return *this;
}
Array::~Array() {
  internal::ReleaseNode(node_);
}

std::size_t Array::size() const noexcept {
  return node_->values.size();
}

const Value& Array::At(std::size_t index) const noexcept {
  return index < node_->values.size() ? node_->values[index] : NoneValue();
}

const Value* Array::begin() const noexcept {
  return node_->values.data();
}
const Value* Array::end() const noexcept {
  return begin() + size();
}
void Array::Reserve(std::size_t count) {
  node_->values.reserve(count);
}
void Array::Append(Value value) {
  node_->values.push_back(std::move(value));
}

void Array::Set(std::size_t index, Value value) {
  if (index < node_->values.size()) node_->values[index] = std::move(value);
}

void Array::Remove(std::size_t index) {
  if (index < node_->values.size()) {
    node_->values.erase(node_->values.begin() + static_cast<std::ptrdiff_t>(index));
  }
}

void Array::Clear() noexcept {
  node_->values.clear();
}

void Array::Adopt(Value* values, std::size_t count) {
  node_->values.assign(std::make_move_iterator(values), std::make_move_iterator(values + count));
}

Value Array::Take(std::size_t index) noexcept {
  return index < node_->values.size() ? std::move(node_->values[index]) : Value();
}

Array Array::ShallowCopy() const {
  Array copy;
  copy.node_->values = node_->values;
  return copy;
}

Array Array::DeepCopy() const {
  Array copy;
  copy.Reserve(size());
  for (const Value& value : *this) copy.Append(value.DeepCopy());
  return copy;
}

bool operator==(const Array& a, const Array& b) {
  return a.node_ == b.node_ || a.node_->values == b.node_->values;
}

// --- Key --------------------------------------------------------------------------------------

Key::Key(std::string_view text) : node_(internal::TextNode::Make(text)) {}
Key::Key(const Key& other) noexcept : node_(other.node_) {
  internal::Retain(node_);
}
Key::Key(Key&& other) noexcept : node_(std::exchange(other.node_, nullptr)) {}
Key& Key::operator=(Key other) noexcept {
  std::swap(node_, other.node_);
  return *this;
}
Key::~Key() {
  internal::Release(node_);
}
std::string_view Key::text() const noexcept {
  return node_->view();
}

// --- Dictionary -------------------------------------------------------------------------------

Dictionary::Dictionary() : node_(new internal::DictionaryNode) {}
Dictionary::Dictionary(const Dictionary& other) noexcept : node_(other.node_) {
  internal::RetainNode(node_);
}
Dictionary::Dictionary(Dictionary&& other) noexcept : node_(std::exchange(other.node_, nullptr)) {}
Dictionary& Dictionary::operator=(Dictionary other) noexcept {
  std::swap(node_, other.node_);
  return *this;
}
Dictionary::~Dictionary() {
  internal::ReleaseNode(node_);
}

std::size_t Dictionary::size() const noexcept {
  return node_->items.size();
}

bool Dictionary::Has(std::string_view key) const noexcept {
  return node_->Find(key) != internal::DictionaryNode::kNotFound;
}

const Value& Dictionary::Get(std::string_view key) const noexcept {
  const std::size_t position = node_->Find(key);
  return position == internal::DictionaryNode::kNotFound ? NoneValue()
                                                         : node_->items[position].value_;
}

const DictionaryItem* Dictionary::begin() const noexcept {
  return node_->items.data();
}
const DictionaryItem* Dictionary::end() const noexcept {
  return begin() + size();
}
void Dictionary::Reserve(std::size_t count) {
  node_->items.reserve(count);
}

void Dictionary::Set(std::string_view key, Value value) {
  if (value.IsNone()) return Remove(key);
  const std::size_t position = node_->Find(key);
  if (position != internal::DictionaryNode::kNotFound) {
    node_->items[position].value_ = std::move(value);
    return;
  }
  node_->items.emplace_back(Key(key), std::move(value));
  node_->Added();
}

void Dictionary::Set(const Key& key, Value value) {
  if (value.IsNone()) return Remove(key.text());
  const std::size_t position = node_->Find(key.text());
  if (position != internal::DictionaryNode::kNotFound) {
    node_->items[position].value_ = std::move(value);
    return;
  }
  node_->items.emplace_back(key, std::move(value));
  node_->Added();
}

void Dictionary::Remove(std::string_view key) {
  const std::size_t position = node_->Find(key);
  if (position == internal::DictionaryNode::kNotFound) return;
  // The index refers to the key texts, so it goes before they do.
  node_->index.reset();
  node_->items.erase(node_->items.begin() + static_cast<std::ptrdiff_t>(position));
  if (node_->items.size() > internal::kIndexThreshold) node_->BuildIndex();
}

void Dictionary::Clear() noexcept {
  node_->index.reset();
  node_->items.clear();
}

Value Dictionary::Take(std::string_view key) noexcept {
  const std::size_t position = node_->Find(key);
  if (position == internal::DictionaryNode::kNotFound) return Value();
  return std::move(node_->items[position].value_);
}

Dictionary Dictionary::ShallowCopy() const {
  Dictionary copy;
  copy.node_->items = node_->items;
  if (node_->index) copy.node_->BuildIndex();
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
