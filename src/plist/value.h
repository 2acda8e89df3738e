#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>
#include <string>
#include <string_view>
#include <utility>

namespace tallyfold::plist {

class Array;
class Dictionary;
class DictionaryItem;

// What a value is. `None` is the value of a key that is not there.
// Dates and data are carried through unread: their text is kept as it stood in the file, so that a
// reader of records sees a value of a wrong kind rather than a missing one.
enum class Kind : std::uint8_t {
  None,
  Boolean,
  Integer,
  Real,
  String,
  Array,
  Dictionary,
  Date,
  Data
};

namespace internal {

struct ArrayNode;
struct DictionaryNode;
class Access;

// A shared immutable text: this header, then the characters.
struct TextNode {
  std::uint32_t references;
  std::uint32_t length;

  [[nodiscard]] std::string_view view() const noexcept {
    return {reinterpret_cast<const char*>(this + 1), length};
  }
  // Counts one reference, the caller's.
  static TextNode* Make(std::string_view text);
  void Retain() noexcept { ++references; }
  void Release() noexcept {
    if (--references == 0) ::operator delete(this);
  }
};

}  // namespace internal

// One property-list value in 16 bytes. Short texts (up to 14 bytes) live inside it.
//
// Copying is cheap: longer texts are immutable and shared, arrays and dictionaries are shared
// handles (a copy refers to the same array; DeepCopy() parts them). Reference counts are not
// atomic: a value belongs to one thread.
//
// Freeing and copying recurse by nesting level; the reader never makes more than
// `kMaximumDepth` levels and records add a handful, so that depth is bounded.
class Value {
 public:
  Value() noexcept : bytes_{} {}
  Value(const Value& other) noexcept {
    std::memcpy(bytes_, other.bytes_, sizeof bytes_);
    if (IsShared()) Retain();
  }
  Value(Value&& other) noexcept {
    std::memcpy(bytes_, other.bytes_, sizeof bytes_);
    other.SetTag(Kind::None, 0);
  }
  Value& operator=(const Value& other) noexcept { return *this = Value(other); }
  Value& operator=(Value&& other) noexcept {
    // The old content, which may own `other`, is freed when this value no longer refers to it.
    Value taken(std::move(other));
    std::swap(bytes_, taken.bytes_);
    return *this;
  }
  ~Value() {
    if (IsShared()) Release();
  }

  // Values are made as literals are.
  // NOLINTBEGIN(google-explicit-constructor)
  Value(bool value) noexcept : bytes_{} {
    Store(value);
    SetTag(Kind::Boolean, 0);
  }
  Value(std::int32_t value) noexcept : Value(static_cast<std::int64_t>(value)) {}
  Value(std::int64_t value) noexcept : bytes_{} {
    Store(value);
    SetTag(Kind::Integer, 0);
  }
  Value(double value) noexcept : bytes_{} {
    Store(value);
    SetTag(Kind::Real, 0);
  }
  Value(std::string_view text);
  Value(const char* text);
  Value(const std::string& text);
  Value(Array array) noexcept;
  Value(Dictionary dictionary) noexcept;
  // NOLINTEND(google-explicit-constructor)
  // No silent conversion of a pointer to a boolean.
  template <typename T>
  Value(const T* pointer) = delete;

  // A date or data element with its text as it stood in the file. `kind` is Date or Data.
  [[nodiscard]] static Value Opaque(Kind kind, std::string_view text);

  [[nodiscard]] Kind kind() const noexcept { return static_cast<Kind>(bytes_[15]); }
  [[nodiscard]] bool IsNone() const noexcept { return kind() == Kind::None; }
  [[nodiscard]] bool IsString() const noexcept { return kind() == Kind::String; }
  [[nodiscard]] bool IsArray() const noexcept { return kind() == Kind::Array; }
  [[nodiscard]] bool IsDictionary() const noexcept { return kind() == Kind::Dictionary; }
  // Integers, reals and booleans stand for one another. Not-a-number and infinities are reals, but
  // no numbers.
  [[nodiscard]] bool IsNumber() const noexcept {
    return kind() == Kind::Integer || kind() == Kind::Boolean ||
           (kind() == Kind::Real && std::isfinite(Load<double>()));
  }

  // Numbers as another number: a real is truncated toward zero, reals and integers saturate at the
  // 32-bit range (not-a-number reads 0), a boolean is 1 or 0. A string gives its leading decimal
  // number or 0; any other kind gives 0.
  [[nodiscard]] std::int32_t IntegerValue() const noexcept;
  [[nodiscard]] double DoubleValue() const noexcept;
  // True when the number is not zero.
  [[nodiscard]] bool BooleanValue() const noexcept;
  // The 64-bit integer as stored; as IntegerValue() for any other kind.
  [[nodiscard]] std::int64_t WideIntegerValue() const noexcept;

  // The text of a string, date or data; "" for any other kind. The view lives as long as this very
  // Value object is neither changed nor destroyed.
  [[nodiscard]] std::string_view StringValue() const noexcept;

  // The shared array or dictionary; a new empty one for any other kind.
  [[nodiscard]] Array ArrayValue() const;
  [[nodiscard]] Dictionary DictionaryValue() const;

  [[nodiscard]] Value DeepCopy() const;

  // Equal kind and content; dictionaries compare without regard to order, NaN equals NaN.
  friend bool operator==(const Value& a, const Value& b);

 private:
  friend class internal::Access;

  static constexpr std::size_t kInlineCapacity = 14;
  static constexpr std::uint8_t kOnHeap = 0xFF;

