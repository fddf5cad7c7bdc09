// The composer's window: the rules of a file on the left, the control on the right.
#pragma once

#include <QMainWindow>
#include <optional>
#include <string>

#include "hosts/composer/catalogue_place.h"
#include "hosts/composer/folding_pane.h"
#include "hosts/composer/journal.h"
#include "hosts/composer/recorded_map.h"
#include "hosts/composer/rules_file.h"

class QAction;
class QActionGroup;
class QMenu;
class QSplitter;
class QVBoxLayout;

namespace zolt20::rules {
class NamesReview;
}

namespace zolt20::composer {

struct Recovery;
struct RuleText;
class CutLabel;
class EditMenu;
class FindBar;
class FindWindow;
class NamesStrip;
class NodeEdits;
class NoteStrip;
class RulePane;
class RulesList;
class StatementPlaces;
class StatementTree;
class StatusLine;
class UsesWindow;

class MainWindow final : public QMainWindow {
  Q_OBJECT

 public:
  explicit MainWindow(QWidget* parent = nullptr);

  /// Opens a catalogue, a JSON file or a SQLite database, and begins a new rule with it. On failure
  /// a message is shown, the catalogue before stays open, and the value is false.
  bool OpenCatalogue(const QString& path);
  /// Opens a file of rules and shows its first rule. A failure is shown in a message.
  bool OpenRules(const QString& path);

  /// Offers to recover what other runs of the composer left unsaved in the open file of rules or,
  /// when no file is open, outside of any file. OpenRules calls it.
  void OfferJournals();
  /// Restores sizes and panes from the settings of the user, and stores them there when the window
  /// closes.
  void UseSettings();
  /// Opens the catalogue and the rules of the last run, if they still exist.
  void OpenLastSession();

  /// The control. Each rule that is opened gets a new one.
  RecordedMap& map() { return *map_; }
  const std::optional<RulesFile>& rules() const { return rules_; }
  Journal& journal() { return *journal_; }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void MakeActions();
  void MakeFileMenu();
  void MakeRuleMenu();
  void MakeViewMenu();
  template <typename Act>
  QAction* AddTo(QMenu* menu, const QString& text, const QKeySequence& keys, Act act);
  void MakePanes();
  void ShowTitle();

  // The catalogue.
  void TakeCatalogue(OpenedCatalogue opened, const QString& from);
  void OpenDatabase();
  bool NeedCatalogue(const QString& title);
  void SaveCatalogueAs();
  void EditFunctions();

  // Changed names of the catalogue.
  rules::NameLists NamesNow() const;
  /// The names of the catalogue with which the rules were composed; empty if unknown.
  rules::NameLists NamesBefore() const;
  /// Compares the names and shows in the strip whether some have changed.
  void LookAtNames();
  /// The same after a file of rules or a catalogue was opened.
  void OfferNames();
  /// Called before each Save: stores the names in the file of rules.
  void KeepNames();
  void ShowChangedNames();
  void ChangeNames(const rules::NamesReview& review);
  void TakeBackNames();

  // The rules file.
  void NewRules();
  void AskAndOpenRules();
  bool Save();
  bool SaveAs();
  bool NeedRules();
  bool MayLeaveRules();

  // Rules.
  void ShowList();
  void OpenRule(const QString& name);
  void OpenChosenRule(const QString& name);
  void NewRule();
  void RenameRule();
  void DuplicateRule();
  void DeleteRule();
  void MoveRule(const QString& name, int place);
  bool AskName(const QString& title, QString& name);

  // The control.
  void MakeMap();
  void ShowNote(const QString& note);
  void FillPages(const QString& text);
  void TakeIntoPages(const QString& text);
  void TakeStatement(const QString& text);
  void PutResult(const QString& text);
  void ShowStatements();
  void Leave();
  /// The names in the text that the catalogue does not have, each with its place.
  QStringList MissingNames(const QString& text) const;

