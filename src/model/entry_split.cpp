#include "model/entry_split.h"

#include <algorithm>

#include "model/amounts.h"
#include "model/field_table.h"
#include "model/stored_numbers.h"
#include "platform/ambient.h"
#include "plist/read_report.h"

namespace tallyfold {
namespace {

constexpr std::string_view kDescriptions = "descriptions";
constexpr std::string_view kToFroms = "toFrom";
constexpr std::string_view kAmounts = "amounts";

constexpr std::string_view kWrongFormat =
    "theValue is in the wrong format in LDGRAccountEntrySplit:initWithDictionary";
constexpr std::string_view kNoDescription =
    "No description defined for theDictionary in LDGRAccountEntrySplit:initWithDictionary";
constexpr std::string_view kNoToFroms =
    "No toFroms defined for theDictionary in LDGRAccountEntrySplit:initWithDictionary";
constexpr std::string_view kNoAmounts =
    "No amounts defined for theDictionary in LDGRAccountEntrySplit:initWithDictionary";
constexpr std::string_view kNoAmount =
    "No amount defined for theDictionary in LDGRAccountEntrySplit:initWithDictionary";
constexpr std::string_view kIndexOutOfRange =
    "Split index out of range of split array in LDGRAccountEntrySplit:SetAmount";

// The list under `key`; none, with a line in the log, when it is missing or no list.
std::optional<plist::Array> ListFor(const plist::Dictionary& dictionary, std::string_view key,
                                    std::string_view missing) {
  const plist::Value& value = dictionary.Get(key);
  if (value.IsArray()) return value.ArrayValue();
  if (value.IsNone()) {
    Log(missing);
  } else {
    RefuseForKey(kWrongFormat, key);
  }
  return std::nullopt;
}

}  // namespace

LDGRAccountEntrySplit::LDGRAccountEntrySplit(const std::optional<plist::Dictionary>& dictionary) {
  if (!dictionary) return;
  if (const auto texts = ListFor(*dictionary, kDescriptions, kNoDescription)) {
    ReadTexts(*texts, &Line::description, kDescriptions);
  }
  if (const auto texts = ListFor(*dictionary, kToFroms, kNoToFroms)) {
    ReadTexts(*texts, &Line::to_from, kToFroms);
  }
  if (const auto amounts = ListFor(*dictionary, kAmounts, kNoAmounts)) ReadAmounts(*amounts);
  const auto met = std::size_t{dictionary->Has(kDescriptions)} + dictionary->Has(kToFroms) +
                   dictionary->Has(kAmounts);
  plist::ReportUnknownKeys(*dictionary, met, [](std::string_view key) {
    return key == kDescriptions || key == kToFroms || key == kAmounts;
  });
}

// Lists are read from their ends, so that the lines grow once to what is used.
void LDGRAccountEntrySplit::ReadTexts(const plist::Array& texts, std::string Line::*member,
                                      std::string_view key) {
  if (texts.size() > kLines) plist::ReportNotTaken(plist::NotTaken::Skipped, key);
  for (std::size_t i = std::min(texts.size(), kLines); i-- > 0;) {
    const plist::Value& text = texts.At(i);
    if (!text.IsString()) {
      plist::ReportNotTaken(plist::NotTaken::WrongKind, key);
    } else if (!text.StringValue().empty()) {
      MutableLine(i).*member = text.StringValue();
    }
  }
}

void LDGRAccountEntrySplit::ReadAmounts(const plist::Array& amounts) {
  if (amounts.size() > kLines) plist::ReportNotTaken(plist::NotTaken::Skipped, kAmounts);
  for (std::size_t i = amounts.size(); i-- > 0;) {
    const plist::Value& amount = amounts.At(i);
    if (amount.kind() == plist::Kind::Real && !amount.IsNumber() && i < kLines) {
      RefuseForKey(kWrongFormat, kAmounts);
    } else {
      SetAmount(LooseReal(amount, kAmounts), i);
    }
  }
}

std::shared_ptr<LDGRAccountEntrySplit> LDGRAccountEntrySplit::splitWithSplit(
    const LDGRAccountEntrySplit* split) {
  if (split == nullptr) return nullptr;
  return std::make_shared<LDGRAccountEntrySplit>(split->asDictionary());
}

std::shared_ptr<LDGRAccountEntrySplit> LDGRAccountEntrySplit::ImageOf(
    const LDGRAccountEntrySplit* split) {
  if (split == nullptr) return nullptr;
  auto image = std::make_shared<LDGRAccountEntrySplit>();
  image->lines_ = split->lines_;
  image->total_ = split->total_;
  return image;
}

ChangeKinds LDGRAccountEntrySplit::Difference(const LDGRAccountEntrySplit* a,
                                              const LDGRAccountEntrySplit* b) noexcept {
  // Of an entry's parts the split alone decides which amount counts.
  if (a == nullptr || b == nullptr) {
    return a == b ? ChangeKinds() : ChangeKind::Money | ChangeKind::Texts;
  }
  ChangeKinds kinds;
  for (std::size_t i = 0; i < kLines; ++i) {
    const Line& line = a->LineAt(i);
    const Line& other = b->LineAt(i);
    if (StoredDiffers(line.amount, other.amount)) kinds |= ChangeKind::Money;
    if (line.description != other.description || line.to_from != other.to_from) {
      kinds |= ChangeKind::Texts;
    }
  }
  return kinds;
}

std::size_t LDGRAccountEntrySplit::MemorySize() const noexcept {
  std::size_t size = sizeof(*this) + lines_.capacity() * sizeof(Line);
  for (const Line& line : lines_) size += line.description.size() + line.to_from.size();
  return size;
}

void LDGRAccountEntrySplit::WriteTo(plist::Output& output) const {
  output.BeginDictionary();
  output.Key(kDescriptions);
  output.BeginArray();
  for (std::size_t i = 0; i < kLines; ++i) output.String(LineAt(i).description);
  output.EndArray();
  output.Key(kToFroms);
  output.BeginArray();
  for (std::size_t i = 0; i < kLines; ++i) output.String(LineAt(i).to_from);
  output.EndArray();
  output.Key(kAmounts);
  output.BeginArray();
  for (std::size_t i = 0; i < kLines; ++i) output.Real(LineAt(i).amount);
  output.EndArray();
  output.EndDictionary();
}

plist::Dictionary LDGRAccountEntrySplit::asDictionary() const {
  plist::TreeBuilder tree;
  WriteTo(tree);
  return tree.Take().DictionaryValue();
}

void LDGRAccountEntrySplit::SetDescription(std::optional<std::string_view> description,
                                           std::size_t index) {
  if (description && index < kLines) MutableLine(index).description = *description;
}

void LDGRAccountEntrySplit::SetToFrom(std::optional<std::string_view> to_from, std::size_t index) {
  if (to_from && index < kLines) MutableLine(index).to_from = *to_from;
}

void LDGRAccountEntrySplit::SetAmount(double amount, std::size_t index) {
  if (index >= kLines) return Log(kIndexOutOfRange);
  const double rounded = RoundedAmount(amount);
  if (rounded == LineAt(index).amount) return;
  MutableLine(index).amount = rounded;
  total_ = 0.0;
  for (const Line& line : lines_) total_ += line.amount;
}

void LDGRAccountEntrySplit::SetEnabled(bool enabled, std::size_t index) {
  if (index < kLines) MutableLine(index).enabled = enabled;
}

const std::string& LDGRAccountEntrySplit::GetDescription(std::size_t index) const noexcept {
  return LineAt(index).description;
}

const std::string& LDGRAccountEntrySplit::GetToFrom(std::size_t index) const noexcept {
  return LineAt(index).to_from;
}

double LDGRAccountEntrySplit::GetAmount(std::size_t index) const noexcept {
  return LineAt(index).amount;
}

bool LDGRAccountEntrySplit::GetEnabled(std::size_t index) const noexcept {
  return LineAt(index).enabled;
}

// What was read of one line stays where it is while another is stored.
LDGRAccountEntrySplit::Line& LDGRAccountEntrySplit::MutableLine(std::size_t index) {
  if (lines_.empty()) lines_.reserve(kLines);
  if (index >= lines_.size()) lines_.resize(index + 1);
  return lines_[index];
}

const LDGRAccountEntrySplit::Line& LDGRAccountEntrySplit::LineAt(std::size_t index) const noexcept {
  static const Line unused;
  return index < lines_.size() ? lines_[index] : unused;
}

LDGRAccountEntrySplit_Old::LDGRAccountEntrySplit_Old(
    const std::optional<plist::Dictionary>& dictionary) {
  if (!dictionary) return;
  const plist::Value& description = dictionary->Get(kDescriptions);
  if (description.IsString()) {
    description_ = description.StringValue();
  } else if (description.IsNone()) {
    Log(kNoDescription);
  } else {
    RefuseForKey(kWrongFormat, kDescriptions);
  }
  const plist::Value& amount = dictionary->Get(kAmounts);
  if (amount.IsNumber()) {
    amount_ = StoredReal(amount, kAmounts);
  } else if (amount.IsNone()) {
    Log(kNoAmount);
  } else {
    RefuseForKey(kWrongFormat, kAmounts);
  }
}

plist::Dictionary LDGRAccountEntrySplit_Old::asDictionary() const {
  plist::Dictionary dictionary;
  if (description_) dictionary.Set(kDescriptions, *description_);
  dictionary.Set(kAmounts, amount_);
  return dictionary;
}

void LDGRAccountEntrySplit_Old::SetDescription(std::optional<std::string_view> description) {
  if (description) description_ = *description;
}

}  // namespace tallyfold
