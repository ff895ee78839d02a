#include <QApplication>

#include "app/shared_folder.h"
#include "desktop/app_folder.h"
#include "desktop/main_window.h"
#include "desktop/qt_platform.h"
#include "painting/qt_text.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setOrganizationName("Quorval");
  QApplication::setApplicationName("Quorval");
  QApplication::setDesktopFileName("quorval");
  QApplication::setApplicationVersion(QUORVAL_VERSION);

  quorval::QtPlatform platform(quorval::SharedFolder());
  quorval::Workbench workbench(platform, quorval::AppFolder());
  quorval::MainWindow window(workbench, platform);
  platform.ShowNoticesBy([&window](const auto& notices) { window.ShowNotices(notices); });
  window.Start();
  if (const QStringList files = QApplication::arguments().mid(1); !files.isEmpty())
    window.TakeFile(quorval::FromQt(files.first()));
  return QApplication::exec();
}
