// What XML cannot hold stands in a workbook's texts as its number: "_x0001_"; and so does an
// underscore that would be taken for the begin of one.
#pragma once

#include <string>
#include <string_view>

namespace quorval {

std::string EncodedXlsxText(std::string_view text);
std::string DecodedXlsxText(std::string_view text);

}  // namespace quorval
