#pragma once

#include <QObject>
#include <optional>

#include "platform/clock.h"
#include "platform/progress.h"

namespace tallyfold::desktop {

class MainWindow;

// Shows the user what is being waited for, once that has taken half a second. Only the pieces that
// tell it are painted, and no event is looked at: whatever is typed and clicked meanwhile waits for
// the end of the operation.
class Waiting final : public QObject, public Progress {
 public:
  // The window must outlive this.
  explicit Waiting(MainWindow& window) noexcept : window_(window) {}

  void Report(LongWork work, std::uint64_t done, std::uint64_t total) override;
  void Ended() override;

 private:
  void Rest();

  MainWindow& window_;
  // Of the first of the operations that follow one another without a look at events.
  std::optional<Instant> since_;
  // Of the latest that was painted.
  std::optional<Instant> painted_;
  std::optional<LongWork> shown_;
  bool will_rest_ = false;
};

}  // namespace tallyfold::desktop
