#include "painting/cell_text.h"

#include "core/conversion.h"
#include "painting/qt_text.h"

namespace quorval {

bool ShowsNumber(const Cell& cell) {
  return cell.value.has_value() || (!cell.text.empty() && IsNumber(cell.text));
}

QString ShownText(std::string_view text, const QLocale& locale) {
  QString shown = ToQt(text);
  const QString sign = locale.decimalPoint();
  if (sign != u"." && IsNumber(text)) shown.replace(u'.', sign);
  return shown;
}

QString ShownText(const Cell& cell, const QLocale& locale) {
  return cell.Empty() ? QString() : ShownText(cell.Text(), locale);
}

QString StoredText(const QString& typed, const QLocale& locale) {
  const QString sign = locale.decimalPoint();
  if (sign == u"." || !typed.contains(sign)) return typed;
  QString number = typed;
  number.replace(sign, QStringLiteral("."));
  return IsNumber(FromQt(number)) ? number : typed;
}

}  // namespace quorval
