#pragma once

namespace quorval {

// What a user chooses of a file of another program.
struct ExportOptions {
  // Of separated values: an apostrophe stands before a text that begins with = + - or @, which a
  // spreadsheet program would take for a formula and run.  Numbers stay as they are.
  bool safe_texts = false;
};

}  // namespace quorval
