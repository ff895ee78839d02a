// The machine, as the program sees it: boxes, files, printing, clipboard, settings, help.
#pragma once

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/grid.h"
#include "core/notice.h"
#include "core/plot.h"

namespace quorval {

enum class Buttons { kOk, kYesNo };
enum class Answer { kOk, kYes, kNo };

struct MessageBox {
  std::string text;
  std::string title{};
  Buttons buttons = Buttons::kOk;
  bool critical = false;  // the icon
  std::string beside{};   // a text in lines that is shown beside the box
};

// What a file dialog shows.
struct FileQuestion {
  std::string title;
  std::vector<std::string> filters;  // "Excel file (*.xls)|*.xls"
  std::filesystem::path folder{};
  std::string proposed_name{};
  std::string default_extension{};
  std::string option{};           // the caption of a box to tick; empty: there is none
  bool* option_chosen = nullptr;  // how the box starts, and what was chosen
};

// A twip is 1/1440 inch.
struct Margins {
  int top, bottom, left, right;
};

// A text at a place of its own, in Arial 12 bold.  Its lines are not broken.
struct PlacedText {
  std::string text;
  std::optional<double> left{};  // centimetres from the paper's edge; none: in the middle
  double top;                    // likewise
};

// One sheet to be printed.  In header and footer "/c" centres what follows, "/r" sets it right,
// "/p" is the page number and "/n" a new line.
struct PrintJob {
  const Grid* grid;  // its used range is printed; it lives until Print() returns
  std::string header{}, footer{};
  bool border = false;
  bool grid_lines = false;
  std::vector<double> row_heights{};    // points, from row 1 on; the usual height below the last
  std::vector<double> column_widths{};  // characters, likewise; else as wide as the texts
  std::vector<PlacedText> texts{};      // beside the sheet
  bool colour = true;
  bool landscape = false;                 // of a first job: the paper lies on its longer side
  Margins margins{1440, 1440, 720, 720};  // twips
  std::string name = "Quorval";
  std::string abort_message = "Printing - Click Cancel to quit";
};

class Platform {
 public:
  virtual ~Platform() = default;

  virtual Answer Show(const MessageBox& box) = 0;
  // What no box told of the command that ends, a list for each command; often an empty one.
  virtual void ShowNotices(const Notices& notices) = 0;
  virtual void ShowWaitPointer(bool on) = 0;

  virtual std::optional<std::filesystem::path> AskOpen(const FileQuestion& question) = 0;
  virtual std::optional<std::filesystem::path> AskSave(const FileQuestion& question) = 0;

  // Jobs that belong together, in one go.  False when they could not be printed.
  virtual bool Print(std::span<const PrintJob> jobs) = 0;
  // Writes a plot's picture, by the path's extension; false when it could not be written.
  virtual bool WritePicture(const Plot& plot, const std::filesystem::path& path) = 0;

  virtual std::optional<int> Setting(std::string_view key) = 0;
  virtual void SetSetting(std::string_view key, int value) = 0;

  // Keeps a picture, an SVG document, in a file.  False when it could not be written; a machine
  // without a screen keeps none and is content.
  virtual bool KeepPicture(std::string_view, const std::filesystem::path&) { return true; }
  // The same of a plot's picture, by the path's extension.
  virtual bool KeepPlot(const Plot&, const std::filesystem::path&) { return true; }

  // Opens a help file by name, at its contents or at its search.  False when there is none.
  virtual bool OpenHelp(std::string_view file, bool search) = 0;
};

}  // namespace quorval
