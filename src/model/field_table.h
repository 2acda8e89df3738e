#pragma once

#include <bit>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>

#include "model/stored_numbers.h"
#include "model/text.h"
#include "platform/ambient.h"
#include "plist/output.h"
#include "plist/read_report.h"
#include "plist/value.h"

namespace tallyfold {

// One key of a record that is stored as it stands in a member. A table of these drives writing and
// reading alike, so that the two cannot drift apart; order in the table is order in the file.
template <typename Record>
struct Field {
  using Member = std::variant<std::int32_t Record::*, bool Record::*, double Record::*,
                              float Record::*, std::string Record::*>;

  std::string_view key;
  Member member;
  // Logged when the key is missing and when its value is of a wrong kind; "%@" stands for the key,
  // "" logs nothing.
  std::string_view missing;
  std::string_view wrong;
};

inline void LogForKey(std::string_view message, std::string_view key) {
  if (!message.empty()) Log(MessageWithText(message, key));
}

template <typename Record>
void WriteField(const Record& record, const Field<Record>& field, plist::Output& output) {
  output.Key(field.key);
  std::visit(
      [&](auto member) {
        const auto& value = record.*member;
        using Type = std::remove_cvref_t<decltype(value)>;
        if constexpr (std::is_same_v<Type, bool>) {
          output.Boolean(value);
        } else if constexpr (std::is_same_v<Type, std::int32_t>) {
          output.Integer(value);
        } else if constexpr (std::is_same_v<Type, std::string>) {
          output.String(value);
        } else {
          output.Real(static_cast<double>(value));
        }
      },
      field.member);
}

// Logs a value of a wrong kind and tells the read report of it.
inline void RefuseForKey(std::string_view message, std::string_view key) {
  LogForKey(message, key);
  plist::ReportNotTaken(plist::NotTaken::WrongKind, key);
}

// A missing (none) or wrong value is logged and leaves the member as it was; what is not taken as
// it stands is told to the read report. True when there is a value.
template <typename Record>
bool ReadField(Record& record, const Field<Record>& field, const plist::Value& value) {
  if (value.IsNone()) {
    LogForKey(field.missing, field.key);
    return false;
  }
  const bool is_text = std::holds_alternative<std::string Record::*>(field.member);
  if (is_text ? !value.IsString() : !value.IsNumber()) {
    RefuseForKey(field.wrong, field.key);
    return true;
  }
  std::visit(
      [&](auto member) {
        auto& target = record.*member;
        using Type = std::remove_cvref_t<decltype(target)>;
        if constexpr (std::is_same_v<Type, bool>) {
          target = StoredBoolean(value, field.key);
        } else if constexpr (std::is_same_v<Type, std::int32_t>) {
          target = StoredInteger(value, field.key);
        } else if constexpr (std::is_same_v<Type, std::string>) {
          target = value.StringValue();
        } else if constexpr (std::is_same_v<Type, float>) {
          target = StoredFloat(value, field.key);
        } else {
          target = StoredReal(value, field.key);
        }
      },
      field.member);
  return true;
}

template <typename Record>
bool ReadField(Record& record, const Field<Record>& field, const plist::Dictionary& dictionary) {
  return ReadField(record, field, dictionary.Get(field.key));
}

template <typename Record>
void CopyField(const Record& from, Record& to, const Field<Record>& field) {
  std::visit([&](auto member) { to.*member = from.*member; }, field.member);
}

template <typename Record>
void ExchangeField(Record& a, Record& b, const Field<Record>& field) noexcept {
  std::visit([&](auto member) { std::swap(a.*member, b.*member); }, field.member);
}

// Whether the two would be written differently; not-a-number equals itself.
template <typename T>
[[nodiscard]] bool StoredDiffers(const T& a, const T& b) noexcept {
  if constexpr (std::is_same_v<T, double>) {
    return std::bit_cast<std::uint64_t>(a) != std::bit_cast<std::uint64_t>(b);
  } else if constexpr (std::is_same_v<T, float>) {
    return std::bit_cast<std::uint32_t>(a) != std::bit_cast<std::uint32_t>(b);
  } else {
    return !(a == b);
  }
}

template <typename Record>
[[nodiscard]] bool FieldDiffers(const Record& a, const Record& b,
                                const Field<Record>& field) noexcept {
  return std::visit([&](auto member) { return StoredDiffers(a.*member, b.*member); }, field.member);
}

}  // namespace tallyfold
