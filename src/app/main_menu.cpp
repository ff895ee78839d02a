#include "app/main_menu.h"

namespace quorval {
namespace {

constexpr MenuItem kSeparator{""};

constexpr MenuItem kImportItems[] = {{"Excel file", Command::kImportExcel}};
constexpr MenuItem kExportItems[] = {{"Export Excel file", Command::kExportExcel}};

constexpr MenuItem kFileItems[] = {
    {"&New Project", Command::kNewProject},
    {"&Open Project", Command::kOpenProject},
    {"&Save Project", Command::kSaveProject},
    {"Save &As Project", Command::kSaveProjectAs},
    kSeparator,
    {.caption = "Import File", .items = kImportItems},
    {"Import &Demo Data", Command::kImportExamples},
    {.caption = "Export File", .items = kExportItems},
    kSeparator,
    {"&Print...", Command::kPrint},
    {"Notepage", Command::kNotePage},
    kSeparator,
    {"E&xit", Command::kExit},
};

constexpr MenuItem kEditItems[] = {
    {"Cu&t", Command::kCut},
    {"&Copy", Command::kCopy},
    {"&Paste", Command::kPaste},
};

constexpr MenuItem kViewItems[] = {
    {"&Toolbar", Command::kShowToolbar},
    {"Status &Bar", Command::kShowStatusBar},
};

constexpr MenuItem kDataItems[] = {
    {"&Sort", Command::kSort},
    {"&Transform", Command::kTransform},
    {"&Format", Command::kFormat},
    {"Clear &Worksheet", Command::kClearWorksheet},
};

constexpr MenuItem kHelpItems[] = {
    {"&Contents", Command::kHelpContents}, {"&Search For Help On...", Command::kHelpSearch},
    {"&Tutorial", Command::kTutorial},     kSeparator,
    {"&About ", Command::kAbout},
};

constexpr MenuItem kMainMenu[] = {
    {.caption = "&File", .items = kFileItems}, {.caption = "&Edit", .items = kEditItems},
    {.caption = "&View", .items = kViewItems}, {.caption = "&Data", .items = kDataItems},
    {"&Statistics", Command::kStatistics},     {.caption = "&Help", .items = kHelpItems},
};

constexpr MenuItem kMouseMenu[] = {
    {"Cut", Command::kCut},
    {"Copy", Command::kCopy},
    {"Paste", Command::kPaste},
};

constexpr MenuItem kToolbarButtons[] = {
    {"New", Command::kNewProject}, {"Open", Command::kOpenProject}, {"Save", Command::kSaveProject},
    {"Print", Command::kPrint},    {"Cut", Command::kCut},          {"Copy", Command::kCopy},
    {"Paste", Command::kPaste},
};

}  // namespace

std::span<const MenuItem> MainMenu() { return kMainMenu; }
std::span<const MenuItem> MouseMenu() { return kMouseMenu; }
std::span<const MenuItem> ToolbarButtons() { return kToolbarButtons; }

}  // namespace quorval
