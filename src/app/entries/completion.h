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

// Former texts of an account, which are gathered when they are first asked for: that is a walk over
// all entries, and most sheets are closed without it.
class FormerTexts {
 public:
  // One of the account's lists of preferred texts.
  using List = TextList (LDGRAccount::*)() const;

  FormerTexts() = default;
  FormerTexts(std::weak_ptr<const LDGRAccount> account, List list)
      : account_(std::move(account)), list_(list) {}

  // As they are when they are first asked for; empty for an account that is gone.
  [[nodiscard]] const TextList& Texts() const;
  // NOLINTNEXTLINE(google-explicit-constructor): they are nothing but their texts.
  operator const TextList&() const { return Texts(); }
  friend bool operator==(const FormerTexts& a, const FormerTexts& b) {
    return a.Texts() == b.Texts();
  }

 private:
  std::weak_ptr<const LDGRAccount> account_;
  List list_ = nullptr;
  mutable std::optional<TextList> texts_;
};

}  // namespace tallyfold
