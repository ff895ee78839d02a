#pragma once

#include <filesystem>
#include <optional>

#include "platform/platform.h"

class QWidget;

namespace quorval {

// The file dialogs of all windows.  They start in the folder that was used last since the program's
// start, and leave nothing behind on the disk.
std::optional<std::filesystem::path> AskOpenFile(QWidget* parent, const FileQuestion& question);
// The name has its extension: see CompletedName().  Asks before a file is replaced.
std::optional<std::filesystem::path> AskSaveFile(QWidget* parent, const FileQuestion& question);

// Lets no dialog of Qt's keep a list of files or folders in a settings file of its own.
void StoreNoDialogSettings();

}  // namespace quorval
