#include "printing/register_document.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <set>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include "filters/filter_types.h"
#include "platform/ambient.h"
#include "platform/message.h"
#include "printing/document_head.h"
#include "printing/figures.h"
#include "printing/split_lines.h"
#include "registers/register_look.h"

namespace tallyfold {
namespace {

constexpr std::string_view kDate = "date";
constexpr std::string_view kCheck = "check";
constexpr std::string_view kDescription = "description";
constexpr std::string_view kToFrom = "toFrom";
constexpr std::string_view kAmount = "amount";
constexpr std::string_view kBalance = "balance";

// Columns whose texts may be shortened: how many characters each wants, and needs.
struct TextColumn {
  std::string_view identifier;
  std::size_t wanted;
  std::size_t least;
};
constexpr TextColumn kTextColumns[] = {{"type", 10, 4}, {kDescription, 18, 6}, {kToFrom, 14, 5}};

constexpr std::size_t kMostSamples = 2000;

// Null for a column whose texts are not to be cut.
const TextColumn* TextColumnNamed(std::string_view identifier) {
  const auto* const found = std::ranges::find(kTextColumns, identifier, &TextColumn::identifier);
  return found != std::end(kTextColumns) ? found : nullptr;
}

constexpr RegisterOrder kOrderOfDays{RegisterSortKey::Date, false};

// The rows of a register, between the balance brought forward and the closing line.
class PrintedRegister final : public PrintRows {
 public:
  PrintedRegister(RegisterRows rows, std::vector<TableColumn> columns,
                  const LDGRPreferences& preferences, const RegisterPrintOptions& options)
      : figures_(preferences),
        splits_(options.splits),
        notes_(options.notes),
        today_(options.today),
        columns_(std::move(columns)),
        rows_(std::move(rows)) {
    amount_column_ = ColumnNamed(kAmount);
    balance_column_ = ColumnNamed(kBalance);
    description_column_ = ColumnNamed(kDescription);
    FindLabelColumns();
    carries_over_ = balance_column_ && !entries_.empty() && rows_.Order() == kOrderOfDays;
  }

  [[nodiscard]] std::vector<PrintColumn> Columns() const;
  // Where notes and split lines stand.
  [[nodiscard]] std::size_t NoteColumn() const {
    return description_column_.value_or(label_column_);
  }

  [[nodiscard]] std::size_t Count() const override { return Opening() + entries_.size() + 1; }
  [[nodiscard]] RowShape ShapeOf(std::size_t row) const override;
  [[nodiscard]] PrintRow RowAt(std::size_t row) const override;
  [[nodiscard]] bool CarriesOver() const override { return carries_over_; }
  [[nodiscard]] PrintLine LineAfter(std::size_t row) const override {
    const std::size_t entry = std::min(row - std::min(row, Opening()), entries_.size() - 1);
    return BroughtForward(rows_.RunningBalanceOf(entry));
  }

 private:
  [[nodiscard]] std::size_t Opening() const { return carries_over_ ? 1 : 0; }
  [[nodiscard]] std::optional<std::size_t> ColumnNamed(std::string_view identifier) const {
    const auto found = std::ranges::find(columns_, identifier, &TableColumn::identifier);
    if (found == columns_.end()) return std::nullopt;
    return static_cast<std::size_t>(found - columns_.begin());
  }
  void FindLabelColumns();

  [[nodiscard]] std::vector<std::string> TextSamples(std::size_t column) const;
  [[nodiscard]] PrintLine BroughtForward(double balance) const;
  [[nodiscard]] PrintRow Closing() const;
  // Of the closing line.
  [[nodiscard]] bool HasFigures() const { return amount_column_ || carries_over_; }
  [[nodiscard]] PrintLine EntryLine(std::size_t index) const;
  [[nodiscard]] SplitColumns ColumnsOfSplits() const;
  void AddLabel(PrintLine& line, std::string text) const {
    if (label_span_ == 0) return;
    // Nothing stands to the right of the last column.
    const bool is_last = label_column_ + label_span_ == columns_.size();
    line.cells.push_back(
        {label_column_, std::move(text), is_last ? PrintCell::kToEdge : label_span_});
  }
  void AddFigures(PrintLine& line) const;

