#include "desktop/field_text.h"

#include <QRegularExpression>

#include "painting/qt_text.h"

namespace quorval {

std::string StoredFieldText(const QString& typed, const QLocale& locale) {
  const QString sign = QRegularExpression::escape(locale.decimalPoint());
  const QRegularExpression start("^(\\s*[+-]?)(?:(\\d+)" + sign + "|" + sign + "(?=\\d))");
  return FromQt(QString(typed).replace(start, "\\1\\2."));
}

}  // namespace quorval
