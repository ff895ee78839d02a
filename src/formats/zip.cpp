#include "formats/zip.h"

#include <gsf/gsf-infile-zip.h>
#include <gsf/gsf-outfile-zip.h>

#include <vector>

#include "formats/replaced_file.h"

namespace quorval {
namespace {

// The folders of a part's name, and the name in the last of them.
std::vector<std::string> NamesOf(std::string_view part) {
  std::vector<std::string> names;
  for (std::size_t slash; (slash = part.find('/')) != part.npos; part.remove_prefix(slash + 1))
    names.emplace_back(part.substr(0, slash));
  names.emplace_back(part);
  return names;
}

}  // namespace

ZipReader::ZipReader(const std::filesystem::path& path)
    : file_(gsf::OpenFile(path)), archive_(gsf_infile_zip_new(file_.get(), nullptr)) {
  if (!archive_) throw FileError("the file is no workbook");
}

gsf::Owner<GsfInput> ZipReader::Find(std::string_view part) const {
  gsf::Owner<GsfInput> found;
  GsfInfile* folder = archive_.get();
  for (const std::string& name : NamesOf(part)) {
    if (folder == nullptr) return nullptr;
    gsf::Owner<GsfInput> next(gsf_infile_child_by_name(folder, name.c_str()));
    if (!next) return nullptr;
    found = std::move(next);
    folder = GSF_IS_INFILE(found.get()) ? GSF_INFILE(found.get()) : nullptr;
  }
  return found;
}

bool ZipReader::Has(std::string_view part) const { return Find(part) != nullptr; }

std::optional<std::string> ZipReader::Read(std::string_view part) const {
  constexpr gsf_off_t kLargest = gsf_off_t{512} << 20;
  constexpr gsf_off_t kMostGrowth = 1032;  // deflate can do no more
  const gsf::Owner<GsfInput> found = Find(part);
  if (!found) return std::nullopt;
  const gsf_off_t size = gsf_input_size(found.get());
  if (size > kLargest) throw FileError("the workbook is too large");
  if (size / kMostGrowth > gsf_input_size(file_.get())) throw FileError("the workbook is damaged");
  return gsf::ReadAll(found);
}

ZipWriter::ZipWriter(const std::filesystem::path& path)
    : path_(path),
      file_(gsf::NewOutput()),
      archive_(GSF_OUTPUT(gsf_outfile_zip_new(file_.get(), nullptr))) {}

void ZipWriter::Add(std::string_view part, std::string_view bytes) {
  Add(part, [&](const Sink& sink) { sink(bytes); });
}

void ZipWriter::Add(std::string_view part, const std::function<void(const Sink&)>& write) {
  constexpr int kFastest = 1;  // sheets of numbers hardly shrink further
  const gsf::Owner<GsfOutput> output(
      gsf_outfile_new_child_full(GSF_OUTFILE(archive_.get()), std::string(part).c_str(), FALSE,
                                 "deflate-level", kFastest, nullptr));
  if (!output) throw FileError("the file cannot be written");
  write([&](std::string_view bytes) { gsf::Write(output, bytes); });
  gsf::Close(output);
}

void ZipWriter::Close() {
  gsf::Close(archive_);
  gsf::Close(file_);
  ReplaceFile(path_, gsf::BytesOf(file_));
}

}  // namespace quorval