  PrintedFigures figures_;
  bool splits_;
  bool notes_;
  DateNumber today_;
  std::vector<TableColumn> columns_;
  RegisterRows rows_;
  const EntryList& entries_ = rows_.Entries();
  std::optional<std::size_t> amount_column_;
  std::optional<std::size_t> balance_column_;
  std::optional<std::size_t> description_column_;
  // The widest stretch of columns without figures, for the words beside a sum; none where there is
  // but one that is no wider than it must be.
  std::size_t label_column_ = 0;
  std::size_t label_span_ = 0;
  bool label_has_texts_ = false;
  bool carries_over_ = false;
};

void PrintedRegister::FindLabelColumns() {
  double widest = 0.0;
  double width = 0.0;
  std::size_t first = 0;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (i == amount_column_ || i == balance_column_) {
      first = i + 1;
      width = 0.0;
      continue;
    }
    width += std::max(columns_[i].width, 1.0);
    if (width <= widest) continue;
    widest = width;
    label_column_ = first;
    label_span_ = i + 1 - first;
  }
  for (std::size_t i = label_column_; i < label_column_ + label_span_; ++i) {
    label_has_texts_ |= TextColumnNamed(columns_[i].identifier) != nullptr;
  }
  if (label_span_ == 1 && !label_has_texts_) label_span_ = 0;
}

std::vector<PrintColumn> PrintedRegister::Columns() const {
  DateShapes dates;
  AmountShapes amounts;
  AmountShapes balances;
  std::int32_t least_check = 0;
  std::int32_t greatest_check = 0;
  amounts.Add(rows_.Total());
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    const LDGRAccountEntry& entry = *entries_[i];
    dates.Add(entry.GetDate());
    amounts.Add(entry.GetAmount());
    const double balance = rows_.RunningBalanceOf(i);
    balances.Add(balance);
    if (i == 0) balances.Add(balance - entry.GetAmount());
    if (entry.IsCheck()) {
      least_check = std::min(least_check, entry.GetCheckNumber());
      greatest_check = std::max(greatest_check, entry.GetCheckNumber());
    }
    if (splits_) AddSplitAmounts(entry, amounts);
  }
  std::vector<PrintColumn> columns;
  columns.reserve(columns_.size());
  for (const TableColumn& shown : columns_) {
    PrintColumn column{TitleOf(shown)};
    if (const TextColumn* const text = TextColumnNamed(shown.identifier)) {
      column.is_elastic = true;
      // No text is worth turning the paper for where there is none.
      column.wanted = entries_.empty() ? 0 : text->wanted;
      column.least = text->least;
      column.samples = TextSamples(columns.size());
      column.takes_rest = shown.identifier == kDescription;
    } else if (shown.identifier == kDate) {
      column.samples = dates.Samples(figures_);
    } else if (shown.identifier == kCheck) {
      column.alignment = PrintAlignment::Right;
      column.samples = {std::to_string(least_check), std::to_string(greatest_check)};
    } else if (shown.identifier == kAmount || shown.identifier == kBalance) {
      column.alignment = PrintAlignment::Right;
      column.samples = (shown.identifier == kAmount ? amounts : balances).Samples(figures_);
    } else {
      column.alignment = PrintAlignment::Center;
      column.samples = {MarkCell(true).text};
    }
    columns.push_back(std::move(column));
  }
  return columns;
}

// So that no text is cut while there is room. Of many entries some text is sure
// to be long, so that it does not pay to look at all.
std::vector<std::string> PrintedRegister::TextSamples(std::size_t column) const {
  std::set<std::string> samples;
  if (entries_.size() > kMostSamples) return {};
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    samples.insert(rows_.CellOf(i, columns_[column].identifier, figures_.Format()).text);
    if (!splits_) continue;
    for (const PrintLine& line : SplitLines(*entries_[i], ColumnsOfSplits(), figures_)) {
      for (const PrintCell& cell : line.cells) {
        if (cell.column == column && cell.span == 1) samples.insert(cell.text);
      }
    }
  }
  return {samples.begin(), samples.end()};
}

RowShape PrintedRegister::ShapeOf(std::size_t row) const {
  if (row < Opening()) return {.is_kept_with_next = true};
  const std::size_t index = row - Opening();
  if (index == entries_.size()) {
    return {.has_rule_above = index != 0, .details = !label_has_texts_ && HasFigures() ? 1U : 0U};
  }
  const LDGRAccountEntry& entry = *entries_[index];
  RowShape shape{.is_kept_with_next = index + 1 == entries_.size()};
  if (splits_) shape.details = SplitLineCount(entry);
  if (notes_) shape.note = entry.GetNotes();
  return shape;
}

PrintRow PrintedRegister::RowAt(std::size_t row) const {
  if (row < Opening())
    return {BroughtForward(rows_.RunningBalanceOf(0) - entries_[0]->GetAmount())};
  const std::size_t index = row - Opening();
  if (index == entries_.size()) return Closing();
  const LDGRAccountEntry& entry = *entries_[index];
  PrintRow printed{EntryLine(index)};
  if (splits_) printed.details = SplitLines(entry, ColumnsOfSplits(), figures_);
  return printed;
}

PrintLine PrintedRegister::BroughtForward(double balance) const {
  PrintLine line{.cells = {}, .style = TextStyle::Italic};
  AddLabel(line, LocalizedText("Balance brought forward"));
  line.cells.push_back({*balance_column_, figures_.Amount(balance)});
  return line;
}

