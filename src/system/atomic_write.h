#pragma once

#include <sys/types.h>

#include <functional>
#include <optional>
#include <string>

#include "platform/file_system.h"

namespace tallyfold {

// The system calls that an atomic write consists of, each with the result and errno of the call it
// makes. A class of its own so that a test can make any of them fail.
class FileCalls {
 public:
  virtual ~FileCalls() = default;
  virtual int OpenFolder(const std::string& path);
  virtual int CreateFile(int folder, const std::string& name, mode_t mode);
  virtual int ChangeOwner(int file, uid_t user, gid_t group);
  virtual int ChangeMode(int file, mode_t mode);
  virtual ssize_t Write(int file, const char* bytes, size_t size);
  virtual int Sync(int file_or_folder);
  virtual int Close(int file_or_folder);
  // `flags` are those of renameat2.
  virtual int Rename(int folder, const std::string& from, const std::string& to, unsigned flags);
  virtual int Link(int folder, const std::string& from, const std::string& to);
  virtual int Remove(int folder, const std::string& name);
};

// As FileSystem::WriteAtomically says, but that a file which is not there yet gets `new_mode`
// exactly, or what the process's file mode mask leaves when there is none. `produce` gives up the
// write by returning false, with errno set.
WriteReport WriteFileAtomically(FileCalls& calls, const std::string& path, const WriteTerms& terms,
                                std::optional<mode_t> new_mode,
                                const std::function<bool(ByteSink&)>& produce);

}  // namespace tallyfold
