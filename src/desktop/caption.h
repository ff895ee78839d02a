#pragma once

#include <QFontMetrics>
#include <QString>
#include <QWidget>
#include <string_view>

#include "painting/qt_text.h"

namespace quorval {

// For a caption of a widget in which an ampersand is a character and no mnemonic.
inline QString PlainCaption(std::string_view text) {
  return ToQt(text).replace(QLatin1String("&"), QLatin1String("&&"));
}

// A width in which the window's whole title is seen, beside the buttons of its title bar.
inline int TitleWidth(const QWidget& window) {
  constexpr int kTitleButtons = 150;
  return window.fontMetrics().horizontalAdvance(window.windowTitle()) + kTitleButtons;
}

}  // namespace quorval
