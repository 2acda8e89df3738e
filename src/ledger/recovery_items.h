#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "ledger/entry_places.h"
#include "ledger/part_visitor.h"
#include "ledger/step_part.h"
#include "model/account.h"
#include "plist/output.h"

namespace tallyfold {

// One thing that is edited in place.
struct EditItem {
  std::shared_ptr<LDGRAccount> account;
  const void* record = nullptr;  // null for what is no record of a list
  std::string_view what;
  // Where the record is now, if it is.
  std::function<std::optional<std::size_t>()> place_now;
  std::function<void(plist::Output&)> was;
  std::function<void(plist::Output&)> now;
};

// Records or an account that came or went.
struct MoveItem {
  std::shared_ptr<LDGRAccount> account;
  std::string_view what;
  bool inserts = false;
  std::vector<std::size_t> places;  // ascending
  std::vector<const void*> records;
  std::function<void(std::size_t row, plist::Output&)> form;
  std::function<void(std::size_t row, plist::Output&)> form_to_compare;
  // Of its list now; then before the move.
  std::size_t list_size = 0;
};

// What parts did, as the recovery log tells it. `places` must outlive the items.
class RecoveryItems final : public PartVisitor {
 public:
  explicit RecoveryItems(EntryPlaces& places) noexcept : places_(places) {}
  RecoveryItems(const RecoveryItems&) = delete;
  RecoveryItems& operator=(const RecoveryItems&) = delete;

  // In the order of the parts. Their forms hold as long as the parts do.
  std::vector<EditItem> edits;
  std::vector<MoveItem> moves;

  void Visit(const ListPart<LDGRAccountEntry>& part, bool inserts) override;
  void Visit(const ListPart<LDGRAccountSchedule>& part, bool inserts) override;
  void Visit(const ListPart<LDGRAccountSummary>& part, bool inserts) override;
  void Visit(const AccountListPart& part, bool inserts) override;
  void Visit(const EditPart<LDGRAccountEntry>& part) override;
  void Visit(const EditPart<LDGRAccountSchedule>& part) override;
  void Visit(const EditPart<LDGRAccountSummary>& part) override;
  void Visit(const AccountPartEdit& part) override;
  void Visit(const TypesEdit& part) override;
  void Visit(const PasswordEdit& part) override;

 private:
  // Of several images of one subject the first one carried out holds what was there before all.
  bool IsNew(const StepPart& part) { return subjects_.insert(part.Subject()).second; }

  template <typename Record>
  void Move(const ListPart<Record>& part, bool inserts);

  template <typename Record>
  void Edit(const EditPart<Record>& part);

  template <typename Record>
  std::optional<std::size_t> PlaceOf(LDGRAccount& account, const std::shared_ptr<Record>& record);

  EntryPlaces& places_;
  std::unordered_set<std::uintptr_t> subjects_;
};

}  // namespace tallyfold
