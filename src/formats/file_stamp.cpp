#include "formats/file_stamp.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <system_error>

#include "formats/file_error.h"

namespace quorval {
namespace {

namespace fs = std::filesystem;

constexpr int kMostCopies = 10000;

// Where a file system has no second names, as on many memory sticks.  0 or an errno.
int Copy(const fs::path& file, const fs::path& to) {
  std::error_code error;
  if (!fs::copy_file(file, to, fs::copy_options::none, error)) return error.value();
  const int descriptor = open(to.c_str(), O_RDONLY | O_CLOEXEC);
  const bool done = descriptor >= 0 && fsync(descriptor) == 0;
  const int why = errno;
  if (descriptor >= 0) close(descriptor);
  if (!done) unlink(to.c_str());
  return done ? 0 : why;
}

// Another user's file under a second name may be past taking away again, as in /tmp.
bool IsOurs(const fs::path& file) {
  struct stat state {};
  return stat(file.c_str(), &state) == 0 && (geteuid() == 0 || state.st_uid == geteuid());
}

// 0 or an errno; EEXIST where the name is taken.
int NameAnew(const fs::path& file, const fs::path& to) {
  if (!IsOurs(file)) return Copy(file, to);
  if (link(file.c_str(), to.c_str()) == 0) return 0;
  const bool no_links = errno == EPERM || errno == EOPNOTSUPP || errno == ENOSYS || errno == EMLINK;
  return no_links ? Copy(file, to) : errno;
}

}  // namespace

std::optional<FileStamp> StampOf(const fs::path& path) {
  struct stat state {};
  if (stat(path.c_str(), &state) != 0 || !S_ISREG(state.st_mode)) return std::nullopt;
  return FileStamp{.device = state.st_dev,
                   .inode = state.st_ino,
                   .size = state.st_size,
                   .seconds = state.st_mtim.tv_sec,
                   .nanoseconds = state.st_mtim.tv_nsec};
}

KeptCopy::KeptCopy(const fs::path& file) {
  std::error_code error;
  const fs::path real = fs::canonical(file, error);
  if (error) throw FileError(WordsOf(error.value()));
  for (int copy = 1; copy <= kMostCopies; ++copy) {
    const fs::path name = real.string() + "~" + (copy == 1 ? "" : std::to_string(copy));
    const int failure = NameAnew(real, name);
    if (failure == 0) {
      path_ = name;
      return;
    }
    if (failure != EEXIST)
      throw FileError("the file that stands there cannot be kept: " + WordsOf(failure));
  }
  throw FileError("the file that stands there cannot be kept: there are too many copies");
}

KeptCopy::~KeptCopy() {
  if (!kept_) unlink(path_.c_str());
}

}  // namespace quorval
