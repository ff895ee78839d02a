#include "desktop/verification_view.h"

#include <QHeaderView>
#include <QMenuBar>
#include <QScreen>
#include <QTableView>
#include <stdexcept>

#include "app/verification_sheet.h"
#include "desktop/message_box.h"
#include "desktop/print_preview.h"
#include "desktop/sheet_model.h"
#include "painting/qt_text.h"

namespace quorval {
namespace {

constexpr auto kTitle = "Verification report";
constexpr int kRowPadding = 6, kScrollBar = 30, kHeight = 680;

// Joins the cells that a text runs over to the sheet's edge.
void LetTextsOverflow(const Grid& report, QTableView& table) {
  for (int row = 1; row <= report.DataRowCnt(); ++row)
    for (int column = 1; column <= report.DataColCnt(); ++column)
      if (const Cell& cell = report.At(column, row); cell.look.overflow && !cell.Empty())
        table.setSpan(row - 1, column - 1, 1, report.Columns() - column + 1);
}

}  // namespace

VerificationView::VerificationView(Grid report, QWidget* parent)
    : QMainWindow(parent), report_(std::move(report)) {
  setObjectName("verification");
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowTitle(kTitle);
  report_.SetRows(report_.DataRowCnt());
  auto* const table = new QTableView;
  table->setModel(new SheetModel(report_, 1, table));
  table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table->setAccessibleName(kTitle);
  table->horizontalHeader()->hide();
  table->verticalHeader()->hide();
  LetTextsOverflow(report_, *table);
  table->resizeColumnsToContents();
  table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + kRowPadding);
  setCentralWidget(table);
  QMenu* const file = menuBar()->addMenu("&File");
  file->addAction("&Print", QKeySequence::Print, this, &VerificationView::Print);
  file->addAction("&Exit", QKeySequence::Close, this, &QWidget::close);
  const QSize wanted(table->horizontalHeader()->length() + kScrollBar, kHeight);
  resize(wanted.boundedTo(screen()->availableSize()));
}

void VerificationView::Print() {
  const PrintJob pages = VerificationPages(report_);
  ShowPrintPreview(this, {&pages, 1});
}

void ShowVerification(QWidget* parent) {
  try {
    (new VerificationView(VerificationSheet(Verify(VerificationFolder())), parent))->show();
  } catch (const std::runtime_error& error) {
    ShowBox(parent, {.text = error.what(), .title = kTitle});
  }
}

}  // namespace quorval