  // Storing and leaving, and the questions before.
  /// Called within the event Done.
  void OnDone();
  /// Stores the rule, after the questions that are needed. False when it was not stored.
  bool StoreRule();
  bool StoreUnasked();
  bool Store();
  bool StoreNotes();
  void PutRule(Rule rule);
  bool NeedName(QString& name);
  /// Ctrl+S: stores the rule if it has changes, and saves the file.
  bool SaveAll();
  bool MayLeaveRule();
  enum class Choice { kAdd, kStore, kDiscard, kStay };
  Choice AskOfPending(bool leaving);
  QString WhatIsPending() const;
  bool MayStoreText();
  QStringList LostNames(const QString& text) const;
  bool MayLoseNames(const QString& text);
  /// Shows in the title, in the list and in the pane of the rule what has changed.
  void ShowChanged();

  // The rule beside the control.
  /// Makes the pane, with the list of rules above it.
  QWidget* MakeRulePane();
  /// The stored rule that is open; null for a new one.
  const Rule* OpenedRule() const;
  void ShowRuleText();
  /// Whether the rule can only be read, since the control can't take its text back.
  bool IsReadOnly() const;
  void ShowForReading(const QString& text);
  /// Makes the tree of statements, and the object that synchronizes it with the texts.
  QWidget* MakeTree();
  void ShowTreeOf(RecordedMap& map);
  void UseNames();
  std::vector<RuleText> AllTexts() const;
  template <typename Window>
  void BeginIn(Window*& window);
  void FindInAllRules();
  void ShowUses();
  void ShowPlace(const QString& rule, std::size_t first, std::size_t length);
  void ShowVersions();
  void EditNote();
  /// Gives the control the notes on statements of a rule that was opened.
  void TakeNotes(const Rule& rule);
  /// The note of the rule, followed by notes whose statements are gone.
  QString RuleNote() const;
  void ShowDeleted();

  // The journal.
  JournalHead HeadOfJournal(const QString& ruleName) const;
  void BringBack(const LeftJournal& left, const Recovery& recovery);
  void ShowJournalTrouble(const QString& trouble);

  QString ShownText() const;

  void CopyText();
  void ExportText();
  void SaveRecord();
  void Complain(const QString& title, const std::string& text);
  void Complain(const QString& title, const std::exception& error);

  void ExportRules();
  void ImportRules();
  void Print();
  void PreviewPrint();
  void SavePdf();
  QString PrintedName() const;

  // Appearance and recent files.
  void ShowMap();
  void Zoom(int percent);
  void UseColors(int colors);
  void AddRecent(const QString& kind, const QString& path);
  void ShowRecent();
  void KeepSettings();

  catalogue::Catalogue catalogue_;
  CataloguePlace cataloguePlace_;
  QString catalogueName_;
  std::optional<RulesFile> rules_;
  QString rule_;  // the name of the open rule, "" for a new one
  Journal* journal_ = nullptr;

  QSplitter* split_ = nullptr;
  RulesList* list_ = nullptr;
  CutLabel* heading_ = nullptr;
  NoteStrip* note_ = nullptr;
  NamesStrip* names_ = nullptr;
  QAction* takeBackNames_ = nullptr;
  bool namesAreOpen_ = false;  // changed names wait for a decision
  bool keepsNames_ = true;
  QMenu* statements_ = nullptr;
  QVBoxLayout* composing_ = nullptr;
  RecordedMap* map_ = nullptr;
  QList<QAction*> ofRule_;  // need a rule of the file
  FoldingPane showList_;
  FoldingPane showTree_;
  QActionGroup* colors_ = nullptr;
  QMenu* recent_ = nullptr;
  EditMenu* edit_ = nullptr;
  FindBar* find_ = nullptr;
  StatusLine* status_ = nullptr;
  static constexpr int kNormalZoom = 100;  // percent
  static constexpr int kZoomStep = 10;
  int zoom_ = kNormalZoom;
  qreal mapPoints_ = 0;  // the size of the control's letters without zoom
  bool keepsSettings_ = false;

  RulePane* pane_ = nullptr;
  RulePane* reading_ = nullptr;  // shown instead of the control
  StatementTree* tree_ = nullptr;
  StatementPlaces* places_ = nullptr;
  NodeEdits* nodeEdits_ = nullptr;
  FindWindow* findInRules_ = nullptr;
  UsesWindow* uses_ = nullptr;
  bool isAsked_ = false;   // Done is pressed again after all questions
  bool isStored_ = false;  // whether the last Done stored the rule
};

}  // namespace zolt20::composer
