// Finding by name what the command line names.
#pragma once

#include <string_view>

#include "analyses/registry.h"
#include "app/examples.h"
#include "app/tools/tool.h"

namespace quorval {

// All throw Unusable where there is none of this name.
MenuEntry AnalysisNamed(std::string_view id);
const Tool& ToolNamed(std::string_view id);
const Example& ExampleNamed(std::string_view menu);

}  // namespace quorval
