#include "exchange/register_export.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>

#include "exchange/exported_entries.h"
#include "model/amounts.h"
#include "model/date_format.h"
#include "model/entry_split.h"
#include "plist/utf8.h"

namespace tallyfold {
namespace {

enum class JsonKind : std::uint8_t { Text, Number, YesNo };

// A field of a row; none where there is nothing to tell.
struct RowField {
  std::string_view name;
  JsonKind kind = JsonKind::Text;
  std::optional<std::string> text;
};

constexpr std::size_t kRowFields = 13;
using RowFields = std::array<RowField, kRowFields>;

std::string_view KindName(const LDGRAccountEntry& entry) {
  if (entry.IsDebit()) return "debit";
  if (entry.IsDeposit()) return "deposit";
  return entry.IsTransfer() ? "transfer" : "";
}

std::optional<std::string> PlainAmount(double amount) {
  if (!std::isfinite(amount)) return std::nullopt;
  std::string text = FixedAmountString(amount);
  if (text == "-0.00") text.erase(0, 1);
  return text;
}

std::optional<std::string> TextUnlessEmpty(std::string_view text) {
  if (text.empty()) return std::nullopt;
  return std::string(text);
}

// Type names are looked up once for an account.
class FieldsOfRows {
 public:
  RowFields Of(const ExportedRow& row) {
    const LDGRAccount& account = *row.account;
    const LDGRAccountEntry& entry = *row.entry;
    auto& names = names_.try_emplace(&account, account).first->second;
    const auto yes_no = [](bool is) { return std::string(is ? "yes" : "no"); };
    return {
        {{"account", JsonKind::Text, account.GetName()},
         {"number", JsonKind::Number, std::to_string(entry.GetNumber())},
         {"date", JsonKind::Text, IsoDay(entry.GetDate())},
         {"kind", JsonKind::Text, TextUnlessEmpty(KindName(entry))},
         {"type", JsonKind::Text, TextUnlessEmpty(names.Name(entry.GetType()))},
         {"check", JsonKind::Number,
          entry.IsCheck() ? std::optional(std::to_string(entry.GetCheckNumber())) : std::nullopt},
         {"description", JsonKind::Text, entry.GetDescription()},
         {"to_from", JsonKind::Text, entry.GetToFrom()},
         {"amount", JsonKind::Number, PlainAmount(entry.GetAmount())},
         {"cleared", JsonKind::YesNo, yes_no(entry.GetCleared())},
         {"tax_deductible", JsonKind::YesNo, yes_no(entry.GetTaxDeductible())},
         {"notes", JsonKind::Text, entry.GetNotes()},
         {"balance", JsonKind::Number, PlainAmount(account.RunningBalanceOf(entry))}}};
  }

 private:
  std::unordered_map<const LDGRAccount*, EntryTypeNames> names_;
};

// --- CSV ----------------------------------------------------------------------------------------

void AppendCsv(std::string& csv, std::string_view text) {
  if (text.find_first_of(",\"\r\n") == std::string_view::npos) {
    csv += text;
    return;
  }
  csv += '"';
  for (const char c : text) {
    if (c == '"') csv += '"';
    csv += c;
  }
  csv += '"';
}

// --- JSON ---------------------------------------------------------------------------------------

// Controls, and the characters that turn the direction of a line or break it: a terminal that the
// text is written to shall not obey them.
bool IsEscapedInJson(char32_t c) {
  return c < 0x20 || (c >= 0x7F && c < 0xA0) || (c >= 0x200E && c <= 0x200F) ||
         (c >= 0x2028 && c <= 0x202E) || (c >= 0x2066 && c <= 0x2069);
}

void AppendJsonEscape(std::string& json, char32_t c) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  json += "\\u";
  for (const unsigned shift : {12U, 8U, 4U, 0U}) json += kDigits[(c >> shift) & 0xFU];
}

void AppendJson(std::string& json, std::string_view text) {
  json += '"';
  while (!text.empty()) {
    const plist::Utf8Character first = plist::FirstUtf8Character(text);
    const std::string_view bytes = text.substr(0, first.size);
    text.remove_prefix(first.size);
    if (!first.is_valid) {
      plist::AppendUtf8(json, 0xFFFD);
    } else if (first.code_point == '"' || first.code_point == '\\') {
      json += '\\';
      json += bytes;
    } else if (IsEscapedInJson(first.code_point)) {
      AppendJsonEscape(json, first.code_point);
    } else {
      json += bytes;
    }
  }
  json += '"';
}

void AppendJsonField(std::string& json, const RowField& field) {
  json += json.back() == '{' ? "\"" : ",\"";
  json += field.name;
  json += "\":";
  if (!field.text) {
    json += "null";
  } else if (field.kind == JsonKind::Text) {
    AppendJson(json, *field.text);
  } else if (field.kind == JsonKind::YesNo) {
    json += *field.text == "yes" ? "true" : "false";
  } else {
    json += *field.text;
  }
}

void AppendJsonSplit(std::string& json, const LDGRAccountEntrySplit* split) {
  json += ",\"split\":[";
  for (std::size_t line = 0; split != nullptr && line < LDGRAccountEntrySplit::kLines; ++line) {
    const std::string& description = split->GetDescription(line);
    const std::string& to_from = split->GetToFrom(line);
    const double amount = split->GetAmount(line);
    if (description.empty() && to_from.empty() && amount == 0.0) continue;
    json += json.back() == '[' ? "{" : ",{";
    AppendJsonField(json, {"description", JsonKind::Text, description});
    AppendJsonField(json, {"to_from", JsonKind::Text, to_from});
    AppendJsonField(json, {"amount", JsonKind::Number, PlainAmount(amount)});
    json += '}';
  }
  json += ']';
}

}  // namespace

std::string RowsAsCsv(std::span<const ExportedRow> rows) {
  std::string csv =
      "account,number,date,kind,type,check,description,to_from,amount,cleared,tax_deductible,notes,"
      "balance\r\n";
  FieldsOfRows fields_of;
  for (const ExportedRow& row : rows) {
    const RowFields fields = fields_of.Of(row);
    for (std::size_t i = 0; i < kRowFields; ++i) {
      if (i > 0) csv += ',';
      AppendCsv(csv, fields[i].text.value_or(""));
    }
    csv += "\r\n";
  }
  return csv;
}

std::string RowsAsJson(std::span<const ExportedRow> rows) {
  std::string json = "[";
  FieldsOfRows fields_of;
  for (const ExportedRow& row : rows) {
    json += json.size() == 1 ? "\n{" : ",\n{";
    for (const RowField& field : fields_of.Of(row)) AppendJsonField(json, field);
    AppendJsonSplit(json, row.entry->GetSplit().get());
    json += '}';
  }
  json += "\n]\n";
  return json;
}

}  // namespace tallyfold
