#pragma once

#include <string>

namespace quorval::test {

// A file of tests/data, else one of the published sets in verification/.
std::string DataFile(const std::string& name);

// The folder verification/.
std::string PublishedFolder();

}  // namespace quorval::test
