#include "formats/budget.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <system_error>

#include "formats/file_error.h"

namespace quorval {
namespace {

namespace fs = std::filesystem;

std::uint64_t SizeOf(const fs::path& path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (!fs::exists(status)) throw FileError(std::strerror(error ? error.value() : ENOENT));
  if (!fs::is_regular_file(status)) throw FileError("it is a folder, a pipe or a device, no file");
  const std::uintmax_t size = fs::file_size(path, error);
  if (error) throw FileError(error.message());
  return size;
}

// In proportion to the file's size where that is not small.
std::uint64_t Grown(std::uint64_t amount, std::uint64_t file_size, std::uint64_t most) {
  if (file_size <= limits::kSmallFile) return amount;
  return std::min(most, file_size / 1000 * amount / (limits::kSmallFile / 1000));
}

}  // namespace

void Allowance::Refuse() const {
  throw FileError("the file holds more than " + std::to_string(most_) + std::string(what_));
}

Budget::Budget(std::uint64_t file_size)
    : packed(file_size, " bytes in its parts, which is all it has"),
      unpacked(Grown(limits::kUnpacked, file_size, limits::kMostUnpacked),
               " bytes once it is unpacked, too many for its size"),
      text(Grown(limits::kText, file_size, limits::kMostText),
           " bytes of text in its cells, too many for its size") {}

Budget::Budget(const fs::path& path) : Budget(SizeOf(path)) {}

void RefuseLongText() { throw FileError("the file holds a text of more than 1 MiB"); }

}  // namespace quorval
