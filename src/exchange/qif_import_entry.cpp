#include "exchange/qif_import_entry.h"

#include <optional>
#include <string_view>

#include "model/text.h"

namespace tallyfold {
namespace {

std::string_view NameOf(const std::shared_ptr<LDGRAccountEntryType>& type) {
  return type ? std::string_view(type->GetName()) : std::string_view();
}

}  // namespace

std::string LDGRQIFImportEntry::asSpeakableString() const {
  return SpeakableString(actual_type_ ? std::optional(actual_type_->GetName()) : std::nullopt);
}

int LDGRQIFImportEntry::TypePrimaryDateSecondaryIsGreaterThan(
    const LDGRQIFImportEntry& other) const {
  if (const int order = CompareIgnoringCase(NameOf(actual_type_), NameOf(other.actual_type_))) {
    return order;
  }
  return DateIsGreaterThan(other);
}

int LDGRQIFImportEntry::TypePrimaryDateSecondaryIsGreaterThan_Reversed(
    const LDGRQIFImportEntry& other) const {
  return -TypePrimaryDateSecondaryIsGreaterThan(other);
}

int LDGRQIFImportEntry::ImportIsGreaterThan(const LDGRQIFImportEntry& other) const noexcept {
  if (import_ != other.import_) return import_ ? 1 : -1;
  return NumberIsGreaterThan(other);
}

int LDGRQIFImportEntry::ImportIsGreaterThan_Reversed(
    const LDGRQIFImportEntry& other) const noexcept {
  return -ImportIsGreaterThan(other);
}

}  // namespace tallyfold
