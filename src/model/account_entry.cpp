#include "model/account_entry.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "model/amounts.h"
#include "model/field_table.h"
#include "plist/read_report.h"

namespace tallyfold {
namespace {

constexpr std::string_view kMissing =
    "No %@ defined for theDictionary in LDGRAccountEntry:initWithDictionary";
constexpr std::string_view kWrong =
    "theValue is in the wrong format in LDGRAccountEntry:initWithDictionary";
constexpr std::string_view kWrongNotes =
    "notes are in the wrong format in LDGRAccountEntry:initWithDictionary";
constexpr std::string_view kSilent;

}  // namespace

struct LDGRAccountEntry::Keys {
  using Entry = LDGRAccountEntry;

  // In the order of writing.
  enum Index : std::size_t {
    kDate,
    kNumber,
    kCheckNumber,
    kEntryFlags,
    kType,
    kAmount,
    kDescription,
    kToFrom,
    kCleared,
    kNotes,
    kTransferEntry,
    kTransferAccount,
    kSplit,
    kCount
  };

  // The split, which comes last, is no plain field.
  static constexpr std::string_view kSplitKey = "split";
  static constexpr std::array<Field<Entry>, kSplit> kFields{{
      {"date", &Entry::date_, kMissing, kWrong},
      {"number", &Entry::number_, kMissing, kWrong},
      {"checkNumber", &Entry::check_number_, kMissing, kWrong},
      {"entryFlags", &Entry::entry_flags_, kMissing, kWrong},
      {"type", &Entry::type_, kMissing, kWrong},
      {"amount", &Entry::amount_, kMissing, kWrong},
      {"description", &Entry::description_, kMissing, kWrong},
      {"toFrom", &Entry::to_from_, kMissing, kWrong},
      {"cleared", &Entry::cleared_, kMissing, kWrong},
      {"notes", &Entry::notes_, kSilent, kWrongNotes},
      {"transferEntry", &Entry::transfer_entry_, kSilent, kWrong},
      {"transferAccount", &Entry::transfer_account_, kSilent, kWrong},
  }};

  // What a change of each field changes; of the flags see DifferenceFrom().
  static constexpr std::array<ChangeKind, kSplit> kKinds{
      ChangeKind::Money, ChangeKind::Money, ChangeKind::Money, ChangeKind::Money,
      ChangeKind::Texts, ChangeKind::Money, ChangeKind::Texts, ChangeKind::Texts,
      ChangeKind::Marks, ChangeKind::Texts, ChangeKind::Texts, ChangeKind::Texts,
  };

  // Of old records; the upgrade reads them and leaves them where they are.
  static constexpr std::array<std::string_view, 2> kOldKeys{"isDebit", "isCheck"};

  using Values = std::array<const plist::Value*, kCount>;

  static bool Contains(std::span<const std::string_view> keys, std::string_view key) {
    return std::find(keys.begin(), keys.end(), key) != keys.end();
  }

  // The values of all keys, none for those that are missing; other keys than these and `own_keys`
  // are told. Keys nearly always come in the order in which they are written, so each is first
  // looked for behind the one before it: an entry costs one pass over its dictionary.
  static Values Find(const plist::Dictionary& dictionary,
                     std::span<const std::string_view> own_keys) {
    static const plist::Value none;
    Values values;
    values.fill(&none);
    std::size_t next = 0;
    for (const plist::DictionaryItem& item : dictionary) {
      const std::string_view key = item.key();
      std::size_t tries = 0;
      for (; tries < kCount; ++tries) {
        const std::size_t index = next;
        next = next + 1 == kCount ? 0 : next + 1;
        if (key == (index == kSplit ? kSplitKey : kFields[index].key)) {
          values[index] = &item.value();
          break;
        }
      }
      if (tries == kCount && !Contains(own_keys, key) && !Contains(kOldKeys, key)) {
        plist::ReportNotTaken(plist::NotTaken::UnknownKey, key);
      }
    }
    return values;
  }

