#include "benchmarks/generator.h"

#include <array>
#include <string_view>
#include <vector>

#include "plist/writer.h"

namespace tallyfold::benchmarks {
namespace {

using std::string_view_literals::operator""sv;

constexpr int kNone = -1;
constexpr int kDebit = 1;
constexpr int kDeposit = 2;
constexpr int kTransfer = 4;
constexpr int kTransferOrigin = 8;
constexpr int kCheck = 16;
constexpr int kTaxDeductible = 64;

constexpr auto kPayees = std::to_array(
    {"Corner Market"sv, "Bäckerei Grünwald"sv, "City Water & Power"sv, "Café Crème"sv,
     "Dr. Ana Núñez"sv, "Smith, Jones & Søn"sv, "Farmácia São João"sv, "Green Grocer <Main St>"sv,
     "Landlord"sv, "Shell"sv, "Книжный магазин"sv, "Telephone Company"sv, "東京ラーメン"sv,
     "Union Savings Insurance"sv, "Hardware & Garden"sv, "School of Music"sv});
constexpr auto kPayers = std::to_array(
    {"Employer"sv, "Insurance refund"sv, "Tante Jürgen"sv, "Savings interest"sv, "Flea market"sv});
constexpr auto kDescriptions =
    std::to_array({"Groceries"sv, "Brot und Brötchen"sv, "Electricity"sv, "Lunch with José"sv,
                   "Check-up"sv, "Legal advice"sv, "Medicine"sv, "Vegetables"sv, "Rent"sv,
                   "Petrol"sv, "Books & magazines"sv, "Phone and internet"sv, "Dinner"sv,
                   "Car insurance"sv, "Paint, brushes"sv, "Violin lessons"sv});
constexpr auto kNotes = std::to_array({"Paid at the counter, receipt in the blue folder"sv,
                                       "Frag nächstes Mal nach Rabatt"sv,
                                       "first line\nsecond line"sv, "\"quoted\" & <marked>"sv});

struct Type {
  int number;
  std::string_view name;
  bool is_check;
  bool is_deposit;
};
constexpr auto kTypes = std::to_array<Type>({{0, "Check", true, false},
                                             {1, "Debit Card", false, false},
                                             {3, "Deposit", false, true},
                                             {4, "Direct Deposit", false, true},
                                             {5, "Gift", false, true},
                                             {2, "Online Payment", false, false}});

struct Entry {
  int date = 0;
  int number = 0;
  int check_number = kNone;
  int flags = 0;
  int type = kNone;
  int cents = 0;
  int transfer_account = kNone;
  int transfer_entry = kNone;
  std::uint32_t texts = 0;  // chooses them
};

// The same numbers with every library, unlike the distributions of <random>.
class Dice {
 public:
  explicit Dice(std::uint32_t seed) : state_(seed * 2U + 1U) {}
  // 0 to `sides` - 1.
  [[nodiscard]] int Throw(int sides) {
    return static_cast<int>(Next() % static_cast<std::uint32_t>(sides));
  }
  [[nodiscard]] std::uint32_t Next() {
    state_ = state_ * 6364136223846793005U + 1442695040888963407U;
    return static_cast<std::uint32_t>(state_ >> 33U);
  }

 private:
  std::uint64_t state_;
};

using Register = std::vector<Entry>;

std::vector<Register> MakeRegisters(const HouseholdFigures& figures) {
  Dice dice(figures.seed);
  std::vector<Register> registers(figures.accounts);
  const int account_count = static_cast<int>(figures.accounts);
  int next_check = 1001;
  for (std::size_t made = 0; made < figures.entries; ++made) {
    // Evenly over the years from 1995 to 2024.
    const int day = static_cast<int>(made * 30 * 336 / figures.entries);
    Entry entry;
    entry.date = (1995 + day / 336) * 10000 + (day / 28 % 12 + 1) * 100 + day % 28 + 1;
    entry.cents = 1 + dice.Throw(dice.Throw(10) == 0 ? 500'000 : 20'000);
    entry.texts = dice.Next();

    const int account = dice.Throw(account_count);
    Register& entries = registers[static_cast<std::size_t>(account)];
    entry.number = static_cast<int>(entries.size()) + 1;
    const int kind = dice.Throw(100);
    if (kind < 8 && account_count > 1 && made + 1 < figures.entries) {
      const int other = (account + 1 + dice.Throw(account_count - 1)) % account_count;
      Register& other_entries = registers[static_cast<std::size_t>(other)];
      Entry half = entry;
      half.number = static_cast<int>(other_entries.size()) + 1;
      half.flags = kTransfer;
      half.transfer_account = account;
      half.transfer_entry = entry.number;
      entry.flags = kTransfer | kTransferOrigin;
      entry.transfer_account = other;
      entry.transfer_entry = half.number;
      entry.cents = -entry.cents;
      other_entries.push_back(half);
      ++made;
    } else if (kind < 25) {
      entry.flags = kDeposit;
      entry.type = 3 + dice.Throw(3);
    } else {
      entry.flags = kDebit | (dice.Throw(12) == 0 ? kTaxDeductible : 0);
      entry.type = 1 + dice.Throw(2);
      entry.cents = -entry.cents;
      if (kind < 45) {
        entry.flags |= kCheck;
        entry.type = 0;
        entry.check_number = next_check++;
      }
    }
    entries.push_back(entry);
  }
  return registers;
}

class HouseholdWriter {
 public:
  explicit HouseholdWriter(plist::Output& output) : output_(output) {}

