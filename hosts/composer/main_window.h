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

  /// Opens a catalogue, JSON or a SQLite database, and begins a new rule on it. What goes wrong is
  /// told in a message, and the catalogue before stays. False then.
  bool OpenCatalogue(const QString& path);
  /// Opens a file of rules and shows the first one. What goes wrong is told in a message.
  bool OpenRules(const QString& path);

  /// Offers to go on with what a composer left that ended before all was stored, of this file of
  /// rules, or of none. Opening a file of rules does it too.
  void OfferJournals();
  /// Takes the sizes and panes of the last start from the person's settings, and keeps them there
  /// when it is closed.
  void UseSettings();
  /// Opens the catalogue and the rules that were opened last, where they are still there.
  void OpenLastSession();

  /// The control that is composed with; another one for each rule that is opened.
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

  // Names, when the catalogue is another one.
  rules::NameLists NamesNow() const;
  /// Those that the rules were composed with, empty when nobody knows.
  rules::NameLists NamesBefore() const;
  /// Compares the two, and tells in the strip what the person may want to decide.
  void LookAtNames();
  /// The same when the rules or the catalogue are just opened.
  void OfferNames();
  /// Before each Save.
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
  /// The names in the text that the catalogue has not, each with its place.
  QStringList MissingNames(const QString& text) const;

  // Storing and leaving; what is asked before.
  /// Within Done.
  void OnDone();
  /// Stores what is composed, and asks what the person has to decide. False when it is not stored.
  bool StoreRule();
  bool StoreUnasked();
  bool Store();
  bool StoreNotes();
  void PutRule(Rule rule);
  bool NeedName(QString& name);
  /// Ctrl+S: the rule, when anything of it is changed, and the file.
  bool SaveAll();
  bool MayLeaveRule();
  enum class Choice { kAdd, kStore, kDiscard, kStay };
  Choice AskOfPending(bool leaving);
  QString WhatIsPending() const;
  bool MayStoreText();
  QStringList LostNames(const QString& text) const;
  bool MayLoseNames(const QString& text);
  /// Marks in the title and in the list what is changed, and shows its text.
  void ShowChanged();

  // The rule beside the control.
  /// With the list of rules above it.
  QWidget* MakeRulePane();
  /// Null for a new one.
  const Rule* OpenedRule() const;
  void ShowRuleText();
  /// Whether the rule stands there to be read alone, as the control can't take it back.
  bool IsReadOnly() const;
  void ShowForReading(const QString& text);
  /// The tree of the text that is composed, and what leads from it to the texts.
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
  /// The notes on nodes of a rule that was opened.
  void TakeNotes(const Rule& rule);
  /// The note of the rule, and those whose nodes are gone.
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

  // How it looks, and what was open.
  void ShowMap();
  void Zoom(int percent);
  void UseColours(int colours);
  void AddRecent(const QString& kind, const QString& path);
  void ShowRecent();
  void KeepSettings();

  catalogue::Catalogue catalogue_;
  CataloguePlace cataloguePlace_;
  QString catalogueName_;
  std::optional<RulesFile> rules_;
  QString rule_;  // the name of the one that is open, "" for a new one
  Journal* journal_ = nullptr;

  QSplitter* split_ = nullptr;
  RulesList* list_ = nullptr;
  CutLabel* heading_ = nullptr;
  NoteStrip* note_ = nullptr;
  NamesStrip* names_ = nullptr;
  QAction* takeBackNames_ = nullptr;
  bool namesAreOpen_ = false;  // the names of before wait for the person to decide
  bool keepsNames_ = true;
  QMenu* statements_ = nullptr;
  QVBoxLayout* composing_ = nullptr;
  RecordedMap* map_ = nullptr;
  QList<QAction*> ofRule_;  // need a rule of the file
  FoldingPane showList_;
  FoldingPane showTree_;
  QActionGroup* colours_ = nullptr;
  QMenu* recent_ = nullptr;
  EditMenu* edit_ = nullptr;
  FindBar* find_ = nullptr;
  StatusLine* status_ = nullptr;
  static constexpr int kNormalZoom = 100;  // percent
  static constexpr int kZoomStep = 10;
  int zoom_ = kNormalZoom;
  qreal mapPoints_ = 0;  // of its letters when they are not zoomed
  bool keepsSettings_ = false;

  RulePane* pane_ = nullptr;
  RulePane* reading_ = nullptr;  // in place of the control
  StatementTree* tree_ = nullptr;
  StatementPlaces* places_ = nullptr;
  NodeEdits* nodeEdits_ = nullptr;
  FindWindow* findInRules_ = nullptr;
  UsesWindow* uses_ = nullptr;
  bool isAsked_ = false;   // Done is pressed once more, and all is decided
  bool isStored_ = false;  // by the last Done
};

}  // namespace zolt20::composer
