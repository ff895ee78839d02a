#include "formats/file_error.h"

#include <cerrno>
#include <cstring>

namespace quorval {

std::string WordsOf(int error_number) {
  switch (error_number) {
    case ENOSPC:
    case EDQUOT:
      return "the disk is full";
    case EFBIG:
      return "the file is larger than the disk takes";
    case EROFS:
      return "the disk is read-only";
    case EACCES:
    case EPERM:
      return "there is no permission";
    case ENOENT:
      return "there is no such file or folder";
    case ENOTDIR:
      return "the path leads through a file that is no folder";
    case EISDIR:
    case ENOTEMPTY:
      return "a folder has this name";
    case ENAMETOOLONG:
      return "the name is too long";
    case ELOOP:
      return "the link leads in a circle";
    case EMFILE:
    case ENFILE:
      return "too many files are open";
    case EIO:
      return "the disk cannot be read or written";
    default:
      return std::strerror(error_number);
  }
}

}  // namespace quorval
