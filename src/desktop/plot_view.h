// A plot window: the chart, its buttons and, where a plot has them, the fields of its lines.
#pragma once

#include <QWidget>
#include <string>

#include "app/workbench.h"

class QAction;
class QCustomPlot;
class QLabel;
class QLineEdit;

namespace quorval {

class PlotView : public QWidget {
  Q_OBJECT

 public:
  // Shows the plot of this window; its name stays while an analysis fills it anew.
  PlotView(Workbench& workbench, std::string window, QWidget* parent = nullptr);

  // Draws the plot as the workbench now has it.  One that is unchanged keeps the user's view.
  void Refresh();

  void Copy();
  // By the path's extension; false when the file cannot be written.
  bool SavePicture(const std::filesystem::path& path);
  void ResetView();
  void RedrawLines();
  void AddToSheet();

  QCustomPlot& chart() { return *chart_; }
  QSize sizeHint() const override;

 signals:
  void AddedToSheet();

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  QAction* AddCommand(const QString& text, void (PlotView::*command)());
  QWidget* BuildButtons();
  QWidget* BuildLineFields();
  void LetZoomAndMove();
  void AskSavePicture();
  Plot* Find();
  QSize PictureSize() const;

  Workbench& workbench_;
  std::string window_;
  std::optional<Plot> drawn_;
  QCustomPlot* chart_;
  QWidget* tools_;
  QWidget* line_fields_;
  QLineEdit* intercept_;
  QLineEdit* slope_;
  QLabel* hint_;
  std::pair<double, double> whole_x_, whole_y_;  // the ends of the axes in the whole view
};

}  // namespace quorval
