#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file_system.h"
#include "plist/read_report.h"
#include "plist/value.h"
#include "storage/content_mark.h"
#include "storage/save_failure.h"

namespace tallyfold {

// The reason of a file that an upgrade changed while no backup of it was made; a key of the
// localizer.
inline constexpr std::string_view kUpgradedWithoutBackup =
    "The file is of an older form, and no backup of it was made.";

// A file that could not be used in whole when it was read. It stays where it is until the first
// save; then a copy is kept first.
struct FileSetAside {
  std::string path;
  // Where the copy will be, or is.
  std::string kept_path;
  // What was wrong with it, in words for the user.
  std::string reason;
};

// One data file of the program, so written that nothing in it is lost which this program did not
// take in: before a file that was not taken in whole, or that someone else changed since, is
// replaced, a copy of it is kept beside it as "<name>.kept-YYYYMMDD-HHMMSS". Copies of what someone
// else wrote are told in this run and, by the file "<name>.kept", in the next one.
class FileGuard {
 public:
  FileGuard(FileSystem& files, std::string path);

  [[nodiscard]] const std::string& path() const noexcept { return path_; }

  // The file as a property-list dictionary; none when it is missing or holds something else. From
  // here on the file counts as known and, unless it cannot be read, as taken in whole.
  [[nodiscard]] std::optional<plist::Dictionary> Read();
  // What stood in the file when it was read; none when there was none, the empty mark when it could
  // not be read.
  [[nodiscard]] const std::optional<ContentMark>& ContentRead() const noexcept { return content_; }
  // Says that what was read is not all in memory. `reason` is a key of the localizer.
  void NotTakenInWhole(std::string_view reason);
  // The same for what the report says; does nothing for an empty one.
  void NotTakenInWhole(const plist::ReadReport& report);

  // Replaces the file atomically; one that holds the same bytes already stays in its place, so that
  // nothing need be writable for it. `produce` makes the same content each time it is called;
  // `will_replace`, where there is one, hears what a file is about to be put in place with. False
  // when a copy that must be kept cannot be made, or the write fails: the file is as it was, or at
  // worst new but not durable, and Failure() says why.
  using WillReplace = std::function<void(const ContentMark&)>;
  [[nodiscard]] bool Replace(const FileSystem::Producer& produce,
                             const WillReplace& will_replace = nullptr);
  // What the last successful Replace() left in the file.
  [[nodiscard]] const std::optional<ContentMark>& ContentWritten() const noexcept {
    return known_content_;
  }
  // Why the last call of Replace() or KeepCopy() failed; none when it did not.
  [[nodiscard]] const std::optional<SaveFailure>& Failure() const noexcept { return failure_; }

  // Keeps a copy now; none when it cannot be made.
  std::optional<std::string> KeepCopy();

  // What the front ends say at launch; none when the file was missing or taken in whole. Stays for
  // the whole run.
  [[nodiscard]] const std::optional<FileSetAside>& SetAside() const noexcept { return set_aside_; }
  // The copies kept so far, in order.
  [[nodiscard]] const std::vector<std::string>& KeptCopies() const noexcept { return kept_copies_; }
  // Those of them that hold what someone else had written. The front ends say so at once.
  [[nodiscard]] const std::vector<std::string>& CopiesOfOthers() const noexcept {
    return copies_of_others_;
  }
  // Such copies of the run before, for the front ends to say at launch. Stays for the whole run.
  [[nodiscard]] const std::vector<std::string>& EarlierCopiesOfOthers() const noexcept {
    return earlier_copies_of_others_;
  }

 private:
  [[nodiscard]] std::optional<std::string> CopyToFreeName(const std::string& wanted_path);
  [[nodiscard]] bool KeepWhatIsNotOurs();
  [[nodiscard]] bool KeepOther(const FileIdentity& present);
  [[nodiscard]] bool HoldsKnownContent() const;
  // Whether the file is the known one, kept if it must be, and holds just what `produce` makes.
  [[nodiscard]] bool HoldsAlready(const FileSystem::Producer& produce) const;
  [[nodiscard]] WriteReport WriteOnce(const FileSystem::Producer& produce,
                                      const WillReplace& will_replace);
  void SetAsideFor(std::string reason);
  void NoteForNextRun();
  bool Fail(SaveFailure failure);

  FileSystem& files_;
  std::string path_;
  // Of the file whose content is the one in memory, or kept; none when there was no file.
  std::optional<FileIdentity> known_;
  // Of its content; none for one that cannot be read.
  std::optional<ContentMark> known_content_;
  std::optional<ContentMark> content_;
  std::optional<FileSetAside> set_aside_;
  // The file set aside has not been copied yet.
  bool must_keep_ = false;
  std::vector<std::string> kept_copies_;
  std::vector<std::string> copies_of_others_;
  std::vector<std::string> earlier_copies_of_others_;
  // The note holds something else than copies_of_others_.
  bool note_is_old_ = false;
  std::optional<SaveFailure> failure_;
};

}  // namespace tallyfold
