// Published data sets with published results: run through the analyses, and compared.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace quorval {

// One published number, and what the program computes in its place.
struct VerificationRow {
  std::string data{}, source{};
  std::string analysis{}, settings{};  // its id, and what its dialog was set to
  std::string quantity{};
  std::string published{};           // as it is printed there
  std::string tolerance{};           // the name of the reason for `needed`
  double needed = 0;                 // digits of agreement
  std::optional<double> computed{};  // none where the results sheet has no such number
  std::string messages{};            // what the analysis told
  double digits = 0;                 // of agreement

  bool Passed() const { return computed && digits >= needed; }
};

// What the short name of a source or of a tolerance stands for.
struct VerificationTerm {
  std::string name, meaning;
};

struct Verification {
  std::vector<VerificationRow> rows{};
  std::vector<VerificationTerm> terms{};

  int Failures() const;
  // Empty where there is no such term.
  std::string MeaningOf(const std::string& name) const;
  // "All 120 results agree ...", or how many do not.
  std::string Verdict() const;
};

// The folder that comes with the program.
std::filesystem::path VerificationFolder();

// Runs the data sets of a folder whose README.md tells its tables.  Throws a std::runtime_error
// that names the file where a table or a data file cannot be used.
Verification Verify(const std::filesystem::path& folder);

}  // namespace quorval
