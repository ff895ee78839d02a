// Every analysis through its windows, against the program that has none, and every control by name
// and key.
#include <qcustomplot.h>

#include <QAccessible>
#include <QCheckBox>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QShortcut>
#include <set>

#include "analyses/registry.h"
#include "desktop/dialog_view.h"
#include "desktop/mnemonics.h"
#include "desktop/plot_view.h"
#include "desktop/results_view.h"
#include "desktop_fixture.h"
#include "support/example_runs.h"

namespace quorval {
namespace {

class AllAnalysesTest : public test::Desktop, public testing::WithParamInterface<test::ExampleRun> {
 protected:
  // Fields of a dialog behind a button are set as that dialog does.
  void Set(const DialogView& dialog, const std::string& key, const std::string& value) {
    const QString name = ToQt(key), text = ToQt(value);
    if (auto* const line = dialog.findChild<QLineEdit*>(name)) {
      line->selectAll();
      QTest::keyClick(line, Qt::Key_Delete);
      QTest::keyClicks(line, text);
    } else if (auto* const box = dialog.findChild<QCheckBox*>(name)) {
      if (box->isChecked() != (value == "on")) box->click();
    } else if (auto* const button = dialog.findChild<QRadioButton*>(name + "=" + text)) {
      button->click();
    } else {
      workbench.open().back().form.Set(key, value);
    }
  }

