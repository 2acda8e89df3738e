#include "ledger/summary_records.h"

#include <utility>

#include "summaries/account_summary.h"

namespace tallyfold {

std::shared_ptr<LDGRAccountSummary> SummaryRecords::Image(const LDGRAccountSummary& summary) {
  auto image = std::make_shared<LDGRAccountSummary>();
  for (const auto& field : LDGRAccountSummary::Fields()) CopyField(summary, *image, field);
  image->filter_data_ = summary.filter_data_;
  return image;
}

void SummaryRecords::Exchange(LDGRAccountSummary& summary, LDGRAccountSummary& image) noexcept {
  for (const auto& field : LDGRAccountSummary::Fields()) ExchangeField(summary, image, field);
  std::swap(summary.filter_data_, image.filter_data_);
}

bool SummaryRecords::Differs(const LDGRAccountSummary& a, const LDGRAccountSummary& b) noexcept {
  if (!(a.filter_data_ == b.filter_data_)) return true;
  for (const auto& field : LDGRAccountSummary::Fields()) {
    if (FieldDiffers(a, b, field)) return true;
  }
  return false;
}

void SummaryRecords::SetAccount(LDGRAccountSummary& summary, LDGRAccount* account) noexcept {
  summary.setAccount(account);
}

std::size_t SummaryRecords::MemorySize(const LDGRAccountSummary& summary) noexcept {
  return sizeof(summary) + summary.name_.size();
}

void SummaryRecords::Write(const LDGRAccountSummary& summary, plist::Output& output) {
  summary.WriteTo(output);
}

void SummaryRecords::WriteWithoutDays(const LDGRAccountSummary& summary, plist::Output& output) {
  const auto image = Image(summary);
  image->setStartDate(0);
  image->setEndDate(0);
  image->WriteTo(output);
}

std::shared_ptr<LDGRAccountSummary> SummaryRecords::Make(const plist::Dictionary& options) {
  return std::make_shared<LDGRAccountSummary>(options, nullptr);
}

}  // namespace tallyfold