  void WriteAccount(int number, const Register& entries, std::size_t all_entries) {
    output_.BeginDictionary();
    String("name", "Account " + std::to_string(number + 1));
    Integer("number", number);
    Integer("version", 7);
    output_.Key("entries");
    output_.BeginArray();
    for (const Entry& entry : entries) {
      output_.BeginDictionary();
      WriteEntry(entry);
      output_.EndDictionary();
    }
    output_.EndArray();
    WriteSchedules(all_entries);
    Integer("startingCheckNumber", 1001);
    Integer("numberCount", static_cast<int>(entries.size()));
    Real("startingBalance", 1234.5);
    String("password", "");
    WriteTypes();
    Integer("defaultDebitType", 1);
    Integer("defaultDepositType", 3);
    for (const auto* key : {"preference_Descriptions_Style", "preference_ToFrom_Style"}) {
      Integer(key, 1);
    }
    for (const auto* key :
         {"preference_Descriptions_SomeSelection", "preference_ToFrom_SomeSelection"}) {
      Integer(key, 25);
    }
    for (const auto* key : {"preferredDebitDescriptions", "preferredDepositDescriptions",
                            "preferredTransferDescriptions", "preferredTos", "preferredFroms"}) {
      EmptyArray(key);
    }
    Real("statementBalance", 0.0);
    WriteSummaries();
    WriteOptions();
    output_.EndDictionary();
  }

 private:
  void Integer(std::string_view key, int value) {
    output_.Key(key);
    output_.Integer(value);
  }
  void Real(std::string_view key, double value) {
    output_.Key(key);
    output_.Real(value);
  }
  void Boolean(std::string_view key, bool value) {
    output_.Key(key);
    output_.Boolean(value);
  }
  void String(std::string_view key, std::string_view value) {
    output_.Key(key);
    output_.String(value);
  }
  void EmptyArray(std::string_view key) {
    output_.Key(key);
    output_.BeginArray();
    output_.EndArray();
  }

  // The keys of an entry, also those that a schedule has before its own.
  void WriteEntry(const Entry& entry) {
    const std::uint32_t choice = entry.texts;
    // A third of the descriptions is of its kind alone, as in real registers.
    std::string description(kDescriptions[choice % kDescriptions.size()]);
    if (choice % 3 == 0) description += " no. " + std::to_string(entry.number);
    const std::string_view to_from = (entry.flags & kDeposit) != 0
                                         ? kPayers[choice / 16 % kPayers.size()]
                                         : kPayees[choice / 16 % kPayees.size()];
    Integer("date", entry.date);
    Integer("number", entry.number);
    Integer("checkNumber", entry.check_number);
    Integer("entryFlags", entry.flags);
    Integer("type", entry.type);
    Real("amount", entry.cents / 100.0);
    String("description", description);
    String("toFrom", to_from);
    Boolean("cleared", choice % 10 != 0);
    if (choice / 512 % 8 == 0) String("notes", kNotes[choice / 4096 % kNotes.size()]);
    if ((entry.flags & kTransfer) != 0) {
      Integer("transferEntry", entry.transfer_entry);
      Integer("transferAccount", entry.transfer_account);
    } else if (choice / 1024 % 25 == 0) {
      WriteSplit(entry);
    }
  }

  void WriteSplit(const Entry& entry) {
    constexpr std::size_t kLines = 10;
    const std::size_t used = 2 + entry.texts % 3;
    const auto texts = [&](std::string_view key, const auto& from) {
      output_.Key(key);
      output_.BeginArray();
      for (std::size_t line = 0; line < kLines; ++line) {
        output_.String(line < used ? from[(entry.texts + line) % from.size()] : ""sv);
      }
      output_.EndArray();
    };
    output_.Key("split");
    output_.BeginDictionary();
    texts("descriptions", kDescriptions);
    texts("toFrom", kPayees);
    output_.Key("amounts");
    output_.BeginArray();
    const int whole = entry.cents < 0 ? -entry.cents : entry.cents;
    const int part = whole / static_cast<int>(used);
    for (std::size_t line = 0; line < kLines; ++line) {
      const int first = whole - part * static_cast<int>(used - 1);
      output_.Real((line == 0 ? first : line < used ? part : 0) / 100.0);
    }
    output_.EndArray();
    output_.EndDictionary();
  }

