#include "storage/file_guard.h"

#include <algorithm>
#include <new>
#include <utility>

#include "platform/ambient.h"
#include "platform/message.h"
#include "storage/backup_names.h"
#include "storage/data_paths.h"
#include "storage/told_reading.h"

namespace tallyfold {
namespace {

// What stands for the first thing that was not taken in.
std::string_view SentenceFor(plist::NotTaken what) {
  switch (what) {
    case plist::NotTaken::UnknownKey:
      return "The key \"{1}\" is not known.";
    case plist::NotTaken::RepeatedKey:
      return "The key \"{1}\" stands twice.";
    case plist::NotTaken::WrongKind:
      return "A value of \"{1}\" is of a wrong kind.";
    case plist::NotTaken::Skipped:
      return "Something of \"{1}\" was left out.";
    case plist::NotTaken::OutOfRange:
      return "A value of \"{1}\" is out of its range.";
    case plist::NotTaken::NotUpgraded:
      return "A value of \"{1}\" could not be brought to the present form.";
  }
  return "";
}

// How often a file that changes while it is being replaced is kept, and the write begun again.
constexpr int kMostTries = 5;
// Names tried for a copy in a folder that cannot be listed.
constexpr int kMostNames = 1000;

// Sums up what it passes on, to nowhere where there is no sink.
class SummingSink final : public ByteSink {
 public:
  explicit SummingSink(ByteSink* sink) : sink_(sink) {}
  void Append(std::string_view bytes) override {
    marker_.Add(bytes);
    if (sink_ != nullptr) sink_->Append(bytes);
  }
  [[nodiscard]] ContentMark Mark() const { return marker_.Mark(); }

