#pragma once

#include <QLocale>
#include <QString>
#include <string_view>

#include "core/grid.h"

namespace quorval {

// Whether a cell shows a number, and so stands on the right of its column.
bool ShowsNumber(const Cell& cell);

// A number has the locale's decimal sign and no thousands mark; any other text stands as it is.
QString ShownText(std::string_view text, const QLocale& locale);
// What a cell shows where the locale is.
QString ShownText(const Cell& cell, const QLocale& locale);

// What the user typed or pasted, with a point for the locale's decimal sign where the whole text is
// a number by it; else as it is.
QString StoredText(const QString& typed, const QLocale& locale);

}  // namespace quorval
