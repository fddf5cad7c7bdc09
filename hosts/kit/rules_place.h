// Files of rules on the disk, for hosts without a toolkit: the lock file that composers know, and
// reading and atomic writing of a file. Errors are RulesErrors that begin with the path as given.
#pragma once

#include <string>

#include "hosts/kit/rules_text.h"

namespace zolt20::rules {

/// The right to write a file: a lock file FILE.lock beside it, in the format of composers. A stale
/// lock, whose program has ended, is taken over.
class RulesLock {
 public:
  /// Throws when the file is open in a composer or another host, and where no lock can be made.
  explicit RulesLock(const std::string& path);
  ~RulesLock();
  RulesLock(const RulesLock&) = delete;
  RulesLock& operator=(const RulesLock&) = delete;

 private:
  std::string lock_;
  int handle_ = -1;
};

std::string ReadWhole(const std::string& path);

/// Writes atomically, all bytes or none: into a temporary file of the same folder, which replaces
/// the old file, with its permissions, once all bytes are on the disk. Links are followed. The old
/// file is intact when this throws, and when the program or the machine stops in it.
void WriteWhole(const std::string& path, const std::string& bytes);

}  // namespace zolt20::rules
