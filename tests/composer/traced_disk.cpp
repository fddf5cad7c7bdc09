#include "tests/composer/traced_disk.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdint>
#include <functional>
#include <mutex>
#include <set>

namespace zolt20::tests {

int flushFails = 0;

namespace {

std::mutex mutex;
std::string traced;  // the folder; "" for none
std::vector<DiskStep> noted;
std::vector<int> held;  // a handle of each file, so that no other one gets its inode

void Hold(const char* path) {
  const auto handle = static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, O_PATH | O_CLOEXEC));
  if (handle < 0) return;
  const std::lock_guard lock(mutex);
  held.push_back(handle);
}
void Note(DiskStep step) {
  const std::lock_guard lock(mutex);
  noted.push_back(std::move(step));
}
bool IsOn() {
  const std::lock_guard lock(mutex);
  return !traced.empty();
}
// The name of a path within the folder; "" for another one, and for locks.
std::string NameOf(const char* path) {
  const std::lock_guard lock(mutex);
  const std::string whole = path;
  if (traced.empty() || whole.rfind(traced + "/", 0) != 0) return {};
  const std::string name = whole.substr(traced.size() + 1);
  const bool isLock = name.find(".lock") != std::string::npos;
  return isLock || name.find('/') != std::string::npos ? std::string() : name;
}
std::string PathOf(int handle) {
  char path[4096];
  const ssize_t length =
      readlink(("/proc/self/fd/" + std::to_string(handle)).c_str(), path, sizeof path - 1);
  return length < 0 ? std::string() : std::string(path, static_cast<std::size_t>(length));
}
ino_t InodeOf(int handle) {
  struct stat found {};
  return fstat(handle, &found) == 0 ? found.st_ino : 0;
}
ino_t InodeOf(const char* path) {
  struct stat found {};
  return stat(path, &found) == 0 ? found.st_ino : 0;
}
bool IsFileOfFolder(int handle) {
  return IsOn() && !NameOf(PathOf(handle).c_str()).empty();
}

}  // namespace

// Called in place of the system's own functions by all of this program.
extern "C" {

ssize_t write(int handle, const void* bytes, size_t size) {
  const bool isOurs = handle > 2 && IsFileOfFolder(handle);
  const off_t at = isOurs ? lseek(handle, 0, SEEK_CUR) : 0;
  const ssize_t written = syscall(SYS_write, handle, bytes, size);
  if (isOurs && written > 0) {
    Note({DiskStep::What::kWrite,
          InodeOf(handle),
          {},
          {},
          at,
          std::string(static_cast<const char*>(bytes), static_cast<std::size_t>(written))});
  }
  return written;
}

int ftruncate64(int handle, off64_t size) noexcept {
  const int result = static_cast<int>(syscall(SYS_ftruncate, handle, size));
  if (result == 0 && IsFileOfFolder(handle))
    Note({DiskStep::What::kResize, InodeOf(handle), {}, {}, size, {}});
  return result;
}
int ftruncate(int handle, off_t size) noexcept {
  return ftruncate64(handle, size);
}

int fsync(int handle) {
  if (flushFails != 0) {
    errno = flushFails;
    return -1;
  }
  const int result = static_cast<int>(syscall(SYS_fsync, handle));
  if (result != 0 || !IsOn()) return result;
  const std::string path = PathOf(handle);
  bool isFolder = false;
  {
    const std::lock_guard lock(mutex);
    isFolder = path == traced;
  }
  if (isFolder) Note({DiskStep::What::kSyncFolder, 0, {}, {}, 0, {}});
  if (!NameOf(path.c_str()).empty()) Note({DiskStep::What::kSync, InodeOf(handle), {}, {}, 0, {}});
  return result;
}
int fdatasync(int handle) {
  return fsync(handle);
}

static int Open(int folder, const char* path, int flags, mode_t mode) {
  const bool isNew = (flags & O_CREAT) != 0 && IsOn() && InodeOf(path) == 0;
  const int handle = static_cast<int>(syscall(SYS_openat, folder, path, flags, mode));
  if (handle >= 0 && isNew && !NameOf(path).empty()) {
    Note({DiskStep::What::kName, InodeOf(handle), NameOf(path), {}, 0, {}});
    Hold(path);
  }
  return handle;
}
static mode_t ModeOf(va_list& arguments, int flags) {
  return (flags & (O_CREAT | O_TMPFILE)) != 0 ? static_cast<mode_t>(va_arg(arguments, unsigned))
                                              : 0;
}
int open64(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = ModeOf(arguments, flags);
  va_end(arguments);
  return Open(AT_FDCWD, path, flags, mode);
}
int open(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = ModeOf(arguments, flags);
  va_end(arguments);
  return Open(AT_FDCWD, path, flags, mode);
}

static void NoteRename(const char* from, const char* to, ino_t file) {
  if (!NameOf(to).empty()) Note({DiskStep::What::kRename, file, NameOf(to), NameOf(from), 0, {}});
}
int rename(const char* from, const char* to) noexcept {
  const ino_t file = IsOn() ? InodeOf(from) : 0;
  const int result = static_cast<int>(syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
  if (result == 0 && file != 0) NoteRename(from, to, file);
  return result;
}
int renameat2(int fromFolder, const char* from, int toFolder, const char* to,
              unsigned flags) noexcept {
  const ino_t file = IsOn() ? InodeOf(from) : 0;
  const int result =
      static_cast<int>(syscall(SYS_renameat2, fromFolder, from, toFolder, to, flags));
  if (result == 0 && file != 0) NoteRename(from, to, file);
  return result;
}
int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
  const ino_t file = IsOn() ? InodeOf(from) : 0;
  const int result = static_cast<int>(syscall(SYS_linkat, fromFolder, from, toFolder, to, flags));
  if (result == 0 && file != 0 && !NameOf(to).empty()) {
    Note({DiskStep::What::kName, file, NameOf(to), {}, 0, {}});
    Hold(to);
  }
  return result;
}
int unlink(const char* path) noexcept {
  const int result = static_cast<int>(syscall(SYS_unlinkat, AT_FDCWD, path, 0));
  if (result == 0 && IsOn() && !NameOf(path).empty())
    Note({DiskStep::What::kRemove, 0, NameOf(path), {}, 0, {}});
  return result;
}
}

