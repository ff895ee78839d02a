#include "desktop/print_preview.h"

#include <QAction>
#include <QGuiApplication>
#include <QLocale>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QProgressDialog>
#include <QScreen>
#include <QToolBar>

#include "desktop/file_dialog.h"
#include "desktop/message_box.h"
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
  const auto path =
      AskSaveFile(parent, {.title = "Save as PDF", .filters = {"PDF document (*.pdf)|*.pdf"}});
  if (!path) return;
  if (!PrintToPdf(jobs, QLocale(), *path, printer.pageLayout()))
    ShowBox(parent, {.text = "The file could not be written.", .title = "Save as PDF"});
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
