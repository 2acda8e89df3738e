#include <algorithm>
#include <map>
#include <memory>
#include <type_traits>
#include <unordered_set>
#include <utility>

#include "ledger/recovery_items.h"
#include "ledger/recovery_record.h"
#include "plist/writer.h"
#include "storage/content_mark.h"

namespace tallyfold {
namespace {

using namespace recovery_keys;

// How many places may be looked at on the way back to where edited records were: beyond, a whole
// save costs less.
constexpr std::size_t kMostSteps = 20'000'000;

class Writer {
 public:
  Writer(const AccountList& accounts, const ChangeSet& set, RecoveryItems& items)
      : set_(set), accounts_now_(accounts), items_(items) {
    accounts_ = accounts;
    std::map<std::pair<const LDGRAccount*, std::string_view>, std::size_t> sizes;
    for (auto move = items_.moves.rbegin(); move != items_.moves.rend(); ++move) {
      if (move->what == kAccounts) {
        Carry(*move, !move->inserts);
        continue;
      }
      const auto size = sizes.try_emplace({move->account.get(), move->what}, move->list_size).first;
      size->second += move->inserts ? std::size_t{0} - move->places.size() : move->places.size();
      move->list_size = size->second;
    }
  }

  // False when it takes too many steps.
  bool Write(plist::Output& out) {
    out.BeginDictionary();
    out.Key(kOrderedIn);
    out.BeginArray();
    for (const auto& account : set_.ordered_in) {
      if (const auto place = PlaceOf(accounts_now_, account)) {
        out.Integer(static_cast<std::int64_t>(*place));
      }
    }
    out.EndArray();
    out.Key(kEdits);
    out.BeginArray();
    for (const EditItem& edit : items_.edits) {
      if (edit.what != kSettings) WriteEdit(edit, out);
    }
    out.EndArray();
    out.Key(kMoves);
    out.BeginArray();
    for (std::size_t i = 0; i < items_.moves.size(); ++i) WriteMoveInTurn(i, out);
    out.EndArray();
    out.Key(kSettings);
    out.BeginArray();
    for (const EditItem& edit : items_.edits) {
      // All of a new account is in its move.
      if (edit.what == kSettings && !whole_.contains(edit.account.get())) WriteEdit(edit, out);
    }
    out.EndArray();
    out.Key(kCounts);
    out.BeginArray();
    for (const AccountChanges& changes : set_.accounts) {
      const auto place = PlaceOf(accounts_now_, changes.account);
      if (!place) continue;
      out.BeginDictionary();
      WritePlace(kAccount, *place, out);
      out.Key(kCount);
      out.Integer(changes.account->GetNumberCount());
      out.EndDictionary();
    }
    out.EndArray();
    out.EndDictionary();
    return steps_ <= kMostSteps;
  }

 private:
  static std::optional<std::size_t> PlaceOf(const AccountList& accounts,
                                            const std::shared_ptr<LDGRAccount>& account) {
    const auto found = std::find(accounts.begin(), accounts.end(), account);
    if (found == accounts.end()) return std::nullopt;
    return static_cast<std::size_t>(found - accounts.begin());
  }
  static void WritePlace(std::string_view key, std::size_t place, plist::Output& out) {
    out.Key(key);
    out.Integer(static_cast<std::int64_t>(place));
  }
  static void WriteText(std::string_view key, std::string_view text, plist::Output& out) {
    out.Key(key);
    out.String(text);
  }

  // In accounts_, which goes with the moves.
  void Carry(const MoveItem& move, bool inserts) {
    if (inserts) {
      const std::size_t place = std::min(move.places.front(), accounts_.size());
      accounts_.insert(accounts_.begin() + static_cast<std::ptrdiff_t>(place), move.account);
    } else {
      std::erase(accounts_, move.account);
    }
  }

  // Where the record was before all; none for one that is new.
  std::optional<std::size_t> PlaceBefore(const EditItem& edit) {
    std::optional<std::size_t> place = edit.place_now();
    ++steps_;
    for (auto move = items_.moves.rbegin(); move != items_.moves.rend(); ++move) {
      if (steps_ > kMostSteps) return std::nullopt;
      if (move->account != edit.account || move->what != edit.what) continue;
      ++steps_;
      if (!place) {
        steps_ += move->records.size();
        const auto row = std::find(move->records.begin(), move->records.end(), edit.record);
        if (!move->inserts && row != move->records.end()) {
          place = move->places[static_cast<std::size_t>(row - move->records.begin())];
        }
      } else if (move->inserts) {
        const auto row = std::lower_bound(move->places.begin(), move->places.end(), *place);
        const auto before = static_cast<std::size_t>(row - move->places.begin());
        if (row != move->places.end() && *row == *place) {
          place.reset();
        } else {
          *place -= before;
        }
      } else {
        steps_ += move->places.size();
        for (const std::size_t row : move->places) {
          if (row > *place) break;
          ++*place;
        }
      }
    }
    return place;
  }

