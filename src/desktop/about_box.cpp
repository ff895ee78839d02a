#include "desktop/about_box.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QIcon>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QScreen>
#include <QSysInfo>
#include <QThread>
#include <QVBoxLayout>

#include "app/main_menu.h"
#include "desktop/verification_view.h"
#include "painting/qt_text.h"

namespace quorval {
namespace {

QString Screen() {
  const QScreen* const screen = QApplication::primaryScreen();
  const QSize size = screen->size();
  return QString("%1 x %2, scale %3")
      .arg(size.width())
      .arg(size.height())
      .arg(screen->devicePixelRatio());
}

QFormLayout* SystemInformation() {
  auto* const rows = new QFormLayout;
  rows->addRow("Version:", new QLabel(QUORVAL_VERSION));
  rows->addRow("System:", new QLabel(QSysInfo::prettyProductName()));
  rows->addRow("Kernel:", new QLabel(QSysInfo::kernelType() + " " + QSysInfo::kernelVersion()));
  rows->addRow("Processor:", new QLabel(QString("%1, %2 cores")
                                            .arg(QSysInfo::currentCpuArchitecture())
                                            .arg(QThread::idealThreadCount())));
  rows->addRow("Screen:", new QLabel(Screen()));
  rows->addRow(
      "Language:",
      new QLabel(
          QString("%1, decimal sign \"%2\"").arg(QLocale().name(), QLocale().decimalPoint())));
  rows->addRow("Qt:", new QLabel(qVersion()));
  return rows;
}

}  // namespace

void ShowAboutBox(QWidget* parent) {
  auto* const box = new QDialog(parent);
  box->setObjectName("about");
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->setWindowTitle("About Quorval");
  auto* const name = new QLabel("<h2>" + ToQt(kProductName).trimmed() + "</h2>");
  auto* const icon = new QLabel;
  icon->setPixmap(QIcon(":/icons/quorval.svg").pixmap(64));
  auto* const head = new QHBoxLayout;
  head->addWidget(icon);
  head->addWidget(name, 1);
  auto* const layout = new QVBoxLayout(box);
  layout->addLayout(head);
  layout->addWidget(new QLabel(ToQt(kProductLine)));
  layout->addLayout(SystemInformation());
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok);
  auto* const verification =
      buttons->addButton("&Verification report", QDialogButtonBox::ActionRole);
  QObject::connect(verification, &QPushButton::clicked, box, [box, parent] {
    box->accept();
    ShowVerification(parent);
  });
  layout->addWidget(buttons);
  QObject::connect(buttons, &QDialogButtonBox::accepted, box, &QDialog::accept);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  box->open();
}

}  // namespace quorval
