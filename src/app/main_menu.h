// The main window's menus: every entry and caption, in order.
#pragma once

#include <span>
#include <string_view>

namespace quorval {

enum class Command {
  kNone,
  kNewProject,
  kOpenProject,
  kSaveProject,
  kSaveProjectAs,
  kImportExcel,
  kImportExamples,  // a submenu of Examples()
  kExportExcel,
  kPrint,
  kNotePage,
  kExit,
  kCut,
  kCopy,
  kPaste,
  kShowToolbar,    // a check mark
  kShowStatusBar,  // a check mark
  kSort,
  kTransform,
  kFormat,
  kClearWorksheet,
  kStatistics,  // the menu of StatisticsMenu()
  kHelpContents,
  kHelpSearch,
  kTutorial,
  kAbout,
};

struct MenuItem {
  std::string_view caption;  // empty: a separator
  Command command = Command::kNone;
  std::span<const MenuItem> items{};
};

std::span<const MenuItem> MainMenu();
// The popup "Mouse" of the sheets.
std::span<const MenuItem> MouseMenu();
// The toolbar's buttons, with their tips.
std::span<const MenuItem> ToolbarButtons();

// The main window's position at its first start, in twips (1/15 of a device-independent pixel),
// and the keys under which it is kept.
struct PositionSetting {
  std::string_view key;
  int initial;
};
inline constexpr PositionSetting kMainLeft{"MainLeft", 1000};
inline constexpr PositionSetting kMainTop{"MainTop", 1000};
inline constexpr PositionSetting kMainWidth{"MainWidth", 6500};
inline constexpr PositionSetting kMainHeight{"MainHeight", 6500};

inline constexpr std::string_view kNameFrame = "Rename project:";
inline constexpr std::string_view kDecimalsLabel = "No. of decimal places in output:";
inline constexpr std::string_view kNoteLabel = "Numbers start in row 1! (only text in row 0) ";
inline constexpr std::string_view kStatusPanel = "Status";

// The start window.
inline constexpr std::string_view kProductName = "Quorval5   ";
inline constexpr std::string_view kProductLine =
    "A program for statistical analysis in clinical biochemistry";

}  // namespace quorval
