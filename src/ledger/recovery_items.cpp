#include "ledger/recovery_items.h"

#include <algorithm>
#include <type_traits>
#include <utility>

#include "ledger/image_parts.h"
#include "ledger/list_part.h"
#include "ledger/recovery_record.h"

namespace tallyfold {

namespace {

using namespace recovery_keys;

}  // namespace

template <typename Record>
void RecoveryItems::Move(const ListPart<Record>& part, bool inserts) {
  using Traits = RecordTraits<Record>;
  MoveItem item;
  item.account = part.account();
  item.what = Traits::kKey;
  item.inserts = inserts;
  for (const auto& row : part.rows()) {
    item.places.push_back(row.place);
    item.records.push_back(row.record.get());
  }
  item.form = [&part](std::size_t row, plist::Output& out) {
    Traits::Write(*part.rows()[row].record, out);
  };
  item.form_to_compare = [&part](std::size_t row, plist::Output& out) {
    Traits::WriteToCompare(*part.rows()[row].record, out);
  };
  item.list_size = Traits::ListOf(*part.account()).size();
  moves.push_back(std::move(item));
}

template <typename Record>
void RecoveryItems::Edit(const EditPart<Record>& part) {
  using Traits = RecordTraits<Record>;
  if (!IsNew(part)) return;
  edits.push_back({part.account(), part.record().get(), Traits::kKey,
                   [this, &part] { return PlaceOf(*part.account(), part.record()); },
                   [&part](plist::Output& out) { Traits::WriteToCompare(part.image(), out); },
                   [&part](plist::Output& out) { Traits::Write(*part.record(), out); }});
}

template <typename Record>
std::optional<std::size_t> RecoveryItems::PlaceOf(LDGRAccount& account,
                                                  const std::shared_ptr<Record>& record) {
  if constexpr (std::is_same_v<Record, LDGRAccountEntry>) {
    return places_.Of(account, record.get());
  } else {
    const auto& list = RecordTraits<Record>::ListOf(account);
    const auto found = std::find(list.begin(), list.end(), record);
    if (found == list.end()) return std::nullopt;
    return static_cast<std::size_t>(found - list.begin());
  }
}

void RecoveryItems::Visit(const ListPart<LDGRAccountEntry>& part, bool inserts) {
  Move(part, inserts);
}

void RecoveryItems::Visit(const ListPart<LDGRAccountSchedule>& part, bool inserts) {
  Move(part, inserts);
}

void RecoveryItems::Visit(const ListPart<LDGRAccountSummary>& part, bool inserts) {
  Move(part, inserts);
}

void RecoveryItems::Visit(const AccountListPart& part, bool inserts) {
  MoveItem item;
  item.account = part.account();
  item.what = kAccounts;
  item.inserts = inserts;
  item.places = {part.place()};
  moves.push_back(std::move(item));
}

void RecoveryItems::Visit(const EditPart<LDGRAccountEntry>& part) {
  Edit(part);
}

void RecoveryItems::Visit(const EditPart<LDGRAccountSchedule>& part) {
  Edit(part);
}

void RecoveryItems::Visit(const EditPart<LDGRAccountSummary>& part) {
  Edit(part);
}

void RecoveryItems::Visit(const AccountPartEdit& part) {
  if (!IsNew(part)) return;
  const AccountPart which = part.part();
  edits.push_back({part.account(),
                   nullptr,
                   which == AccountPart::Options ? kOptions : kSettings,
                   {},
                   [&part, which](plist::Output& out) { WriteToCompare(part.image(), which, out); },
                   [&part, which](plist::Output& out) { part.account()->WritePart(which, out); }});
}

void RecoveryItems::Visit(const TypesEdit& part) {
  if (!IsNew(part)) return;
  constexpr auto kPart = AccountPart::Types;
  edits.push_back({part.account(),
                   nullptr,
                   kTypes,
                   {},
                   [&part](plist::Output& out) { WriteToCompare(*part.Image(), kPart, out); },
                   [&part](plist::Output& out) { part.account()->WritePart(kPart, out); }});
}

void RecoveryItems::Visit(const PasswordEdit& part) {
  edits.push_back({nullptr,
                   nullptr,
                   kPassword,
                   {},
                   [&part](plist::Output& out) { out.String(part.image()); },
                   [&part](plist::Output& out) { out.String(part.present()); }});
}

}  // namespace tallyfold
