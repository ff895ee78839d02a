// Saving and exporting a sheet, the same for the project and for results.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "app/sheet_editor.h"
#include "core/notice.h"
#include "formats/project_file.h"
#include "platform/platform.h"

namespace quorval {

// A file dialog that was cancelled, where a cancel counts as a failure.
struct Cancelled : std::exception {};

// Why a piece of work on a file failed, in words; none where it came to its end.  What is no matter
// of the file passes through.  The wait pointer shows how long it takes.
std::optional<std::string> WhyFailed(Platform& platform, const std::function<void()>& work);

// "Saved to NAME" or why not.  Whether it was saved.
bool NoteSave(const std::filesystem::path& path, const std::optional<std::string>& failure,
              Notices& notices);

// A save of a sheet with two texts below it.  A failure that is none of the file is told in a box,
// and leaves the two texts in the sheet, as a step that can be taken back; of a file that cannot be
// written `save` notes why.
void SaveSheet(Platform& platform, SheetEditor& editor, const TrailingTexts& trailing,
               Notices& notices, const std::function<void()>& save);

// Asks for the file and writes the sheet as another program's, by the extension of its name; an
// Excel workbook where the extension says nothing.  Tells the result, and notes why.
void ExportSheet(Platform& platform, const Grid& grid, std::string_view proposed_name);

}  // namespace quorval
