#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/account.h"

namespace tallyfold {

// The texts that complete what is typed, ignoring case: first those that begin with it, then those
// that hold it elsewhere, each in the order of the list. All texts for "".
[[nodiscard]] std::vector<std::string> Completions(const TextList& texts, std::string_view typed);

// The first of them that begins with what is typed, ignoring case; none where none does, and for
// "".
[[nodiscard]] std::optional<std::string> FirstCompletion(const TextList& texts,
                                                         std::string_view typed);

// Former texts of an account, which are gathered when they are first asked for: that is a walk over
// all entries, and most sheets are closed without it. Copies gather them together.
class FormerTexts {
 public:
  // One of the account's lists of preferred texts.
  using List = TextList (LDGRAccount::*)() const;

  FormerTexts() = default;
  FormerTexts(std::weak_ptr<const LDGRAccount> account, List list)
      : gathered_(std::make_shared<Gathered>(Gathered{std::move(account), list, std::nullopt})) {}
  explicit FormerTexts(TextList texts)
      : gathered_(std::make_shared<Gathered>(Gathered{{}, nullptr, std::move(texts)})) {}

  // As they are when they are first asked for; empty for an account that is gone.
  [[nodiscard]] const TextList& Texts() const;
  // NOLINTNEXTLINE(google-explicit-constructor): they are nothing but their texts.
  operator const TextList&() const { return Texts(); }
  friend bool operator==(const FormerTexts& a, const FormerTexts& b) {
    return a.gathered_ == b.gathered_ || a.Texts() == b.Texts();
  }

 private:
  struct Gathered {
    std::weak_ptr<const LDGRAccount> account;
    List list;
    std::optional<TextList> texts;
  };
  // Null for no texts.
  std::shared_ptr<Gathered> gathered_;
};

}  // namespace tallyfold
