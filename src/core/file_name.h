// Names of files: their extensions, and the names that are proposed for new ones.
#pragma once

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

namespace quorval {

// With its dot and in small letters: ".csv" of "DATA.CSV".  Empty where there is none:
// "Glucose 2.5" and "Dr. Ames" have a dot, but no extension.
std::string ExtensionOf(const std::filesystem::path& path);

// A title as the name of a file: characters that a file cannot bear, here or on another system,
// give way to "-"; a title too long is cut.
std::string FileNameOf(std::string_view title);

// What a file dialog calls a kind of file, such as "Excel file (*.xls)|*.xls".
struct FileFilter {
  std::string_view caption;
  std::string_view patterns;  // "*.csv;*.tsv"
};
FileFilter FilterFrom(std::string_view text);

// The name that was typed into a save dialog.  One without an extension takes the default one, or
// else that of the filter that was chosen; so does one whose extension no filter knows, where
// there is no default, since it would not say how the file is written.
std::filesystem::path CompletedName(const std::filesystem::path& typed,
                                    std::span<const std::string> filters, std::size_t chosen,
                                    std::string_view default_extension);

}  // namespace quorval
