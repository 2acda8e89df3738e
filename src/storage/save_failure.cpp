#include "storage/save_failure.h"

#include "platform/ambient.h"

namespace tallyfold {

namespace {

const char* StepKey(FileStep step) {
  switch (step) {
    case FileStep::OpenFolder:
      return "opening the folder";
    case FileStep::LookAtFile:
      return "looking at the old file";
    case FileStep::ReadSource:
      return "reading the old file";
    case FileStep::MakeFile:
      return "making the new file";
    case FileStep::SetPermission:
      return "setting the permission of the new file";
    case FileStep::Write:
      return "writing the new file";
    case FileStep::Sync:
      return "bringing the new file to the disk";
    case FileStep::PutInPlace:
      return "putting the new file in its place";
    case FileStep::SyncFolder:
      return "bringing the folder to the disk";
  }
  return "";
}

}  // namespace

SaveFailure SaveFailureOf(const FileFailure& failure) {
  return {LocalizedText(StepKey(failure.step)), failure.reason};
}

SaveFailure MemoryFailure() {
  return {LocalizedText(StepKey(FileStep::Write)), LocalizedText("there is no memory left")};
}

SaveFailure FolderFailure(bool a_file_stands_there) {
  return {LocalizedText(StepKey(FileStep::OpenFolder)),
          LocalizedText(a_file_stands_there ? "a file stands in its place" : "it does not exist")};
}

}  // namespace tallyfold
