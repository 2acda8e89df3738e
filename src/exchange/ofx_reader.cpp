#include "exchange/ofx_reader.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "exchange/statement_texts.h"
#include "exchange/tag_scanner.h"
#include "exchange/written_amount.h"
#include "exchange/written_day.h"
#include "platform/progress.h"

namespace tallyfold {
namespace {

using Event = TagScanner::Event;

// The elements that mean something here.
enum class Tag : std::uint8_t {
  None,
  Statement,  // of either kind
  CardStatement,
  Investments,
  Transaction,
  // Blocks by which values are told apart.
  Payee,
  LedgerBalance,
  AvailableBalance,
  AccountFrom,
  AccountTo,
  Currency,
  OriginalCurrency,
  // Values.
  DefaultCurrency,
  Symbol,
  BankId,
  AccountId,
  Amount,
  Posted,
  Identifier,
  CheckNumber,
  Reference,
  PaymentKind,
  Name,
  ExtendedName,
  Memo,
  BalanceAmount,
  BalanceDay,
  Severity,
  Message,
};

bool IsBlock(Tag tag) noexcept {
  return tag >= Tag::Payee && tag <= Tag::OriginalCurrency;
}

struct NamedTag {
  std::string_view name;
  Tag tag;
};

constexpr std::array kTags = {
    NamedTag{"STMTRS", Tag::Statement},
    NamedTag{"CCSTMTRS", Tag::CardStatement},
    NamedTag{"INVSTMTRS", Tag::Investments},
    NamedTag{"STMTTRN", Tag::Transaction},
    NamedTag{"PAYEE", Tag::Payee},
    NamedTag{"LEDGERBAL", Tag::LedgerBalance},
    NamedTag{"AVAILBAL", Tag::AvailableBalance},
    NamedTag{"BANKACCTFROM", Tag::AccountFrom},
    NamedTag{"CCACCTFROM", Tag::AccountFrom},
    NamedTag{"BANKACCTTO", Tag::AccountTo},
    NamedTag{"CCACCTTO", Tag::AccountTo},
    NamedTag{"CURRENCY", Tag::Currency},
    NamedTag{"ORIGCURRENCY", Tag::OriginalCurrency},
    NamedTag{"CURDEF", Tag::DefaultCurrency},
    NamedTag{"CURSYM", Tag::Symbol},
    NamedTag{"BANKID", Tag::BankId},
    NamedTag{"ACCTID", Tag::AccountId},
    NamedTag{"TRNAMT", Tag::Amount},
    NamedTag{"DTPOSTED", Tag::Posted},
    NamedTag{"FITID", Tag::Identifier},
    NamedTag{"CHECKNUM", Tag::CheckNumber},
    NamedTag{"REFNUM", Tag::Reference},
    NamedTag{"TRNTYPE", Tag::PaymentKind},
    NamedTag{"NAME", Tag::Name},
    NamedTag{"EXTDNAME", Tag::ExtendedName},
    NamedTag{"MEMO", Tag::Memo},
    NamedTag{"BALAMT", Tag::BalanceAmount},
    NamedTag{"DTASOF", Tag::BalanceDay},
    NamedTag{"SEVERITY", Tag::Severity},
    NamedTag{"MESSAGE", Tag::Message},
};

bool IsSameName(std::string_view written, std::string_view name) noexcept {
  if (written.size() != name.size() || ((written[0] ^ name[0]) & 0x1F) != 0) return false;
  for (std::size_t i = 0; i < name.size(); ++i) {
    const char letter = written[i];
    if ((letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter) !=
        name[i]) {
      return false;
    }
  }
  return true;
}

Tag TagOf(std::string_view name) noexcept {
  for (const NamedTag& each : kTags) {
    if (IsSameName(name, each.name)) return each.tag;
  }
  return Tag::None;
}

std::size_t MixedHash(std::size_t sum, std::size_t value) noexcept {
  return (sum ^ value) * 0x9E3779B97F4A7C15U + (sum >> 31U);
}

// Hashes of 64 bits, side by side.
class HashSet {
 public:
  // False when it is there already.
  bool Insert(std::size_t hash) {
    if (hash == kEmpty) hash = ~kEmpty;
    if (2 * (count_ + 1) > slots_.size()) Grow();
    std::size_t& slot = slots_[SlotFor(hash)];
    if (slot == hash) return false;
    slot = hash;
    ++count_;
    return true;
  }

