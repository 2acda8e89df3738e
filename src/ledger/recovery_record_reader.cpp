#include <algorithm>
#include <memory>
#include <utility>

#include "ledger/change.h"
#include "ledger/image_parts.h"
#include "ledger/ledger.h"
#include "ledger/list_part.h"
#include "ledger/recovery_record.h"
#include "plist/reader.h"

namespace tallyfold {
namespace {

using namespace recovery_keys;

// A place in a list of that size; none for anything else.
std::optional<std::size_t> PlaceIn(const plist::Value& value, std::size_t size) {
  if (value.kind() != plist::Kind::Integer) return std::nullopt;
  const std::int64_t place = value.WideIntegerValue();
  if (place < 0 || static_cast<std::uint64_t>(place) >= size) return std::nullopt;
  return static_cast<std::size_t>(place);
}

bool IsSum(const plist::Value& was, const std::string& sum) {
  return was.IsString() && was.StringValue() == sum;
}

bool IsCount(const plist::Value& count, std::size_t size) {
  return count.kind() == plist::Kind::Integer &&
         count.WideIntegerValue() == static_cast<std::int64_t>(size);
}

// What a record is made of, each with what it needs of the change.
class Replayer {
 public:
  using CarryOut =
      std::function<void(const std::shared_ptr<LDGRAccount>&, std::unique_ptr<StepPart>)>;

  Replayer(Ledger& ledger, Change& change, CarryOut carry_out)
      : store_(ledger.accounts()), change_(change), carry_out_(std::move(carry_out)) {}

  bool Edit(const plist::Dictionary& edit) {
    const std::string_view what = edit.Get(kWhat).StringValue();
    const plist::Value& was = edit.Get(kWas);
    const plist::Value& now = edit.Get(kNow);
    if (what == kPassword) {
      const auto write = [this](plist::Output& out) { out.String(store_.password()); };
      if (!now.IsString() || !IsSum(was, SumOfForm(write))) return false;
      change_.EditPassword();
      store_.setPassword(now.StringValue());
      // It is the one to be given from now on.
      store_.setAuthenticated(now.StringValue().empty());
      return true;
    }
    const auto account = AccountOf(edit);
    if (!account || !now.IsDictionary()) return false;
    const plist::Dictionary form = now.DictionaryValue();
    if (what == kOptions) return EditPart(account, AccountPart::Options, was, form);
    if (what == kSettings) return EditPart(account, AccountPart::Settings, was, form);
    if (what == kTypes) return EditPart(account, AccountPart::Types, was, form);
    const plist::Value& place = edit.Get(kPlace);
    return EditRecord<LDGRAccountEntry>(what, account, place, was, form) ||
           EditRecord<LDGRAccountSchedule>(what, account, place, was, form) ||
           EditRecord<LDGRAccountSummary>(what, account, place, was, form);
  }

  bool Move(const plist::Dictionary& move) {
    const std::string_view what = move.Get(kWhat).StringValue();
    if (what == kAccounts) return MoveAccount(move);
    const auto account = AccountOf(move);
    return account && (MoveRecords<LDGRAccountEntry>(what, account, move) ||
                       MoveRecords<LDGRAccountSchedule>(what, account, move) ||
                       MoveRecords<LDGRAccountSummary>(what, account, move));
  }

  bool Count(const plist::Dictionary& count) {
    const auto account = AccountOf(count);
    if (!account || !count.Get(kCount).IsNumber()) return false;
    change_.EditSettings(account);
    AccountLists::CountUpTo(*account, count.Get(kCount).IntegerValue());
    return true;
  }

  std::shared_ptr<LDGRAccount> AccountAt(const plist::Value& place) const {
    const auto at = PlaceIn(place, store_.accounts().size());
    return at ? store_.accounts()[*at] : nullptr;
  }

 private:
  std::shared_ptr<LDGRAccount> AccountOf(const plist::Dictionary& item) const {
    return AccountAt(item.Get(kAccount));
  }

  bool EditPart(const std::shared_ptr<LDGRAccount>& account, AccountPart part,
                const plist::Value& was, const plist::Dictionary& form) {
    const auto write = [&](plist::Output& out) { WriteToCompare(*account, part, out); };
    if (!IsSum(was, SumOfForm(write))) return false;
    if (part == AccountPart::Types) change_.EditTypes(account);
    if (part == AccountPart::Options) change_.EditOptions(account);
    if (part == AccountPart::Settings) change_.EditSettings(account);
    const std::string password = account->GetPassword();
    account->ReadPart(part, form);
    if (account->GetPassword() != password) account->setAuthenticated(false);
    return true;
  }

