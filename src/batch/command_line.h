#pragma once

namespace quorval {

// Reads the command line and does what it says; the exit status.
int RunCommandLine(int argc, const char* const* argv);

}  // namespace quorval
