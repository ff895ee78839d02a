#include "app/note_page.h"

#include <string>

namespace quorval {
namespace {

constexpr double kLineHeight = 0.49;  // centimetres, of the page's font
constexpr double kLeft = 1.5;
constexpr double kNoteTop = 10;

PlacedText OnLine(int line, std::string text, std::optional<double> left) {
  return {.text = std::move(text), .left = left, .top = line * kLineHeight};
}

}  // namespace

PrintJob NotePageJob(const Context& context, std::string_view note) {
  static const Grid kNoSheet(1, 1);
  return {.grid = &kNoSheet,
          .texts = {
              OnLine(0, "Quorval:  Project Notes", std::nullopt),
              OnLine(7, "    Project:    " + context.ProjectName, kLeft),
              OnLine(10, "    Project File:    " + context.ProjectFile.string(), kLeft),
              {.text = std::string(note), .left = kLeft, .top = kNoteTop},
          }};
}

}  // namespace quorval