  template <typename Record>
  bool EditRecord(std::string_view what, const std::shared_ptr<LDGRAccount>& account,
                  const plist::Value& place, const plist::Value& was,
                  const plist::Dictionary& form) {
    using Traits = RecordTraits<Record>;
    if (what != Traits::kKey) return false;
    const auto& list = Traits::ListOf(*account);
    const auto at = PlaceIn(place, list.size());
    if (!at) return false;
    const std::shared_ptr<Record> record = list[*at];
    const auto write = [&](plist::Output& out) { Traits::WriteToCompare(*record, out); };
    if (!IsSum(was, SumOfForm(write))) return false;
    const auto made = Traits::Make(form);
    change_.Edit(account, record);
    Traits::Exchange(*record, *made);
    return true;
  }

  template <typename Record>
  bool MoveRecords(std::string_view what, const std::shared_ptr<LDGRAccount>& account,
                   const plist::Dictionary& move) {
    using Traits = RecordTraits<Record>;
    if (what != Traits::kKey) return false;
    const auto& list = Traits::ListOf(*account);
    const plist::Array places = move.Get(kPlaces).ArrayValue();
    const bool inserts = move.Get(kNow).IsArray();
    const plist::Array forms = move.Get(kNow).ArrayValue();
    if (inserts && (forms.size() != places.size() || !IsCount(move.Get(kCount), list.size()))) {
      return false;
    }
    auto part = std::make_unique<ListPart<Record>>(account, inserts);
    const std::size_t end = list.size() + (inserts ? places.size() : 0);
    for (std::size_t row = 0; row < places.size(); ++row) {
      const auto place = PlaceIn(places.At(row), end);
      const bool ascends = part->rows().empty() || (place && part->rows().back().place < *place);
      if (!place || !ascends || (inserts && !forms.At(row).IsDictionary())) return false;
      part->rows().push_back(
          {*place, inserts ? Traits::Make(forms.At(row).DictionaryValue()) : list[*place]});
    }
    const auto write = [&part](plist::Output& out) {
      out.BeginArray();
      for (const auto& row : part->rows()) Traits::WriteToCompare(*row.record, out);
      out.EndArray();
    };
    if (!inserts && !IsSum(move.Get(kWas), SumOfForm(write))) return false;
    carry_out_(account, std::move(part));
    return true;
  }

  bool MoveAccount(const plist::Dictionary& move) {
    const bool inserts = move.Get(kNow).IsDictionary();
    const std::size_t size = store_.accounts().size();
    const auto place = PlaceIn(move.Get(kPlace), size + (inserts ? 1 : 0));
    if (!place) return false;
    std::shared_ptr<LDGRAccount> account;
    if (inserts) {
      if (!IsCount(move.Get(kCount), size)) return false;
      account = LDGRAccount::accountByConsuming(move.Get(kNow).DictionaryValue());
    } else {
      account = store_.accounts()[*place];
      if (!IsSum(move.Get(kWas), SumOfAccount(*account))) return false;
    }
    carry_out_(account, std::make_unique<AccountListPart>(store_, account, *place, inserts));
    return true;
  }

  AccountsStore& store_;
  Change& change_;
  CarryOut carry_out_;
};

template <typename Do>
bool ForEach(const plist::Value& list, const Do& act) {
  if (!list.IsArray()) return false;
  const plist::Array items = list.ArrayValue();
  return std::all_of(items.begin(), items.end(), [&act](const plist::Value& item) {
    return item.IsDictionary() && act(item.DictionaryValue());
  });
}

}  // namespace

bool RecoveryRecord::Replay(std::string_view record, Ledger& ledger, Change& change) {
  const plist::ReadResult read = plist::Read(record);
  if (!read.ok || !read.value.IsDictionary()) return false;
  const plist::Dictionary items = read.value.DictionaryValue();
  Replayer replayer(ledger, change, [&change](const auto& account, auto part) {
    change.Touch(account);
    change.CarryOut(std::move(part));
  });
  const bool is_done =
      ForEach(items.Get(kEdits), [&](const auto& edit) { return replayer.Edit(edit); }) &&
      ForEach(items.Get(kMoves), [&](const auto& move) { return replayer.Move(move); }) &&
      ForEach(items.Get(kSettings), [&](const auto& edit) { return replayer.Edit(edit); }) &&
      ForEach(items.Get(kCounts), [&](const auto& count) { return replayer.Count(count); });
  if (!is_done) return false;
  for (const plist::Value& place : items.Get(kOrderedIn).ArrayValue()) {
    const auto account = replayer.AccountAt(place);
    if (!account) return false;
    change.AlsoOrderedIn(account);
  }
  return true;
}

}  // namespace tallyfold
