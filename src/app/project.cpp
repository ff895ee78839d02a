#include "app/project.h"

#include <utility>

namespace quorval {
namespace {

// What follows the project's name in the title tells how the name was last set.
constexpr std::string_view kAfterStart = "  Quorval5  Main Menu    ";
constexpr std::string_view kAfterExample = "   Quorval5  Main Menu   ";
constexpr std::string_view kAfterRenaming = "  Quorval5  Main Window    ";

constexpr std::string_view kFileAtStart = "Project 1";
constexpr std::string_view kNameAfterReset = "Project 1 ";  // not quite the one at start-up

}  // namespace

Project::Project(const std::filesystem::path& app_folder) {
  context_.AppFolder = app_folder;
  context_.ProjectFile = app_folder / kFileAtStart;
  title_ = context_.ProjectName + std::string(kAfterStart);
}

void Project::Rename(std::string_view name) {
  context_.ProjectName = name;
  title_ = context_.ProjectName + std::string(kAfterRenaming);
}

void Project::Reset() {
  context_.ProjectName = kNameAfterReset;
  context_.ProjectNote.clear();
  context_.ProjectFile = context_.AppFolder / kFileAtStart;
  title_ = context_.ProjectName + std::string(kAfterStart);
  worksheet_.Clear();
}

void Project::Take(SavedGrid saved) {
  if (const int R = saved.rows; R > 2) {
    Rename(saved.grid.Text(1, R - 1));
    SetNote(saved.grid.Text(1, R));
    saved.grid.ClearRange(1, R - 1, 1, R);
  }
  worksheet_.Take(std::move(saved.grid));
}

void Project::TakeExample(std::string_view name, std::string_view note) {
  context_.ProjectName = name;
  context_.ProjectNote = note;
  title_ = context_.ProjectName + std::string(kAfterExample);
}

}  // namespace quorval
