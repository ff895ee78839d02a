#pragma once

#include <string>

namespace quorval::test {

// The folder tests/data.
std::string DataFolder();

}  // namespace quorval::test
