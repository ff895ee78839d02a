#include "desktop/app_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include "painting/qt_text.h"

namespace quorval {

std::filesystem::path AppFolder() {
  const QString program = QCoreApplication::applicationDirPath();
  if (QFileInfo(program).isWritable()) return FromQt(program);
  const QString data = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
  QDir().mkpath(data);
  return FromQt(data);
}

}  // namespace quorval
