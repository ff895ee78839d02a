#include "support/data_folder.h"

#include <filesystem>

namespace quorval::test {

std::string DataFile(const std::string& name) {
  const std::string own = TEST_DATA "/" + name;
  return std::filesystem::exists(own) ? own : PublishedFolder() + "/" + name;
}

std::string PublishedFolder() { return PUBLISHED_DATA; }

}  // namespace quorval::test