  // Whether the content is a node with a count of references.
  [[nodiscard]] bool IsShared() const noexcept {
    return static_cast<std::uint8_t>(bytes_[14]) == kOnHeap;
  }
  void Retain() const noexcept;
  void Release() noexcept;
  void SetTag(Kind kind, std::uint8_t length) noexcept {
    bytes_[14] = static_cast<char>(length);
    bytes_[15] = static_cast<char>(kind);
  }
  void SetText(Kind kind, std::string_view text);
  template <typename T>
  [[nodiscard]] T Load() const noexcept {
    T value;
    std::memcpy(&value, bytes_, sizeof(T));
    return value;
  }
  template <typename T>
  void Store(T value) noexcept {
    std::memcpy(bytes_, &value, sizeof(T));
  }

  // Bytes 0 to 13 hold the payload or a short text; byte 14 the length of a short text, or kOnHeap
  // where the payload is a pointer to a node; byte 15 the kind.
  alignas(8) char bytes_[16];
};

static_assert(sizeof(Value) == 16);

// A shared handle to an ordered list of values. A default-constructed Array is a new empty one;
// a copy of the handle refers to the same list.
class Array {
 public:
  Array();
  Array(const Array& other) noexcept;
  Array(Array&& other) noexcept;  // leaves `other` fit only for destruction and assignment
  Array& operator=(Array other) noexcept;
  ~Array();

  [[nodiscard]] std::size_t size() const noexcept;
  [[nodiscard]] bool empty() const noexcept { return size() == 0; }
  // The element at `index`, or the none value beyond the end.
  [[nodiscard]] const Value& At(std::size_t index) const noexcept;
  [[nodiscard]] const Value* begin() const noexcept;
  [[nodiscard]] const Value* end() const noexcept;

  void Reserve(std::size_t count);
  void Append(Value value);
  // Replaces the element at `index`; does nothing beyond the end.
  void Set(std::size_t index, Value value);
  // Removes the element at `index`; does nothing beyond the end.
  void Remove(std::size_t index);
  void Clear() noexcept;
  // Takes over `count` values, which are left none. The list's old content is dropped.
  void Adopt(Value* values, std::size_t count);
  // Hands out the element and leaves none in its place, so that a long list can be consumed while
  // its elements are freed one by one.
  [[nodiscard]] Value Take(std::size_t index) noexcept;

  [[nodiscard]] Array ShallowCopy() const;
  [[nodiscard]] Array DeepCopy() const;
  // True when both handles refer to the same list.
  [[nodiscard]] bool IsSameAs(const Array& other) const noexcept { return node_ == other.node_; }
  friend bool operator==(const Array& a, const Array& b);

 private:
  friend class Value;
  friend class internal::Access;
  explicit Array(internal::ArrayNode* node) noexcept : node_(node) {}
  internal::ArrayNode* node_;
};

// A dictionary's key. Keys read from one file share their text.
class Key {
 public:
  explicit Key(std::string_view text) : node_(internal::TextNode::Make(text)) {}
  Key(const Key& other) noexcept : node_(other.node_) { node_->Retain(); }
  Key(Key&& other) noexcept : node_(std::exchange(other.node_, nullptr)) {}
  Key& operator=(Key other) noexcept {
    std::swap(node_, other.node_);
    return *this;
  }
  ~Key() {
    if (node_ != nullptr) node_->Release();
  }
  [[nodiscard]] std::string_view text() const noexcept { return node_->view(); }

 private:
  internal::TextNode* node_;
};

class DictionaryItem {
 public:
  DictionaryItem(Key key, Value value) : key_(std::move(key)), value_(std::move(value)) {}
  [[nodiscard]] std::string_view key() const noexcept { return key_.text(); }
  [[nodiscard]] const Value& value() const noexcept { return value_; }

 private:
  friend class Dictionary;
  friend class internal::Access;
  Key key_;
  Value value_;
};

// A shared handle to keys and values that keeps the order in which keys were first set.
class Dictionary {
 public:
  Dictionary();
  Dictionary(const Dictionary& other) noexcept;
  Dictionary(Dictionary&& other) noexcept;  // leaves `other` fit only for destruction/assignment
  Dictionary& operator=(Dictionary other) noexcept;
  ~Dictionary();

  [[nodiscard]] std::size_t size() const noexcept;
  [[nodiscard]] bool empty() const noexcept { return size() == 0; }
  [[nodiscard]] bool Has(std::string_view key) const noexcept;
  // The value of `key`, or the none value. The reference holds until the dictionary is changed.
  [[nodiscard]] const Value& Get(std::string_view key) const noexcept;
  [[nodiscard]] const DictionaryItem* begin() const noexcept;
  [[nodiscard]] const DictionaryItem* end() const noexcept;

  void Reserve(std::size_t count);
  // Replaces the value in the key's place, or appends the key. A none value removes the key.
  void Set(std::string_view key, Value value);
  void Set(const Key& key, Value value);
  void Remove(std::string_view key);
  void Clear() noexcept;
  // Hands out the key's value and leaves none in its place.
  [[nodiscard]] Value Take(std::string_view key) noexcept;

  // A dictionary of its own with the same values (arrays and dictionaries inside stay shared).
  [[nodiscard]] Dictionary ShallowCopy() const;
  [[nodiscard]] Dictionary DeepCopy() const;
  [[nodiscard]] bool IsSameAs(const Dictionary& other) const noexcept {
    return node_ == other.node_;
  }
  friend bool operator==(const Dictionary& a, const Dictionary& b);

 private:
  friend class Value;
  friend class internal::Access;
  explicit Dictionary(internal::DictionaryNode* node) noexcept : node_(node) {}
  internal::DictionaryNode* node_;
};

// The deepest nesting a file may have.
inline constexpr int kMaximumDepth = 512;

}  // namespace tallyfold::plist