  static void Read(Entry& entry, const Values& values, Index index) {
    ReadField(entry, kFields[index], *values[index]);
  }
};

LDGRAccountEntry::LDGRAccountEntry(const std::optional<plist::Dictionary>& dictionary,
                                   std::span<const std::string_view> own_keys) {
  if (!dictionary) return;
  const Keys::Values values = Keys::Find(*dictionary, own_keys);
  for (const Keys::Index index :
       {Keys::kDate, Keys::kNumber, Keys::kCheckNumber, Keys::kEntryFlags}) {
    Keys::Read(*this, values, index);
  }
  for (const Keys::Index index : {Keys::kTransferEntry, Keys::kTransferAccount}) {
    if (IsTransfer()) {
      Keys::Read(*this, values, index);
    } else if (!values[index]->IsNone()) {
      // A link without the flag of a transfer does not count.
      plist::ReportNotTaken(plist::NotTaken::Skipped, Keys::kFields[index].key);
    }
  }
  for (const Keys::Index index : {Keys::kDescription, Keys::kType, Keys::kAmount, Keys::kToFrom,
                                  Keys::kCleared, Keys::kNotes}) {
    Keys::Read(*this, values, index);
  }
  const plist::Value& split = *values[Keys::kSplit];
  if (split.IsDictionary()) {
    split_ = std::make_shared<LDGRAccountEntrySplit>(split.DictionaryValue());
  } else if (!split.IsNone()) {
    RefuseForKey(kWrong, Keys::kSplitKey);
  }
}

std::shared_ptr<LDGRAccountEntry> LDGRAccountEntry::entryWithEntry(const LDGRAccountEntry* entry) {
  if (entry != nullptr) {
    plist::TreeBuilder tree;
    tree.BeginDictionary();
    entry->WriteEntryKeys(tree);
    tree.EndDictionary();
    return std::make_shared<LDGRAccountEntry>(tree.Take().DictionaryValue());
  }
  auto blank = std::make_shared<LDGRAccountEntry>();
  blank->number_ = 0;
  blank->check_number_ = 0;
  blank->type_ = 0;
  blank->transfer_entry_ = 0;
  blank->transfer_account_ = 0;
  return blank;
}

std::shared_ptr<LDGRAccountEntry> LDGRAccountEntry::Image() const {
  auto image = std::make_shared<LDGRAccountEntry>();
  CopyTo(*image);
  return image;
}

void LDGRAccountEntry::CopyTo(LDGRAccountEntry& image) const {
  for (const auto& field : Keys::kFields) CopyField(*this, image, field);
  image.split_ = LDGRAccountEntrySplit::ImageOf(split_.get());
}

void LDGRAccountEntry::ExchangeWith(LDGRAccountEntry& image) noexcept {
  for (const auto& field : Keys::kFields) ExchangeField(*this, image, field);
  split_.swap(image.split_);
}

ChangeKinds LDGRAccountEntry::DifferenceFrom(const LDGRAccountEntry& image) const noexcept {
  ChangeKinds kinds = LDGRAccountEntrySplit::Difference(split_.get(), image.split_.get());
  for (std::size_t index = 0; index < Keys::kFields.size(); ++index) {
    if (!FieldDiffers(*this, image, Keys::kFields[index])) continue;
    const bool only_tax =
        index == Keys::kEntryFlags && (entry_flags_ ^ image.entry_flags_) == kTaxDeductible;
    kinds |= only_tax ? ChangeKind::Marks : Keys::kKinds[index];
  }
  return kinds;
}

std::size_t LDGRAccountEntry::MemorySize() const noexcept {
  return sizeof(*this) + description_.size() + to_from_.size() + notes_.size() +
         (split_ ? split_->MemorySize() : 0);
}

void LDGRAccountEntry::WriteTo(plist::Output& output) const {
  output.BeginDictionary();
  WriteEntryKeys(output);
  WriteOwnKeys(output);
  output.EndDictionary();
}

void LDGRAccountEntry::WriteEntryKeys(plist::Output& output) const {
  for (std::size_t index = 0; index < Keys::kFields.size(); ++index) {
    const bool left_out =
        (index == Keys::kNotes && notes_.empty()) ||
        ((index == Keys::kTransferEntry || index == Keys::kTransferAccount) && !IsTransfer());
    if (!left_out) WriteField(*this, Keys::kFields[index], output);
  }
  if (split_) {
    output.Key(Keys::kSplitKey);
    split_->WriteTo(output);
  }
}

void LDGRAccountEntry::WriteOwnKeys(plist::Output& /*output*/) const {}

plist::Dictionary LDGRAccountEntry::asDictionary() const {
  plist::TreeBuilder tree;
  WriteTo(tree);
  return tree.Take().DictionaryValue();
}

void LDGRAccountEntry::SetDate(DateNumber date) noexcept {
  if (date >= 0) date_ = date;
}

void LDGRAccountEntry::SetAmount(double amount) noexcept {
  amount_ = RoundedAmount(amount);
}

double LDGRAccountEntry::GetAmount() const noexcept {
  if (split_ && IsDeposit()) return split_->GetTotal();
  if (split_ && IsDebit()) return 0.0 - split_->GetTotal();  // never a negative zero
  return amount_;
}

void LDGRAccountEntry::SetDescription(std::optional<std::string_view> description) {
  if (description) description_ = *description;
}

void LDGRAccountEntry::SetToFrom(std::optional<std::string_view> to_from) {
  if (to_from) to_from_ = *to_from;
}

void LDGRAccountEntry::SetNotes(std::optional<std::string_view> notes) {
  notes_ = notes.value_or("");
}

void LDGRAccountEntry::SetIsDebit(bool is_debit) noexcept {
  SetFlag(kDebit, is_debit);
  if (is_debit) entry_flags_ &= ~(kDeposit | kTransfer | kTransferOrigin);
}

}  // namespace tallyfold
