#pragma once

#include <filesystem>

#include "core/grid.h"
#include "core/plot.h"
#include "platform/platform.h"

namespace quorval {

// The bytes of a picture file; none when it cannot be read.
Picture ReadPicture(const std::filesystem::path& path);

// Writes a plot's bitmap and reads it back for a picture cell; none when either fails.
Picture PictureOf(Platform& platform, const Plot& plot, const std::filesystem::path& bitmap);

// Adds a picture below the used rows of a sheet, joined over the neighbouring cells, and the text
// "Finish" below it.
void AddPictureBelow(Grid& sheet, Picture picture);

}  // namespace quorval
