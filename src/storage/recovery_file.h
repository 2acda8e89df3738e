#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/appended_file.h"
#include "platform/file_system.h"
#include "storage/content_mark.h"

namespace tallyfold {

// The recovery log beside the accounts file, "Accounts.plist.recovery": a header that says on which
// content of the accounts file it builds, then records one after the other, each with its length
// and checksum. What the records say is the ledger's business; here is how they are kept.
//
// While an object holds the file, no other running copy does.
class RecoveryFile {
 public:
  // What stood in the file when it was opened.
  struct Contents {
    // The file is of a form that this program knows.
    bool is_readable = false;
    // Not even the header was written whole, so that nothing can have followed it.
    bool is_unbegun = false;
    // More follows what is not whole than an interrupted append leaves: not only the end is lost.
    bool is_damaged = false;
    // The content on which the first records build; none: there was no accounts file.
    std::optional<ContentMark> builds_on;
    struct Record {
      // Whether it says that from here on the accounts file holds all that came before.
      bool is_save = false;
      ContentMark saved;
      std::string payload;
    };
    // Up to the first torn one.
    std::vector<Record> records;
  };

  RecoveryFile(FileSystem& files, const std::string& accounts_file);

  [[nodiscard]] const std::string& path() const noexcept { return path_; }
  [[nodiscard]] bool IsOpen() const noexcept { return file_ != nullptr; }
  // The open file is still the one of that name: nobody has removed or replaced it.
  [[nodiscard]] bool IsInPlace() const noexcept { return file_ != nullptr && file_->IsInPlace(); }
  // In bytes, of what is whole.
  [[nodiscard]] std::uint64_t size() const noexcept { return size_; }
  // A record says that the accounts file holds what came before it.
  [[nodiscard]] bool NamesPresentContent() const noexcept { return names_present_; }

  // Opens the file that is there and reads it; none when there is none, or it cannot be had, as
  // when another running copy has it: TakenByOther() tells.
  [[nodiscard]] std::optional<Contents> Open();
  [[nodiscard]] bool TakenByOther() const noexcept { return taken_by_other_; }
  // Makes the file anew, private, with a header. The folder must exist.
  [[nodiscard]] bool Begin(const std::optional<ContentMark>& builds_on);
  // Append a record, durably. False leaves the file as it was if it can be cut back, and closed.
  [[nodiscard]] bool Append(std::string_view payload);
  [[nodiscard]] bool AppendSave(const ContentMark& saved);
  // Cuts off what follows the last whole record, if anything does; appending does so first. False
  // also when no file is open.
  [[nodiscard]] bool CutTorn();
  // Removes the file and closes it; one that is gone already is only closed. False leaves it open,
  // as it was.
  [[nodiscard]] bool Remove();
  // Renames it to "<name>.kept-YYYYMMDD-HHMMSS", which comes back, and closes it; none when that
  // cannot be done: then it is closed where it is.
  [[nodiscard]] std::optional<std::string> KeepAside();
  void Close() noexcept { file_.reset(); }

  // How many bytes a record with that payload takes.
  [[nodiscard]] static std::size_t SizeOfRecord(std::string_view payload) noexcept {
    return payload.size() + kMostFrame;
  }

 private:
  static constexpr std::size_t kMostFrame = 48;

  [[nodiscard]] bool AppendRecord(char kind, std::string_view payload);

  FileSystem& files_;
  std::string path_;
  std::unique_ptr<AppendedFile> file_;
  std::uint64_t size_ = 0;
  bool is_torn_ = false;
  bool names_present_ = false;
  bool taken_by_other_ = false;
};

}  // namespace tallyfold
