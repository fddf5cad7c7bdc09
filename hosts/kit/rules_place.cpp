#include "hosts/kit/rules_place.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <system_error>

namespace zolt20::rules {
namespace {

[[noreturn]] void Complain(const std::string& path, const std::string& complaint) {
  throw RulesError(path + " " + complaint);
}

std::string Reason() {
  return std::generic_category().message(errno);
}

// The file that the links lead to.
std::string TargetOf(const std::string& path) {
  std::error_code failure;
  const std::filesystem::path target = std::filesystem::weakly_canonical(path, failure);
  return failure ? path : target.string();
}

std::string HostName() {
  std::array<char, 256> name{};
  ::gethostname(name.data(), name.size() - 1);
  return name.data();
}

// Whether the lock is stale: its program has ended. One of another machine may still be running.
bool IsLeft(const std::string& lock) {
  std::ifstream file(lock);
  std::string process;
  std::string program;
  std::string host;
  if (!std::getline(file, process) || !std::getline(file, program) || !std::getline(file, host))
    return false;
  const long number = std::strtol(process.c_str(), nullptr, 10);
  return number > 0 && host == HostName() && ::kill(static_cast<pid_t>(number), 0) != 0 &&
         errno == ESRCH;
}

bool WriteAll(int handle, const std::string& bytes) {
  for (std::size_t done = 0; done < bytes.size();) {
    const ssize_t written = ::write(handle, bytes.data() + done, bytes.size() - done);
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    done += static_cast<std::size_t>(written);
  }
  return true;
}

// Syncs to the disk. File systems without sync fail with EINVAL, which counts as success.
bool ReachesDisk(int handle) {
  return ::fsync(handle) == 0 || errno == EINVAL;
}

void SyncFolderOf(const std::string& target) {
  const std::string folder = std::filesystem::path(target).parent_path().string();
  const int handle = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (handle < 0) return;
  ::fsync(handle);
  ::close(handle);
}

}  // namespace

RulesLock::RulesLock(const std::string& path) : lock_(TargetOf(path) + ".lock") {
  const auto make = [this] {
    handle_ = ::open(lock_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  };
  make();
  if (handle_ < 0 && errno == EEXIST && IsLeft(lock_) && ::unlink(lock_.c_str()) == 0) make();
  if (handle_ < 0 && errno == EEXIST) {
    Complain(path, "is open in a composer, or one left its lock " + lock_ +
                       "; when none has it open, remove the lock");
  }
  if (handle_ < 0) Complain(path, "can't be saved: its lock can't be made: " + Reason());
  ::flock(handle_, LOCK_EX | LOCK_NB);
  WriteAll(handle_, std::to_string(::getpid()) + "\nzolt20-host\n" + HostName() + "\n");
}

RulesLock::~RulesLock() {
  ::unlink(lock_.c_str());
  ::close(handle_);
}

std::string ReadWhole(const std::string& path) {
  std::error_code failure;
  if (std::filesystem::is_directory(path, failure)) Complain(path, "is a folder");
  errno = 0;
  std::ifstream file(path, std::ios::binary);
  if (!file) Complain(path, "can't be read: " + Reason());
  std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  return bytes;
}

void WriteWhole(const std::string& path, const std::string& bytes) {
  const std::string target = TargetOf(path);
  std::string other = target + ".XXXXXX";
  const int handle = ::mkstemp(other.data());
  if (handle < 0) Complain(path, "can't be saved: " + Reason());
  struct stat old {};
  const bool isNew = ::stat(target.c_str(), &old) != 0;
  const bool isSound = (isNew || ::fchmod(handle, old.st_mode & 07777U) == 0) &&
                       WriteAll(handle, bytes) && ReachesDisk(handle);
  const std::string reason = isSound ? std::string() : Reason();
  ::close(handle);
  if (!isSound || ::rename(other.c_str(), target.c_str()) != 0) {
    const std::string why = isSound ? Reason() : reason;
    ::unlink(other.c_str());
    Complain(path, "can't be saved: " + why);
  }
  SyncFolderOf(target);
}

}  // namespace zolt20::rules
