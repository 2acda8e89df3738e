#pragma once

#include <memory>
#include <string>

namespace tallyfold {

class LDGRAccount;

// Texts that a careless writer or reader would spoil.
inline const std::string kAwkwardText =
    "  \"<a>&amp;\" ]]> \t tab\r return \n line \x01\x1F\x7F \xC3\xA9\xE2\x82\xAC\xF0\x9F\x92\xB0 ";

// An account with one of everything: a debit with a split, a check, a linked transfer, a schedule,
// inactive types, texts of its own, awkward texts and amounts everywhere.
[[nodiscard]] std::shared_ptr<LDGRAccount> SampleAccount();

}  // namespace tallyfold
