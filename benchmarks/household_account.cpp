#include "benchmarks/household_account.h"

#include "benchmarks/generator.h"
#include "plist/output.h"

namespace tallyfold::benchmarks {

std::shared_ptr<LDGRAccount> MakeHouseholdAccount(std::size_t entries) {
  plist::TreeBuilder builder;
  WriteHousehold({.entries = entries, .accounts = 1}, builder);
  const plist::Dictionary file = builder.Take().DictionaryValue();
  return LDGRAccount::accountByConsuming(file.Get("accounts").ArrayValue().At(0).DictionaryValue());
}

}  // namespace tallyfold::benchmarks
