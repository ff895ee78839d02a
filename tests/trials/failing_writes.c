// Preloaded into a program: lets one of the calls fail that put files below a folder on a disk.
//
//   FAIL_UNDER  the folder
//   FAIL_AT     which of the calls, from 1
//   FAIL_WITH   EIO: that call alone.  ENOSPC: the disk is full from there on; a write still puts
//               half of its bytes there first
//   FAIL_LOG    a file that comes into being when a call fails
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <limits.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

#define NEXT(name) ((__typeof__(&name))dlsym(RTLD_NEXT, #name))

static int calls;

static int IsPathOurs(const char* path) {
  const char* folder = getenv("FAIL_UNDER");
  return folder != NULL && strncmp(path, folder, strlen(folder)) == 0;
}

static int IsOurs(int descriptor) {
  char link[64], path[PATH_MAX];
  snprintf(link, sizeof link, "/proc/self/fd/%d", descriptor);
  const ssize_t length = readlink(link, path, sizeof path - 1);
  if (length <= 0) return 0;
  path[length] = '\0';
  return IsPathOurs(path);
}

enum Turn { kGoOn, kFail, kFailHalfway };

// What becomes of the next call; errno is set where it fails.
static enum Turn NextTurn(void) {
  const int at = atoi(getenv("FAIL_AT"));
  const int full = strcmp(getenv("FAIL_WITH"), "ENOSPC") == 0;
  const int call = __atomic_add_fetch(&calls, 1, __ATOMIC_SEQ_CST);
  if (call < at || (call > at && !full)) return kGoOn;
  syscall(SYS_close, syscall(SYS_openat, AT_FDCWD, getenv("FAIL_LOG"), O_CREAT | O_WRONLY, 0600));
  errno = full ? ENOSPC : EIO;
  return full && call == at ? kFailHalfway : kFail;
}

#define FAIL_IF(ours, failure) \
  if ((ours) && NextTurn() != kGoOn) return failure

#define WRITE(name, ...)                                                     \
  if (IsOurs(descriptor)) {                                                  \
    const enum Turn turn = NextTurn();                                       \
    if (turn == kFail || (turn == kFailHalfway && count < 2)) return -1;     \
    if (turn == kFailHalfway) count /= 2;                                    \
  }                                                                          \
  return NEXT(name)(descriptor, bytes, count, ##__VA_ARGS__)

ssize_t write(int descriptor, const void* bytes, size_t count) { WRITE(write); }
ssize_t pwrite(int descriptor, const void* bytes, size_t count, off_t at) { WRITE(pwrite, at); }
ssize_t pwrite64(int descriptor, const void* bytes, size_t count, off64_t at) {
  WRITE(pwrite64, at);
}
ssize_t writev(int descriptor, const struct iovec* parts, int count) {
  FAIL_IF(IsOurs(descriptor), -1);
  return NEXT(writev)(descriptor, parts, count);
}
int fsync(int descriptor) {
  FAIL_IF(IsOurs(descriptor), -1);
  return NEXT(fsync)(descriptor);
}
int fdatasync(int descriptor) {
  FAIL_IF(IsOurs(descriptor), -1);
  return NEXT(fdatasync)(descriptor);
}
int ftruncate(int descriptor, off_t length) {
  FAIL_IF(IsOurs(descriptor), -1);
  return NEXT(ftruncate)(descriptor, length);
}
int ftruncate64(int descriptor, off64_t length) {
  FAIL_IF(IsOurs(descriptor), -1);
  return NEXT(ftruncate64)(descriptor, length);
}
int fchmod(int descriptor, mode_t mode) {
  FAIL_IF(IsOurs(descriptor), -1);
  return NEXT(fchmod)(descriptor, mode);
}
int rename(const char* from, const char* to) {
  FAIL_IF(IsPathOurs(to), -1);
  return NEXT(rename)(from, to);
}

#define OPEN(name)                                                           \
  int name(const char* path, int flags, ...) {                               \
    va_list more;                                                            \
    va_start(more, flags);                                                   \
    const mode_t mode = (flags & (O_CREAT | __O_TMPFILE)) ? va_arg(more, mode_t) : 0; \
    va_end(more);                                                            \
    FAIL_IF((flags & O_CREAT) && IsPathOurs(path), -1);                      \
    return NEXT(name)(path, flags, mode);                                    \
  }
OPEN(open)
OPEN(open64)
