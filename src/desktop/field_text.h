#pragma once

#include <QLocale>
#include <QString>
#include <string>

namespace quorval {

// What the user typed into a field of a dialog, with a point for the locale's decimal sign in the
// number that the text starts with; else as it is.
std::string StoredFieldText(const QString& typed, const QLocale& locale);

}  // namespace quorval
