#include "formats/zip.h"

#include <gsf/gsf-outfile-zip.h>

#include <string>

#include "formats/replaced_file.h"

namespace quorval {

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
