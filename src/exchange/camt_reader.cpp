#include "exchange/camt_reader.h"

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "exchange/camt_entry.h"
#include "exchange/statement_texts.h"
#include "exchange/tag_scanner.h"
#include "exchange/written_amount.h"
#include "exchange/written_day.h"
#include "platform/progress.h"

namespace tallyfold {
namespace {

using Event = TagScanner::Event;

bool IsStatement(std::string_view name) noexcept {
  return name == "Stmt" || name == "Rpt" || name == "Ntfctn";
}

// A balance as it is being read.
struct CamtBalance {
  std::string code;
  std::string currency;
  std::optional<double> amount;
  bool is_credit = true;
  DateNumber day = 0;
};

class CamtReader {
 public:
  CamtReader(std::string_view text, ReversalSign reversals, StatementFile& file) noexcept
      : scanner_(text), reversals_(reversals), file_(file) {}

  void Run() {
    for (Event event = scanner_.Next(); event != Event::Finished; event = scanner_.Next()) {
      LongOperation::Reached(LongWork::Parsing, scanner_.Place());
      if (event == Event::Begin) {
        Begin(scanner_.Name());
      } else {
        End(scanner_.Name());
      }
    }
  }

 private:
  void Begin(std::string_view name) {
    if (IsStatement(name) && !statement_) {
      statement_.emplace();
      depth_ = scanner_.Depth();
    } else if (!statement_) {
      return;
    } else if (name == "Ntry" && !entry_) {
      entry_.emplace();
      entry_->line = scanner_.Line();
    } else if (name == "TxDtls" && entry_) {
      entry_->details.emplace_back().line = scanner_.Line();
      is_in_detail_ = true;
    } else if (name == "Bal" && !entry_) {
      balance_.emplace();
    }
  }

  void End(std::string_view name) {
    if (!statement_) return;
    if (scanner_.Depth() == depth_) return EndStatement();
    if (name == "Ntry" && entry_) return EndEntry();
    if (name == "TxDtls") {
      is_in_detail_ = false;
      return;
    }
    if (name == "Bal" && balance_) return EndBalance();
    const std::string_view text = scanner_.Text();
    if (text.empty()) return;
    if (is_in_detail_) {
      TakeOfDetail(name, text, entry_->details.back());
    } else if (entry_) {
      TakeOfEntry(name, text);
    } else if (balance_) {
      TakeOfBalance(name, text);
    } else {
      TakeOfStatement(name, text);
    }
  }

  void TakeOfStatement(std::string_view name, std::string_view text) {
    const std::string_view parent = scanner_.Around(1);
    StatementAccount& account = statement_->account;
    const bool is_number = (name == "IBAN" && scanner_.Around(2) == "Acct") ||
                           (name == "Id" && parent == "Othr" && scanner_.Around(3) == "Acct");
    if (is_number && account.name.empty()) account.name = text;
    if (name == "Ccy" && parent == "Acct") account.currency = text;
  }

  void TakeOfBalance(std::string_view name, std::string_view text) {
    const std::string_view parent = scanner_.Around(1);
    if (name == "Cd" && parent == "CdOrPrtry") balance_->code = text;
    if (name == "CdtDbtInd" && parent == "Bal") balance_->is_credit = text != "DBIT";
    if ((name == "Dt" || name == "DtTm") && parent == "Dt") balance_->day = ReadDigitDay(text);
    if (name == "Amt" && parent == "Bal") {
      balance_->currency = scanner_.Attribute("Ccy");
      balance_->amount = ReadWrittenAmount(text).Value('.');
    }
  }

  void TakeOfEntry(std::string_view name, std::string_view text) {
    const std::string_view parent = scanner_.Around(1);
    if (parent == "Ntry") {
      if (name == "Amt") {
        entry_->currency = scanner_.Attribute("Ccy");
        entry_->amount = text;
      } else if (name == "CdtDbtInd") {
        entry_->is_credit = text != "DBIT";
      } else if (name == "RvslInd") {
        entry_->is_reversal = text == "true" || text == "1";
      } else if (name == "Sts") {
        entry_->status = text;
      } else if (name == "AcctSvcrRef" || name == "NtryRef") {
        AddNewText(entry_->reference, text);
      } else if (name == "AddtlNtryInf") {
        AddText(entry_->information, text);
      }
    } else if (parent == "Sts" && name == "Cd") {
      entry_->status = text;
    } else if (name == "Dt" || name == "DtTm") {
      if (parent == "BookgDt") entry_->booked = text;
      if (parent == "ValDt") entry_->valued = text;
    } else if (parent == "Prtry" && name == "Cd") {
      entry_->kind = text;
    }
  }

