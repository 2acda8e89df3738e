#pragma once

#include <span>
#include <string_view>
#include <utility>
#include <variant>

#include "model/account.h"
#include "model/field_table.h"
#include "plist/read_report.h"

namespace tallyfold {

// One key of the dictionary form: stored as it stands in a member, or in a way of its own. The
// table gives the order of keys in the file, and so of what is read and logged.
struct LDGRAccount::StoredKey {
  struct Keeping {
    void (*copy)(const LDGRAccount& from, LDGRAccount& to);
    void (*exchange)(LDGRAccount& a, LDGRAccount& b) noexcept;
    bool (*differs)(const LDGRAccount& a, const LDGRAccount& b) noexcept;
  };
  template <auto member>
  static constexpr Keeping KeepingOf() {
    return {[](const LDGRAccount& from, LDGRAccount& to) { to.*member = from.*member; },
            [](LDGRAccount& a, LDGRAccount& b) noexcept { std::swap(a.*member, b.*member); },
            [](const LDGRAccount& a, const LDGRAccount& b) noexcept {
              return StoredDiffers(a.*member, b.*member);
            }};
  }

  // For a member that is made when it is first asked for: an image never lacks it.
  template <auto member, auto getter>
  static constexpr Keeping KeepingOf() {
    Keeping keeping = KeepingOf<member>();
    keeping.copy = [](const LDGRAccount& from, LDGRAccount& to) { to.*member = (from.*getter)(); };
    return keeping;
  }

  // How the value of a key is to be read.
  struct Reading {
    std::string_view key;
    // Logged for each element of a list that is of a wrong kind; "%@" stands for the key.
    std::string_view wrong;
    // Whether the elements of a list are freed as soon as they are read.
    bool consume;

    void SkipElement() const {
      LogForKey(wrong, key);
      plist::ReportNotTaken(plist::NotTaken::Skipped, key);
    }
  };

  struct Special {
    std::string_view key;
    // Logged when the key is missing or its value is not acceptable; "%@" stands for the key.
    std::string_view missing;
    std::string_view wrong;
    bool (*accepts)(const plist::Value& value);
    void (*write)(const LDGRAccount& account, plist::Output& output);
    void (*read)(LDGRAccount& account, const plist::Value& value, const Reading& reading);
    // How the member is kept in an image and put back.
    Keeping keeping;
    // True when there is nothing to store; without it there always is.
    bool (*is_absent)(const LDGRAccount& account) = nullptr;
  };
  using Entry = std::variant<Field<LDGRAccount>, Special>;

  struct Make;

  // What belongs to AccountPart::Records is kept record by record, not here.
  Entry entry;
  AccountPart part = AccountPart::Options;

  // In the order of the file.
  [[nodiscard]] static std::span<const StoredKey> Table();

  // Calls `use` with the entry of each key of that part.
  template <typename Use>
  static void ForEachOf(AccountPart part, const Use& use) {
    for (const StoredKey& key : Table()) {
      if (key.part == part) use(key.entry);
    }
  }

  [[nodiscard]] static bool IsKnown(std::string_view key);

  static void Write(const Entry& entry, const LDGRAccount& account, plist::Output& output);
  // True when there is a value, also one of a wrong kind.
  static bool Read(const Entry& entry, LDGRAccount& account, const plist::Dictionary& dictionary,
                   bool consume);
};

}  // namespace tallyfold