 private:
  ByteSink* sink_;
  ContentMarker marker_;
};

std::vector<std::string> LinesOf(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    if (end > 0) lines.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

}  // namespace

FileGuard::FileGuard(FileSystem& files, std::string path) : files_(files), path_(std::move(path)) {}

// --- Reading ------------------------------------------------------------------------------------

std::optional<plist::Dictionary> FileGuard::Read() {
  set_aside_.reset();
  must_keep_ = false;
  known_content_.reset();
  if (const auto note = files_.Read(KeptNotePath(path_))) {
    earlier_copies_of_others_ = LinesOf(note->view());
    note_is_old_ = true;
  }
  // Taken before reading: a change during the read then shows as one since.
  known_ = files_.Identity(path_);
  std::optional<FileContents> contents = files_.Read(path_);
  content_.reset();
  if (contents) known_content_ = MarkOf(contents->view());
  if (known_) content_ = known_content_.value_or(ContentMark());
  if (!contents) {
    if (known_) NotTakenInWhole("The file cannot be read.");
    return std::nullopt;
  }
  plist::ReadResult result = ReadTellingProgress(contents->view());
  contents.reset();
  if (!result.ok) {
    SetAsideFor(Message("Line {1}: {2}.",
                        {std::to_string(result.line), Message(result.error, result.details)}));
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
              Message(SentenceFor(report.First()), {report.FirstKey()}));
}

void FileGuard::SetAsideFor(std::string reason) {
  if (set_aside_) return;
  const std::string folder = ParentFolder(path_);
  set_aside_ = FileSetAside{
      path_,
      folder + '/' + KeptCopyName(files_.List(folder), FileName(path_), CurrentClock().LocalNow()),
      std::move(reason)};
  must_keep_ = true;
}

// --- Replacing ----------------------------------------------------------------------------------

bool FileGuard::Replace(const FileSystem::Producer& produce, const WillReplace& will_replace) {
  failure_.reset();
  try {
    for (int tries = 1;; ++tries) {
      if (!KeepWhatIsNotOurs()) return false;
      if (HoldsAlready(produce)) break;
      const WriteReport report = WriteOnce(produce, will_replace);
      if (report) break;
      // What came in between is looked at, and kept, like what came before.
      if (!report.found_another || tries == kMostTries) {
        return Fail(SaveFailureOf(*report.failure));
      }
    }
  } catch (const std::bad_alloc&) {
    return Fail(MemoryFailure());
  }
  NoteForNextRun();
  return true;
}

bool FileGuard::HoldsAlready(const FileSystem::Producer& produce) const {
  if (!known_ || !known_content_) return false;
  SummingSink summing(nullptr);
  produce(summing);
  return summing.Mark() == known_content_;
}

WriteReport FileGuard::WriteOnce(const FileSystem::Producer& produce,
                                 const WillReplace& will_replace) {
  WriteTerms terms;
  if (known_) {
    terms.replaces = WriteTerms::Replaces::Known;
    terms.known = *known_;
    terms.is_known_content = [this](std::string_view content) {
      return known_content_ == MarkOf(content);
    };
  } else {
    terms.replaces = WriteTerms::Replaces::Nothing;
  }
  ContentMark written;
  WriteReport report = files_.WriteAtomically(path_, terms, [&](ByteSink& sink) {
    SummingSink summing(&sink);
    produce(summing);
    written = summing.Mark();
    if (will_replace) will_replace(written);
  });
  if (report.in_place) {
    known_ = report.in_place;
    known_content_ = written;
    must_keep_ = false;
  }
  return report;
}

bool FileGuard::KeepWhatIsNotOurs() {
  const auto present = files_.Identity(path_);
  if (!present) {
    // What was set aside has been taken away by its owner.
    known_.reset();
    must_keep_ = false;
    return true;
  }
  if (present != known_ && !HoldsKnownContent()) return KeepOther(*present);
  known_ = present;
  if (!must_keep_) return true;
  // The place named at launch, unless something has taken it since.
  const auto kept = CopyToFreeName(set_aside_->kept_path);
  if (!kept) {
    failure_->step = LocalizedText("keeping a copy of the file that was not read in whole");
    return false;
  }
  set_aside_->kept_path = *kept;
  must_keep_ = false;
  return true;
}

bool FileGuard::KeepOther(const FileIdentity& present) {
  const auto kept = CopyToFreeName(must_keep_ ? set_aside_->kept_path : "");
  if (!kept) {
    failure_->step = LocalizedText("keeping a copy of the file that someone else changed");
    return false;
  }
  if (must_keep_) set_aside_->kept_path = *kept;
  must_keep_ = false;
  copies_of_others_.push_back(*kept);
  note_is_old_ = true;
  known_ = present;
  const auto content = files_.Read(*kept);
  known_content_.reset();
  if (content) known_content_ = MarkOf(content->view());
  return true;
}

bool FileGuard::HoldsKnownContent() const {
  if (!known_content_) return false;
  const auto contents = files_.Read(path_);
  return contents && known_content_ == MarkOf(contents->view());
}

std::optional<std::string> FileGuard::KeepCopy() {
  failure_.reset();
  return CopyToFreeName("");
}

std::optional<std::string> FileGuard::CopyToFreeName(const std::string& wanted_path) {
  const std::string folder = ParentFolder(path_);
  std::string kept_path = wanted_path;
  std::vector<std::string> names;
  for (int tries = 0;; ++tries) {
    if (kept_path.empty()) {
      if (tries <= 1) {
        const auto listed = files_.List(folder);
        names.insert(names.end(), listed.begin(), listed.end());
      }
      kept_path = folder + '/' + KeptCopyName(names, FileName(path_), CurrentClock().LocalNow());
    }
    const WriteReport report = files_.Copy(path_, kept_path);
    if (report) break;
    if (!report.found_another || tries == kMostNames) {
      Fail(SaveFailureOf(*report.failure));
      return std::nullopt;
    }
    names.push_back(FileName(std::exchange(kept_path, {})));
  }
  kept_copies_.push_back(kept_path);
  return kept_path;
}

// The note is a courtesy: where it cannot be written, the copies are there all the same.
void FileGuard::NoteForNextRun() {
  if (!note_is_old_) return;
  const std::string note = KeptNotePath(path_);
  if (copies_of_others_.empty()) {
    note_is_old_ = !files_.Remove(note);
    return;
  }
  std::string lines;
  for (const std::string& copy : copies_of_others_) lines += copy + '\n';
  note_is_old_ = !files_.WriteAtomically(note, NewFileMode::Private, lines);
}

bool FileGuard::Fail(SaveFailure failure) {
  failure_ = std::move(failure);
  return false;
}

}  // namespace tallyfold
