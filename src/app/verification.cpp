#include "app/verification.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

#include "analyses/registry.h"
#include "app/digits_of_agreement.h"
#include "app/field_setting.h"
#include "app/shared_folder.h"
#include "app/unattended.h"
#include "app/workbench.h"
#include "formats/worksheet_file.h"

namespace quorval {
namespace {

Worksheet ReadSheet(const std::filesystem::path& file) {
  Worksheet sheet;
  if (const auto error = ReadWorksheet(file, sheet)) throw std::runtime_error(*error);
  return sheet;
}

// A table with titles above its columns.
class Table {
 public:
  explicit Table(const std::filesystem::path& file) : file_(file), sheet_(ReadSheet(file)) {}

  // Rows count from 1, below the titles.
  int Rows() const { return sheet_.DataRowCnt() - 1; }
  std::string At(int row, std::string_view title) const {
    for (int column = 1; column <= sheet_.DataColCnt(); ++column)
      if (sheet_.Text(column, 0) == title) return sheet_.Text(column, row);
    throw std::runtime_error(file_.string() + ": there is no column \"" + std::string(title) +
                             "\"");
  }
  [[noreturn]] void Refuse(int row, const std::string& words) const {
    throw std::runtime_error(file_.string() + ", row " + std::to_string(row) + ": " + words);
  }
  // What `work` throws, with the row.
  template <class Work>
  auto Guarded(int row, Work&& work) const {
    try {
      return work();
    } catch (const std::exception& error) {
      Refuse(row, error.what());
    }
  }

 private:
  std::filesystem::path file_;
  Worksheet sheet_;
};

// "mode=single column=1".
void SetFields(const std::string& settings, Form& form) {
  std::istringstream words(settings);
  for (std::string word; words >> word;) SetField(word, form);
}

// One row of runs.csv: the analysis from its dialog to its results window, as a user runs it.
class VerificationRun {
 public:
  VerificationRun(const Table& runs, int row, const std::filesystem::path& folder)
      : common_{.data = runs.At(row, "data"),
                .source = runs.At(row, "source"),
                .analysis = runs.At(row, "analysis"),
                .settings = runs.At(row, "settings")} {
    const Analysis* const analysis = FindAnalysis(common_.analysis);
    if (analysis == nullptr)
      throw std::runtime_error("there is no analysis \"" + common_.analysis + "\"");
    open_ = &workbench_.Open(*analysis);
    SetFields(common_.settings, open_->form);
    workbench_.worksheet() = ReadSheet(folder / runs.At(row, "file"));
    outcome_ = workbench_.PressOk(*open_);
  }

  VerificationRow Compare(const Table& results, int row) const {
    VerificationRow result = common_;
    result.quantity = results.At(row, "quantity");
    result.published = results.At(row, "published");
    result.tolerance = results.At(row, "tolerance");
    result.needed = std::stod(results.At(row, "digits"));
    for (const MessageBox& box : platform_.boxes())
      result.messages += (result.messages.empty() ? "" : " ") + box.text;
    if (outcome_ == Outcome::kDone)
      result.computed = open_->results->sheet.ValueOf(results.At(row, "name"));
    if (result.computed) result.digits = DigitsOfAgreement(result.published, *result.computed);
    return result;
  }

 private:
  VerificationRow common_;
  Unattended platform_;
  Workbench workbench_{platform_, {}};
  OpenAnalysis* open_;
  Outcome outcome_;
};

}  // namespace

int Verification::Failures() const {
  return static_cast<int>(
      std::ranges::count_if(rows, [](const VerificationRow& row) { return !row.Passed(); }));
}

std::string Verification::MeaningOf(const std::string& name) const {
  const auto found = std::ranges::find(terms, name, &VerificationTerm::name);
  return found == terms.end() ? std::string() : found->meaning;
}

std::string Verification::Verdict() const {
  const std::string all = std::to_string(rows.size());
  const int failures = Failures();
  if (failures == 0)
    return "All " + all + " results agree with the published ones to the digits that are needed.";
  return std::to_string(failures) + " of " + all + " results FAIL.";
}

std::filesystem::path VerificationFolder() { return SharedFolder() / "verification"; }

Verification Verify(const std::filesystem::path& folder) {
  const Table runs(folder / "runs.csv"), results(folder / "results.csv"),
      terms(folder / "terms.csv");
  Verification verification;
  for (int row = 1; row <= terms.Rows(); ++row)
    verification.terms.push_back({terms.At(row, "name"), terms.At(row, "meaning")});
  for (int row = 1; row <= runs.Rows(); ++row) {
    const std::string id = runs.At(row, "run");
    runs.Guarded(row, [&] {
      const VerificationRun run(runs, row, folder);
      for (int result = 1; result <= results.Rows(); ++result)
        if (results.At(result, "run") == id)
          verification.rows.push_back(
              results.Guarded(result, [&] { return run.Compare(results, result); }));
    });
  }
  if (verification.rows.size() != static_cast<std::size_t>(results.Rows()))
    throw std::runtime_error((folder / "results.csv").string() +
                             ": a result belongs to no run, or to several");
  return verification;
}

}  // namespace quorval
