#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace tallyfold {

// Walks over a text of tags as banks write it: XML of any kind, and SGML whose tags may be left
// open. Never fails: what is no tag is text, what is closed without having been opened is passed
// over, what is left open ends with its surroundings, and an element that has text ends where
// another begins. Prefixes of names, comments, instructions and declarations are left out. Linear
// in the text, whatever it is.
class TagScanner {
 public:
  enum class Event : unsigned char { Begin, End, Finished };
  // Whether an element may stand in one of its own name. Where not, the outer one ends before the
  // inner begins.
  enum class Nesting : unsigned char { Free, NeverInItself };

  // Deeper elements are walked over, their text lost.
  static constexpr std::size_t kMostDepth = 48;

  // Valid UTF-8, which must outlive the scanner.
  explicit TagScanner(std::string_view document, Nesting nesting = Nesting::Free) noexcept
      : document_(document), nesting_(nesting) {}

  // Goes on to the next beginning or end of an element. Each that begins comes to an end.
  [[nodiscard]] Event Next();

  // Of the element that begins or ends, as written but for its prefix.
  [[nodiscard]] std::string_view Name() const noexcept { return stack_[depth_ - 1].name; }
  // Of the elements around it, from the innermost, 1, on; "" beyond the outermost.
  [[nodiscard]] std::string_view Around(std::size_t level) const noexcept {
    return level < depth_ ? stack_[depth_ - 1 - level].name : std::string_view();
  }
  [[nodiscard]] std::size_t Depth() const noexcept { return depth_; }
  // The value of an attribute of the element, entities as they stand; "" for none.
  [[nodiscard]] std::string_view Attribute(std::string_view name) const noexcept;
  // At an end: the element's text, entities resolved, without blanks around it, "" when other
  // elements stood in it. Good until the next call.
  [[nodiscard]] std::string_view Text();
  // Whether the element ended because the text did.
  [[nodiscard]] bool IsCutShort() const noexcept { return is_at_end_; }
  // How many bytes have been walked over.
  [[nodiscard]] std::size_t Place() const noexcept { return place_; }
  // The line in which the latest tag stands, from 1 on; to be asked for as one goes on.
  [[nodiscard]] std::size_t Line() noexcept;

 private:
  struct Element {
    std::string_view name;
    std::string_view attributes;
  };
  enum class Piece : unsigned char { Opening, Closing, Empty, None };

  [[nodiscard]] Event EndOne() noexcept;
  [[nodiscard]] Event Begin();
  [[nodiscard]] Piece ReadMarkup();
  [[nodiscard]] Piece ReadTag();
  void SkipPast(std::string_view end) noexcept;
  void AddText(std::string_view piece);
  void AddCharacterData();
  void ClearText() noexcept;
  [[nodiscard]] bool HasText() const noexcept;

  std::string_view document_;
  Nesting nesting_;
  std::size_t place_ = 0;
  std::array<Element, kMostDepth> stack_{};
  std::size_t depth_ = 0;
  std::size_t too_deep_ = 0;
  // What has been read, but is waiting for elements to end before it.
  Element pending_;
  Piece pending_piece_ = Piece::None;
  std::size_t ends_left_ = 0;
  bool drops_top_ = false;  // the element of the latest End still stands on the stack
  bool is_at_end_ = false;
  bool is_leaf_ = false;  // nothing has begun or ended since the top began
  // The text since the latest tag: in the document, or gathered where it has several pieces.
  std::string_view text_;
  std::string gathered_;
  bool is_gathered_ = false;
  std::string resolved_;
  std::size_t tag_place_ = 0;
  std::size_t counted_place_ = 0;
  std::size_t counted_lines_ = 1;
};

// The text with the five entities of XML, a blank for "&nbsp;", and characters by number in place;
// anything else behind "&" stands as it is.
[[nodiscard]] std::string WithEntitiesResolved(std::string_view text);

}  // namespace tallyfold
