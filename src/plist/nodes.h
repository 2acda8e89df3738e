#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <new>
#include <stdexcept>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "plist/value.h"

// What the handles of value.h refer to. Only the sources of this folder include this file.
namespace tallyfold::plist::internal {

// A growable list whose elements first lie in memory that its owner provides; once it outgrows
// that, in memory of its own. A container that was read is so a single block of its exact size.
template <typename Element>
class List {
 public:
  // `memory` has room for `capacity` elements, less than 2 to the 31st, and outlives the list.
  List(void* memory, std::size_t capacity) noexcept
      : elements_(static_cast<Element*>(memory)),
        capacity_(static_cast<std::uint32_t>(capacity) & kMaximumSize) {}
  List(const List&) = delete;
  List& operator=(const List&) = delete;
  ~List() {
    Clear();
    FreeMemory();
  }

  [[nodiscard]] std::size_t size() const noexcept { return size_; }
  [[nodiscard]] Element* begin() const noexcept { return elements_; }
  [[nodiscard]] Element* end() const noexcept { return elements_ + size_; }
  [[nodiscard]] Element& operator[](std::size_t index) const noexcept { return elements_[index]; }

  void Reserve(std::size_t count) {
    if (count <= capacity_) return;
    if (count > kMaximumSize) throw std::length_error("a property list has too many elements");
    auto* memory = static_cast<Element*>(::operator new(count * sizeof(Element)));
    std::uninitialized_move_n(elements_, size_, memory);
    std::destroy_n(elements_, size_);
    FreeMemory();
    elements_ = memory;
    capacity_ = static_cast<std::uint32_t>(count) & kMaximumSize;
    owns_memory_ = true;
  }

  void Append(Element element) {
    if (size_ == capacity_) Reserve(std::max<std::size_t>(4, std::size_t{capacity_} * 2));
    new (elements_ + size_++) Element(std::move(element));
  }

  void Remove(std::size_t index) {
    std::move(elements_ + index + 1, end(), elements_ + index);
    std::destroy_at(elements_ + --size_);
  }

  void Clear() noexcept { std::destroy_n(elements_, std::exchange(size_, 0)); }

 private:
  static constexpr std::uint32_t kMaximumSize = std::numeric_limits<std::uint32_t>::max() / 2;

  void FreeMemory() noexcept {
    if (owns_memory_) ::operator delete(elements_);
  }

  Element* elements_;
  std::uint32_t size_ = 0;
  std::uint32_t capacity_ : 31;
  std::uint32_t owns_memory_ : 1 = 0;
};

struct ArrayNode {
  explicit ArrayNode(std::size_t capacity) noexcept : values(this + 1, capacity) {}

  std::uint32_t references = 1;
  List<Value> values;
};

struct DictionaryNode {
  static constexpr std::size_t kNotFound = std::numeric_limits<std::size_t>::max();

  explicit DictionaryNode(std::size_t capacity) noexcept : items(this + 1, capacity) {}

  [[nodiscard]] std::size_t Find(std::string_view key);

  std::uint32_t references = 1;
  // Where the next look-up tries first: records ask for keys in the order of the file.
  std::uint32_t expected = 0;
  List<DictionaryItem> items;
  // Positions of the keys; made by the first look-up that needs it, dropped when they move.
  std::unique_ptr<std::unordered_map<std::string_view, std::uint32_t>> index;
};

// The references to a node that are counted; null is no node.
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

// The way of this folder's sources into the handles.
class Access {
 public:
  // A list or dictionary of no elements with room for `capacity`; `references` counts the caller.
  template <typename Node, typename Element>
  [[nodiscard]] static Node* MakeNode(std::size_t capacity) {
    static_assert(sizeof(Node) % alignof(Element) == 0);
    return new (::operator new(sizeof(Node) + capacity * sizeof(Element))) Node(capacity);
  }
  [[nodiscard]] static ArrayNode* MakeArray(std::size_t capacity) {
    return MakeNode<ArrayNode, Value>(capacity);
  }
  [[nodiscard]] static DictionaryNode* MakeDictionary(std::size_t capacity) {
    return MakeNode<DictionaryNode, DictionaryItem>(capacity);
  }

  // Take over the caller's reference.
  [[nodiscard]] static Array Handle(ArrayNode* node) noexcept { return Array(node); }
  [[nodiscard]] static Dictionary Handle(DictionaryNode* node) noexcept { return Dictionary(node); }

  [[nodiscard]] static Value& MutableValue(DictionaryItem& item) noexcept { return item.value_; }
};

}  // namespace tallyfold::plist::internal
