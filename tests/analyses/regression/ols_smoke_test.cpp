#include <gtest/gtest.h>
#include <iostream>
#include "analyses/registry.h"
#include "app/example_data.h"
#include "support/transcript.h"
using namespace quorval;
using namespace quorval::test;
TEST(Smoke, Ols) {
  const auto t =
      RunAnalysis(regression::kOls, {TextsOf(example_data::kA), TextsOf(example_data::kB)});
  for (int r = 1; r < 60; ++r) {
    for (int c = 1; c < 5; ++c) std::cout << t.Text(r, c) << " | ";
    std::cout << "\n";
  }
  for (auto& b : t.boxes) std::cout << b << "\n";
}
