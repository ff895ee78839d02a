// The batch program as a process.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace quorval::test {

struct Ended {
  int status = -1;  // -1: it did not end by itself
  std::string out, err;
};
using Arguments = std::vector<std::string>;

// Runs quorval-batch without a display and waits for its end.
Ended RunProgram(const Arguments& arguments);

// The same with "--json -"; the object that it prints.
struct Answered {
  int status;
  std::string err;
  nlohmann::ordered_json json;
};
Answered RunForJson(Arguments arguments);

// "message: " lines of standard error.
std::string MessageLines(const std::vector<std::string>& texts);
// Those among others.
std::string MessagesIn(const std::string& err);

}  // namespace quorval::test
