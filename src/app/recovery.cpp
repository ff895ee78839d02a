#include "app/recovery.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <ctime>
#include <system_error>

#include "formats/file_error.h"

namespace quorval {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kName = "Unsaved project ";
constexpr std::string_view kExtension = ".qvl";
constexpr int kMostCopies = 1000;

bool IsCopy(const fs::path& path) {
  const std::string name = path.filename().string();
  return name.starts_with(kName) && name.ends_with(kExtension) && IsProjectFile(path);
}

// A name that no other program takes in the same moment; its file is there, and empty.
fs::path TakeName(const fs::path& folder) {
  for (int number = 1; number <= kMostCopies; ++number) {
    fs::path path =
        folder / (std::string(kName) + std::to_string(number) + std::string(kExtension));
    // For the user's eyes alone, whatever the folder: nobody chose it as a place for these data.
    const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (descriptor >= 0) {
      close(descriptor);
      return path;
    }
    if (errno != EEXIST) throw FileError(WordsOf(errno));
  }
  throw FileError("there are too many copies");
}

}  // namespace

std::vector<fs::path> RecoveryCopies(const fs::path& folder) {
  std::vector<fs::path> copies;
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(folder, error))
    if (IsCopy(entry.path())) copies.push_back(entry.path());
  const auto time = [](const fs::path& path) {
    std::error_code none;
    return fs::last_write_time(path, none);
  };
  std::ranges::sort(copies, [&](const fs::path& a, const fs::path& b) {
    return std::pair(time(b), a) < std::pair(time(a), b);
  });
  return copies;
}

std::string CaptionOf(const fs::path& copy) {
  struct stat state {};
  std::tm parts{};
  if (stat(copy.c_str(), &state) != 0 || localtime_r(&state.st_mtime, &parts) == nullptr)
    return "Unsaved work";
  std::array<char, 32> text{};
  std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &parts);
  return std::string("Unsaved work of ") + text.data();
}

void WriteRecoveryCopy(const fs::path& folder, const Project& project) {
  std::error_code ignored;
  fs::create_directories(folder, ignored);
  const fs::path path = TakeName(folder);
  try {
    WriteProjectFile(path, project.worksheet().grid(),
                     {project.context().ProjectName, project.context().ProjectNote});
  } catch (const FileError&) {
    fs::remove(path, ignored);
    throw;
  }
}

}  // namespace quorval
