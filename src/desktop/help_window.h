#pragma once

#include <QMainWindow>
#include <filesystem>

#include "app/manual.h"

class QLineEdit;
class QListWidget;
class QTabWidget;
class QTextBrowser;
class QTreeWidget;

namespace quorval {

// The manual: its contents and a search beside the page that is read.
class HelpWindow : public QMainWindow {
  Q_OBJECT

 public:
  explicit HelpWindow(const std::filesystem::path& folder, QWidget* parent = nullptr);

  // A Markdown file; its path is relative to the manual's folder, or absolute.
  void ShowPage(const std::filesystem::path& file);
  void ShowContents();
  // The page of messages, at what it tells of a box.
  void ShowMessageEntry(const std::string& text);
  // Gives the page the whole width; the contents can be drawn back from the left edge.
  void ShowPageAlone();
  void ShowSearch();

  const Manual& manual() const { return manual_; }

 private:
  QWidget* MakeContents();
  QWidget* MakeSearch();
  void MakeToolbar();
  void Search(const QString& words);

  std::filesystem::path folder_;
  Manual manual_;
  QTextBrowser* page_;
  QTabWidget* tabs_;
  QTreeWidget* contents_ = nullptr;
  QLineEdit* words_ = nullptr;
  QListWidget* hits_ = nullptr;
};

}  // namespace quorval
