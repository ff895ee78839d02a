// The samples that the tests of reference intervals run on.
#pragma once

#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "analyses/registry.h"
#include "support/data_file.h"
#include "support/data_folder.h"
#include "support/transcript.h"

namespace quorval::reference {

using Values = std::vector<std::string>;

// carbamide.csv, and reference_samples.csv by the names in its header.
inline std::map<std::string, Values> ReadSamples() {
  std::map<std::string, Values> samples{{"carbamide", test::ReadDataFile("carbamide.csv")[0]}};
  const auto columns = test::ReadDataFile("reference_samples.csv");
  std::ifstream file(test::DataFile("reference_samples.csv"));
  std::string header, name;
  std::getline(file, header);
  std::istringstream names(header);
  for (std::size_t i = 0; std::getline(names, name, ','); ++i) samples[name] = columns[i];
  return samples;
}

// `count` times `value`, then the other values.
inline Values Repeated(std::size_t count, const std::string& value, const Values& others = {}) {
  Values values(count, value);
  values.insert(values.end(), others.begin(), others.end());
  return values;
}

inline Context WithDecimals(const std::string& decimals) {
  Context context;
  context.NDec = decimals;
  return context;
}

inline test::Transcript RunReference(const Values& values, test::Settings settings = {},
                                     const Context& context = {}) {
  return test::RunAnalysis(kReference, {values}, settings, context);
}

inline test::Transcript RunProcedure(const Values& values, const std::string& procedure,
                                     test::Settings settings = {}) {
  settings.emplace_back("procedure", procedure);
  return RunReference(values, settings);
}

}  // namespace quorval::reference
