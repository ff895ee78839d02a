#include "desktop/main_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QStatusBar>
#include <QToolBar>
#include <QUrl>
#include <QVBoxLayout>

#include "desktop/about_box.h"
#include "desktop/mnemonics.h"
#include "desktop/note_view.h"
#include "desktop/notice_strip.h"
#include "desktop/sheet_view.h"
#include "desktop/start_window.h"
#include "painting/qt_text.h"

// Outside every namespace, as Qt asks: the icons stand in a static library.
static void InitIcons() { Q_INIT_RESOURCE(desktop); }

namespace quorval {
namespace {

constexpr int kTwipsPerPixel = 15;
constexpr int kNameWidth = 260;
constexpr int kDecimalsWidth = 50;
constexpr int kGap = 24;

QKeySequence ShortcutOf(Command command) {
  switch (command) {
    case Command::kNewProject:
      return QKeySequence::New;
    case Command::kOpenProject:
      return QKeySequence::Open;
    case Command::kSaveProject:
      return QKeySequence::Save;
    case Command::kPrint:
      return QKeySequence::Print;
    case Command::kCut:
      return QKeySequence::Cut;
    case Command::kCopy:
      return QKeySequence::Copy;
    case Command::kPaste:
      return QKeySequence::Paste;
    case Command::kHelpContents:
      return QKeySequence::HelpContents;
    default:
      return {};
  }
}

QIcon ToolbarIcon(const MenuItem& button) {
  return QIcon(":/icons/" + ToQt(button.caption).toLower() + ".svg");
}

}  // namespace

MainWindow::MainWindow(Workbench& workbench, Platform& platform)
    : workbench_(workbench), platform_(platform), desk_(workbench, *this) {
  InitIcons();
  setObjectName("main");
  setAcceptDrops(true);
  QApplication::setWindowIcon(QIcon(":/icons/quorval.svg"));
  sheet_ = new SheetView(workbench.project().editor(), 0, this);
  sheet_->setAccessibleName("Worksheet");
  auto* const centre = new QWidget;
  auto* const layout = new QVBoxLayout(centre);
  layout->addWidget(MakeProjectLine());
  layout->addWidget(sheet_, 1);
  setCentralWidget(centre);
  connect(sheet_, &SheetView::Told, this,
          [this](const QString& text) { statusBar()->showMessage(text); });

  connect(sheet_, &SheetView::Stepped, this, &MainWindow::Refresh);
  connect(&desk_, &Desk::WorksheetChanged, this, &MainWindow::Refresh);
  workbench.files().WhenEmptied([this] {
    emptied_ = true;
    CloseNotePage();
    sheet_->ResetColumns();
    Refresh();
  });

  MakeHandlers();
  for (const MenuItem& item : MainMenu()) {
    QMenu* const menu = menuBar()->addMenu(ToQt(item.caption));
    if (item.command == Command::kStatistics)
      MakeStatisticsMenu(*menu);
    else
      MakeMenu(*menu, item.items);
  }
  MakeToolbar();
  MakeStatusBar();
  Refresh();
  GiveMnemonics(*this);
  sheet_->setFocus();
}

void MainWindow::Start() {
  PlaceAsStored();
  showMaximized();
  auto* const start = new StartWindow(workbench_.files(), this);
  connect(start, &StartWindow::Recovered, this, [this] {
    Refresh();
    sheet_->FitColumns();
  });
  start->show();
}

void MainWindow::ShowNotices(const Notices& notices) {
  const QString text = OnOneLine(notices);
  statusBar()->showMessage(text);
  statusBar()->setToolTip(text);
}

QAction* MainWindow::ActionOf(Command command) const {
  const auto found = actions_.find(command);
  return found == actions_.end() ? nullptr : found->second;
}

void MainWindow::closeEvent(QCloseEvent* event) {
  sheet_->EndEditing();
  if (!workbench_.files().KeepUnsaved() && !warned_of_loss_) {
    warned_of_loss_ = true;  // the notice is seen; the next time the window closes
    return event->ignore();
  }
  event->accept();
  desk_.CloseAll();
  for (QWidget* window : QApplication::topLevelWidgets())
    if (window != this && window->isVisible()) window->close();
  if (!isMinimized()) StorePlace();
}

void MainWindow::MakeHandlers() {
  const auto on_project = [this](void (ProjectFiles::*command)()) {
    return [this, command] { DoOnProject([this, command] { (workbench_.files().*command)(); }); };
  };
  handlers_[Command::kNewProject] = on_project(&ProjectFiles::New);
  handlers_[Command::kOpenProject] = on_project(&ProjectFiles::Open);
  handlers_[Command::kSaveProject] = on_project(&ProjectFiles::Save);
  handlers_[Command::kSaveProjectAs] = on_project(&ProjectFiles::SaveAs);
  handlers_[Command::kImportExcel] = on_project(&ProjectFiles::Import);
  handlers_[Command::kExportExcel] = on_project(&ProjectFiles::Export);
  handlers_[Command::kNotePage] = [this] { OpenNotePage(); };
  handlers_[Command::kPrint] = [this] { workbench_.PrintWorksheet(); };
  handlers_[Command::kExit] = [this] { close(); };
  handlers_[Command::kCut] = [this] { sheet_->Cut(); };
  handlers_[Command::kCopy] = [this] { sheet_->Copy(); };
  handlers_[Command::kPaste] = [this] { sheet_->Paste(); };
  handlers_[Command::kClearWorksheet] = [this] {
    workbench_.ClearWorksheet();
    Refresh();
  };
  for (const Tool* tool : Tools())
    handlers_[tool->command] = [this, tool] { desk_.OpenTool(*tool); };
  handlers_[Command::kHelpContents] = [this] { workbench_.ShowHelp(false); };
  handlers_[Command::kHelpSearch] = [this] { workbench_.ShowHelp(true); };
  handlers_[Command::kTutorial] = [this] { workbench_.ShowTutorial(); };
  handlers_[Command::kAbout] = [this] { ShowAboutBox(this); };
}

void MainWindow::MakeMenu(QMenu& menu, std::span<const MenuItem> items) {
  for (const MenuItem& item : items) AddItem(menu, item);
}

void MainWindow::AddItem(QMenu& menu, const MenuItem& item) {
  if (item.caption.empty()) {
    menu.addSeparator();
    return;
  }
  if (!item.items.empty()) return MakeMenu(*menu.addMenu(ToQt(item.caption)), item.items);
  if (item.command == Command::kImportExamples)
    return MakeExamplesMenu(*menu.addMenu(ToQt(item.caption)));
  QAction* const action = menu.addAction(ToQt(item.caption));
  action->setShortcut(ShortcutOf(item.command));
  actions_[item.command] = action;
  if (item.command == Command::kShowToolbar || item.command == Command::kShowStatusBar) {
    action->setCheckable(true);
    action->setChecked(true);
  } else if (const auto handler = handlers_.find(item.command); handler != handlers_.end()) {
    connect(action, &QAction::triggered, this, [this, command = handler->second] {
      sheet_->EndEditing();
      command();
    });
  } else {
    action->setEnabled(false);
  }
}

void MainWindow::MakeExamplesMenu(QMenu& menu) {
  for (const Example& example : Examples())
    menu.addAction(ToQt(example.menu), this, [this, &example] { TakeExample(example); });
}

void MainWindow::MakeStatisticsMenu(QMenu& menu) {
  for (const MenuEntry& entry : StatisticsMenu()) {
    QAction* const action = menu.addAction(ToQt(entry.caption), this, [this, &entry] {
      if (entry.analysis != nullptr)
        desk_.Open(*entry.analysis);
      else
        desk_.OpenChooser(entry);
    });
    action->setEnabled(entry.analysis != nullptr || !entry.chooser.empty());
  }
}

void MainWindow::MakeToolbar() {
  QToolBar* const bar = addToolBar("Toolbar");
  bar->setObjectName("toolbar");
  bar->setMovable(false);
  bar->setContextMenuPolicy(Qt::PreventContextMenu);
  connect(ActionOf(Command::kShowToolbar), &QAction::toggled, bar, &QToolBar::setVisible);
  for (const MenuItem& button : ToolbarButtons()) {
    QAction* const entry = ActionOf(button.command);
    QAction* const action = bar->addAction(ToolbarIcon(button), ToQt(button.caption));
    action->setEnabled(entry->isEnabled());
    connect(entry, &QAction::enabledChanged, action, &QAction::setEnabled);
    if (button.command == Command::kPrint)
      connect(action, &QAction::triggered, this, [this] {
        sheet_->EndEditing();
        workbench_.PrintWorksheetAtOnce();
      });
    else
      connect(action, &QAction::triggered, entry, &QAction::trigger);
  }
}

void MainWindow::MakeStatusBar() {
  statusBar()->addWidget(new QLabel(ToQt(kStatusPanel)));
  connect(ActionOf(Command::kShowStatusBar), &QAction::toggled, statusBar(),
          &QStatusBar::setVisible);
}

QWidget* MainWindow::MakeProjectLine() {
  auto* const frame = new QGroupBox(ToQt(kNameFrame));
  name_ = new QLineEdit;
  name_->setObjectName("project-name");
  name_->setMinimumWidth(kNameWidth);
  name_->setAccessibleName(ToQt(kNameFrame));
  (new QHBoxLayout(frame))->addWidget(name_);
  connect(name_, &QLineEdit::textEdited, this, [this](const QString& name) {
    workbench_.project().Rename(FromQt(name));
    setWindowTitle(ToQt(workbench_.project().title()));
  });

  auto* const decimals = new QLineEdit(ToQt(workbench_.project().context().NDec));
  decimals->setObjectName("decimals");
  decimals->setFixedWidth(kDecimalsWidth);
  connect(decimals, &QLineEdit::textEdited, this,
          [this](const QString& text) { workbench_.project().SetDecimals(FromQt(text)); });
  auto* const label = new QLabel(ToQt(kDecimalsLabel));
  label->setBuddy(decimals);

  auto* const line = new QWidget;
  auto* const layout = new QHBoxLayout(line);
  layout->setContentsMargins({});
  layout->addWidget(frame);
  layout->addSpacing(kGap);
  layout->addWidget(label, 0, Qt::AlignVCenter);
  layout->addWidget(decimals, 0, Qt::AlignVCenter);
  layout->addSpacing(kGap);
  layout->addWidget(new QLabel(ToQt(kNoteLabel)), 0, Qt::AlignVCenter);
  layout->addStretch();
  return line;
}

void MainWindow::TakeExample(const Example& example) {
  if (workbench_.ImportExample(example)) CloseNotePage();
  Refresh();
}

void MainWindow::OpenNotePage() {
  auto* note = findChild<NoteView*>();
  if (note == nullptr) note = new NoteView(workbench_, this);
  note->show();
  note->raise();
  note->activateWindow();
}

void MainWindow::CloseNotePage() { delete findChild<NoteView*>(); }

void MainWindow::DoOnProject(const std::function<void()>& command) {
  emptied_ = false;
  command();
  Refresh();
  if (emptied_) sheet_->FitColumns();
}

void MainWindow::TakeFile(const std::filesystem::path& path) {
  sheet_->EndEditing();
  DoOnProject([&] { workbench_.files().Take(path); });
}

// One file of this machine can be dropped.
void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  const QList<QUrl> urls = event->mimeData()->urls();
  if (urls.size() == 1 && urls.first().isLocalFile()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
  event->acceptProposedAction();
  TakeFile(FromQt(event->mimeData()->urls().first().toLocalFile()));
}

void MainWindow::Refresh() {
  ActionOf(Command::kSaveProject)->setEnabled(workbench_.files().CanSave());
  const QString name = ToQt(workbench_.project().context().ProjectName);
  if (name_->text() != name) name_->setText(name);
  setWindowTitle(ToQt(workbench_.project().title()));
  sheet_->Refresh();
}

void MainWindow::PlaceAsStored() {
  const auto pixels = [&](const PositionSetting& setting) {
    return platform_.Setting(setting.key).value_or(setting.initial) / kTwipsPerPixel;
  };
  setGeometry(pixels(kMainLeft), pixels(kMainTop), pixels(kMainWidth), pixels(kMainHeight));
}

// The place that the window returns to when it is no longer maximised.
void MainWindow::StorePlace() {
  const QRect place = isMaximized() && normalGeometry().isValid() ? normalGeometry() : geometry();
  const auto store = [&](const PositionSetting& setting, int pixels) {
    platform_.SetSetting(setting.key, pixels * kTwipsPerPixel);
  };
  store(kMainLeft, place.left());
  store(kMainTop, place.top());
  store(kMainWidth, place.width());
  store(kMainHeight, place.height());
}

}  // namespace quorval
