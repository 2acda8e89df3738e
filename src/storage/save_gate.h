#pragma once

namespace tallyfold {

// Whether the accounts and preferences files may be written now. Every save asks it, whoever wants
// the save: shut-down, a closing window, a signal in the middle of a question to the user.
class SaveGate {
 public:
  // Keeps the gate closed for its own lifetime.
  class [[nodiscard]] Hold {
   public:
    explicit Hold(SaveGate& gate) noexcept : gate_(gate) { ++gate_.holds_; }
    ~Hold() { --gate_.holds_; }
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;

   private:
    SaveGate& gate_;
  };

  [[nodiscard]] bool IsOpen() const noexcept { return holds_ == 0 && !closed_for_good_; }
  // This run does not touch the files any more: the program ends, or it only looks.
  void CloseForGood() noexcept { closed_for_good_ = true; }
  [[nodiscard]] bool IsClosedForGood() const noexcept { return closed_for_good_; }

 private:
  int holds_ = 0;
  bool closed_for_good_ = false;
};

}  // namespace tallyfold
