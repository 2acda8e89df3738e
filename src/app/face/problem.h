#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace tallyfold {

// Why the last OK of a sheet was refused. It stays until its field gets another value, OK is tried
// again or the sheet closes; the sheet stays open with everything that was typed.
struct Problem {
  // The name of the control that holds what will not do, "debitSheet_Amount_Field"; "" when it is
  // the sheet as a whole.
  std::string field;
  // In the user's words; "" where nothing is to be said, as of a wrong password.
  std::string text;
  // The row, where the field is a table; else -1.
  std::int32_t row = -1;

  friend bool operator==(const Problem&, const Problem&) = default;
};

// The text of the problem; "" for none.
[[nodiscard]] inline std::string TextOf(const std::optional<Problem>& problem) {
  return problem ? problem->text : "";
}

// A field of a sheet: the name of its control without that of the sheet, and whether two sets of
// typed values agree in it.
template <typename Typed>
struct TypedField {
  std::string_view control;
  bool (*is_same)(const Typed& a, const Typed& b);
};

template <typename Typed, auto Member>
[[nodiscard]] bool AreSame(const Typed& a, const Typed& b) {
  return a.*Member == b.*Member;
}

// Takes over what was typed. The problem goes when its field is among those that differ.
template <typename Typed, std::size_t Count>
void TakeTyped(Typed& typed, Typed now, std::optional<Problem>& problem,
               const TypedField<Typed> (&fields)[Count]) {
  for (const TypedField<Typed>& field : fields) {
    if (!problem) break;
    const bool is_there = std::string_view(problem->field).ends_with(field.control);
    if (is_there && !field.is_same(typed, now)) problem.reset();
  }
  typed = std::move(now);
}

}  // namespace tallyfold
