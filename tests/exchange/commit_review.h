#pragma once

#include <memory>

#include "exchange/qif_review.h"
#include "ledger/change.h"
#include "ledger/ledger.h"
#include "storage/accounts_store_fixture.h"

namespace tallyfold {

// Commits the review into an account that a test owns.
inline void CommitReview(QifReview&& review, LDGRAccount& account, bool with_all_types) {
  AccountsStoreFixture fixture;
  Ledger ledger(fixture.store);
  const std::shared_ptr<LDGRAccount> shared(std::shared_ptr<LDGRAccount>(), &account);
  Change change(ledger, "Import", shared);
  review.Commit(change, shared, with_all_types);
  change.Close();
}

}  // namespace tallyfold
