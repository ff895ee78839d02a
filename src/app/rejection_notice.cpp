#include "app/rejection_notice.h"

#include <algorithm>
#include <string_view>

#include "core/conversion.h"
#include "formats/xml_text.h"

namespace quorval {
namespace {

constexpr std::size_t kMostPoints = 10;

std::string Line(int x1, int y1, int x2, int y2) {
  return "<line x1=\"" + std::to_string(x1) + "\" y1=\"" + std::to_string(y1) + "\" x2=\"" +
         std::to_string(x2) + "\" y2=\"" + std::to_string(y2) + "\" stroke=\"black\"/>\n";
}

}  // namespace

std::vector<std::string> NoticeOf(const Rejection& rejection) {
  std::vector<std::string> lines{
      "   Rejected outliers in regression analysis",
      "   Outlier limit:    " + NarrowestText(rejection.limit) + "   SD",
      "",
  };
  for (const auto& [id, x, y] : rejection.rejected) {
    if (lines.size() == 3 + kMostPoints) {
      lines.emplace_back("   More than 10 outliers that are not shown");
      break;
    }
    lines.push_back(id + "   " + NarrowestText(x) + "   " + NarrowestText(y));
  }
  return lines;
}

std::string NoticePicture(std::span<const std::string> lines) {
  constexpr int kLine = 20;  // height, in pixels
  constexpr int kWidth = 420;
  constexpr int kMostLines = 15;
  const int height = kLine * std::min(static_cast<int>(lines.size()) + 2, kMostLines);
  std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + std::to_string(kWidth) +
                    "\" height=\"" + std::to_string(height) + "\">\n";
  svg += Line(0, 0, kWidth, 0) + Line(kWidth, 0, kWidth, height) + Line(kWidth, height, 0, height) +
         Line(0, height, 0, 0);
  int y = kLine;
  for (const std::string& line : lines) {
    svg += "<text x=\"8\" y=\"" + std::to_string(y) +
           "\" font-family=\"sans-serif\" font-size=\"13\" xml:space=\"preserve\">";
    xml::AppendEscaped(svg, line);
    svg += "</text>\n";
    y += kLine;
  }
  return svg + "</svg>\n";
}

}  // namespace quorval
