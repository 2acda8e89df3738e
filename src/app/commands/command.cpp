#include "app/commands/command.h"

#include <algorithm>
#include <unordered_map>
#include <vector>

#include "app/commands/command_tables.h"
#include "app/controller.h"
#include "app/desk.h"
#include "app/shell/menus.h"

namespace tallyfold {
namespace {

using Index = std::unordered_map<std::string_view, const Command*>;

std::vector<const Command*> AllCommands() {
  using namespace command_tables;
  std::vector<const Command*> all;
  for (const auto& table :
       {File(), Account(), Entry(), EntrySheets(), Schedule(), Summary(), View()}) {
    for (const Command& command : table) all.push_back(&command);
  }
  std::ranges::stable_sort(all, {}, [](const Command* command) { return command->menu; });
  return all;
}

Index IndexOfNames() {
  Index index;
  for (const Command* command : Commands()) {
    index.emplace(command->name, command);
    std::string_view controls = command->controls;
    while (!controls.empty()) {
      const std::size_t end = std::min(controls.find(' '), controls.size());
      index.emplace(controls.substr(0, end), command);
      controls.remove_prefix(std::min(end + 1, controls.size()));
    }
  }
  return index;
}

}  // namespace

namespace command_tables {

bool IsFree(LDGRController& app) {
  return app.menus().AreOn();
}

bool HasAccount(LDGRController& app) {
  return IsFree(app) && app.desk().SelectedAccount() != nullptr;
}

bool HasEntry(LDGRController& app) {
  return HasAccount(app) && app.desk().SelectedEntry() != nullptr;
}

bool HasSchedule(LDGRController& app) {
  return HasAccount(app) && app.desk().SelectedSchedule() != nullptr;
}

}  // namespace command_tables

std::span<const Command* const> Commands() {
  static const std::vector<const Command*> all = AllCommands();
  return all;
}

const Command* CommandNamed(std::string_view name) {
  static const Index index = IndexOfNames();
  const auto found = index.find(name);
  return found == index.end() ? nullptr : found->second;
}

bool Order(LDGRController& app, std::string_view name) {
  const Command* command = CommandNamed(name);
  if (command == nullptr || !command->can(app)) return false;
  command->run(app);
  return true;
}

}  // namespace tallyfold