  void WriteSchedules(std::size_t all_entries) {
    output_.Key("schedules");
    output_.BeginArray();
    for (int number = 0; number < 3; ++number) {
      output_.BeginDictionary();
      Entry entry;
      entry.date = 20230101 + number;
      entry.number = number;
      entry.flags = kDebit;
      entry.type = 1;
      entry.cents = -10'000 * (number + 1);
      entry.texts = static_cast<std::uint32_t>(number) + 1;
      WriteEntry(entry);
      Integer("repeatIntervalType", 4);
      Integer("repeatInterval", 1);
      Integer("repeatUntilType", 1);
      Integer("repeatUntil", 0);
      Boolean("usePrecedingFriday", number == 1);
      output_.Key("committedDates");
      output_.BeginArray();
      // Small files have few committed dates, so that an entry always takes about the same.
      for (int month = 1; month <= (all_entries < 1000 ? 1 : 12); ++month) {
        output_.Integer(20230001 + month * 100 + number);
      }
      output_.EndArray();
      output_.EndDictionary();
    }
    output_.EndArray();
  }

  void WriteTypes() {
    output_.Key("types");
    output_.BeginArray();
    for (const Type& type : kTypes) {
      output_.BeginDictionary();
      String("name", type.name);
      Boolean("isCheck", type.is_check);
      Boolean("isDeposit", type.is_deposit);
      Integer("number", type.number);
      output_.EndDictionary();
    }
    output_.EndArray();
    EmptyArray("inactiveTypes");
  }

  void WriteSummaries() {
    output_.Key("accountSummaries");
    output_.BeginArray();
    output_.BeginDictionary();
    String("name", "This Year");
    Integer("dateRangeStyle", 20);
    Integer("startDate", 20240101);
    Integer("endDate", 20241231);
    Integer("showStyle", 0);
    for (const auto* key : {"showDebits", "showDeposits", "showTransfers"}) Boolean(key, true);
    for (const auto* key : {"showResolved", "showTaxDeductible", "showChecks"}) Integer(key, 2);
    for (const auto* key : {"subtotalDescriptions", "subtotalTypes", "subtotalToFroms"}) {
      Boolean(key, true);
    }
    Integer("subtotalPeriodStyle", 2);
    Boolean("filter", false);
    Integer("filterType", 0);
    String("filterData", "");
    output_.EndDictionary();
    output_.EndArray();
    Integer("selectedAccountSummary", 0);
  }

  void WriteOptions() {
    Integer("entryFilterType", 0);
    Integer("reconcileFilterType", 0);
    String("entryFilterData", "");
    String("reconcileFilterData", "");
    Integer("QIFImportEncoding", 4);
    Integer("QIFImportDateFormat", 0);
    String("QIFImportDecimalSeparator", ".");
    String("QIFImportThousandsSeparator", ",");
    Boolean("QIFImportZeroAmountsAsDeposits", true);
    Boolean("QIFImportAllTypes", false);
    Boolean("QIFImportSplitLineItems", true);
    Integer("QIFImport_SwapOptions_ToFrom", 1);
    Integer("QIFImport_SwapOptions_Type", 0);
    Integer("QIFImport_SwapOptions_Description", 2);
    Integer("textExport_ExportType", -5);
    Integer("textExport_Encoding", 4);
    Integer("lastTransferAccount", kNone);
    Boolean("isLastTransferOrigin", true);
  }

  plist::Output& output_;
};

}  // namespace

void WriteHousehold(const HouseholdFigures& figures, plist::Output& output) {
  const std::vector<Register> registers = MakeRegisters(figures);
  HouseholdWriter writer(output);
  output.BeginDictionary();
  output.Key("accounts");
  output.BeginArray();
  for (std::size_t i = 0; i < registers.size(); ++i) {
    writer.WriteAccount(static_cast<int>(i), registers[i], figures.entries);
  }
  output.EndArray();
  output.Key("password");
  output.String("");
  output.Key("appVersion");
  output.String("1.0");
  output.EndDictionary();
}

std::string HouseholdFile(const HouseholdFigures& figures) {
  std::string file;
  plist::XmlWriter writer([&file](std::string_view block) { file += block; });
  WriteHousehold(figures, writer);
  writer.Finish();
  return file;
}

}  // namespace tallyfold::benchmarks
