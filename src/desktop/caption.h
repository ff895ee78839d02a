#pragma once

#include <QString>
#include <string_view>

#include "painting/qt_text.h"

namespace quorval {

// For a caption of a widget in which an ampersand is a character and no mnemonic.
inline QString PlainCaption(std::string_view text) {
  return ToQt(text).replace(QLatin1String("&"), QLatin1String("&&"));
}

}  // namespace quorval
