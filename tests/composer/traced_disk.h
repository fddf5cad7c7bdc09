// What this process does to the files of one folder, as it goes to the system, and the states in
// which a crash may leave the folder.
#pragma once

#include <sys/types.h>

#include <map>
#include <string>
#include <vector>

namespace zolt20::tests {

/// The files of a folder by their names.
using FolderState = std::map<std::string, std::string>;

/// One thing done. A file is known by its inode, since its name may change.
struct DiskStep {
  enum class What { kWrite, kResize, kSync, kName, kRename, kRemove, kSyncFolder };
  What what;
  ino_t file = 0;
  std::string name;  ///< of kName, kRename (the new one) and kRemove
  std::string from;  ///< of kRename
  off_t at = 0;      ///< of kWrite; of kResize the size
  std::string bytes;
};

/// As long as one lives, what is done in the folder is noted.
class TracedDisk {
 public:
  explicit TracedDisk(std::string folder);
  ~TracedDisk();
  TracedDisk(const TracedDisk&) = delete;
  TracedDisk& operator=(const TracedDisk&) = delete;

  static std::vector<DiskStep> Steps();

 private:
  std::string folder_;
};

/// What flushing a file to the disk fails with in this program, 0 for nothing.
extern int flushFails;

/// What is in the folder for certain after so many steps: all that was synced.
FolderState SyncedState(const std::vector<DiskStep>& steps, std::size_t count);
/// All states that may be found after a crash then: each write that was not synced is there, is
/// not, or is there by half; each change of a name is there or not.
std::vector<FolderState> CrashStates(const std::vector<DiskStep>& steps, std::size_t count);

}  // namespace zolt20::tests
