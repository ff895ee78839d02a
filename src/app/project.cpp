#include "app/project.h"

#include <bit>
#include <memory>
#include <utility>

namespace quorval {
namespace {

// What follows the project's name in the title tells how the name was last set.
constexpr std::string_view kAfterStart = "  Quorval5  Main Menu    ";
constexpr std::string_view kAfterExample = "   Quorval5  Main Menu   ";
constexpr std::string_view kAfterRenaming = "  Quorval5  Main Window    ";

constexpr std::string_view kFileAtStart = "Project 1";
constexpr std::string_view kNameAfterReset = "Project 1 ";  // not quite the one at start-up

// FNV-1a of 64 bits (Fowler, Noll, Vo): tells changes apart, and is no seal.
class Hash {
 public:
  void Add(std::uint64_t number) {
    for (int shift = 0; shift < 64; shift += 8)
      AddByte(static_cast<unsigned char>(number >> shift));
  }
  void Add(std::string_view text) {
    Add(text.size());
    for (char c : text) AddByte(static_cast<unsigned char>(c));
  }
  void Add(const Cell& cell) {
    Add(cell.text);
    Add(cell.value ? std::bit_cast<std::uint64_t>(*cell.value) : ~std::uint64_t{0});
    Add((std::uint64_t{cell.look.decimals} << 32) + static_cast<std::uint64_t>(cell.look.type));
    Add(std::uint64_t{cell.look.colour} * 8 + (cell.look.bold ? 4 : 0) +
        (cell.look.italic ? 2 : 0) + (cell.look.overflow ? 1 : 0));
    Add(cell.picture ? std::string_view(*cell.picture) : std::string_view{});
  }
  std::uint64_t value() const { return value_; }

 private:
  void AddByte(unsigned char byte) { value_ = (value_ ^ byte) * 0x100000001B3; }

  std::uint64_t value_ = 0xCBF29CE484222325;
};

}  // namespace

Project::Project(const std::filesystem::path& app_folder) {
  context_.AppFolder = app_folder;
  context_.ProjectFile = app_folder / kFileAtStart;
  title_ = context_.ProjectName + std::string(kAfterStart);
  MarkKept();
}

void Project::Rename(std::string_view name) {
  context_.ProjectName = name;
  title_ = context_.ProjectName + std::string(kAfterRenaming);
}

void Project::Do(const std::function<void()>& command) {
  const auto other = std::make_shared<Identity>(identity());
  editor_.Do(command, [&]() -> SheetEditor::Exchange {
    if (*other == identity()) return {};
    return [this, other] {
      Identity now = identity();
      SetIdentity(*other);
      *other = std::move(now);
    };
  });
}

void Project::Reset() {
  context_.ProjectName = kNameAfterReset;
  context_.ProjectNote.clear();
  SetFile(context_.AppFolder / kFileAtStart);
  title_ = context_.ProjectName + std::string(kAfterStart);
  worksheet_.Clear();
  MarkKept();
}

void Project::Take(SavedGrid saved) {
  if (saved.rows > 2) return TakeWhole(std::move(saved));
  worksheet_.Take(std::move(saved.grid));
}

void Project::TakeWhole(SavedGrid saved) {
  if (const int R = saved.rows; R >= 2) {
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
  own_file_.reset();
}

void Project::SetFile(const std::filesystem::path& file) { OwnFile(file, std::nullopt); }

void Project::OwnFile(const std::filesystem::path& file, const std::optional<FileStamp>& stamp) {
  context_.ProjectFile = file;
  own_file_ = stamp;
}

bool Project::HasUnsavedWork() const {
  return (HasData() || !context_.ProjectNote.empty()) && kept_ != Fingerprint();
}

Project::Identity Project::identity() const {
  return {
      context_.ProjectName, context_.ProjectNote, title_, context_.ProjectFile, own_file_, kept_};
}

void Project::SetIdentity(const Identity& identity) {
  context_.ProjectName = identity.name;
  context_.ProjectNote = identity.note;
  context_.ProjectFile = identity.file;
  title_ = identity.title;
  own_file_ = identity.own_file;
  kept_ = identity.kept;
}

std::uint64_t Project::Fingerprint() const {
  Hash hash;
  hash.Add(context_.ProjectName);
  hash.Add(context_.ProjectNote);
  const Grid& grid = worksheet_.grid();
  const Cell nothing;
  for (int column = 1; column <= grid.Columns(); ++column)
    for (int row = 1; row <= grid.UsedRows(column); ++row) {
      const Cell& cell = grid.At(column, row);
      if (cell == nothing) continue;
      hash.Add(static_cast<std::uint64_t>(column));
      hash.Add(static_cast<std::uint64_t>(row));
      hash.Add(cell);
    }
  return hash.value();
}

}  // namespace quorval
