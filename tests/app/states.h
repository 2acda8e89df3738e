#pragma once

#include <span>
#include <string_view>

#include "app/test_application.h"

namespace tallyfold {

// A state of the application in which something can be ordered, and how it comes to that.
struct State {
  const char* name;
  void (*reach)(TestApplication& test);
};

// States that differ in what can be ordered.
[[nodiscard]] std::span<const State> States();

// What is ordered with something typed or chosen, and is therefore no command. It can be ordered in
// every state, and where it has no place does nothing.
struct TypedOrder {
  const char* name;
  void (*run)(LDGRController& app);
};
[[nodiscard]] std::span<const TypedOrder> TypedOrders();

// The user agrees to what the command is going to ask.
void AgreeTo(TestApplication& test, std::string_view command);

}  // namespace tallyfold
