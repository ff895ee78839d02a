#pragma once

#include <QDialog>
#include <QLocale>
#include <functional>
#include <vector>

#include "core/form.h"
#include "core/notice.h"

class QButtonGroup;
class QGridLayout;
class QGroupBox;
class QLabel;
class QVBoxLayout;

namespace quorval {

class NoticeStrip;

// Any options dialog over its form: a widget for each field.  It decides nothing: what OK and
// Cancel mean is for the one who shows it.
class DialogView : public QDialog {
  Q_OBJECT

 public:
  // `dialog` is the form's own or one behind a button of it.  Numbers are shown and typed with the
  // locale's decimal sign.
  DialogView(Form& form, const Dialog& dialog, QWidget* parent, const QLocale& locale = QLocale());

  // Shows what the form holds and what is shown, grey and renamed while it holds that.
  void Refresh();
  // What the last press of OK noted.
  void ShowNotices(const Notices& notices);

  void accept() override { emit OkPressed(); }
  void reject() override { emit Cancelled(); }

 signals:
  void OkPressed();
  void Cancelled();
  void HelpWanted();

 private:
  // A field with its widgets; `show` writes the form's text into the editor.
  struct Row {
    const Field* field;
    QLabel* caption;
    std::vector<QWidget*> widgets;
    std::function<void(const std::string&)> show;
  };

  void AddFields(QVBoxLayout& layout);
  void AddField(const Field& field, QGridLayout& grid);
  Row TextRow(const Field& field, QGridLayout& grid);
  Row ChoiceRow(const Field& field, QGridLayout& grid);
  Row CheckRow(const Field& field, QGridLayout& grid);
  Row NoteRow(const Field& field, QGridLayout& grid);
  Row ButtonRow(const Field& field, QGridLayout& grid);
  QLabel* AddLabel(std::string_view text, QGridLayout& grid, int columns);
  QWidget* AddEditor(const Field& field, Row& row);
  void AddBeside(const Field& choices, const Choice& choice, QGridLayout& grid, int line);
  void AddButtons(QVBoxLayout& layout);
  void OrderTabs();
  void OpenNested(const Dialog& dialog);
  void Change(const Field& field, std::string_view text);

  Form& form_;
  const Dialog& dialog_;
  QLocale locale_;
  std::vector<Row> rows_;
  std::vector<QGroupBox*> groups_;
  NoticeStrip* notices_;
};

}  // namespace quorval
