#pragma once

#include <cstddef>
#include <memory>

#include "model/account.h"
#include "plist/output.h"

namespace tallyfold {

// What changes and their undoing need of summaries, which are known further up (src/summaries,
// where these are defined). Of a summary they concern what is stored, not what it came to.
class SummaryRecords {
 public:
  // What the summary stores, kept aside and put back into the very same object. Belongs to no
  // account.
  [[nodiscard]] static std::shared_ptr<LDGRAccountSummary> Image(const LDGRAccountSummary& summary);
  // Notes no change of the account.
  static void Exchange(LDGRAccountSummary& summary, LDGRAccountSummary& image) noexcept;
  // Whether the two would be stored differently.
  [[nodiscard]] static bool Differs(const LDGRAccountSummary& a,
                                    const LDGRAccountSummary& b) noexcept;
  // Null for none.
  static void SetAccount(LDGRAccountSummary& summary, LDGRAccount* account) noexcept;
  // In bytes, roughly.
  [[nodiscard]] static std::size_t MemorySize(const LDGRAccountSummary& summary) noexcept;

  static void Write(const LDGRAccountSummary& summary, plist::Output& output);
  // The same without the days, which may move by merely looking at the summary.
  static void WriteWithoutDays(const LDGRAccountSummary& summary, plist::Output& output);
  [[nodiscard]] static std::shared_ptr<LDGRAccountSummary> Make(const plist::Dictionary& options);
};

}  // namespace tallyfold
