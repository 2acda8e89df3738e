// An accounts or preferences file of any content is read, upgraded and made into records without
// harm, and what the records then write comes back as the very same records.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "model/account.h"
#include "model/type_handover.h"
#include "plist/reader.h"
#include "plist/writer.h"
#include "storage/preferences.h"

namespace tallyfold {
namespace {

template <typename Record>
std::string Written(const Record& record) {
  std::string bytes;
  plist::XmlWriter writer([&bytes](std::string_view block) { bytes += block; });
  record.WriteTo(writer);
  writer.Finish();
  return bytes;
}

plist::Dictionary ReadBack(const std::string& bytes) {
  const plist::ReadResult result = plist::Read(bytes);
  if (!result.ok) std::abort();
  return result.value.DictionaryValue();
}

void TryAccount(plist::Dictionary dictionary) {
  const auto account =
      LDGRAccount::accountByConsuming(LDGRAccount::UpdateAccountDictionary(std::move(dictionary)));
  // What any user of an account does with it.
  static_cast<void>(account->RunningBalances(account->GetEntries()));
  static_cast<void>(account->HasPendingScheduledEntries());
  static_cast<void>(account->GetPreferredDebitDescriptions());
  const std::string saved = Written(*account);
  const LDGRAccount reloaded(LDGRAccount::UpdateAccountDictionary(ReadBack(saved)));
  if (Written(reloaded) != saved) std::abort();
}

void TryPreferences(const plist::Dictionary& dictionary) {
  const LDGRPreferences preferences(LDGRPreferences::UpdatePreferencesDictionary(dictionary));
  const std::string saved = Written(preferences);
  const LDGRPreferences reloaded(LDGRPreferences::UpdatePreferencesDictionary(ReadBack(saved)));
  if (Written(reloaded) != saved) std::abort();
}

void TryFile(std::string_view bytes) {
  const plist::ReadResult result = plist::Read(bytes);
  const plist::Dictionary file = result.value.DictionaryValue();
  TryPreferences(file);
  for (const plist::Value& account : file.Get("accounts").ArrayValue()) {
    if (account.IsDictionary()) TryAccount(account.DictionaryValue());
  }
  TypeHandOver().Clear();
}

}  // namespace
}  // namespace tallyfold

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tallyfold::TryFile({reinterpret_cast<const char*>(data), size});
  return 0;
}
