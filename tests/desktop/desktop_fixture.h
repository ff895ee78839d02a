// A workbench with its main window, on a machine that answers from a list and prints into a file.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <filesystem>

#include "desktop/main_window.h"
#include "desktop/mnemonics.h"
#include "desktop/sheet_view.h"
#include "painting/page_painter.h"
#include "painting/qt_text.h"
#include "support/scripted_platform.h"

namespace quorval::test {

struct PdfPlatform : ScriptedPlatform {
  std::filesystem::path pdf;

  bool Print(std::span<const PrintJob> jobs) override {
    ScriptedPlatform::Print(jobs);
    return PrintToPdf(jobs, QLocale::c(), pdf);
  }
};

// The tests speak of a decimal point, whatever the machine they run on.
struct PointLocale {
  PointLocale() { QLocale::setDefault(QLocale::c()); }
};

class Desktop : public testing::Test {
 private:
  PointLocale locale_;  // before the windows, which ask for it

 protected:
  Desktop() {
    std::filesystem::create_directories(folder);
    platform.pdf = folder / "printed.pdf";
    window.resize(1000, 700);
    window.show();
    QApplication::setActiveWindow(&window);
  }
  ~Desktop() override {
    window.close();
    Settle();
    std::filesystem::remove_all(folder);
  }

  // Lets queued events run, and what was dropped go.
  static void Settle() {
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::processEvents();
  }

  // The menu entry of this caption in a window, submenus too; null where there is none.
  static QAction* Entry(const QMainWindow& of, const QString& caption) {
    for (QMenu* menu : of.menuBar()->findChildren<QMenu*>())
      for (QAction* action : menu->actions())
        if ((action->text() == caption || Unmarked(action->text()) == caption) &&
            action->menu() == nullptr)
          return action;
    return nullptr;
  }
  void Choose(const QMainWindow& in, const QString& caption) {
    QAction* const entry = Entry(in, caption);
    ASSERT_NE(entry, nullptr) << caption.toStdString();
    ASSERT_TRUE(entry->isEnabled()) << caption.toStdString();
    entry->trigger();
    Settle();
  }

  // The window of this name that is shown; null where there is none.
  template <class View = QWidget>
  static View* Shown(const QString& name) {
    for (QWidget* widget : QApplication::topLevelWidgets())
      if (widget->objectName() == name && widget->isVisible()) return qobject_cast<View*>(widget);
    return nullptr;
  }

  template <class Editor>
  static Editor& In(const QWidget& view, const QString& name) {
    auto* const editor = view.findChild<Editor*>(name);
    if (editor == nullptr) throw std::out_of_range(name.toStdString());
    return *editor;
  }

  static QString CellText(const SheetView& sheet, int column, int row) {
    return sheet.model()->index(row - 1, column - 1).data().toString();
  }
  static void GoTo(SheetView& sheet, int column, int row) {
    sheet.setCurrentIndex(sheet.model()->index(row - 1, column - 1));
  }
  // Keys as a user types them: into the cell's editor while one is open.
  static void Type(SheetView& sheet, const QString& text, Qt::Key end = Qt::Key_unknown) {
    for (QChar c : text) QTest::keyClicks(KeyTarget(sheet), QString(c));
    if (end != Qt::Key_unknown) Press(sheet, end);
  }
  static void Press(SheetView& sheet, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(KeyTarget(sheet), key, modifiers);
    Settle();
  }

  std::filesystem::path folder =
      std::filesystem::temp_directory_path() /
      ("quorval-" + std::to_string(QCoreApplication::applicationPid()) + "-" +
       testing::UnitTest::GetInstance()->current_test_info()->name());
  PdfPlatform platform;
  Workbench workbench{platform, folder};
  MainWindow window{workbench, platform};

 private:
  static QWidget* KeyTarget(SheetView& sheet) {
    auto* const editor = sheet.viewport()->findChild<QWidget*>();
    return editor != nullptr ? editor : static_cast<QWidget*>(&sheet);
  }
};

}  // namespace quorval::test
