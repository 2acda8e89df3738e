#include "storage/file_guard.h"

#include <utility>

#include "model/text.h"
#include "platform/ambient.h"
#include "plist/reader.h"
#include "storage/backup_names.h"
#include "storage/data_paths.h"

namespace tallyfold {
namespace {

// What stands for the first thing that was not taken in.
std::string_view SentenceFor(plist::NotTaken what) {
  switch (what) {
    case plist::NotTaken::UnknownKey:
      return "The key \"%@\" is not known.";
    case plist::NotTaken::RepeatedKey:
      return "The key \"%@\" stands twice.";
    case plist::NotTaken::WrongKind:
      return "A value of \"%@\" is of a wrong kind.";
    case plist::NotTaken::Skipped:
      return "Something of \"%@\" was left out.";
    case plist::NotTaken::OutOfRange:
      return "A value of \"%@\" is out of its range.";
    case plist::NotTaken::NotUpgraded:
      return "A value of \"%@\" could not be brought to the present form.";
  }
  return "";
}

}  // namespace

FileGuard::FileGuard(FileSystem& files, std::string path) : files_(files), path_(std::move(path)) {}

std::optional<plist::Dictionary> FileGuard::Read() {
  set_aside_.reset();
  must_keep_ = false;
  // Taken before reading: a change during the read then shows as one since.
  known_ = files_.Identity(path_);
  std::optional<FileContents> contents = files_.Read(path_);
  if (!contents) {
    if (known_) NotTakenInWhole("The file cannot be read.");
    return std::nullopt;
  }
  plist::ReadResult result = plist::Read(contents->view());
  contents.reset();
  if (!result.ok) {
    SetAsideFor(MessageWithText(LocalizedText("Line %@: "), std::to_string(result.line)) +
                LocalizedText(result.error) + '.');
    return std::nullopt;
  }
  if (!result.value.IsDictionary()) {
    NotTakenInWhole("The file does not hold a dictionary.");
    return std::nullopt;
  }
  return result.value.DictionaryValue();
}

void FileGuard::NotTakenInWhole(std::string_view reason) {
  SetAsideFor(LocalizedText(reason));
}

void FileGuard::NotTakenInWhole(const plist::ReadReport& report) {
  if (report.IsEmpty()) return;
  SetAsideFor(LocalizedText("Some of the file is not in the form that Tallyfold writes.") + ' ' +
              MessageWithText(LocalizedText(SentenceFor(report.First())), report.FirstKey()));
}

void FileGuard::SetAsideFor(std::string reason) {
  if (set_aside_) return;
  set_aside_ = FileSetAside{path_, NewKeptPath(), std::move(reason)};
  must_keep_ = true;
}

bool FileGuard::Replace(const FileSystem::Producer& produce) {
  if (!KeepWhatIsNotOurs()) return false;
  if (!files_.WriteAtomically(path_, NewFileMode::Private, produce)) return false;
  known_ = files_.Identity(path_);
  return true;
}

bool FileGuard::KeepWhatIsNotOurs() {
  const auto present = files_.Identity(path_);
  if (!present || (present == known_ && !must_keep_)) return true;
  std::string kept_path = NewKeptPath();
  if (must_keep_) {
    // The place named at launch, unless something has taken it since.
    if (files_.Exists(set_aside_->kept_path)) set_aside_->kept_path = kept_path;
    kept_path = set_aside_->kept_path;
  }
  if (!CopyTo(kept_path)) return false;
  must_keep_ = false;
  known_ = present;
  return true;
}

std::optional<std::string> FileGuard::KeepCopy() {
  std::string kept_path = NewKeptPath();
  if (!CopyTo(kept_path)) return std::nullopt;
  return kept_path;
}

bool FileGuard::CopyTo(const std::string& kept_path) {
  if (!files_.Copy(path_, kept_path)) return false;
  kept_copies_.push_back(kept_path);
  return true;
}

std::string FileGuard::NewKeptPath() const {
  const std::string folder = ParentFolder(path_);
  return folder + '/' +
         KeptCopyName(files_.List(folder), FileName(path_), CurrentClock().LocalNow());
}

}  // namespace tallyfold
