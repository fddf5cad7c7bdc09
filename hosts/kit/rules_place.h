// Files of rules on the disk, for hosts without a toolkit: the lock that composers know, reading
// and writing a file whole. Complaints are RulesErrors and begin with the path as it was given.
#pragma once

#include <string>

#include "hosts/kit/rules_text.h"

namespace zolt20::rules {

/// The right to write a file: FILE.lock beside it, in the form of composers. One whose program is
/// gone is taken over.
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

/// All bytes or none: they are written into another file of the same folder, which takes the place
/// and the permissions of the old one when all of it is on the disk; behind links, of the file they
/// lead to. The old file is whole when it throws, and when the program or the machine ends.
void WriteWhole(const std::string& path, const std::string& bytes);

}  // namespace zolt20::rules