 private:
  static constexpr std::size_t kEmpty = 0;
  static constexpr std::size_t kFirstSlots = 256;

  [[nodiscard]] std::size_t SlotFor(std::size_t hash) const noexcept {
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = (hash ^ (hash >> 32U)) & mask;
    while (slots_[slot] != kEmpty && slots_[slot] != hash) slot = (slot + 1) & mask;
    return slot;
  }
  void Grow() {
    const std::vector<std::size_t> old = std::move(slots_);
    slots_.assign(old.empty() ? kFirstSlots : 4 * old.size(), kEmpty);
    for (const std::size_t hash : old) {
      if (hash != kEmpty) slots_[SlotFor(hash)] = hash;
    }
  }

  std::vector<std::size_t> slots_;  // a power of two of them
  std::size_t count_ = 0;
};

class OfxReader {
 public:
  OfxReader(std::string_view text, StatementFile& file) noexcept
      : scanner_(text, TagScanner::Nesting::NeverInItself), file_(file) {}

  void Run() {
    for (Event event = scanner_.Next(); event != Event::Finished; event = scanner_.Next()) {
      LongOperation::Reached(LongWork::Parsing, scanner_.Place());
      const Tag tag = TagOf(scanner_.Name());
      if (tag == Tag::None) continue;
      if (event == Event::Begin) {
        Begin(tag);
      } else {
        End(tag);
      }
    }
  }

 private:
  void Begin(Tag tag) {
    switch (tag) {
      case Tag::Statement:
      case Tag::CardStatement:
        account_ = &file_.accounts.emplace_back();
        account_->is_card = tag == Tag::CardStatement;
        break;
      case Tag::Investments:
        account_ = nullptr;
        ++file_.left_out_accounts;
        break;
      case Tag::Transaction:
        row_.emplace();
        row_->line = scanner_.Line();
        identifier_.clear();
        payee_.clear();
        day_text_.clear();
        amount_text_.clear();
        currency_.clear();
        break;
      default:
        if (IsBlock(tag)) inside_ = tag;
        break;
    }
  }

  void End(Tag tag) {
    switch (tag) {
      case Tag::Statement:
      case Tag::CardStatement:
        account_ = nullptr;
        return;
      case Tag::Transaction:
        EndRow();
        return;
      default:
        break;
    }
    if (IsBlock(tag)) inside_ = Tag::None;
    const std::string_view text = scanner_.Text();
    if (text.empty()) return;
    if (tag == Tag::Severity) has_failed_ = IsSameName(text, "ERROR");
    if (tag == Tag::Message && has_failed_ && file_.message.empty()) file_.message = text;
    if (row_) {
      TakeOfRow(tag, text);
    } else if (account_ != nullptr) {
      TakeOfAccount(tag, text);
    }
  }

  void TakeOfAccount(Tag tag, std::string_view text) {
    switch (tag) {
      case Tag::DefaultCurrency:
        account_->currency = text;
        break;
      case Tag::AccountId:
        if (inside_ == Tag::AccountFrom) account_->name = text;
        break;
      case Tag::BalanceAmount: {
        ImportDoubtSet doubts;
        const auto amount = ReadPlainAmount(text, doubts);
        if (inside_ == Tag::LedgerBalance && amount) {
          account_->closing = StatementBalance{*amount, std::nullopt};
        }
        break;
      }
      case Tag::BalanceDay:
        if (inside_ == Tag::LedgerBalance && account_->closing) {
          const DateNumber day = ReadDigitDay(text);
          if (day != 0) account_->closing->day = day;
        }
        break;
      default:
        break;
    }
  }

