#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "plist/reader.h"
#include "plist/writer.h"
#include "storage/accounts_store_fixture.h"
#include "storage/sample_account.h"

namespace tallyfold {
namespace {

using Lines = std::vector<std::string>;
using plist::Kind;

plist::Value Top(const plist::Value& file, std::string_view key) {
  return file.DictionaryValue().Get(key);
}

// The accounts file that holds the sample account, as this version writes it.
std::string SampleFile() {
  AccountsStoreFixture f;
  EXPECT_TRUE(f.store.Accounts_Load());
  f.store.AddAccount(SampleAccount());
  f.store.setPassword(kAwkwardText);
  EXPECT_TRUE(f.store.Accounts_Save());
  return *f.files.Content(kFile);
}

TEST(AccountsFile, ComesBackByteForByte) {
  const std::string file = SampleFile();
  AccountsStoreFixture f;
  EXPECT_TRUE(f.LoadFile(file));
  EXPECT_TRUE(f.alerts.Requests().empty());
  EXPECT_EQ(f.ambient.log.Lines(), Lines{});
  EXPECT_FALSE(f.store.SetAside());
  EXPECT_EQ(f.store.password(), kAwkwardText);
  EXPECT_EQ(f.store.accounts()[0]->GetName(), kAwkwardText);
  EXPECT_EQ(f.store.accounts()[0]->GetEntries().size(), 3U);
  EXPECT_TRUE(f.store.Accounts_Save());
  EXPECT_EQ(f.files.Content(kFile), file);
}

TEST(AccountsFile, IsTakenInNotAtAllOrWhole) {
  // Cut off anywhere, or with any one bit changed, it is refused and set aside, or it is read with
  // whatever it says then, one account or none, and never crashes.
  const std::string file = SampleFile();
  for (std::size_t i = 0; i < file.size(); i += 23) {
    SCOPED_TRACE(i);
    AccountsStoreFixture f;
    EXPECT_TRUE(f.LoadFile(file.substr(0, i)));
    EXPECT_TRUE(f.store.accounts().empty());
    EXPECT_TRUE(f.store.SetAside());

    std::string changed = file;
    changed[i] = static_cast<char>(changed[i] ^ (1 << (i % 8)));
    AccountsStoreFixture g;
    const bool goes_on = g.LoadFile(changed);
    EXPECT_NE(goes_on, g.alerts.Requests().size() == 1);
    EXPECT_TRUE(!goes_on || g.store.SetAside() || g.store.accounts().size() == 1);
    EXPECT_EQ(g.store.Accounts_Save(), goes_on);
  }
}

// --- Wrong kinds --------------------------------------------------------------------------------

// One record of the sample file: how to reach it, and the keys of which any kind will do.
struct Record {
  const char* name;
  std::vector<std::string> path;  // of keys; of a list the first element is meant
  std::string quiet;              // between blanks; "*" for all
};

const std::vector<Record> kRecords = {
    {"account", {"accounts"}, " number version entryFilterData reconcileFilterData "},
    {"entry", {"accounts", "entries"}, ""},
    {"split", {"accounts", "entries", "split"}, ""},
    {"schedule", {"accounts", "schedules"}, ""},
    {"type", {"accounts", "types"}, "*"},
    {"summary", {"accounts", "accountSummaries"}, " filterData "},
};

plist::Dictionary Find(const plist::Value& file, const Record& record) {
  plist::Value value = file;
  for (const std::string& key : record.path) {
    value = Top(value, key);
    if (value.IsArray()) value = value.ArrayValue().At(0);
  }
  return value.DictionaryValue();
}

// What depends on a key's value and changes with it.
void RemoveDependants(const plist::Dictionary& record, std::string_view key) {
  plist::Dictionary changed = record;
  changed.Remove(key);
  if (key == "types") {
    changed.Remove("defaultDebitType");
    changed.Remove("defaultDepositType");
  } else if (key == "entryFlags") {
    changed.Remove("transferEntry");
    changed.Remove("transferAccount");
  }
}

TEST(AccountsFile, OfWrongKindsLogsEachAndLosesNothingElse) {
  const std::string sample = SampleFile();
  const plist::Value whole = plist::Read(sample).value;
  const plist::Value wrong_kinds[] = {
      plist::Dictionary(),
      plist::Array(),
      plist::Value("12 monkeys"),
      plist::Value(12),
      plist::Value::Opaque(Kind::Date, "2007-03-05T12:00:00Z"),
      plist::Value::Opaque(Kind::Data, "AAAA"),
  };
  std::size_t tried = 0;
  for (const Record& record : kRecords) {
    for (const plist::DictionaryItem& item : Find(whole, record)) {
      const std::string key(item.key());
      const bool is_quiet =
          record.quiet == "*" || record.quiet.find(' ' + key + ' ') != std::string::npos;
      for (const plist::Value& value : wrong_kinds) {
        const plist::Value& right = item.value();
        if (value.kind() == right.kind() || (value.IsNumber() && right.IsNumber())) continue;
        // A version that is no number asks to be upgraded, which other tests look at.
        if (key == "version") continue;
        SCOPED_TRACE(std::string(record.name) + " " + key + " of kind " +
                     std::to_string(static_cast<int>(value.kind())));
        ++tried;
        plist::Value file = whole.DeepCopy();
        Find(file, record).Set(key, value);
        const std::string content = plist::ToXml(file);
        AccountsStoreFixture f;
        ASSERT_TRUE(f.LoadFile(content));
        EXPECT_EQ(f.ambient.log.Lines().size(), is_quiet ? 0U : 1U);

        // Everything else is written again as it was; the file with the odd value is kept.
        ASSERT_TRUE(f.store.Accounts_Save());
        const plist::Value saved = plist::Read(*f.files.Content(kFile)).value;
        RemoveDependants(Find(saved, record), key);
        RemoveDependants(Find(file, record), key);
        EXPECT_EQ(saved, file);
        const bool takes_any_kind = key.ends_with("ilterData");
        ASSERT_NE(f.store.SetAside().has_value(), takes_any_kind);
        if (!takes_any_kind) {
          EXPECT_EQ(f.files.Content(f.store.SetAside()->kept_path), content);
        }
      }
    }
  }
  EXPECT_GT(tried, 400U);
}

TEST(AccountsFile, OfOddNumbersIsReadAndWritten) {
  const plist::Value whole = plist::Read(SampleFile()).value;
  for (const Record& record : kRecords) {
    for (const plist::DictionaryItem& item : Find(whole, record)) {
      if (!item.value().IsNumber() || item.key() == "version") continue;
      for (const plist::Value& value :
           {plist::Value(std::int64_t{1} << 40), plist::Value(-(std::int64_t{1} << 62)),
            plist::Value(1e300), plist::Value(-1e300), plist::Value(std::nan("")),
            plist::Value(std::numeric_limits<double>::infinity()), plist::Value(20070230),
            plist::Value(99999999), plist::Value(-1)}) {
        SCOPED_TRACE(std::string(record.name) + " " + std::string(item.key()));
        plist::Value file = whole.DeepCopy();
        Find(file, record).Set(item.key(), value);
        AccountsStoreFixture f;
        f.ambient.clock.SetLocal({2007, 3, 5, 12, 0, 0});
        ASSERT_TRUE(f.LoadFile(plist::ToXml(file)));
        const bool is_quiet =
            record.quiet == "*" ||
            record.quiet.find(' ' + std::string(item.key()) + ' ') != std::string::npos;
        EXPECT_EQ(f.ambient.log.Lines().size(), value.IsNumber() || is_quiet ? 0U : 1U);
        const LDGRAccount& account = *f.store.accounts()[0];
        EXPECT_EQ(account.GetEntries().size(), 3U);
        // Whoever looks at such records finds an end, too.
        static_cast<void>(account.HasPendingScheduledEntries());
        static_cast<void>(account.GetSchedules()[0]->NextEntryDate());
        static_cast<void>(account.RunningBalances(account.GetEntries()));

        // What was read stays as it is from then on.
        ASSERT_TRUE(f.store.Accounts_Save());
        const std::string saved = *f.files.Content(kFile);
        ASSERT_TRUE(f.store.Accounts_Load());
        ASSERT_TRUE(f.store.Accounts_Save());
        EXPECT_EQ(f.files.Content(kFile), saved);
      }
    }
  }
}

}  // namespace
}  // namespace tallyfold