  static QJsonObject BatchRun(const test::ExampleRun& wanted) {
    QStringList words{"run", ToQt(wanted.analysis), "--demo", ToQt(wanted.example), "--json", "-"};
    for (const auto& [key, value] : wanted.settings) words << "--set" << ToQt(key + "=" + value);
    QProcess program;
    program.start(QUORVAL_BATCH, words);
    program.waitForFinished();
    return QJsonDocument::fromJson(program.readAllStandardOutput()).object();
  }
};

// What the table shows, cell by cell.
void ExpectSheet(const QAbstractItemModel& shown, const QJsonArray& cells) {
  for (const auto& value : cells) {
    const QJsonObject cell = value.toObject();
    const QModelIndex at = shown.index(cell["row"].toInt() - 1, cell["column"].toInt() - 1);
    EXPECT_EQ(at.data().toString(), cell["text"].toString());
    EXPECT_EQ(at.data(Qt::FontRole).value<QFont>().bold(), cell["bold"].toBool());
    if (cell.contains("value")) {
      EXPECT_EQ(at.data(Qt::EditRole).toString().toDouble(), cell["value"].toDouble());
    }
  }
  qsizetype filled = 0;
  for (int row = 0; row < 500; ++row)
    for (int column = 0; column < 30; ++column)
      if (!shown.index(row, column).data().toString().isEmpty()) ++filled;
  EXPECT_EQ(filled, cells.size());
}

using Points = std::vector<std::pair<double, double>>;

template <class Plottable>
Points PointsOf(const Plottable& drawn) {
  Points points;
  for (const auto& point : *drawn.data()) points.emplace_back(point.key, point.value);
  return points;
}

// Bars that stand side by side are drawn beside their values.
void ExpectChart(QCustomPlot& chart, const Plot& plot, const QJsonArray& series) {
  ASSERT_EQ(chart.plottableCount(), series.size());
  for (int i = 0; i < series.size(); ++i) {
    const QJsonArray x = series[i]["x"].toArray(), y = series[i]["y"].toArray();
    const double offset = Raw(plot.series[static_cast<std::size_t>(i)].offset);
    Points points;
    for (int k = 0; k < x.size(); ++k)
      points.emplace_back(x[k].toDouble() + offset, y[k].toDouble());
    const QCPAbstractPlottable* const drawn = chart.plottable(i);
    const auto* const bars = qobject_cast<const QCPBars*>(drawn);
    EXPECT_EQ(bars ? PointsOf(*bars) : PointsOf(*qobject_cast<const QCPCurve*>(drawn)), points)
        << i;
  }
}

TEST_P(AllAnalysesTest, ShowsWhatTheProgramWithoutWindowsWrites) {
  if (GetParam().reanalysed) GTEST_SKIP() << "the window asks before it repeats a run";
  const QJsonObject told = BatchRun(GetParam());
  ASSERT_EQ(told["status"].toString(), "done");
  Choose(window, GetParam().example.c_str());
  const Analysis& analysis = *FindAnalysis(GetParam().analysis);
  Desk desk(workbench, window);
  desk.Open(analysis);
  auto* const dialog = Shown<DialogView>(ToQt(analysis.dialog->window));
  ASSERT_NE(dialog, nullptr);
  for (const auto& [key, value] : GetParam().settings) Set(*dialog, key, value);
  In<QPushButton>(*dialog, "ok").click();
  Settle();

  const QJsonObject sheet = told["results"].toObject();
  auto* const results = Shown<ResultsView>(sheet["window"].toString());
  ASSERT_NE(results, nullptr);
  EXPECT_EQ(results->windowTitle(), sheet["title"].toString());
  ExpectSheet(*results->sheet().model(), sheet["cells"].toArray());
  for (const auto& value : told["plots"].toArray()) {
    const QJsonObject plot = value.toObject();
    auto* const view = Shown<PlotView>(plot["window"].toString());
    EXPECT_EQ(view != nullptr, plot["shown"].toBool()) << plot["window"].toString().toStdString();
    if (view == nullptr) continue;
    const Plot& drawn =
        *workbench.open().back().results->FindPlot(FromQt(plot["window"].toString()));
    ExpectChart(*view->findChild<QCustomPlot*>(), drawn, plot["series"].toArray());
  }
  std::vector<std::string> boxes;
  for (const auto& box : told["messages"].toArray())
    boxes.push_back(FromQt(box.toObject()["text"].toString()));
  EXPECT_EQ(platform.boxes, boxes);
  desk.CloseAll();
}

INSTANTIATE_TEST_SUITE_P(, AllAnalysesTest, testing::ValuesIn(test::ExampleRuns()));

// --- Names and keys

// Every analysis of the registry stands in the table above.
TEST(AllAnalysesTable, LeavesNoneOut) {
  std::set<std::string_view> tried, known;
  for (const test::ExampleRun& one : test::ExampleRuns()) tried.insert(one.analysis);
  for (const MenuEntry& entry : Analyses()) known.insert(entry.analysis->id);
  EXPECT_EQ(tried, known);
}

bool HasKey(const QWidget& control, const QWidget& window) {
  const auto marked = [](const QString& caption) { return Unmarked(caption) != caption; };
  if (const auto* button = qobject_cast<const QAbstractButton*>(&control))
    if (marked(button->text())) return true;
  for (const auto* label : window.findChildren<QLabel*>())
    if (label->buddy() == &control && marked(label->text())) return true;
  if (const auto* frame = qobject_cast<const QGroupBox*>(control.parentWidget()))
    if (marked(frame->title())) return true;
  return control.toolTip().startsWith("Alt+");
}

void ExpectNamesAndKeys(const QWidget& window) {
  for (const QWidget* control : window.findChildren<QWidget*>()) {
    const bool can_be_reached =
        control->isVisible() && (control->focusPolicy() & Qt::TabFocus) != 0 &&
        control->window() == &window && control->parentWidget()->focusProxy() != control;
    if (!can_be_reached) continue;
    auto* const access = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(control));
    const std::string name = control->metaObject()->className() + FromQt(control->objectName());
    EXPECT_FALSE(access->text(QAccessible::Name).isEmpty()) << name;
    EXPECT_TRUE(HasKey(*control, window)) << name;
  }
}

// The letters given away in a window are not given twice.
void ExpectDifferentKeys(const QWidget& window) {
  QStringList keys;
  for (const auto* button : window.findChildren<QAbstractButton*>())
    if (button->isVisible() && button->window() == &window && !button->shortcut().isEmpty())
      keys << button->shortcut().toString();
  for (const auto* label : window.findChildren<QLabel*>())
    if (label->buddy() != nullptr && label->isVisible())
      if (const auto key = QKeySequence::mnemonic(label->text()); !key.isEmpty())
        keys << key.toString();
  const std::string all = FromQt(keys.join(' '));
  EXPECT_EQ(keys.removeDuplicates(), 0) << all;
}

TEST(NamesAndKeysTest, EveryControlOfEveryDialogHasBoth) {
  for (const MenuEntry& entry : Analyses()) {
    SCOPED_TRACE(entry.analysis->id);
    Form form(*entry.analysis->dialog);
    DialogView view(form, *entry.analysis->dialog, nullptr);
    for (const Field& field : entry.analysis->dialog->fields)
      for (const Choice& choice : field.choices) {  // which shows other fields
        form.Set(field.key, choice.word);
        view.Refresh();
        view.show();
        ExpectNamesAndKeys(view);
        ExpectDifferentKeys(view);
      }
  }
}

TEST(NamesAndKeysTest, ALetterIsUnderlinedOnlyInThePicture) {
  EXPECT_EQ(Unmarked("&Slope a && b"), "Slope a && b");
  EXPECT_EQ(Unmarked("No.:"), "No.:");
  EXPECT_EQ(Unmarked("Q &"), "Q &");
}

class KeysTest : public test::Desktop {};

TEST_F(KeysTest, TheWholeRoadGoesWithoutAMouse) {
  ExpectNamesAndKeys(window);
  Choose(window, "XY Regression Single");
  Choose(window, "&Ord. Least Squares Regression Analysis");
  auto* const dialog = Shown<DialogView>("MCstatF1so");
  ASSERT_NE(dialog, nullptr);
  auto& xc1 = In<QLineEdit>(*dialog, "xc1");
  QLabel* label = nullptr;
  for (QLabel* one : dialog->findChildren<QLabel*>())
    if (one->buddy() == &xc1) label = one;
  ASSERT_NE(label, nullptr);
  const QString text = label->text();
  QTest::keyClick(dialog, text[text.indexOf('&') + 1].toLower().toLatin1(), Qt::AltModifier);
  EXPECT_TRUE(xc1.hasFocus());
  QTest::keyClicks(&xc1, "10");
  QTest::keyClick(&xc1, Qt::Key_Return);
  Settle();
  auto* const results = Shown<ResultsView>("MCstatF1s");
  ASSERT_NE(results, nullptr);
  EXPECT_EQ(CellText(results->sheet(), 2, 24), "10.0000");
  ExpectNamesAndKeys(*results);
  for (const char* plot : {"frmXY1s", "frmRes1s"}) ExpectNamesAndKeys(*Shown(plot));
}

}  // namespace
}  // namespace quorval
