#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "exchange/import_hints.h"
#include "exchange/qif_import.h"
#include "exchange/qif_import_entry.h"
#include "exchange/qif_proof.h"
#include "model/date_number.h"
#include "platform/text_encodings.h"
#include "registers/table_data_source.h"

namespace tallyfold {

// What the options of an import make of its file, before anything is imported.
struct QifImportProof {
  // An entry as it would come in, in the texts of a register.
  struct Row {
    TableCell date;
    std::string type;
    std::string description;
    std::string to_from;
    TableCell amount;
    bool is_split = false;
    RowLook look;
  };
  // A date format and the days it makes of the file's first and last one, as a register writes
  // them, years with all their digits where they are below 100.
  struct Format {
    std::int32_t tag = 0;
    std::string title;
    std::size_t read = 0;
    std::string first;
    std::string last;
    bool fits = false;
    bool has_short_years = false;
  };
  // A text of the file as it reads in an encoding.
  struct Sample {
    std::int32_t encoding = 0;
    std::string name;
    // None where the file is no text in it.
    std::optional<std::string> text;
  };

  // Of the account of the file that is chosen, and of the whole file.
  std::size_t chosen_count = 0;
  std::size_t entry_count = 0;
  std::size_t account_count = 0;
  // Types of the file that the account lacks; they come in even where no entry does.
  std::size_t new_type_count = 0;
  ImportHints::Problem problem = ImportHints::Problem::None;
  std::string first_day;
  std::string last_day;
  std::vector<Row> rows;
  std::size_t dates = 0;
  std::vector<Format> formats;
  // Empty where all encodings read the file in the same way.
  std::vector<Sample> samples;
};

// The rows that a proof shows.
inline constexpr std::size_t kMostProofRows = 4;

// A row of an entry of another kind of file.
[[nodiscard]] QifImportProof::Row ProofRowOf(const LDGRQIFImportEntry& entry,
                                             const TableFormat& format);
// `chosen` is a list of `result`, which was read from `import`.
[[nodiscard]] QifImportProof ProofOf(const QifResult& result, const QifEntryList& chosen,
                                     const QifDateProof& dates, const TableFormat& format);
// `offered` are tags of encodings in the order they are shown; `foreign` the bytes of a text of the
// file.
[[nodiscard]] std::vector<QifImportProof::Sample> SamplesOf(
    const std::string& foreign, const std::vector<std::int32_t>& offered,
    const TextEncodings& encodings);

}  // namespace tallyfold