TracedDisk::TracedDisk(std::string folder) {
  const std::lock_guard lock(mutex);
  traced = folder_ = std::move(folder);
  noted.clear();
}
TracedDisk::~TracedDisk() {
  const std::lock_guard lock(mutex);
  traced.clear();
  for (const int handle : held)
    close(handle);
  held.clear();
}
std::vector<DiskStep> TracedDisk::Steps() {
  const std::lock_guard lock(mutex);
  return noted;
}

// States.

namespace {

using What = DiskStep::What;

bool IsOfName(const DiskStep& step) {
  return step.what == What::kName || step.what == What::kRename || step.what == What::kRemove;
}
bool IsOfContent(const DiskStep& step) {
  return step.what == What::kWrite || step.what == What::kResize;
}

// How much of a step reached the disk.
enum class Part { kNone, kHalf, kAll };

FolderState StateOf(const std::vector<DiskStep>& steps, const std::vector<Part>& parts) {
  std::map<ino_t, std::string> contents;
  std::map<std::string, ino_t> names;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (parts[i] == Part::kNone) continue;
    const DiskStep& step = steps[i];
    std::string& content = contents[step.file];
    if (step.what == What::kWrite) {
      const std::size_t size = parts[i] == Part::kHalf ? step.bytes.size() / 2 : step.bytes.size();
      const auto at = static_cast<std::size_t>(step.at);
      if (content.size() < at + size) content.resize(at + size, '\0');
      content.replace(at, size, step.bytes, 0, size);
    } else if (step.what == What::kResize) {
      content.resize(static_cast<std::size_t>(step.at), '\0');
    } else if (step.what == What::kRemove) {
      names.erase(step.name);
    } else if (IsOfName(step)) {
      names.erase(step.from);
      names[step.name] = step.file;
    }
  }
  FolderState state;
  for (const auto& [name, file] : names)
    state[name] = contents[file];
  return state;
}

// All that is synced is there; the others are open.
std::vector<Part> SyncedParts(const std::vector<DiskStep>& steps, std::size_t count) {
  std::vector<Part> parts(count, Part::kNone);
  for (std::size_t i = 0; i < count; ++i) {
    for (std::size_t sync = i + 1; sync < count && parts[i] == Part::kNone; ++sync) {
      const bool isSynced = (IsOfContent(steps[i]) && steps[sync].what == What::kSync &&
                             steps[sync].file == steps[i].file) ||
                            (IsOfName(steps[i]) && steps[sync].what == What::kSyncFolder);
      if (isSynced) parts[i] = Part::kAll;
    }
  }
  return parts;
}

}  // namespace

FolderState SyncedState(const std::vector<DiskStep>& steps, std::size_t count) {
  return StateOf(steps, SyncedParts(steps, count));
}

std::vector<FolderState> CrashStates(const std::vector<DiskStep>& steps, std::size_t count) {
  std::vector<Part> parts = SyncedParts(steps, count);
  std::vector<std::size_t> open;
  for (std::size_t i = 0; i < count; ++i) {
    if (parts[i] == Part::kNone && (IsOfName(steps[i]) || IsOfContent(steps[i]))) open.push_back(i);
  }
  std::set<FolderState> states;
  const std::function<void(std::size_t)> choose = [&](std::size_t next) {
    if (next == open.size()) {
      states.insert(StateOf(steps, parts));
      return;
    }
    for (const Part part : {Part::kNone, Part::kHalf, Part::kAll}) {
      if (part == Part::kHalf && steps[open[next]].what != What::kWrite) continue;
      parts[open[next]] = part;
      choose(next + 1);
    }
  };
  constexpr std::size_t kMostOpen = 9;
  // The oldest of very many are taken as being there.
  while (open.size() > kMostOpen) {
    parts[open.front()] = Part::kAll;
    open.erase(open.begin());
  }
  choose(0);
  return {states.begin(), states.end()};
}

}  // namespace zolt20::tests
