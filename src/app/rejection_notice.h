// The notice of the points that a re-analysis leaves out.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "core/rejection.h"

namespace quorval {

// Its lines: what it is, the limit, a blank one, and at most ten of the points.
std::vector<std::string> NoticeOf(const Rejection& rejection);

// Its picture, an SVG document: the lines in a frame.
std::string NoticePicture(std::span<const std::string> lines);

}  // namespace quorval
