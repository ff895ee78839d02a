// The commands of the program, one file each.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <stdexcept>

namespace quorval {

enum class ExitStatus {
  kDone = 0,
  kRefused = 1,   // the analysis was refused or failed, a verification too
  kUnusable = 2,  // the command line or a file could not be used
};

// What could not be used, in words that name it.
struct Unusable : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// What the command line chose to do; runs once the whole line is in order.
using Task = std::function<ExitStatus()>;

// Each adds its subcommand to the program, which sets `chosen` when it is the one given.
void AddListCommand(CLI::App& program, Task& chosen);
void AddDescribeCommand(CLI::App& program, Task& chosen);
void AddDemoCommand(CLI::App& program, Task& chosen);
void AddRunCommand(CLI::App& program, Task& chosen);
void AddDataCommand(CLI::App& program, Task& chosen);
void AddConvertCommand(CLI::App& program, Task& chosen);
void AddVerifyCommand(CLI::App& program, Task& chosen);

}  // namespace quorval
