#include "formats/zip_reader.h"

#include <libdeflate.h>

#include <new>

#include "formats/file_error.h"

namespace quorval {
namespace {

[[noreturn]] void Damaged(std::string_view part) {
  throw FileError("the workbook is damaged: its part " + std::string(part) +
                  " is not what its length and check sum say");
}

bool IsWhole(const std::string& bytes, const zip_stat_t& about) {
  return bytes.size() == about.size && libdeflate_crc32(0, bytes.data(), bytes.size()) == about.crc;
}

zip_t* Open(const std::filesystem::path& path) {
  int error = 0;
  zip_t* const archive = zip_open(path.c_str(), ZIP_RDONLY, &error);
  if (archive == nullptr) throw FileError("the file is no workbook");
  return archive;
}

// None where it is not the packed form of so many bytes.
std::optional<std::string> Inflated(std::string_view packed, std::size_t size) {
  constexpr std::size_t kRoomForParser = 64;  // so that xml::Parse() need not copy
  struct Free {
    void operator()(libdeflate_decompressor* it) const { libdeflate_free_decompressor(it); }
  };
  const std::unique_ptr<libdeflate_decompressor, Free> inflater(libdeflate_alloc_decompressor());
  if (!inflater) throw std::bad_alloc();
  std::string bytes;
  bytes.reserve(size + kRoomForParser);
  bytes.resize(size);
  if (libdeflate_deflate_decompress(inflater.get(), packed.data(), packed.size(), bytes.data(),
                                    size, nullptr) != LIBDEFLATE_SUCCESS)
    return std::nullopt;
  return bytes;
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
  zip_stat_t about;
  if (zip_stat(archive_.get(), std::string(part).c_str(), 0, &about) != 0) return std::nullopt;
  constexpr zip_uint64_t kNeeded = ZIP_STAT_INDEX | ZIP_STAT_SIZE | ZIP_STAT_COMP_SIZE |
                                   ZIP_STAT_CRC | ZIP_STAT_COMP_METHOD | ZIP_STAT_ENCRYPTION_METHOD;
  if ((about.valid & kNeeded) != kNeeded) Damaged(part);
  if (about.encryption_method != ZIP_EM_NONE)
    throw FileError("the workbook is protected by a password");
  if (about.comp_method != ZIP_CM_STORE && about.comp_method != ZIP_CM_DEFLATE)
    throw FileError("the workbook is packed in a way that workbooks are not");
  budget_.packed.Take(about.comp_size);
  budget_.unpacked.Take(about.size);
  std::optional<std::string> packed = Packed(about);
  const bool inflates = packed && about.comp_method == ZIP_CM_DEFLATE;
  std::optional<std::string> bytes = inflates ? Inflated(*packed, about.size) : std::move(packed);
  if (!bytes || !IsWhole(*bytes, about)) Damaged(part);
  return bytes;
}

// The part's bytes as they stand in the file; none where it breaks off before.
std::optional<std::string> ZipReader::Packed(const zip_stat_t& about) const {
  const std::unique_ptr<zip_file_t, Close> part(
      zip_fopen_index(archive_.get(), about.index, ZIP_FL_COMPRESSED));
  if (!part) return std::nullopt;
  std::string bytes(about.comp_size, '\0');
  const zip_int64_t read = zip_fread(part.get(), bytes.data(), bytes.size());
  if (read != static_cast<zip_int64_t>(bytes.size())) return std::nullopt;
  return bytes;
}

}  // namespace quorval
