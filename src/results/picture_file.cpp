#include "results/picture_file.h"

#include <fstream>
#include <iterator>
#include <utility>

namespace quorval {

Picture ReadPicture(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return nullptr;
  return std::make_shared<const std::string>(std::istreambuf_iterator<char>(file),
                                             std::istreambuf_iterator<char>());
}

Picture PictureOf(Platform& platform, const Plot& plot, const std::filesystem::path& bitmap) {
  return platform.WritePicture(plot, bitmap) ? ReadPicture(bitmap) : nullptr;
}

void AddPictureBelow(Grid& sheet, Picture picture) {
  constexpr int kRowsToFinish = 4;
  const int last = sheet.DataRowCnt();
  Cell cell;
  cell.picture = std::move(picture);
  cell.look.type = CellType::kPicture;
  cell.look.span_columns = 5;
  cell.look.span_rows = kRowsToFinish - 1;
  sheet.Edit(1, last + 1) = std::move(cell);
  sheet.SetText(1, last + kRowsToFinish, "Finish");
}

}  // namespace quorval
