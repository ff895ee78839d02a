#include "desktop/plot_view.h"

#include <qcustomplot.h>

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "core/conversion.h"
#include "core/file_name.h"
#include "desktop/file_dialog.h"
#include "desktop/mnemonics.h"
#include "painting/cell_text.h"
#include "painting/chart.h"
#include "painting/picture.h"
#include "painting/qt_text.h"

namespace quorval {
namespace {

// What the window keeps for its buttons, in twips; the chart has the rest.
constexpr int kTwipsPerPixel = 15;
constexpr int kWidthKept = 700, kHeightKept = 1360;
constexpr int kToolsHeight = 68;  // pixels, above the chart

int Remainder(int pixels, int kept_twips) {
  return std::max(0, (pixels * kTwipsPerPixel - kept_twips) / kTwipsPerPixel);
}

QLineEdit* NumberField(const QString& name) {
  auto* field = new QLineEdit;
  field->setObjectName(name);
  field->setAccessibleName(name);
  field->setReadOnly(true);
  return field;
}

QHBoxLayout* Row() {
  auto* row = new QHBoxLayout;
  row->setContentsMargins(0, 0, 0, 0);
  return row;
}

}  // namespace

PlotView::PlotView(Workbench& workbench, OpenAnalysis& open, std::string window, QWidget* parent)
    // A dialog stays above the results that it belongs to, which fill the screen.
    : QWidget(parent, Qt::Dialog | Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint),
      workbench_(workbench),
      open_(open),
      window_(std::move(window)),
      chart_(new QCustomPlot(this)),
      tools_(new QWidget(this)),
      hint_(new QLabel(tr("Zoom: wheel, or drag a frame.  Move: drag with Shift."), this)) {
  setObjectName(ToQt(window_));
  auto* rows = new QVBoxLayout(tools_);
  rows->setContentsMargins(0, 2, 0, 2);
  rows->setSpacing(2);
  rows->addWidget(BuildButtons());
  rows->addWidget(BuildLineFields());
  hint_->setForegroundRole(QPalette::PlaceholderText);
  LetZoomAndMove();
  Refresh();
}

QAction* PlotView::AddCommand(const QString& text, void (PlotView::*command)()) {
  auto* action = new QAction(text, this);
  connect(action, &QAction::triggered, this, command);
  chart_->addAction(action);
  return action;
}

QWidget* PlotView::BuildButtons() {
  chart_->setContextMenuPolicy(Qt::ActionsContextMenu);
  QAction* const copy = AddCommand(tr("Copy"), &PlotView::Copy);
  copy->setShortcut(QKeySequence::Copy);
  QAction* const save = AddCommand(tr("Save picture as..."), &PlotView::AskSavePicture);
  save->setShortcut(QKeySequence::Save);
  QAction* const reset = AddCommand(tr("Reset view"), &PlotView::ResetView);
  auto* buttons = new QWidget;
  QHBoxLayout* const row = Row();
  for (QAction* action : {copy, save, reset}) {
    auto* button = new QPushButton(action->text());
    button->setObjectName(action->text());
    connect(button, &QPushButton::clicked, action, &QAction::trigger);
    row->addWidget(button);
  }
  row->addStretch();
  buttons->setLayout(row);
  const Plot* const plot = Find();
  if (plot != nullptr && open_.results->DeclarationOf(*plot).goes_to_sheet)
    AddCommand(tr("Add to results sheet"), &PlotView::AddToSheet);
  return buttons;
}

QWidget* PlotView::BuildLineFields() {
  line_fields_ = new QWidget;
  intercept_ = NumberField(tr("Intercept"));
  slope_ = NumberField(tr("Slope"));
  auto* redraw = new QPushButton(tr("Redraw lines"));
  redraw->setObjectName(redraw->text());
  connect(redraw, &QPushButton::clicked, this, &PlotView::RedrawLines);
  QHBoxLayout* const row = Row();
  for (QLineEdit* field : {intercept_, slope_}) {
    auto* label = new QLabel(field->accessibleName() + u':');
    label->setBuddy(field);
    row->addWidget(label);
    row->addWidget(field, 1);
  }
  row->addWidget(redraw);
  line_fields_->setLayout(row);
  return line_fields_;
}

void PlotView::LetZoomAndMove() {
  chart_->setInteractions(QCP::iRangeDrag | QCP::iRangeZoom);
  connect(chart_, &QCustomPlot::mousePress, this, [this](const QMouseEvent* event) {
    const bool frame =
        event->button() == Qt::LeftButton && !event->modifiers().testFlag(Qt::ShiftModifier);
    chart_->setSelectionRectMode(frame ? QCP::srmZoom : QCP::srmNone);
  });
  connect(chart_, &QCustomPlot::mouseDoubleClick, this, &PlotView::ResetView);
  for (QCPAxis* axis : {chart_->xAxis, chart_->yAxis})
    connect(axis, qOverload<const QCPRange&>(&QCPAxis::rangeChanged), this, &PlotView::KeepView);
}

Plot* PlotView::Find() { return open_.results ? open_.results->FindPlot(window_) : nullptr; }

void PlotView::Draw(const Plot& plot) {
  drawn_ = plot;
  drawing_ = true;
  DrawPlot(plot, *chart_);
  drawing_ = false;
  chart_->replot();
}

void PlotView::KeepView() {
  Plot* const plot = Find();
  if (drawing_ || plot == nullptr) return;
  const QCPRange x = chart_->xAxis->range(), y = chart_->yAxis->range();
  plot->view = drawn_->view = View{x.lower, x.upper, y.lower, y.upper};
}

void PlotView::Refresh() {
  const Plot* plot = Find();
  if (plot == nullptr || (drawn_ && *drawn_ == *plot)) return;
  setWindowTitle(ToQt(plot->caption));
  line_fields_->setVisible(plot->lines.has_value());
  GiveMnemonics(*this);
  if (plot->lines) {
    intercept_->setText(ShownText(ShortestText(plot->lines->a0), locale()));
    slope_->setText(ShownText(ShortestText(plot->lines->b), locale()));
    for (QLineEdit* field : {intercept_, slope_}) field->setCursorPosition(0);
  }
  Draw(*plot);
}

void PlotView::Copy() { QGuiApplication::clipboard()->setImage(ImageOf(*chart_, PictureSize())); }

bool PlotView::SavePicture(const std::filesystem::path& path) {
  return WritePicture(*chart_, PictureSize(), path);
}

void PlotView::AskSavePicture() {
  const std::string title = FromQt(windowTitle());
  const auto path =
      AskSaveFile(this, {.title = "Save picture as",
                         .filters = {"PNG picture (*.png)|*.png", "SVG drawing (*.svg)|*.svg",
                                     "PDF document (*.pdf)|*.pdf"},
                         .proposed_name = FileNameOf(FromQt(windowTitle().trimmed()))});
  if (path && !SavePicture(*path))
    workbench_.platform().Show({.text = "The picture could not be saved.", .title = title});
}

void PlotView::ResetView() {
  Plot* const plot = Find();
  if (plot == nullptr) return;
  plot->view.reset();
  Draw(*plot);
}

void PlotView::RedrawLines() {
  Plot* const plot = Find();
  if (plot == nullptr || !plot->lines) return;
  try {
    const QCPRange x = chart_->xAxis->range();
    plot->RedrawLines(x.lower, x.upper);
  } catch (const Fault&) {
    workbench_.platform().Show({.text = "Error", .title = FromQt(windowTitle())});
    return;
  }
  KeepView();  // the longer lines do not move the axes
  Draw(*plot);
}

void PlotView::AddToSheet() {
  const Plot* plot = Find();
  if (plot == nullptr) return;
  workbench_.AddPlotToSheet(open_, *plot);
  emit AddedToSheet();
}

// The chart as the user sees it.
QSize PlotView::PictureSize() const {
  return chart_->size().isEmpty() ? QSize(720, 480) : chart_->size();
}

QSize PlotView::sizeHint() const { return {620, 500}; }

void PlotView::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  const int left = kWidthKept / kTwipsPerPixel / 2;
  const QSize size(Remainder(width(), kWidthKept), Remainder(height(), kHeightKept));
  tools_->setGeometry(left, 0, std::max(0, width() - 2 * left), kToolsHeight);
  chart_->setVisible(!size.isEmpty());
  chart_->setGeometry(QRect({left, kToolsHeight}, size));
  const int below = kToolsHeight + size.height();
  hint_->setGeometry(left, below, tools_->width(), std::max(0, height() - below));
}

}  // namespace quorval
