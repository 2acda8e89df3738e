#include "registers/copied_rows.h"

#include <algorithm>
#include <string_view>

namespace tallyfold {
namespace {

std::string OnOneLine(std::string text) {
  std::ranges::replace_if(
      text, [](char c) { return c == '\t' || c == '\n' || c == '\r'; }, ' ');
  return text;
}

std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '\n':
        escaped += "<br>";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

// Calls `cell` with each title, then with each cell, and `end` behind each line.
template <typename Cell, typename End>
void WalkRows(const TableDataSource& source, std::span<const TableColumn> columns,
              std::span<const std::size_t> rows, Cell cell, End end) {
  for (const TableColumn& column : columns) cell(TitleOf(column), true, TableCell());
  end();
  const std::size_t count = source.numberOfRowsInTableView();
  for (const std::size_t row : rows) {
    if (row >= count) continue;
    for (const TableColumn& column : columns) {
      const TableCell shown = source.tableView(column.identifier, row);
      cell(shown.text, false, shown);
    }
    end();
  }
}

}  // namespace

std::string RowsAsText(const TableDataSource& source, std::span<const TableColumn> columns,
                       std::span<const std::size_t> rows) {
  std::string text;
  bool is_first = true;
  WalkRows(
      source, columns, rows,
      [&](const std::string& cell, bool /*is_title*/, const TableCell& /*shown*/) {
        if (!is_first) text += '\t';
        is_first = false;
        text += OnOneLine(cell);
      },
      [&] {
        text += '\n';
        is_first = true;
      });
  return text;
}

std::string RowsAsHtml(const TableDataSource& source, std::span<const TableColumn> columns,
                       std::span<const std::size_t> rows) {
  std::string html = "<table>\n<tr>";
  WalkRows(
      source, columns, rows,
      [&](const std::string& cell, bool is_title, const TableCell& shown) {
        const bool is_right = shown.alignment == TableCell::Alignment::Right;
        html += is_title ? "<th>" : is_right ? "<td align=\"right\">" : "<td>";
        html += Escaped(cell) + (is_title ? "</th>" : "</td>");
      },
      [&] { html += "</tr>\n<tr>"; });
  html.resize(html.size() - std::string_view("<tr>").size());
  return html + "</table>\n";
}

}  // namespace tallyfold
