#include <gtest/gtest.h>

#include <cstdint>

#include "fakes/file_text.h"
#include "storage/accounts_store_fixture.h"
#include "storage/compressed_file.h"

namespace tallyfold {
namespace {

using Result = AccountsStore::RestoreResult;

// An accounts file that fills the compress tool's table, then stops compressing well, so that the
// table is emptied.
std::string FileThatChangesItsManner() {
  std::string name;
  for (int i = 0; i < 160; ++i) name += "Accounts of a household; ";
  std::uint32_t dice = 1;
  for (int i = 0; i < 18'000; ++i) {
    dice = dice * 1'664'525U + 1'013'904'223U;
    name +=
        i < 9'000 ? static_cast<char>('0' + (dice >> 31)) : static_cast<char>('!' + (dice >> 26));
  }
  std::string escaped;
  for (const char c : name) escaped += c == '<' || c == '&' ? '_' : c;
  return FileOf(
      "<key>accounts</key><array><dict><key>version</key><integer>7</integer><key>name"
      "</key><string>" +
      escaped + "</string></dict></array>");
}

// The same as the tool leaves it, told to use a small table.
std::string CompressedFile() {
  return FileText(TALLYFOLD_TEST_DATA "/accounts-backup.Z");
}

const std::string kOne =
    FileOf("<key>accounts</key><array><dict><key>version</key><integer>7</integer></dict></array>");

TEST(AccountsRestoring, PutsABackupInPlaceAndKeepsWhatWasThere) {
  struct {
    const char* name;
    std::string backup;
    std::string answer;  // "" when nothing is asked
    Result result;
  } const cases[] = {
      {"plain", kOne, "Restore", Result::Restored},
      {"compressed", CompressedFile(), "Restore", Result::Restored},
      {"declined", kOne, "Cancel", Result::Declined},
      {"no property list", "", "", Result::Unreadable},
      {"no accounts", FileOf(""), "", Result::Unreadable},
      {"damaged", CompressedFile().substr(0, 5000), "", Result::Unreadable},
      {"too new",
       FileOf("<key>accounts</key><array><dict><key>version</key><integer>8</integer></dict>"
              "</array>"),
       "", Result::Unreadable},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    AccountsStoreFixture f;
    EXPECT_EQ(f.store.Accounts_RestoreBackup("b"), Result::Failed);  // nothing is loaded
    EXPECT_TRUE(f.LoadFile(FileOf("<key>accounts</key><array/>")));
    EXPECT_EQ(f.store.Accounts_RestoreBackup("b"), Result::Unreadable);  // there is none
    f.files.AddFile(kBackups + "/b", c.backup);
    f.store.setPassword("changed since");
    if (!c.answer.empty()) f.alerts.Answer(c.answer);
    EXPECT_EQ(f.store.Accounts_RestoreBackup("b"), c.result);
    EXPECT_TRUE(f.alerts.AllAnswersUsed());
    EXPECT_EQ(f.alerts.Requests().size(), c.answer.empty() ? 0U : 1U);

    const bool restored = c.result == Result::Restored;
    EXPECT_EQ(f.store.accounts().size(), restored ? 1U : 0U);
    EXPECT_EQ(f.store.password(), restored ? "" : "changed since");
    ASSERT_EQ(f.store.KeptCopies().size(), restored ? 1U : 0U);
    if (restored) {
      EXPECT_NE(f.files.Content(f.store.KeptCopies()[0])->find("changed since"), std::string::npos);
      // The next save replaces the restored file like any other.
      EXPECT_TRUE(f.store.Accounts_Save());
      EXPECT_EQ(f.store.KeptCopies().size(), 1U);
    }
  }
}

TEST(AccountsRestoring, KnowsKeptCopiesBesideBackups) {
  AccountsStoreFixture f;
  EXPECT_TRUE(f.LoadFile(FileOf("<key>accounts</key><array/>")));
  const std::string kept = "Accounts.plist.kept-20070305-115959";
  const std::string others[] = {"Accounts.plist.kept", "Accounts.plist.bak", "x" + kept};
  for (const std::string& name : others) f.files.AddFile(kData + '/' + name, kOne);
  f.files.AddFile(kData + '/' + kept, kOne);
  f.files.SetCreationTime(kData + '/' + kept, CurrentClock().Now() - std::chrono::hours(1));
  f.files.AddFile(kBackups + "/newer", kOne);
  f.files.AddFile(kBackups + "/older", kOne);
  f.files.SetCreationTime(kBackups + "/older", CurrentClock().Now() - std::chrono::hours(2));
  std::string listed;
  for (const BackupFile& backup : f.store.Backups()) listed += backup.name + ' ';
  EXPECT_EQ(listed, "newer Accounts_3_5_2007_Before_2.0 " + kept + " older ");
  for (const std::string& name : others) {
    EXPECT_EQ(f.store.Accounts_RestoreBackup(name), Result::Unreadable) << name;
  }
  EXPECT_EQ(f.store.ContentsOfBackup(kept)->accounts, 1U);
  f.alerts.Answer("Restore");
  EXPECT_EQ(f.store.Accounts_RestoreBackup(kept), Result::Restored);
  EXPECT_EQ(f.store.accounts().size(), 1U);
}

TEST(AccountsRestoring, ChangesNothingWhenWhatIsThereCannotBeKept) {
  AccountsStoreFixture f;
  EXPECT_TRUE(f.LoadFile(FileOf("<key>accounts</key><array/>")));
  f.files.AddFile(kBackups + "/b", kOne);
  f.files.FailOn(kFile + ".kept-20070305-120000");
  f.alerts.Answer("Restore");
  EXPECT_EQ(f.store.Accounts_RestoreBackup("b"), Result::Failed);
  EXPECT_EQ(f.store.RestoreFailure()->Text(), "making the new file: Input/output error");
  EXPECT_FALSE(f.store.Failure());  // of a save
  EXPECT_TRUE(f.store.accounts().empty());
  f.store.setAuthenticated(false);
  EXPECT_EQ(f.store.Accounts_RestoreBackup("b"), Result::Failed);
}

TEST(CompressedFiles, AreUncompressedOrRefused) {
  using namespace std::string_view_literals;
  constexpr std::size_t kLimit = 100'000;
  const std::string small =
      "\x1f\x9d\x90\x74\xde\x80\x10\x53\x06\xc4\x1b\x39\x20\xdc\xbc\xa1\x03\x22\xe0\xc0\x32\x2c\x1a"
      "\xa2\x09\xc3\x30\xcd\x9c\x86\x02\x09\x02";
  EXPECT_EQ(Uncompress(small, kLimit), "to be or not to be, that is to be");
  EXPECT_EQ(Uncompress("\x1f\x9d\x90", kLimit), "");
  EXPECT_EQ(Uncompress(CompressedFile(), kLimit), FileThatChangesItsManner());

  EXPECT_FALSE(Uncompress(small, 10));
  for (const std::string_view refused :
       {""sv, "\x1f\x9d"sv, "\x1f\x8b\x90"sv, "\x1f\x9d\x89"sv, "\x1f\x9d\x91"sv,
        "\x1f\x9d\x90\xff\xff"sv, "\x1f\x9d\x90\x41\xff\xff"sv}) {
    EXPECT_FALSE(Uncompress(refused, kLimit));
  }
  std::string damaged = CompressedFile();
  for (std::size_t i = 0; i < damaged.size(); i += 11) {
    damaged[i] = static_cast<char>(damaged[i] ^ 0x55);
    static_cast<void>(Uncompress(damaged, kLimit));
  }
}

}  // namespace
}  // namespace tallyfold
