#pragma once

#include <cstddef>
#include <cstdint>

namespace tallyfold {

class ChangeSetBuilder;
class PartVisitor;

// Which way a part is carried out: as it was ordered, or back again.
enum class Way : std::uint8_t { Forward, Back };

// One thing that a change did, with all that is needed to do it back and again: the object, its
// place in its list, or the image that would be put back. Parts are exchanged strictly in turn, so
// that each finds the lists as it left them.
class StepPart {
 public:
  StepPart() = default;
  StepPart(const StepPart&) = delete;
  StepPart& operator=(const StepPart&) = delete;
  virtual ~StepPart() = default;

  // Makes the room that Exchange() takes. Changes nothing else, also when it throws for want of
  // memory.
  virtual void MakeRoom(Way /*way*/) {}
  virtual void Exchange(Way way) noexcept = 0;
  // Puts in order what setters left out of it; called once, when the change ends.
  virtual void Tidy() noexcept {}
  // Says what Exchange() that way changes; called before it. For a part just carried out, what it
  // changed.
  virtual void Tell(ChangeSetBuilder& builder, Way way) const = 0;
  // Shows itself as what it is.
  virtual void Accept(PartVisitor& visitor, Way way) const = 0;
  // What an edit keeps an image of, as a number of its own; 0 for what is no edit.
  [[nodiscard]] virtual std::uintptr_t Subject() const noexcept { return 0; }
  // An edit after which all is as it was.
  [[nodiscard]] virtual bool ChangedNothing() const { return false; }
  // Belongs to no step: the change stays when the step is undone.
  [[nodiscard]] virtual bool IsSetting() const noexcept { return false; }
  // How much memory it holds, in bytes, roughly.
  [[nodiscard]] virtual std::size_t MemorySize() const = 0;
};

}  // namespace tallyfold
