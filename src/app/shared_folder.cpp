#include "app/shared_folder.h"

namespace quorval {

std::filesystem::path ProgramFolder() {
  return std::filesystem::read_symlink("/proc/self/exe").parent_path();
}

std::filesystem::path SharedFolder() { return ProgramFolder().parent_path() / "share" / "quorval"; }

}  // namespace quorval
