#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "ledger/step.h"

namespace tallyfold {

class Ledger;
struct ChangeSet;

// The steps that can be undone and done again, as far back as the launch. They are undone strictly
// in order, so that everything stands as the step left it. Nothing of it is stored, and saving
// leaves it as it is.
class History {
 public:
  // Beyond as much memory the oldest steps are forgotten; the newest never is.
  static constexpr std::size_t kMostMemory = std::size_t{256} << 20;

  enum class Refusal : std::uint8_t {
    None,          // it can be done
    NothingThere,  // there is no step
    Locked,        // an account in which the next step was ordered is locked now
    ChangeOpen,    // a change is being made, or being told
  };

  // A step as it is shown.
  struct Line {
    std::string name;  // an English key
    AccountList ordered_in;
    Instant when{};
    // Whether nothing from here to the newest is refused.
    bool can_be_reached = true;
  };

  explicit History(Ledger& ledger) noexcept : ledger_(ledger) {}
  History(const History&) = delete;
  History& operator=(const History&) = delete;

  [[nodiscard]] Refusal WhyNotUndo() const;
  [[nodiscard]] Refusal WhyNotRedo() const;
  // Put the newest step back, or do the last one undone again, and tell the listeners. False, and
  // nothing happens, when it is refused; a refused step keeps what is older from being undone too.
  // Entry numbers given meanwhile are not given again. An account that comes back is the very
  // object that went, at its place, locked or unlocked as it was. Throw nothing but what memory
  // running out throws; then nothing has happened.
  bool Undo();
  bool Redo();

  // The steps, the next one to be undone or redone first; those ordered in a locked account are
  // left out.
  [[nodiscard]] std::vector<Line> UndoLines() const { return Lines(done_); }
  [[nodiscard]] std::vector<Line> RedoLines() const { return Lines(undone_); }

  // Forgets all steps. Whoever replaces the accounts (a restored backup, a load) calls it.
  void Clear() noexcept;

 private:
  friend class Change;
  using Steps = std::vector<std::unique_ptr<Step>>;

  // Makes the room that Take() needs for a step of as many parts and companions.
  void MakeRoom(std::size_t parts, std::size_t companions, bool is_undoable);
  // The step was just done; what was undone is forgotten. What is not undoable by itself goes back
  // together with the newest step; where there is none, there is nothing to go back to.
  void Take(std::unique_ptr<Step> step, bool is_undoable) noexcept;

  [[nodiscard]] Refusal WhyNot(const Steps& steps) const;
  [[nodiscard]] bool IsRefused(const Step& step) const;
  [[nodiscard]] std::vector<Line> Lines(const Steps& steps) const;
  bool Carry(Steps& from, Steps& to, Way way);
  void ForgetOldest() noexcept;

  Ledger& ledger_;
  Steps done_;
  Steps undone_;
};

}  // namespace tallyfold