  void TakeOfRow(Tag tag, std::string_view text) {
    switch (tag) {
      case Tag::PaymentKind:
        row_->type = text;
        break;
      case Tag::Posted:
        day_text_ = text;
        break;
      case Tag::Amount:
        amount_text_ = text;
        break;
      case Tag::Identifier:
        identifier_ = text;
        break;
      case Tag::CheckNumber:
        TakeCheckNumber(text, *row_);
        break;
      case Tag::Reference:
        AddNewText(row_->notes, text);
        break;
      case Tag::Name:
        AddText(inside_ == Tag::Payee ? payee_ : row_->to_from, text);
        break;
      case Tag::ExtendedName:
        payee_ = text;
        break;
      case Tag::Memo:
        AddText(row_->description, text);
        break;
      case Tag::AccountId:
        if (inside_ == Tag::AccountTo) AddText(row_->notes, text);
        break;
      case Tag::Symbol:
        // The original currency is what was paid elsewhere; the amount is not in it.
        if (inside_ == Tag::Currency) currency_ = text;
        break;
      default:
        break;
    }
  }

  void EndRow() {
    if (!row_) return;
    StatementRow row = *std::exchange(row_, std::nullopt);
    inside_ = Tag::None;
    if (scanner_.IsCutShort()) {
      file_.is_cut_short = true;
      return;
    }
    if (account_ == nullptr) return;
    TakeDay(ReadDigitDay(day_text_), day_text_, row);
    row.amount = ReadPlainAmount(amount_text_, row.doubts);
    // A longer form of the name takes the place of one that was cut.
    if (row.to_from.empty() || payee_.starts_with(row.to_from)) {
      row.to_from = payee_;
    } else {
      AddNewText(row.description, payee_);
    }
    if (!currency_.empty() && !account_->currency.empty() && currency_ != account_->currency) {
      row.unmarked = UnmarkedReason::ForeignCurrency;
    }
    CompareWithEarlier(row);
    account_->rows.push_back(std::move(row));
  }

  void CompareWithEarlier(StatementRow& row) {
    if (identifier_.empty()) return;
    const std::hash<std::string_view> text;
    // An account may have several statements in a file.
    const std::size_t account =
        account_->name.empty() ? file_.accounts.size() : text(account_->name);
    std::size_t sum = MixedHash(text(identifier_), account);
    const bool is_new = identifiers_.Insert(sum);
    sum = MixedHash(sum, static_cast<std::size_t>(row.day.value_or(0)));
    sum = MixedHash(sum, std::hash<double>()(row.amount.value_or(0.0)));
    for (const std::string* each : {&row.to_from, &row.description, &row.notes}) {
      sum = MixedHash(sum, text(*each));
    }
    if (!rows_.Insert(sum)) {
      row.unmarked = UnmarkedReason::Repeated;
    } else if (!is_new) {
      ++account_->reused_identifiers;
    }
  }

  TagScanner scanner_;
  StatementFile& file_;
  StatementAccount* account_ = nullptr;
  std::optional<StatementRow> row_;
  Tag inside_ = Tag::None;  // the innermost block whose values are told apart by it
  bool has_failed_ = false;
  // Of the row being read.
  std::string identifier_;
  std::string payee_;
  std::string day_text_;
  std::string amount_text_;
  std::string currency_;
  // Of all accounts.
  HashSet identifiers_;
  HashSet rows_;
};

}  // namespace

void ReadOfx(std::string_view text, StatementFile& file) {
  LongOperation operation(LongWork::Parsing, text.size());
  OfxReader(text, file).Run();
  operation.Finish();
}

}  // namespace tallyfold
