#include "storage/preferences_store.h"

#include <gtest/gtest.h>

#include <map>

#include "fakes/fake_ambient.h"
#include "fakes/fake_file_system.h"
#include "fakes/fake_services.h"
#include "model/account.h"
#include "model/type_handover.h"
#include "plist/reader.h"
#include "plist/writer.h"

namespace tallyfold {
namespace {

using Lines = std::vector<std::string>;

const std::string kFolder = "/home/user/Library/Preferences/Quorva";
const std::string kFile = kFolder + "/Tallyfold Preferences";
const std::string kBackups = kFolder + "/Backups";

struct Fixture : PreferencesStore::Host {
  Fixture() { ambient.clock.SetLocal({2007, 3, 5, 12, 0, 0}); }

  [[nodiscard]] std::optional<LiveTable> TableShown(std::string_view identifier) override {
    const auto found = tables.find(identifier);
    return found == tables.end() ? std::nullopt : std::optional(found->second);
  }
  [[nodiscard]] const LDGRAccount* AccountShown() override { return shown.get(); }
  [[nodiscard]] std::int32_t BalanceMode() override { return 3; }
  [[nodiscard]] float AccountsDrawerWidth() override { return 150.5F; }
  [[nodiscard]] std::int32_t AccountsDrawerPreferredEdge() override { return 0; }

  [[nodiscard]] bool AccountsHoldUnsavedTypes() override { return types_are_unsaved; }

  [[nodiscard]] plist::Dictionary Saved() const {
    return plist::Read(files.Content(kFile).value_or("")).value.DictionaryValue();
  }

