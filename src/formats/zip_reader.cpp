#include "formats/zip_reader.h"

#include "formats/file_error.h"

namespace quorval {
namespace {

[[noreturn]] void Damaged(std::string_view part) {
  throw FileError("the workbook is damaged: its part " + std::string(part) +
                  " is not what its length and check sum say");
}

zip_t* Open(const std::filesystem::path& path) {
  int error = 0;
  zip_t* const archive = zip_open(path.c_str(), ZIP_RDONLY, &error);
  if (archive == nullptr) throw FileError("the file is no workbook");
  return archive;
}

}  // namespace

ZipReader::ZipReader(const std::filesystem::path& path, Budget& budget)
    : budget_(budget), archive_(Open(path)) {
  budget_.parts.Take(static_cast<std::uint64_t>(zip_get_num_entries(archive_.get(), 0)));
}

bool ZipReader::Has(std::string_view part) const {
  return zip_name_locate(archive_.get(), std::string(part).c_str(), 0) >= 0;
}

std::optional<std::string> ZipReader::Read(std::string_view part) const {
  constexpr std::size_t kRoomForParser = 64;  // so that xml::Parse() need not copy
  zip_stat_t about;
  if (zip_stat(archive_.get(), std::string(part).c_str(), 0, &about) != 0) return std::nullopt;
  constexpr zip_uint64_t kNeeded =
      ZIP_STAT_INDEX | ZIP_STAT_SIZE | ZIP_STAT_COMP_METHOD | ZIP_STAT_ENCRYPTION_METHOD;
  if ((about.valid & kNeeded) != kNeeded) Damaged(part);
  if (about.encryption_method != ZIP_EM_NONE)
    throw FileError("the workbook is protected by a password");
  if (about.comp_method != ZIP_CM_STORE && about.comp_method != ZIP_CM_DEFLATE)
    throw FileError("the workbook is packed in a way that workbooks are not");
  budget_.unpacked.Take(about.size);
  const std::unique_ptr<zip_file_t, Close> file(zip_fopen_index(archive_.get(), about.index, 0));
  if (!file) Damaged(part);
  std::string bytes;
  bytes.reserve(about.size + kRoomForParser);
  bytes.resize(about.size);
  // The library compares length and check sum where it meets the end, which is behind the last
  // byte.
  char more = 0;
  if (zip_fread(file.get(), bytes.data(), about.size) != static_cast<zip_int64_t>(about.size) ||
      zip_fread(file.get(), &more, 1) != 0)
    Damaged(part);
  return bytes;
}

}  // namespace quorval
