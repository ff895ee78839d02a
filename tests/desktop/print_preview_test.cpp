#include "desktop/print_preview.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolBar>
#include <fstream>

#include "core/worksheet.h"
#include "results/print.h"

namespace quorval {
namespace {

// Does something with the dialog of this kind once it is shown.
template <class Dialog, class Work>
void WhenShown(Work work) {
  QTimer::singleShot(50, [work] {
    if (auto* const dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget()))
      work(*dialog);
    else
      WhenShown<Dialog>(work);
  });
}

TEST(PrintPreview, ShowsThePagesAndSavesThemAsPdf) {
  const QTemporaryDir directory;
  const QString file = directory.filePath(" pages.pdf");
  Worksheet worksheet;
  for (int row = 1; row <= 150; ++row) worksheet.SetValue(1, row, row);
  const PrintJob job = SheetPage(worksheet.grid(), "/cQuorval - Data/rPage #/p/n");
  int pages = 0;
  WhenShown<QPrintPreviewDialog>([&](QPrintPreviewDialog& preview) {
    pages = preview.findChild<QPrintPreviewWidget*>()->pageCount();
    WhenShown<QFileDialog>([&](QFileDialog& dialog) {
      dialog.findChild<QLineEdit*>()->setText(file);
      static_cast<QDialog&>(dialog).accept();
    });
    for (QAction* action : preview.findChild<QToolBar*>()->actions())
      if (action->text() == "Save as PDF...") action->trigger();
    preview.reject();
  });
  EXPECT_TRUE(ShowPrintPreview(nullptr, {&job, 1}));
  EXPECT_GT(pages, 1);
  std::ifstream pdf(file.toStdString());
  std::string head(5, ' ');
  pdf.read(head.data(), 5);
  EXPECT_EQ(head, "%PDF-");
}

}  // namespace
}  // namespace quorval
