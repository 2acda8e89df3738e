#include "storage/recovery_file.h"

#include <charconv>
#include <utility>

#include "platform/ambient.h"
#include "platform/clock.h"
#include "storage/backup_names.h"
#include "storage/data_paths.h"

namespace tallyfold {
namespace {

// The number is that of the format: a program leaves a log of another one alone.
constexpr std::string_view kMagic = "tallyfold recovery 1\n";
// Of the rest of the header in bytes.
constexpr std::size_t kLongestHeader = 72;
constexpr char kHeader = 'H';
constexpr char kRecord = 'R';
constexpr char kSave = 'S';

// "R 123 0123456789abcdef\n", the payload, and a line end.
std::string Framed(char kind, std::string_view payload) {
  std::string framed(1, kind);
  framed += ' ' + std::to_string(payload.size()) + ' ';
  const ContentMark mark = MarkOf(payload);
  framed += ChecksumText(mark.checksum + static_cast<unsigned char>(kind)) + '\n';
  framed += payload;
  framed += '\n';
  return framed;
}

struct Frame {
  char kind = 0;
  std::string_view payload;
};

// As the first record says that it is, its line end lacking; none where that is not all there.
std::optional<Frame> FirstFrame(std::string_view bytes) {
  const std::size_t end = bytes.substr(0, 64).find('\n');
  if (end == std::string_view::npos || end < 20) return std::nullopt;
  std::size_t length = 0;
  const char* const first = bytes.data() + 2;
  const auto [stop, error] = std::from_chars(first, bytes.data() + end, length);
  const std::string_view rest = bytes.substr(end + 1);
  if (error != std::errc() || rest.size() <= length) return std::nullopt;
  return Frame{bytes[0], rest.substr(0, length)};
}

// Takes the first record off; none when it is not whole.
std::optional<Frame> TakeFrame(std::string_view& bytes) {
  const std::optional<Frame> found = FirstFrame(bytes);
  if (!found) return std::nullopt;
  const Frame& frame = *found;
  // Nothing but the very bytes that were written will do.
  const std::string whole = Framed(frame.kind, frame.payload);
  if (!bytes.starts_with(whole)) return std::nullopt;
  bytes.remove_prefix(whole.size());
  return frame;
}

std::string TextOf(const ContentMark& mark) {
  return std::to_string(mark.length) + ' ' + ChecksumText(mark.checksum);
}

std::optional<ContentMark> MarkOfText(std::string_view text) {
  ContentMark mark;
  const char* const end = text.data() + text.size();
  const auto length = std::from_chars(text.data(), end, mark.length);
  if (length.ec != std::errc() || length.ptr == end) return std::nullopt;
  const auto sum = std::from_chars(length.ptr + 1, end, mark.checksum, 16);
  if (sum.ec != std::errc() || sum.ptr != end) return std::nullopt;
  return mark;
}

constexpr std::string_view kNoFile = "no file";

}  // namespace

RecoveryFile::RecoveryFile(FileSystem& files, const std::string& accounts_file)
    : files_(files), path_(RecoveryFilePath(accounts_file)) {}

std::optional<RecoveryFile::Contents> RecoveryFile::Open() {
  const LockResult result = files_.OpenAppended(path_, AppendedFileStart::Existing, file_);
  taken_by_other_ = result == LockResult::HeldByOther;
  if (result != LockResult::Held) return std::nullopt;
  Contents contents;
  size_ = 0;
  is_torn_ = names_present_ = false;
  const std::optional<FileContents> read = file_->Read();
  if (!read) return contents;
  std::string_view bytes = read->view();
  contents.is_unbegun = kMagic.starts_with(bytes);
  if (!bytes.starts_with(kMagic)) return contents;
  bytes.remove_prefix(kMagic.size());
  const auto header = TakeFrame(bytes);
  contents.is_unbegun = !header && bytes.size() <= kLongestHeader;
  if (!header || header->kind != kHeader) return contents;
  if (header->payload != kNoFile) {
    contents.builds_on = MarkOfText(header->payload);
    if (!contents.builds_on) return contents;
  }
  contents.is_readable = true;
  std::string_view rest = bytes;
  while (const auto frame = TakeFrame(rest)) {
    if (frame->kind != kRecord && frame->kind != kSave) break;
    bytes = rest;
    Contents::Record record;
    record.is_save = frame->kind == kSave;
    if (record.is_save) {
      record.saved = MarkOfText(frame->payload).value_or(ContentMark());
    } else {
      record.payload = frame->payload;
    }
    contents.records.push_back(std::move(record));
  }
  size_ = read->view().size() - bytes.size();
  is_torn_ = !bytes.empty();
  if (const auto torn = FirstFrame(bytes)) {
    const char* const end = torn->payload.data() + torn->payload.size() + 1;
    contents.is_damaged = end != bytes.data() + bytes.size();
  }
  return contents;
}

bool RecoveryFile::Begin(const std::optional<ContentMark>& builds_on) {
  if (files_.OpenAppended(path_, AppendedFileStart::New, file_) != LockResult::Held) return false;
  const std::string header =
      std::string(kMagic) + Framed(kHeader, builds_on ? TextOf(*builds_on) : std::string(kNoFile));
  size_ = 0;
  is_torn_ = names_present_ = false;
  if (file_->Append(header)) {
    size_ = header.size();
    return true;
  }
  if (!file_->Remove()) static_cast<void>(file_->CutTo(0));
  file_.reset();
  return false;
}

bool RecoveryFile::AppendRecord(char kind, std::string_view payload) {
  // Without a header it is not ours to go on with.
  if (size_ == 0 || !CutTorn()) return false;
  const std::string framed = Framed(kind, payload);
  if (file_->Append(framed)) {
    size_ += framed.size();
    return true;
  }
  // Should that fail too, what is there is torn, or was ordered after all.
  static_cast<void>(file_->CutTo(size_));
  file_.reset();
  return false;
}

bool RecoveryFile::Append(std::string_view payload) {
  if (!AppendRecord(kRecord, payload)) return false;
  names_present_ = false;
  return true;
}

bool RecoveryFile::AppendSave(const ContentMark& saved) {
  names_present_ = AppendRecord(kSave, TextOf(saved));
  return names_present_;
}

bool RecoveryFile::CutTorn() {
  if (!file_) return false;
  if (is_torn_ && !file_->CutTo(size_)) return false;
  is_torn_ = false;
  return true;
}

bool RecoveryFile::Remove() {
  if (!file_ || (!file_->Remove() && files_.Exists(path_))) return false;
  file_.reset();
  return true;
}

std::optional<std::string> RecoveryFile::KeepAside() {
  if (!file_) return std::nullopt;
  const std::string folder = ParentFolder(path_);
  const std::string kept =
      folder + '/' + KeptCopyName(files_.List(folder), FileName(path_), CurrentClock().LocalNow());
  const bool is_kept = file_->RenameTo(kept);
  file_.reset();
  if (!is_kept) return std::nullopt;
  return kept;
}

}  // namespace tallyfold
