#include "batch/command_line.h"

#include <exception>
#include <iostream>

#include "batch/commands.h"

namespace quorval {
namespace {

constexpr const char* kDescription =
    "Runs the analyses of Quorval without a display: fills a worksheet from a file or a built-in\n"
    "example, sets the fields of an analysis' options dialog, presses OK, and hands out what the\n"
    "windows would show.";

constexpr const char* kFooter =
    "Message boxes go to standard error, one a line, as \"message: TEXT\"; a question is answered\n"
    "Yes.\n"
    "\n"
    "Exit status:\n"
    "  0  done\n"
    "  1  the analysis was refused or failed; its messages tell why\n"
    "  2  the command line or a file could not be used\n"
    "\n"
    "Examples:\n"
    "  quorval-batch list\n"
    "  quorval-batch describe ols\n"
    "  quorval-batch run ols measurements.csv --set outlier-limit=3 --set show-residuals=on\n"
    "  quorval-batch run ols --demo \"XY Regression Single\" --json -\n"
    "  quorval-batch COMMAND --help";

ExitStatus Perform(const Task& task) {
  try {
    const ExitStatus status = task();
    if (!std::cout.flush()) throw Unusable("standard output cannot be written");
    return status;
  } catch (const std::exception& error) {
    std::cerr << "quorval-batch: " << error.what() << '\n';
    return ExitStatus::kUnusable;
  }
}

}  // namespace

int RunCommandLine(int argc, const char* const* argv) {
  CLI::App program(kDescription, "quorval-batch");
  program.set_version_flag("--version", "quorval-batch " QUORVAL_VERSION);
  program.set_help_flag("--help", "Print this help and exit");
  program.footer(kFooter);
  program.require_subcommand(0, 1);

  Task chosen;
  AddListCommand(program, chosen);
  AddDescribeCommand(program, chosen);
  AddRunCommand(program, chosen);
  AddDataCommand(program, chosen);
  AddConvertCommand(program, chosen);
  AddDemoCommand(program, chosen);
  AddVerifyCommand(program, chosen);
  try {
    program.parse(argc, argv);
    if (!chosen) throw CLI::RequiredError("A command");
  } catch (const CLI::ParseError& error) {
    const bool asked_for_help = program.exit(error) == 0;
    return static_cast<int>(asked_for_help ? ExitStatus::kDone : ExitStatus::kUnusable);
  }
  return static_cast<int>(Perform(chosen));
}

}  // namespace quorval
