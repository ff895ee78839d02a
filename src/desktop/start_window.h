#pragma once

#include <QWidget>
#include <filesystem>
#include <vector>

class QVBoxLayout;

namespace quorval {

class ProjectFiles;

// What is seen for a moment at the start.  It closes by its timer or a click, and is deleted then.
// Where work of an earlier run was kept it offers that, and stays until all is taken or discarded;
// a click beside the buttons, or Escape, puts it off to the next start.
class StartWindow : public QWidget {
  Q_OBJECT

 public:
  StartWindow(ProjectFiles& files, QWidget* parent);

 signals:
  // The project is the one that was kept.
  void Recovered();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Offer(const std::vector<std::filesystem::path>& copies);
  void MakeOffer(const std::filesystem::path& copy, QVBoxLayout& lines);
  void CloseAfter(QWidget& offer);

  ProjectFiles& files_;
  int offers_ = 0;
};

}  // namespace quorval