  void TakeOfDetail(std::string_view name, std::string_view text, CamtDetail& detail) {
    const std::string_view parent = scanner_.Around(1);
    const auto take_amount = [&] {
      ImportDoubtSet doubts;
      detail.currency = scanner_.Attribute("Ccy");
      detail.amount = ReadPlainAmount(text, doubts);
    };
    if (parent == "Refs" || parent == "ChqTp") {
      if (name == "ChqNb") {
        detail.check_number = text;
      } else if (text != "NOTPROVIDED" && text != "NOT PROVIDED" && name != "MsgId") {
        AddNewText(detail.references, text);
      }
    } else if (name == "Ustrd") {
      AddText(detail.purpose, text);
    } else if (name == "AddtlRmtInf" || name == "AddtlTxInf") {
      AddNewText(detail.information, text);
    } else if (name == "Ref" && parent == "CdtrRefInf") {
      AddNewText(detail.references, text);
    } else if (name == "Nm") {
      TakeName(parent == "Pty" ? scanner_.Around(2) : parent, text, detail);
    } else if (name == "CdtDbtInd" && parent == "TxDtls") {
      detail.is_credit = text != "DBIT";
    } else if (name == "Amt" && parent == "TxDtls") {
      take_amount();
    } else if (name == "Amt" && parent == "TxAmt" && !detail.amount) {
      take_amount();
    }
  }

  static void TakeName(std::string_view role, std::string_view text, CamtDetail& detail) {
    if (role == "Dbtr") detail.debtor = text;
    if (role == "Cdtr") detail.creditor = text;
    if (role == "UltmtDbtr") detail.ultimate_debtor = text;
    if (role == "UltmtCdtr") detail.ultimate_creditor = text;
  }

  void EndBalance() {
    if (scanner_.IsCutShort()) return balance_.reset();
    if (balance_->amount) statement_->balances.push_back(*std::move(balance_));
    balance_.reset();
  }

  void EndEntry() {
    CamtEntry entry = *std::exchange(entry_, std::nullopt);
    is_in_detail_ = false;
    if (scanner_.IsCutShort()) {
      file_.is_cut_short = true;
      return;
    }
    if (!entry.status.empty() && entry.status != "BOOK") {
      ++statement_->account.pending;
      return;
    }
    StatementAccount& account = statement_->account;
    if (account.currency.empty()) account.currency = entry.currency;
    const std::size_t first = account.rows.size();
    AppendRows(entry, account);
    for (std::size_t i = first; i < account.rows.size() && entry.is_reversal; ++i) {
      statement_->reversals.push_back(i);
    }
  }

  // The first balance with one of the codes, in the order of the codes.
  std::optional<StatementBalance> BalanceOf(std::initializer_list<std::string_view> codes) const {
    for (const std::string_view code : codes) {
      for (const CamtBalance& each : statement_->balances) {
        if (each.code != code || each.currency != statement_->account.currency) continue;
        StatementBalance balance{each.is_credit ? *each.amount : -*each.amount, std::nullopt};
        if (each.day != 0) balance.day = each.day;
        return balance;
      }
    }
    return std::nullopt;
  }

  void EndStatement() {
    StatementAccount& account = statement_->account;
    if (account.currency.empty() && !statement_->balances.empty()) {
      account.currency = statement_->balances.front().currency;
    }
    account.opening = BalanceOf({"OPBD", "PRCD"});
    account.closing = BalanceOf({"CLBD", "ITBD"});
    Settle(reversals_, statement_->reversals, account, file_.questions);
    file_.accounts.push_back(std::move(account));
    statement_.reset();
    balance_.reset();
  }

  struct Statement {
    StatementAccount account;
    std::vector<CamtBalance> balances;
    std::vector<std::size_t> reversals;  // rows
  };

  TagScanner scanner_;
  ReversalSign reversals_;
  StatementFile& file_;
  std::optional<Statement> statement_;
  std::size_t depth_ = 0;  // of the statement's element
  std::optional<CamtEntry> entry_;
  bool is_in_detail_ = false;
  std::optional<CamtBalance> balance_;
};

}  // namespace

void ReadCamt(std::string_view text, ReversalSign reversals, StatementFile& file) {
  LongOperation operation(LongWork::Parsing, text.size());
  CamtReader(text, reversals, file).Run();
  operation.Finish();
}

}  // namespace tallyfold
