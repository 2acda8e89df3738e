#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace tallyfold {

class LDGRController;

// The menus of the menu bar, in their order. None is for what only a control orders.
enum class Menu : std::uint8_t { None, File, Edit, Account, Entry, Schedule, Summary, View, Help };

// Something the user can order with one key, one click or one word, and that needs nothing typed
// beside it.
struct Command {
  // The operation, under which front ends and tests know it.
  std::string_view name;
  // As the menu shows it, to be looked up; "" where it is in no menu.
  std::string_view title = "";  // English key
  // "Ctrl+D"; "" for none.
  std::string_view shortcut = "";
  Menu menu = Menu::None;
  // The other controls that order the same, with spaces between them.
  std::string_view controls = "";
  // Whether it would do anything now.
  bool (*can)(LDGRController& app) = nullptr;
  void (*run)(LDGRController& app) = nullptr;
};

// Every command, in the order of the menus and within them. Valid for ever.
[[nodiscard]] std::span<const Command* const> Commands();
// The command of that operation or control; null for none.
[[nodiscard]] const Command* CommandNamed(std::string_view name);
// Runs it if it can. False when it cannot, or when there is no such command.
bool Order(LDGRController& app, std::string_view name);

}  // namespace tallyfold
