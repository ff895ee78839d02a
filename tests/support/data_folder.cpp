#include "support/data_folder.h"

namespace quorval::test {

std::string DataFolder() { return TEST_DATA; }

}  // namespace quorval::test
