#pragma once

#include <cstdint>

namespace tallyfold {

// What may take long, and what its figures count.
enum class LongWork : std::uint8_t {
  Reading,    // bytes of one of the program's own files or of a backup
  Loading,    // entries made of what was read
  Saving,     // entries written to an accounts file
  Parsing,    // bytes of a file to be imported
  Reviewing,  // entries of such a file: made where it is of QIF, and compared with the account's
  Importing,  // entries copied from the review and added to the account
  Exporting,  // entries written
  LayingOut,  // rows put on pages
  Drawing,    // pages drawn for a printer or a file
};

// Is told how far long operations have come. Nobody is, unless a front end wants it.
class Progress {
 public:
  virtual ~Progress() = default;

  // Of one operation after the other: first with `done` 0, then about each hundredth of `total`,
  // which stays as it is and may be 0. `done` rises up to `total`, and reaches it at the end of an
  // operation that was carried through. Comes in the middle of things: it must call no operation,
  // and what it throws goes nowhere.
  virtual void Report(LongWork work, std::uint64_t done, std::uint64_t total) = 0;
  // The operation is over, carried through or not.
  virtual void Ended() = 0;
};

// Has `progress` told for its own lifetime, then whoever was told before. `progress` must outlive
// it.
class ScopedProgress {
 public:
  explicit ScopedProgress(Progress& progress) noexcept;
  ~ScopedProgress();
  ScopedProgress(const ScopedProgress&) = delete;
  ScopedProgress& operator=(const ScopedProgress&) = delete;

 private:
  friend class LongOperation;

  static inline Progress* in_force_ = nullptr;

  Progress* former_;
};

// An operation that tells of its progress while it lives. One that begins within another is part of
// that: it tells nothing of its own, and what is counted goes to the other where it is of the same
// kind. For one thread, as everything here.
class LongOperation {
 public:
  LongOperation(LongWork work, std::uint64_t total) noexcept;
  ~LongOperation();
  LongOperation(const LongOperation&) = delete;
  LongOperation& operator=(const LongOperation&) = delete;

  // All of it is done, whatever has been counted.
  void Finish() noexcept;

  // So much more, or so much in all, is done of the operation under way, if it is of that kind.
  // Cost next to nothing and may be called for each record.
  static void Count(LongWork work, std::uint64_t more = 1) noexcept {
    if (under_way_ != nullptr) Reached(work, under_way_->done_ + more);
  }
  static void Reached(LongWork work, std::uint64_t done) noexcept {
    LongOperation* const told = under_way_;
    if (told == nullptr || told->work_ != work || done <= told->done_) return;
    told->done_ = done;
    if (done >= told->next_) told->Tell();
  }

 private:
  void Tell() noexcept;

  // The outermost one that is told of; null while nobody listens.
  static inline LongOperation* under_way_ = nullptr;

  LongWork work_;
  std::uint64_t total_;
  std::uint64_t done_ = 0;
  std::uint64_t next_ = 0;
};

}  // namespace tallyfold
