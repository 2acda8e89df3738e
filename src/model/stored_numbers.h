#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string_view>

#include "model/amounts.h"
#include "plist/read_report.h"
#include "plist/value.h"

// Numbers out of files and records. What is not taken as it stands is told to the read report in
// force, under the given key.
namespace tallyfold {

// --- Of a value that is a number
// ------------------------------------------------------------------

// Saturated at 32 bits and cut toward zero; either is told.
[[nodiscard]] inline std::int32_t StoredInteger(const plist::Value& number, std::string_view key) {
  if (number.kind() == plist::Kind::Integer) {
    const std::int64_t wide = number.WideIntegerValue();
    if (wide == static_cast<std::int32_t>(wide)) return static_cast<std::int32_t>(wide);
  }
  const std::int32_t integer = number.IntegerValue();
  if (number.DoubleValue() != integer) plist::ReportNotTaken(plist::NotTaken::OutOfRange, key);
  return integer;
}

// True for any but 0; told unless it is 0 or 1.
[[nodiscard]] inline bool StoredBoolean(const plist::Value& number, std::string_view key) {
  if (number.kind() == plist::Kind::Boolean) return number.BooleanValue();
  const double value = number.DoubleValue();
  if (value != 0.0 && value != 1.0) plist::ReportNotTaken(plist::NotTaken::OutOfRange, key);
  return value != 0.0;
}

// As it stands; told where it is no amount (see IsAmount()).
[[nodiscard]] inline double StoredReal(const plist::Value& number, std::string_view key) {
  const double value = number.DoubleValue();
  if (!IsAmount(value)) plist::ReportNotTaken(plist::NotTaken::OutOfRange, key);
  return value;
}

// Saturated at what single precision holds.
[[nodiscard]] inline float StoredFloat(const plist::Value& number, std::string_view key) {
  constexpr double kGreatest = std::numeric_limits<float>::max();
  return static_cast<float>(std::clamp(StoredReal(number, key), -kGreatest, kGreatest));
}

// --- Of a value whose kind no reader tests
// ---------------------------------------------------------- A text counts by its leading number,
// anything else that is no number as 0, and both are told. None is 0, and nothing lost.

[[nodiscard]] inline double LooseReal(const plist::Value& value, std::string_view key) {
  if (value.IsNumber()) return StoredReal(value, key);
  if (!value.IsNone()) plist::ReportNotTaken(plist::NotTaken::WrongKind, key);
  return value.IsString() ? value.DoubleValue() : 0.0;
}

[[nodiscard]] inline std::int32_t LooseInteger(const plist::Value& value, std::string_view key) {
  if (value.IsNumber()) return StoredInteger(value, key);
  if (!value.IsNone()) plist::ReportNotTaken(plist::NotTaken::WrongKind, key);
  return value.IsString() ? value.IntegerValue() : 0;
}

[[nodiscard]] inline bool LooseBoolean(const plist::Value& value, std::string_view key) {
  if (value.IsNumber()) return StoredBoolean(value, key);
  return LooseReal(value, key) != 0.0;
}

}  // namespace tallyfold
