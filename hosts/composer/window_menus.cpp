// The menus of the composer's window.
#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QFileDialog>
#include <QMenuBar>

#include "hosts/composer/edit_menu.h"
#include "hosts/composer/help_window.h"
#include "hosts/composer/main_window.h"
#include "hosts/composer/map_keys.h"
#include "hosts/composer/rules_list.h"
#include "hosts/composer/statement_tree.h"

namespace zolt20::composer {

template <typename Act>
QAction* MainWindow::AddTo(QMenu* menu, const QString& text, const QKeySequence& keys, Act act) {
  QAction* action = menu->addAction(text);
  action->setShortcut(keys);
  connect(action, &QAction::triggered, this, act);
  return action;
}

void MainWindow::MakeActions() {
  MakeFileMenu();
  QMenu* edit = menuBar()->addMenu(tr("&Edit"));
  edit_ = new EditMenu(*this, *edit, *find_);
  connect(edit_, &EditMenu::CopyRule, this, &MainWindow::CopyText);
  MakeRuleMenu();
  MakeViewMenu();
  QMenu* help = menuBar()->addMenu(tr("&Help"));
  AddTo(help, tr("&Composer Help"), QKeySequence::HelpContents, [this] { ShowHelp(*this); });
  AddTo(help, tr("&Keys"), Qt::SHIFT | Qt::Key_F1, [this] { ShowKeys(*this); });
  help->addSeparator();
  AddTo(help, tr("&About"), {}, [this] { ShowAbout(*this); });
}

void MainWindow::MakeFileMenu() {
  QMenu* menu = menuBar()->addMenu(tr("&File"));
  AddTo(menu, tr("Open &Catalogue..."), {}, [this] {
    const QString path = QFileDialog::getOpenFileName(
        this, tr("Open Catalogue"), {},
        tr("Catalogues and SQLite databases (*.json *.db *.sqlite *.sqlite3);;All files (*)"));
    if (!path.isEmpty() && MayLeaveRule()) OpenCatalogue(path);
  });
  AddTo(menu, tr("Open &Database..."), {}, &MainWindow::OpenDatabase);
  AddTo(menu, tr("Save Catalo&gue As..."), {}, &MainWindow::SaveCatalogueAs);
  AddTo(menu, tr("Edit &Functions..."), {}, &MainWindow::EditFunctions);
  AddTo(menu, tr("C&hanged Names..."), {}, &MainWindow::ShowChangedNames);
  takeBackNames_ = AddTo(menu, tr("&Take Back New Names"), {}, &MainWindow::TakeBackNames);
  takeBackNames_->setEnabled(false);
  menu->addSeparator();
  AddTo(menu, tr("&New Rules File..."), {}, &MainWindow::NewRules);
  AddTo(menu, tr("&Open Rules File..."), QKeySequence::Open, &MainWindow::AskAndOpenRules);
  recent_ = menu->addMenu(tr("Open &Recent"));
  connect(recent_, &QMenu::aboutToShow, this, &MainWindow::ShowRecent);
  AddTo(menu, tr("&Save"), QKeySequence::Save, [this] { SaveAll(); });
  AddTo(menu, tr("Save &As..."), Qt::CTRL | Qt::SHIFT | Qt::Key_S, [this] { SaveAs(); });
  menu->addSeparator();
  AddTo(menu, tr("&Export Text..."), {}, &MainWindow::ExportText);
  AddTo(menu, tr("Export A&ll Rules..."), {}, &MainWindow::ExportRules);
  AddTo(menu, tr("&Import Rules..."), {}, &MainWindow::ImportRules);
  AddTo(menu, tr("Save Session Recor&d..."), {}, &MainWindow::SaveRecord);
  menu->addSeparator();
  AddTo(menu, tr("&Print..."), QKeySequence::Print, &MainWindow::Print);
  AddTo(menu, tr("Print Previe&w..."), {}, &MainWindow::PreviewPrint);
  AddTo(menu, tr("Save as PD&F..."), {}, &MainWindow::SavePdf);
  menu->addSeparator();
  // QKeySequence::Quit and SaveAs have no keys outside of GNOME and KDE.
  AddTo(menu, tr("&Quit"), Qt::CTRL | Qt::Key_Q, &QWidget::close);
}

void MainWindow::MakeRuleMenu() {
  QMenu* menu = menuBar()->addMenu(tr("&Rule"));
  QAction* const fresh = AddTo(menu, tr("&New"), QKeySequence::New, &MainWindow::NewRule);
  ofRule_ = {AddTo(menu, tr("&Rename..."), Qt::Key_F2, &MainWindow::RenameRule),
             AddTo(menu, tr("&Duplicate"), Qt::CTRL | Qt::Key_D, &MainWindow::DuplicateRule),
             AddTo(menu, tr("De&lete"), {}, &MainWindow::DeleteRule),
             AddTo(menu, tr("&Versions..."), {}, &MainWindow::ShowVersions),
             AddTo(menu, tr("N&ote..."), {}, &MainWindow::EditNote)};
  for (QAction* action : {fresh, ofRule_[1], ofRule_[2]})
    list_->AddButton(*action);
  menu->addSeparator();
  AddTo(menu, tr("&Copy Text"), Qt::CTRL | Qt::SHIFT | Qt::Key_C, &MainWindow::CopyText);
  list_->SetMenu(menu->actions());
  menu->addSeparator();
  AddTo(menu, tr("Deleted Rules..."), {}, &MainWindow::ShowDeleted);
  AddTo(menu, tr("F&ind in Rules..."), Qt::CTRL | Qt::SHIFT | Qt::Key_F,
        &MainWindow::FindInAllRules);
  AddTo(menu, tr("&Filter Rules"), Qt::CTRL | Qt::SHIFT | Qt::Key_L, [this] {
    showList_.action()->setChecked(true);
    list_->FocusFilter();
  });
}

void MainWindow::MakeViewMenu() {
  QMenu* menu = menuBar()->addMenu(tr("&View"));
  AddTo(menu, tr("&Next Page"), Qt::CTRL | Qt::Key_PageDown, [this] { TurnPage(*map_, true); });
  AddTo(menu, tr("&Previous Page"), Qt::CTRL | Qt::Key_PageUp, [this] { TurnPage(*map_, false); });
  menu->addSeparator();
  QAction* larger = AddTo(menu, tr("Zoom &In"), {}, [this] { Zoom(zoom_ + kZoomStep); });
  larger->setShortcuts({Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal});
  AddTo(menu, tr("Zoom &Out"), Qt::CTRL | Qt::Key_Minus, [this] { Zoom(zoom_ - kZoomStep); });
  AddTo(menu, tr("Normal &Size"), Qt::CTRL | Qt::Key_0, [this] { Zoom(kNormalZoom); });
  menu->addSeparator();
  const auto addPane = [&](const QString& text, const QKeySequence& keys, QWidget& pane) {
    QAction* action = AddTo(menu, text, keys, [] {});
    action->setCheckable(true);
    action->setChecked(true);
    connect(action, &QAction::toggled, &pane, &QWidget::setVisible);
    return action;
  };
  showList_ = FoldingPane(addPane(tr("List of &Rules"), Qt::Key_F9, *list_->parentWidget()), 860);
  showTree_ = FoldingPane(addPane(tr("&Statements"), Qt::SHIFT | Qt::Key_F9, *tree_), 1100);
  AddTo(menu, tr("&Uses of Names..."), Qt::CTRL | Qt::SHIFT | Qt::Key_U, &MainWindow::ShowUses);
  QMenu* colors = menu->addMenu(tr("&Colours"));
  colors_ = new QActionGroup(this);
  for (const QString& text : {tr("As the &System"), tr("&Light"), tr("&Dark")}) {
    QAction* action = AddTo(colors, text, {}, [] {});
    action->setCheckable(true);
    colors_->addAction(action);
  }
  colors_->actions().front()->setChecked(true);
  connect(colors_, &QActionGroup::triggered, this, [this](QAction* chosen) {
    UseColors(static_cast<int>(colors_->actions().indexOf(chosen)));
  });
}

}  // namespace zolt20::composer