  void WriteEdit(const EditItem& edit, plist::Output& out) {
    std::optional<std::size_t> account;
    std::optional<std::size_t> place;
    if (edit.account) {
      account = PlaceOf(accounts_, edit.account);
      // All of a new account, and of a new record, is in its move.
      if (!account) return;
    }
    if (edit.record != nullptr) {
      place = PlaceBefore(edit);
      if (!place) return;
    }
    out.BeginDictionary();
    WriteText(kWhat, edit.what, out);
    if (account) WritePlace(kAccount, *account, out);
    if (place) WritePlace(kPlace, *place, out);
    WriteText(kWas, SumOfForm(edit.was), out);
    out.Key(kNow);
    edit.now(out);
    out.EndDictionary();
  }

  // An account is removed as it is in the end, so what came and went in it later goes first.
  void WriteMoveInTurn(std::size_t index, plist::Output& out) {
    const MoveItem& move = items_.moves[index];
    if (written_.contains(&move)) return;
    if (move.what == kAccounts && !move.inserts) {
      for (std::size_t later = index + 1; later < items_.moves.size(); ++later) {
        const MoveItem& other = items_.moves[later];
        if (other.what == kAccounts || other.account != move.account) continue;
        if (written_.insert(&other).second) WriteMove(other, out);
      }
    }
    WriteMove(move, out);
  }

  void WriteMove(const MoveItem& move, plist::Output& out) {
    if (move.what == kAccounts) {
      out.BeginDictionary();
      WriteText(kWhat, kAccounts, out);
      WritePlace(kPlace, move.places.front(), out);
      if (move.inserts) {
        WritePlace(kCount, accounts_.size(), out);
        out.Key(kNow);
        move.account->WriteTo(out);
        whole_.insert(move.account.get());
      } else {
        WriteText(kWas, SumOfAccount(*move.account), out);
      }
      out.EndDictionary();
      return Carry(move, move.inserts);
    }
    const auto account = PlaceOf(accounts_, move.account);
    if (!account || move.places.empty() || whole_.contains(move.account.get())) return;
    out.BeginDictionary();
    WriteText(kWhat, move.what, out);
    WritePlace(kAccount, *account, out);
    out.Key(kPlaces);
    out.BeginArray();
    for (const std::size_t place : move.places) out.Integer(static_cast<std::int64_t>(place));
    out.EndArray();
    if (move.inserts) {
      WritePlace(kCount, move.list_size, out);
      out.Key(kNow);
      out.BeginArray();
      for (std::size_t row = 0; row < move.places.size(); ++row) move.form(row, out);
      out.EndArray();
    } else {
      WriteText(kWas, SumOfForm([&move](plist::Output& sum) {
                  sum.BeginArray();
                  for (std::size_t row = 0; row < move.places.size(); ++row) {
                    move.form_to_compare(row, sum);
                  }
                  sum.EndArray();
                }),
                out);
    }
    out.EndDictionary();
  }

  const ChangeSet& set_;
  const AccountList& accounts_now_;
  RecoveryItems& items_;
  // Before all; then as the moves that were written left them.
  AccountList accounts_;
  // Moves that were written out of turn.
  std::unordered_set<const MoveItem*> written_;
  // Accounts that were written whole.
  std::unordered_set<const LDGRAccount*> whole_;
  std::size_t steps_ = 0;
};

}  // namespace

std::optional<std::string> RecoveryRecord::Write(const AccountList& accounts, EntryPlaces& places,
                                                 const ChangeSet& set,
                                                 const std::vector<Carried>& carried,
                                                 std::size_t most_bytes) {
  RecoveryItems items(places);
  for (const Carried& each : carried) each.part->Accept(items, each.way);
  std::string record;
  bool fits = true;
  plist::XmlWriter out([&](std::string_view block) {
    fits = fits && record.size() + block.size() <= most_bytes;
    if (fits) record += block;
  });
  const bool is_written = Writer(accounts, set, items).Write(out);
  out.Finish();
  if (!is_written || !fits) return std::nullopt;
  return record;
}

std::string SumOfForm(const std::function<void(plist::Output&)>& write) {
  ContentMarker marker;
  plist::XmlWriter out([&marker](std::string_view block) { marker.Add(block); });
  write(out);
  out.Finish();
  return ChecksumText(marker.Mark().checksum);
}

void WriteToCompare(const LDGRAccount& account, AccountPart part, plist::Output& out) {
  plist::TreeBuilder tree;
  account.WritePart(part, tree);
  plist::Dictionary form = tree.Take().DictionaryValue();
  // A place in a list that an image lacks.
  form.Remove("selectedAccountSummary");
  out.Write(form);
}

std::string SumOfAccount(const LDGRAccount& account) {
  return SumOfForm([&account](plist::Output& out) {
    out.BeginArray();
    account.WritePart(AccountPart::Options, out);
    account.WritePart(AccountPart::Types, out);
    for (const auto& entry : account.GetEntries()) entry->WriteTo(out);
    for (const auto& schedule : account.GetSchedules()) schedule->WriteTo(out);
    out.EndArray();
  });
}

}  // namespace tallyfold
