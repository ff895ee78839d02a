#include "app/project.h"

namespace quorval {
namespace {

// What follows the project's name in the title tells how the name was last set.
constexpr std::string_view kAfterStart = "  Quorval5  Main Menu    ";
constexpr std::string_view kAfterExample = "   Quorval5  Main Menu   ";
constexpr std::string_view kAfterRenaming = "  Quorval5  Main Window    ";

}  // namespace

Project::Project(const std::filesystem::path& app_folder) {
  context_.AppFolder = app_folder;
  context_.ProjectFile = app_folder / "Project 1";
  title_ = context_.ProjectName + std::string(kAfterStart);
}

void Project::Rename(std::string_view name) {
  context_.ProjectName = name;
  title_ = context_.ProjectName + std::string(kAfterRenaming);
}

void Project::TakeExample(std::string_view name, std::string_view note) {
  context_.ProjectName = name;
  context_.ProjectNote = note;
  title_ = context_.ProjectName + std::string(kAfterExample);
}

}  // namespace quorval