PrintRow PrintedRegister::Closing() const {
  std::string words =
      carries_over_
          ? Counted(entries_.size(), "Closing balance, {1} entry", "Closing balance, {1} entries")
          : Counted(entries_.size(), "Total of {1} entry", "Total of {1} entries");
  PrintRow closing{{.cells = {}, .style = TextStyle::Strong}};
  if (label_has_texts_) {
    AddLabel(closing.line, std::move(words));
    AddFigures(closing.line);
    return closing;
  }
  // Where no column has room for words, they have a line to themselves.
  closing.line.cells.push_back({0, std::move(words), PrintCell::kToEdge});
  if (HasFigures()) {
    closing.details.push_back({.cells = {}, .style = TextStyle::Strong});
    AddFigures(closing.details.back());
  }
  return closing;
}

void PrintedRegister::AddFigures(PrintLine& line) const {
  if (amount_column_) line.cells.push_back({*amount_column_, figures_.Amount(rows_.Total())});
  if (carries_over_) {
    const double balance = rows_.RunningBalanceOf(entries_.size() - 1);
    line.cells.push_back({*balance_column_, figures_.Amount(balance)});
  }
}

PrintLine PrintedRegister::EntryLine(std::size_t index) const {
  const TableFormat format = figures_.Format();
  const RowLook look = rows_.LookOf(index, format.preferences, today_);
  PrintLine line{.cells = {}, .style = look.is_italic ? TextStyle::Italic : TextStyle::Body};
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    line.cells.push_back({i, rows_.CellOf(index, columns_[i].identifier, format).text});
  }
  return line;
}

SplitColumns PrintedRegister::ColumnsOfSplits() const {
  const auto to_from = ColumnNamed(kToFrom);
  if (description_column_) return {description_column_, 1, to_from, amount_column_};
  // Where there is no room for words, the amounts alone tell the lines.
  if (label_span_ == 0) return {.to_from = to_from, .amount = amount_column_};
  const bool is_apart =
      to_from && (*to_from < label_column_ || *to_from >= label_column_ + label_span_);
  return {label_column_, label_span_, is_apart ? to_from : std::nullopt, amount_column_};
}

void KeepOnly(RegisterRows& rows, const EntryList& only) {
  const std::unordered_set<std::shared_ptr<LDGRAccountEntry>> wanted(only.begin(), only.end());
  EntryList kept;
  for (const auto& entry : rows.Entries()) {
    if (wanted.contains(entry)) kept.push_back(entry);
  }
  rows.SetEntries(std::move(kept));
}

std::string SortInWords(const LDGRAccountTableViewData& rows) {
  const std::vector<TableColumn> columns = DefaultRegisterColumns();
  const auto column = std::ranges::find(columns, rows.SortColumn(), &TableColumn::identifier);
  if (column == columns.end()) return "";
  return Message(rows.SortsDescending() ? "Sorted by {1}, descending" : "Sorted by {1}",
                 {TitleOf(*column)});
}

}  // namespace

PrintDocument RegisterDocument(const LDGRAccountTableViewData& rows,
                               const LDGRPreferences& preferences,
                               const RegisterPrintOptions& options) {
  PrintDocument document = DocumentOf(*rows.GetAccount(), preferences, options.today);
  RegisterRows printed = rows.Rows();
  if (!options.only.empty()) KeepOnly(printed, options.only);
  document.head.push_back({options.only.empty()
                               ? Message("Register: {1}", {options.filter})
                               : Counted(printed.Entries().size(), "Register: {1} selected entry",
                                         "Register: {1} selected entries"),
                           SortInWords(rows)});
  std::vector<TableColumn> columns = rows.VisibleTableColumns();
  if (columns.empty()) columns = DefaultRegisterColumns();
  document.tables.push_back(
      RegisterTable(std::move(printed), std::move(columns), preferences, options));
  return document;
}

PrintTable RegisterTable(RegisterRows rows, std::vector<TableColumn> columns,
                         const LDGRPreferences& preferences, const RegisterPrintOptions& options) {
  const auto printed =
      std::make_shared<PrintedRegister>(std::move(rows), std::move(columns), preferences, options);
  return {"", printed->Columns(), printed, printed->NoteColumn()};
}

std::string FilterInWords(std::int32_t type, const plist::Value& data) {
  const FilterType* const filter = FilterTypeWithNumber(type);
  if (filter == nullptr) return LocalizedText("all entries");
  const std::string name = LocalizedText(filter->name);
  if (filter->rule != FilterType::Rule::SearchText) return name;
  const std::string text(data.StringValue());
  if (text.empty()) return LocalizedText("all entries");
  return Message("{1} “{2}”", {name, text});
}

}  // namespace tallyfold
