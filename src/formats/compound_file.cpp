#include "formats/compound_file.h"

#include <fstream>
#include <iterator>

#include "formats/file_error.h"

namespace quorval {
namespace {

constexpr std::string_view kSignature = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
constexpr std::size_t kHead = 512;
constexpr std::size_t kEntry = 128;
constexpr std::size_t kSmallSector = 64;
constexpr std::uint64_t kSmallStream = 4096;  // the shortest stream in sectors of its own
constexpr std::uint32_t kNone = 0xFFFFFFFF;
constexpr std::uint32_t kLastSector = 0xFFFFFFFA;  // greater numbers are marks

[[noreturn]] void Damaged() { throw FileError("the workbook is damaged"); }

// Little-endian.
template <class Whole>
Whole WholeAt(std::string_view bytes, std::size_t place) {
  if (place + sizeof(Whole) > bytes.size()) Damaged();
  Whole whole = 0;
  for (std::size_t i = sizeof(Whole); i-- > 0;)
    whole = static_cast<Whole>(whole << 8 | static_cast<unsigned char>(bytes[place + i]));
  return whole;
}

void AppendNumbers(std::vector<std::uint32_t>& numbers, std::string_view bytes) {
  for (std::size_t at = 0; at + 4 <= bytes.size(); at += 4)
    numbers.push_back(WholeAt<std::uint32_t>(bytes, at));
}

// Plain letters, as the streams of a workbook have.
std::string NarrowName(std::string_view wide) {
  std::string name;
  for (std::size_t i = 0; i + 1 < wide.size() && (wide[i] != 0 || wide[i + 1] != 0); i += 2)
    name += wide[i + 1] == 0 ? wide[i] : '?';
  return name;
}

}  // namespace

struct CompoundFile::Entry {
  enum class Kind : std::uint8_t { kStream = 2, kRoot = 5 };

  std::string name;
  Kind kind;
  std::uint32_t left, right, child;  // numbers of entries
  std::uint32_t first;               // sector
  std::uint64_t size;
};

CompoundFile::CompoundFile(const std::filesystem::path& path) {
  constexpr std::size_t kSectorShift = 30, kDirectory = 48, kSmallTable = 60;
  std::ifstream file(path, std::ios::binary);
  bytes_.assign(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  if (!bytes_.starts_with(kSignature) || bytes_.size() < kHead)
    throw FileError("the file is no Excel workbook");
  const auto shift = At<std::uint16_t>(kSectorShift);
  if (shift != 9 && shift != 12) Damaged();
  sector_size_ = std::size_t{1} << shift;
  ReadTable();
  directory_ = Chain(At<std::uint32_t>(kDirectory));
  const Entry root = EntryAt(0);
  if (root.kind != Entry::Kind::kRoot) Damaged();
  AppendNumbers(next_small_, Chain(At<std::uint32_t>(kSmallTable)));
  small_ = Chain(root.first);
}

template <class Whole>
Whole CompoundFile::At(std::size_t place) const {
  return WholeAt<Whole>(bytes_, place);
}

// The head takes the place of one; the last may be cut short.
std::size_t CompoundFile::Sectors() const { return (bytes_.size() - 1) / sector_size_; }

std::string_view CompoundFile::Sector(std::uint32_t number) const {
  if (number >= Sectors()) Damaged();
  return std::string_view(bytes_).substr((number + std::size_t{1}) * sector_size_, sector_size_);
}

// The first sectors of the table are told in the head, the others in a chain of sectors that end in
// the next one's number.
void CompoundFile::ReadTable() {
  constexpr std::size_t kCount = 44, kMoreParts = 68, kFirstParts = 76;
  std::uint32_t left = At<std::uint32_t>(kCount);
  if (left > Sectors()) Damaged();
  std::string_view parts = std::string_view(bytes_).substr(kFirstParts, kHead - kFirstParts);
  std::uint32_t more = At<std::uint32_t>(kMoreParts);
  while (left > 0) {
    for (std::size_t at = 0; at < parts.size() && left > 0; at += 4, --left)
      AppendNumbers(next_, Sector(WholeAt<std::uint32_t>(parts, at)));
    if (left == 0) break;
    const std::string_view sector = Sector(more);
    if (sector.size() != sector_size_) Damaged();
    parts = sector.substr(0, sector_size_ - 4);
    more = WholeAt<std::uint32_t>(sector, sector_size_ - 4);
  }
}

std::string CompoundFile::Chain(std::uint32_t first) const {
  std::string bytes;
  for (std::uint32_t sector = first; sector <= kLastSector; sector = next_[sector]) {
    bytes += Sector(sector);
    if (bytes.size() > bytes_.size() || sector >= next_.size()) Damaged();
  }
  return bytes;
}

std::string CompoundFile::SmallChain(std::uint32_t first) const {
  std::string bytes;
  for (std::uint32_t sector = first; sector <= kLastSector; sector = next_small_[sector]) {
    const std::size_t place = sector * kSmallSector;
    if (sector >= next_small_.size() || place >= small_.size()) Damaged();
    bytes.append(small_, place, kSmallSector);
    if (bytes.size() > kSmallStream) Damaged();
  }
  return bytes;
}

CompoundFile::Entry CompoundFile::EntryAt(std::uint32_t number) const {
  const std::string_view directory = directory_;
  if (number >= directory.size() / kEntry) Damaged();
  const std::string_view entry = directory.substr(number * kEntry, kEntry);
  return {.name = NarrowName(entry.substr(0, 64)),
          .kind = static_cast<Entry::Kind>(entry[66]),
          .left = WholeAt<std::uint32_t>(entry, 68),
          .right = WholeAt<std::uint32_t>(entry, 72),
          .child = WholeAt<std::uint32_t>(entry, 76),
          .first = WholeAt<std::uint32_t>(entry, 116),
          .size = WholeAt<std::uint32_t>(entry, 120)};  // its upper half is not always set
}

std::string CompoundFile::BytesOf(const Entry& entry) const {
  std::string bytes = entry.size < kSmallStream ? SmallChain(entry.first) : Chain(entry.first);
  if (bytes.size() < entry.size) Damaged();
  bytes.resize(entry.size);
  return bytes;
}

// The entries of a folder are a tree; it is not trusted to be one, nor to be in order.
std::optional<std::string> CompoundFile::Stream(std::string_view name) const {
  std::vector<bool> met(directory_.size() / kEntry);
  std::vector<std::uint32_t> waiting{EntryAt(0).child};
  while (!waiting.empty()) {
    const std::uint32_t number = waiting.back();
    waiting.pop_back();
    if (number == kNone) continue;
    const Entry entry = EntryAt(number);
    if (met[number]) Damaged();
    met[number] = true;
    if (entry.kind == Entry::Kind::kStream && entry.name == name) return BytesOf(entry);
    waiting.push_back(entry.left);
    waiting.push_back(entry.right);
  }
  return std::nullopt;
}

}  // namespace quorval
