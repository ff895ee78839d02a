// Feeds XML to one reader of workbooks, in a zip archive that is in order: a change of any byte of
// an archive would only fail its check sums.  The input is the texts of the parts in PARTS, one
// behind the other, with a line of "====" between them; READER and EXTENSION as in reader_fuzz.cpp.
#include <zlib.h>

#include <cstdint>
#include <vector>

#include "formats/file_error.h"
#include "formats/ods.h"
#include "formats/xlsx.h"
#include "fuzzed_file.h"

namespace quorval::fuzz {
namespace {

constexpr std::string_view kBetween = "\n====\n";
constexpr std::string_view kParts[] = {PARTS};

// Little-endian.
void Append(std::string& bytes, std::size_t number, int count) {
  for (; count > 0; --count, number >>= 8) bytes += static_cast<char>(number & 0xFF);
}

// What the head of a part and its line in the directory have in common; nothing is packed.
std::string AboutPart(std::string_view name, std::string_view text) {
  constexpr std::size_t kVersion = 20;
  std::string about;
  Append(about, kVersion, 2);
  Append(about, 0, 8);  // flags, method, time
  Append(about,
         crc32(0, reinterpret_cast<const Bytef*>(text.data()), static_cast<uInt>(text.size())), 4);
  Append(about, text.size(), 4);
  Append(about, text.size(), 4);
  Append(about, name.size(), 2);
  Append(about, 0, 2);
  return about;
}

class Archive {
 public:
  void Add(std::string_view name, std::string_view text) {
    const std::string about = AboutPart(name, text);
    directory_ += "PK\x01\x02";
    Append(directory_, 0, 2);
    directory_ += about;
    Append(directory_, 0, 10);
    Append(directory_, parts_.size(), 4);
    directory_ += name;
    parts_.append("PK\x03\x04").append(about).append(name).append(text);
    ++count_;
  }
  std::string Bytes() const {
    std::string bytes = parts_ + directory_ + "PK\x05\x06";
    Append(bytes, 0, 4);
    Append(bytes, count_, 2);
    Append(bytes, count_, 2);
    Append(bytes, directory_.size(), 4);
    Append(bytes, parts_.size(), 4);
    Append(bytes, 0, 2);
    return bytes;
  }

 private:
  std::string parts_, directory_;
  std::size_t count_ = 0;
};

std::string Workbook(std::string_view input) {
  Archive archive;
  for (std::string_view part : kParts) {
    const std::size_t end = input.find(kBetween);
    archive.Add(part, input.substr(0, end));
    input = end == input.npos ? "" : input.substr(end + kBetween.size());
  }
  return archive.Bytes();
}

}  // namespace
}  // namespace quorval::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quorval;
  static const std::filesystem::path path = fuzz::PathOf(EXTENSION);
  fuzz::WriteBytes(path, fuzz::Workbook({reinterpret_cast<const char*>(data), size}));
  try {
    static_cast<void>(READER(path));
  } catch (const FileError&) {
    // What a file that cannot be used must end in.
  }
  return 0;
}
