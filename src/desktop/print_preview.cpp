#include "desktop/print_preview.h"

#include <QAction>
#include <QFileDialog>
#include <QGuiApplication>
#include <QLocale>
#include <QMessageBox>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QProgressDialog>
#include <QScreen>
#include <QToolBar>

#include "painting/page_painter.h"
#include "painting/qt_text.h"

namespace quorval {
namespace {

// Paints the jobs; a box to cancel with shows while it takes long.
bool PaintCancellably(std::span<const PrintJob> jobs, QPrinter& printer, QWidget* parent) {
  QProgressDialog progress(parent);
  progress.setWindowModality(Qt::WindowModal);
  progress.setMinimumDuration(1000);
  const bool painted =
      PaintJobs(jobs, QLocale(), printer, [&](const PrintJob& job, int page, int pages) {
        progress.setLabelText(ToQt(job.abort_message));
        progress.setMaximum(pages);
        progress.setValue(page - 1);
        return !progress.wasCanceled();
      });
  progress.reset();
  return painted;
}

void AskSavePdf(std::span<const PrintJob> jobs, const QPrinter& printer, QWidget* parent) {
  QFileDialog dialog(parent, QObject::tr("Save as PDF"));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setNameFilter(QObject::tr("PDF document (*.pdf)"));
  dialog.setDefaultSuffix(QStringLiteral("pdf"));
  if (dialog.exec() != QDialog::Accepted) return;
  const std::filesystem::path path = dialog.selectedFiles().first().toStdString();
  if (!PrintToPdf(jobs, QLocale(), path, printer.pageLayout()))
    QMessageBox::warning(parent, dialog.windowTitle(),
                         QObject::tr("The file could not be written."));
}

}  // namespace

bool ShowPrintPreview(QWidget* parent, std::span<const PrintJob> jobs) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageOrientation(PaperOf(jobs).orientation());
  if (!jobs.empty()) printer.setDocName(ToQt(jobs.front().name));
  QPrintPreviewDialog dialog(&printer, parent);
  bool painted = true;
  QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                   [&](QPrinter* target) { painted = PaintCancellably(jobs, *target, &dialog); });
  if (auto* const bar = dialog.findChild<QToolBar*>()) {
    QAction* const save = bar->addAction(QObject::tr("Save as PDF..."));
    QObject::connect(save, &QAction::triggered, &dialog,
                     [&] { AskSavePdf(jobs, printer, &dialog); });
  }
  dialog.resize(dialog.screen()->availableSize().boundedTo({900, 1000}));
  dialog.exec();
  return painted;
}

}  // namespace quorval
