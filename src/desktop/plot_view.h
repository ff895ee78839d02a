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
  // Shows the plot that the results of `open` have under this name, which stays while the analysis
  // fills it anew.
  PlotView(Workbench& workbench, OpenAnalysis& open, std::string window, QWidget* parent = nullptr);

  // Draws the plot as its results now have it.
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
  void Draw(const Plot& plot);
  // What the user now sees of the axes becomes the plot's, for paper and files.
  void KeepView();
  QSize PictureSize() const;

  Workbench& workbench_;
  OpenAnalysis& open_;
  std::string window_;
  std::optional<Plot> drawn_;
  QCustomPlot* chart_;
  QWidget* tools_;
  QWidget* line_fields_;
  QLineEdit* intercept_;
  QLineEdit* slope_;
  QLabel* hint_;
  bool drawing_ = false;  // the axes move by our own hand
};

}  // namespace quorval
