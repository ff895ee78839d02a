// The note page: free text about the project, which is kept in its file.
#pragma once

#include <string_view>

#include "core/context.h"
#include "platform/platform.h"

namespace quorval {

inline constexpr std::string_view kNotePageTitle = "Note Page ";
inline constexpr std::string_view kNoteNameLabel = "Project Name:";
inline constexpr std::string_view kNoteFileLabel = "Project File Name:";
inline constexpr std::string_view kNoteTextLabel = "Enter text:";
inline constexpr std::string_view kNoteHint =
    "(Use manual line shift (press enter) to get a suitable printout)";

// The printed page.  Its lines are not broken: a long one runs off the paper.
PrintJob NotePageJob(const Context& context, std::string_view note);

}  // namespace quorval
