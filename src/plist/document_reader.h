#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "plist/key_table.h"
#include "plist/reader.h"
#include "plist/value.h"
#include "plist/xml_scanner.h"

namespace tallyfold::plist {

// Reads the value of a property list out of an XML document that is valid UTF-8.
//
// Builds values bottom up. The finished values of all open containers lie on one stack, the keys of
// all open dictionaries on another; when a container ends, its part of them moves into memory of
// just its size.
class DocumentReader {
 public:
  // Both must outlive the reader. `told` hears now and then how many bytes have been read.
  DocumentReader(std::string_view document, const ReadTold& told)
      : scanner_(document), begin_(document.data()), told_(told) {
    if (told_) next_telling_ = 0;
  }

  // Once. False at the first failure, which failure() then tells.
  [[nodiscard]] bool Read() { return ReadStart() && ReadElements() && ReadEnd(); }
  // After Read() came back with true.
  [[nodiscard]] Value TakeValue() { return std::move(values_.front()); }
  [[nodiscard]] const XmlScanner::Failure& failure() const noexcept { return scanner_.failure(); }

 private:
  enum class Element : std::uint8_t {
    Plist,
    Dictionary,
    Array,
    Key,
    String,
    Integer,
    Real,
    True,
    False,
    Date,
    Data,
  };
  struct Level {
    Element element;
    std::uint32_t first_value;
    std::uint32_t first_key;
  };
  struct OpeningTag {
    Element element;
    bool is_empty;
  };
  [[nodiscard]] static std::string_view NameOf(Element element) noexcept;
  [[nodiscard]] static std::optional<Element> ElementWithName(std::string_view name) noexcept;

  [[nodiscard]] bool ReadStart();
  [[nodiscard]] bool ReadEnd();
  [[nodiscard]] bool ReadElements();
  [[nodiscard]] bool ReadOpeningTag(OpeningTag& tag);
  [[nodiscard]] bool CheckPlace(Element element, const char* where);
  [[nodiscard]] bool ReadElement(OpeningTag tag, const char* where);
  [[nodiscard]] bool ReadKey(bool is_empty);
  [[nodiscard]] bool ReadInteger(bool is_empty, const char* where);
  [[nodiscard]] bool ReadReal(bool is_empty, const char* where);
  template <Element kElement>
  [[nodiscard]] bool ReadText(bool is_empty, std::string_view& text);
  // The key of the value that is being read, or of the list that holds it; "" for none.
  [[nodiscard]] std::string_view InnermostKey() const noexcept {
    return keys_.empty() ? std::string_view() : keys_.back()->key.text();
  }
  [[nodiscard]] bool Open(Element element, const char* where);
  [[nodiscard]] bool Close();
  void MakeContainer(const Level& level);
  void Tell();

  XmlScanner scanner_;
  const char* begin_;
  const ReadTold& told_;
  // In bytes; never, where nobody is told.
  std::size_t next_telling_ = std::numeric_limits<std::size_t>::max();
  std::vector<Level> levels_;
  std::vector<Value> values_;
  std::vector<KeyTable::Entry*> keys_;
  KeyTable key_table_;
  KeyTable::Entry* last_key_ = nullptr;
  std::uint32_t dictionary_count_ = 0;
};

}  // namespace tallyfold::plist
