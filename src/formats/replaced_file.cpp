#include "formats/replaced_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <system_error>

#include "formats/file_error.h"

namespace quorval {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void Throw() { throw FileError(WordsOf(errno)); }

// A link stays a link: what it points to is replaced.
fs::path Resolved(const fs::path& target) {
  if (target.filename().empty()) throw FileError("the file has no name");
  std::error_code error;
  const fs::path real = fs::canonical(target, error);
  return error ? fs::absolute(target) : real;
}

std::string PrefixOf(const fs::path& target) { return "." + target.filename().string() + ".new-"; }

// The files of crashed saves: nobody holds their lock any more.
void ClearAway(const fs::path& target) {
  const std::string prefix = PrefixOf(target);
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(target.parent_path(), error)) {
    if (!entry.path().filename().string().starts_with(prefix)) continue;
    const int descriptor = open(entry.path().c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
    if (descriptor < 0) continue;
    if (flock(descriptor, LOCK_EX | LOCK_NB) == 0) unlink(entry.path().c_str());
    close(descriptor);
  }
}

// Those of the file that is replaced, or those of any new file.
mode_t PermissionsOf(const fs::path& target) {
  struct stat old {};
  if (stat(target.c_str(), &old) == 0) return old.st_mode & 0777;
  const mode_t mask = umask(0);
  umask(mask);
  return 0666 & ~mask;
}

void SyncFolder(const fs::path& folder) {
  const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  fsync(descriptor);
  close(descriptor);
}

}  // namespace

ReplacedFile::ReplacedFile(const fs::path& target) : target_(Resolved(target)) {
  ClearAway(target_);
  std::string name = (target_.parent_path() / (PrefixOf(target_) + "XXXXXX")).string();
  descriptor_ = mkostemp(name.data(), O_CLOEXEC);
  if (descriptor_ < 0) Throw();
  path_ = name;
  flock(descriptor_, LOCK_EX | LOCK_NB);
}

ReplacedFile::~ReplacedFile() {
  if (!committed_) unlink(path_.c_str());
  close(descriptor_);
}

void ReplacedFile::Commit() {
  if (fchmod(descriptor_, PermissionsOf(target_)) != 0 || fsync(descriptor_) != 0 ||
      rename(path_.c_str(), target_.c_str()) != 0)
    Throw();
  committed_ = true;
  SyncFolder(target_.parent_path());
}

}  // namespace quorval
