#include "formats/replaced_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <random>
#include <string>
#include <system_error>

#include "formats/file_error.h"

namespace quorval {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void Throw() { throw FileError(WordsOf(errno)); }

// The file that is there, if any, may be replaced by this user.  The superuser may write any file,
// but one without a single right to be written was protected by somebody.
std::optional<mode_t> PermissionsOf(const fs::path& target) {
  constexpr mode_t kAnyWrites = 0222, kPermissions = 0777;
  struct stat old {};
  if (stat(target.c_str(), &old) != 0) {
    if (errno != ENOENT) Throw();
    return std::nullopt;
  }
  if (S_ISDIR(old.st_mode)) throw FileError("it is a folder");
  if (!S_ISREG(old.st_mode)) throw FileError("it is no file but a pipe or a device");
  if ((old.st_mode & kAnyWrites) == 0 || faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0)
    throw FileError("the file is read-only");
  return old.st_mode & kPermissions;
}

// Where the links lead, also when nothing is there.
fs::path Resolved(fs::path target) {
  constexpr int kMostLinks = 40;  // as the kernel counts
  std::error_code error;
  for (int links = 0; fs::is_symlink(fs::symlink_status(target, error)); ++links) {
    const fs::path next = fs::read_symlink(target, error);
    if (error || links == kMostLinks) throw FileError(WordsOf(ELOOP));
    target = target.parent_path() / next;
  }
  if (target.filename().empty()) throw FileError("the file has no name");
  target = fs::absolute(target, error);
  if (error) throw FileError(error.message());
  return target;
}

// What the names of files beside the target begin with.  They are short wherever its own name is as
// long as a name can be, and end with a whole letter of UTF-8.
std::string PrefixOf(const fs::path& target) {
  std::size_t length = 100;  // bytes
  std::string name = target.filename().string();
  while (length > 0 && length < name.size() && (name[length] & 0xC0) == 0x80) --length;
  if (length < name.size()) name.resize(length);
  return "." + name + ".new-";
}

std::string RandomLetters() {
  std::random_device random;
  std::string letters;
  for (int i = 0; i < 6; ++i) letters += static_cast<char>('a' + random() % 26);
  return letters;
}

// The files of crashed saves: nobody holds their lock any more.
void ClearAway(const fs::path& target) {
  const std::string prefix = PrefixOf(target);
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(target.parent_path(), error)) {
    if (!entry.path().filename().string().starts_with(prefix)) continue;
    const int descriptor =
        open(entry.path().c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (descriptor < 0) continue;
    if (flock(descriptor, LOCK_EX | LOCK_NB) == 0) unlink(entry.path().c_str());
    close(descriptor);
  }
}

// Whether the file is locked by us and still has its name: another saver that clears away may have
// come between its making and its locking.
bool IsKept(int descriptor) {
  struct stat made {};
  const bool taken = flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
  return !taken && fstat(descriptor, &made) == 0 && made.st_nlink > 0;
}

// The owner and the group of the file that is replaced, as far as this user may give them.
void KeepOwner(int descriptor, const fs::path& target) {
  struct stat old {
  }, made{};
  if (stat(target.c_str(), &old) != 0 || fstat(descriptor, &made) != 0) return;
  if (old.st_uid == made.st_uid && old.st_gid == made.st_gid) return;
  if (fchown(descriptor, old.st_uid, old.st_gid) == 0) return;
  [[maybe_unused]] const int group_at_least =
      fchown(descriptor, static_cast<uid_t>(-1), old.st_gid);
}

// The new name, too, must be on the disk.
void SyncFolder(const fs::path& folder) {
  const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;  // a folder that may be written and not read
  const bool synced = fsync(descriptor) == 0 || errno == EINVAL;  // EINVAL: there is no such thing
  const int error = errno;
  close(descriptor);
  if (!synced)
    throw FileError("the file is written, but may not outlast a power failure: " + WordsOf(error));
}

}  // namespace

ReplacedFile::ReplacedFile(const fs::path& target) : permissions_(PermissionsOf(target)) {
  target_ = Resolved(target);
  ClearAway(target_);
  // What replaces a file is nobody else's to read until it has that file's permissions.
  Create(permissions_ ? 0600 : 0666);
}

void ReplacedFile::Create(mode_t mode) {
  constexpr int kMostTries = 1000;
  for (int tries = 0; tries < kMostTries; ++tries) {
    path_ = target_.parent_path() / (PrefixOf(target_) + RandomLetters());
    descriptor_ = open(path_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (descriptor_ >= 0 && IsKept(descriptor_)) return;
    if (descriptor_ < 0 && errno != EEXIST) Throw();
    if (descriptor_ >= 0) close(descriptor_);
  }
  throw FileError("the folder is in too much use");
}

ReplacedFile::~ReplacedFile() {
  if (!committed_) unlink(path_.c_str());
  close(descriptor_);
}

void ReplacedFile::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = write(descriptor_, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) Throw();
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

void ReplacedFile::Commit() {
  if (permissions_) {
    KeepOwner(descriptor_, target_);
    if (fchmod(descriptor_, *permissions_) != 0) Throw();
  }
  if (fsync(descriptor_) != 0 || rename(path_.c_str(), target_.c_str()) != 0) Throw();
  committed_ = true;
  SyncFolder(target_.parent_path());
}

void ReplaceFile(const fs::path& target, std::string_view bytes) {
  ReplacedFile file(target);
  file.Write(bytes);
  file.Commit();
}

}  // namespace quorval
