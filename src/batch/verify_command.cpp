#include <iostream>
#include <memory>
#include <string>

#include "app/verification_sheet.h"
#include "batch/commands.h"
#include "batch/json.h"
#include "batch/outputs.h"
#include "batch/sheet_table.h"

namespace quorval {
namespace {

struct VerifyOptions {
  std::string data, json, report;
};

Json RowJson(const VerificationRow& row, const Verification& verification) {
  return {{"data", row.data},
          {"source", row.source},
          {"reference", verification.MeaningOf(row.source)},
          {"analysis", row.analysis},
          {"settings", row.settings},
          {"quantity", row.quantity},
          {"published", row.published},
          {"computed", row.computed ? Json(*row.computed) : Json()},
          {"digits", row.digits},
          {"needed", row.needed},
          {"tolerance", row.tolerance},
          {"why", verification.MeaningOf(row.tolerance)},
          {"passed", row.Passed()}};
}

Json VerificationJson(const Verification& verification) {
  Json rows = Json::array();
  for (const VerificationRow& row : verification.rows) rows.push_back(RowJson(row, verification));
  return {{"schema", kJsonSchema},
          {"version", QUORVAL_VERSION},
          {"passed", verification.Failures() == 0},
          {"failures", verification.Failures()},
          {"rows", std::move(rows)}};
}

ExitStatus RunVerification(const VerifyOptions& options) {
  const std::unique_ptr<Pictures> pictures = options.report.empty() ? nullptr : MakePictures();
  const Verification verification =
      Verify(options.data.empty() ? VerificationFolder() : std::filesystem::path(options.data));
  const Grid sheet = VerificationSheet(verification);
  if (!IsStandardOutput(options.json)) std::cout << SheetTable(sheet);
  if (!options.json.empty()) WriteText(JsonText(VerificationJson(verification)), options.json);
  const PrintJob pages = VerificationPages(sheet);
  if (pictures) WriteFile(options.report, [&] { pictures->Print({&pages, 1}, options.report); });
  return verification.Failures() == 0 ? ExitStatus::kDone : ExitStatus::kRefused;
}

}  // namespace

void AddVerifyCommand(CLI::App& program, Task& chosen) {
  CLI::App* const verify = program.add_subcommand(
      "verify", "Compare what the analyses compute with published results of published data");
  const auto options = std::make_shared<VerifyOptions>();
  AddFileOption(*verify, "--json", options->json,
                "Write the rows of the report as JSON; - is standard output");
  AddFileOption(*verify, "--report", options->report, "Write the report as a PDF", "FILE.pdf");
  AddFileOption(
      *verify, "--data", options->data,
      "A folder of data sets in the place of the program's own; its tables are like those", "DIR");
  verify->footer(
      "The report is printed as a table, unless --json - takes standard output.\n"
      "Exit status: 0 all results agree, 1 at least one does not, 2 not usable.");
  verify->callback(
      [&chosen, options] { chosen = [options] { return RunVerification(*options); }; });
}

}  // namespace quorval