  FakeAmbient ambient;
  FakeFileSystem files;
  FakeHost application;
  FakeProcessLauncher processes;
  SaveGate gate;
  std::map<std::string, LiveTable, std::less<>> tables;
  std::shared_ptr<LDGRAccount> shown;
  bool types_are_unsaved = false;
  PreferencesStore store{{files, application, processes}, gate, *this};
};

TEST(PreferencesStore, SavesWhatIsShownAndReadsItBack) {
  Fixture f;
  f.store.Preferences_Init();
  LDGRPreferences::sharedPreferences().SetSelectedAccountNumber(12);
  f.shown = std::make_shared<LDGRAccount>();
  f.shown->SetNumber(12);
  f.tables["entry"] = {{{"date", 80.9}, {"amount", 1e12}}, 4};
  const auto record = LDGRPreferences::sharedPreferences().GetPreferencesForAccountNumber(12);
  record->SetSelectedColumnIdentifier("amount", "entry");
  record->SetSortDescending(true, "entry");
  EXPECT_TRUE(f.store.Preferences_Save());

  const Lines changes = {"folder /home/user/Library", "folder /home/user/Library/Preferences",
                         "folder " + kFolder, "write " + kFile,
                         "badge " + kFile + " prefsfilebadge"};
  EXPECT_EQ(f.files.Changes(), changes);
  const plist::Dictionary saved = f.Saved();
  EXPECT_EQ(saved.begin()[saved.size() - 1].key(), "appVersion");

  f.shown = nullptr;
  f.store.Preferences_Init();
  EXPECT_TRUE(f.files.List(kBackups).empty());  // the same version wrote it
  EXPECT_FALSE(f.store.SetAside());
  LDGRPreferences& preferences = LDGRPreferences::sharedPreferences();
  EXPECT_EQ(preferences.GetSelectedAccountNumber(), 12);
  EXPECT_EQ(preferences.GetBalanceMode(), 3);
  EXPECT_EQ(preferences.GetAccountsDrawerWidth(), 150.5F);
  EXPECT_EQ(preferences.GetAccountsDrawerPreferredEdge(), 0);
  const auto view = preferences.GetPreferencesForAccountNumber(12);
  EXPECT_EQ(view->GetSelectedRowForTableIdentifier("entry"), 4);
  EXPECT_EQ(view->GetSelectedColumnIdentifierForTableIdentifier("entry"), "amount");
  EXPECT_TRUE(view->GetSortDescendingForTableIdentifier("entry"));
  const std::string columns =
      "<plist><array><dict><key>identifier</key><string>date</string><key>width</key>"
      "<integer>80</integer><key>show</key><true/><key>lastIndex</key><integer>0</integer></dict>"
      "<dict><key>identifier</key><string>amount</string><key>width</key>"
      "<integer>2147483647</integer><key>show</key><true/><key>lastIndex</key><integer>1</integer>"
      "</dict></array></plist>";
  EXPECT_EQ(view->GetColumnsForTableIdentifier("entry"), plist::Read(columns).value.ArrayValue());
  EXPECT_EQ(view->objectForKey("tables").ArrayValue().size(), 1U);
}

// Preferences as this program writes them, but for the content.
std::string WithAppVersion(const std::string& content) {
  return "<plist><dict><key>appVersion</key><string>2.0</string>" + content + "</dict></plist>";
}
std::string Current(const std::string& content) {
  return WithAppVersion("<key>version</key><integer>2</integer>" + content);
}
std::string View(const std::string& content) {
  return Current("<key>accountPreferences</key><array><dict>" + content + "</dict></array>");
}
std::string Table(const std::string& content) {
  return "<key>tables</key><array><dict><key>identifier</key><string>entry</string>" + content +
         "</dict></array>";
}
std::string Column(const std::string& content) {
  return Table("<key>columns</key><array><dict>" + content + "</dict></array>");
}
std::string Choice(const std::string& content) {
  std::string table = Column("<key>identifier</key><string>order</string>" + content);
  return table.replace(table.find(">entry<") + 1, 5, "import 0123456789abcdef");
}

std::string Sorted(const std::string& column) {
  return "<key>selectedColumn</key><string>" + column + "</string>";
}

TEST(PreferencesStore, ReadsOrSetsAsideWhatIsThere) {
  const std::string current = plist::ToXml(LDGRPreferences().asDictionary());
  const std::string wrong =
      "<plist><dict><key>version</key><integer>2</integer>"
      "<key>entryFont</key><integer>1</integer></dict></plist>";
  const std::string wrong_form = "Some of the file is not in the form";
  struct {
    const char* name;
    std::optional<std::string> content;
    std::string reason;
    bool is_backed_up;
  } const cases[] = {
      {"no file", std::nullopt, "", false},
      {"a file of no version", current, "", true},
      {"no property list", "<plist>", "Line 1: ", false},
      {"no dictionary", "<plist><true/></plist>", "The file does not hold a dictionary.", false},
      {"a wrong kind", wrong, "Some of the file is not in the form", true},
      {"an old file", "<plist><dict/></plist>", "", true},
      {"an old file of this version", WithAppVersion(""), "The file is of an older form", false},
      {"an unknown key", Current("<key>odd</key><true/>"), wrong_form, false},
      {"tables no list", View("<key>tables</key><true/>"), wrong_form, false},
      {"an account number in words", View("<key>accountNumber</key><string>1</string>"), wrong_form,
       false},
      {"a table", View(Table("<key>selectedFilterDictionary</key><dict/>")), "", false},
      {"a table of no name", View("<key>tables</key><array><dict/></array>"), wrong_form, false},
      {"columns no list", View(Table("<key>columns</key><true/>")), wrong_form, false},
      {"a row in words", View(Table("<key>selectedRow</key><string>1</string>")), wrong_form,
       false},
      {"an order in words", View(Table("<key>sortDescending</key><string>1</string>")), wrong_form,
       false},
      {"a column", View(Column("<key>width</key><integer>9</integer>")), "", false},
      {"a width in words", View(Column("<key>width</key><string>9</string>")), wrong_form, false},
      {"a balance mode", Current("<key>balanceMode</key><integer>5</integer>"), "", false},
      {"a balance mode there is not", Current("<key>balanceMode</key><integer>6</integer>"),
       wrong_form, false},
      {"a balance mode below", Current("<key>balanceMode</key><integer>-1</integer>"), wrong_form,
       false},
      {"an order by a column", View(Table(Sorted("toFrom"))), "", false},
      {"an order by none", View(Table(Sorted(""))), "", false},
      {"an order by an unknown column", View(Table(Sorted("color"))), wrong_form, false},
      {"an order by a column that does not sort", View(Table(Sorted("balance"))), wrong_form,
       false},
      {"a shown column", View(Column("<key>identifier</key><string>balance</string>")), "", false},
      {"an unknown column", View(Column("<key>identifier</key><string>next</string>")), wrong_form,
       false},
      {"a choice of an import", View(Choice("<key>value</key><string>dmy</string>")), "", false},
      {"a choice that is no text", View(Choice("<key>value</key><true/>")), wrong_form, false},
      {"a width of a choice", View(Choice("<key>width</key><integer>9</integer>")), wrong_form,
       false},
      {"a value of a column", View(Column("<key>value</key><string>dmy</string>")), wrong_form,
       false},
      {"an unknown key of a column", View(Column("<key>odd</key><true/>")), wrong_form, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    Fixture f;
    EXPECT_FALSE(f.store.Preferences_Save());
    f.files.AddFile("/usr/bin/compress", "");
    f.files.AddFile("/usr/bin/uncompress", "");
    if (c.content) f.files.AddFile(kFile, *c.content);
    f.store.Preferences_Init();
    EXPECT_EQ(LDGRPreferences::sharedPreferences().GetEntryFont(), "Sans");
    const std::string backup = kBackups + "/Tallyfold Preferences_Before_2.0";
    EXPECT_EQ(f.files.Content(backup), c.is_backed_up ? c.content : std::nullopt);
    EXPECT_EQ(f.processes.Launched(),
              c.is_backed_up ? Lines{"/usr/bin/compress " + backup} : Lines{});
    {
      const SaveGate::Hold hold(f.gate);
      EXPECT_FALSE(f.store.Preferences_Save());
    }
    ASSERT_EQ(f.store.SetAside().has_value(), !c.reason.empty());
    EXPECT_TRUE(f.store.Preferences_Save());
    if (!c.reason.empty()) {
      EXPECT_TRUE(f.store.SetAside()->reason.starts_with(c.reason));
      EXPECT_EQ(f.files.Content(kFile + ".kept-20070305-120000"), c.content);
    }
  }
}

TEST(PreferencesStore, LeavesOldPreferencesUntilTheirTypesAreSavedWithTheAccounts) {
  const std::string types = "<key>types</key><array/>";
  struct {
    std::string content;
    bool types_are_unsaved;
    bool is_saved;
  } const cases[] = {
      {types, true, false},
      {types, false, true},
      {"<key>inactiveTypes</key><array/>", true, false},
      {"", true, true},
      {types + "<key>version</key><integer>1</integer>", true, true},
  };
  for (const auto& c : cases) {
    Fixture f;
    const std::string content = "<plist><dict>" + c.content + "</dict></plist>";
    f.files.AddFile(kFile, content);
    f.store.Preferences_Init();
    f.types_are_unsaved = c.types_are_unsaved;
    EXPECT_EQ(f.store.Preferences_Save(), c.is_saved) << content;
    EXPECT_EQ(f.files.Content(kFile) != content, c.is_saved);
    EXPECT_EQ(f.store.HasUnsavedChanges() && f.store.Failure(), !c.is_saved);
    f.types_are_unsaved = false;
    EXPECT_TRUE(f.store.Preferences_Save() && !f.store.Failure());
    f.types_are_unsaved = true;
    EXPECT_TRUE(f.store.Preferences_Save());
    TypeHandOver().Clear();
  }
}

TEST(PreferencesStore, LogsFilesInTheWayOfItsFolders) {
  struct {
    std::string file;
    bool saves;
    std::string line;
  } const cases[] = {
      {kFolder, true,
       "~/Library/Preferences/Quorva exists, but it's a file!  Please move the file to allow "
       "Tallyfold to save your preferences."},
      {kFolder, false,
       "~/Library/Preferences/Quorva/ exists, but it's a file!  Please move the file to allow "
       "Tallyfold to create a folder to save your preferences."},
      {kBackups, false,
       "~/Library/Preferences/Quorva/Backups/ exists, but it's a file!  Please move the file to "
       "allow Tallyfold to create a folder to backup your preferences."},
  };
  for (const auto& c : cases) {
    Fixture f;
    f.files.AddFile(c.file, "");
    f.store.Preferences_Init();
    if (c.saves) {
      EXPECT_FALSE(f.store.Preferences_Save());
      EXPECT_TRUE(f.store.HasUnsavedChanges());
    } else {
      f.store.Preferences_Backup(plist::Dictionary());
    }
    EXPECT_EQ(f.ambient.log.Lines(), Lines{c.line});
  }
  Fixture f;
  f.store.Preferences_Backup(plist::Dictionary());
  EXPECT_EQ(f.ambient.log.Lines(),
            Lines{"Backup operation was unsuccessful in LDGRController:Preferences_Backup."});
}

TEST(PreferencesStore, KeepsTheStoredViewOfTablesThatAreNotShown) {
  Fixture f;
  f.store.Preferences_Init();
  f.shown = std::make_shared<LDGRAccount>();
  f.tables["schedule"] = {{{"date", 50.0}}, -1};
  const auto record = LDGRPreferences::sharedPreferences().GetPreferencesForAccountNumber(-1);
  record->SetSelectedRow(7, "entry");
  record->SetSelectedRow(7, "schedule");
  f.store.Preferences_StoreAccountPrefs(f.shown.get());
  EXPECT_EQ(record->GetSelectedRowForTableIdentifier("entry"), 7);
  // No row is selected, which does not take back the stored one.
  EXPECT_EQ(record->GetSelectedRowForTableIdentifier("schedule"), 7);
  EXPECT_EQ(record->GetColumnsForTableIdentifier("schedule")->size(), 1U);
}

}  // namespace
}  // namespace tallyfold
