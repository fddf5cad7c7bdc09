// The composer's window: the rules of a file on the left, the control on the right.
#pragma once

#include <QMainWindow>
#include <optional>
#include <string>

#include "hosts/composer/recorded_map.h"
#include "hosts/composer/rules_file.h"

class QAction;
class QHBoxLayout;
class QLabel;
class QListWidget;
class QMenu;
class QVBoxLayout;

namespace zolt20::composer {

class MainWindow final : public QMainWindow {
  Q_OBJECT

 public:
  explicit MainWindow(QWidget* parent = nullptr);

  /// Opens a catalogue, JSON or a SQLite database, and begins a new rule on it. What goes wrong is
  /// told in a message, and the catalogue before stays. False then.
  bool OpenCatalogue(const QString& path);
  /// Opens a file of rules and shows the first one. What goes wrong is told in a message.
  bool OpenRules(const QString& path);

  /// The control that is composed with; another one for each rule that is opened.
  RecordedMap& map() { return *map_; }
  const std::optional<RulesFile>& rules() const { return rules_; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void MakeActions();
  void MakePanes();
  void ShowTitle();

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
  void OpenChosenRule();
  void NewRule();
  void RenameRule();
  void DuplicateRule();
  void DeleteRule();
  bool AskName(const QString& title, QString& name);

  // The control.
  void MakeMap();
  void ShowNote(const QString& note);
  void FillPages(const QString& text);
  void TakeIntoPages(const QString& text);
  void TakeStatement(const QString& text);
  void PutResult(const QString& text);
  void ShowStatements();
  bool Store();
  void Leave();
  bool MayLeaveRule();
  QString ShownText() const;

  void CopyText();
  void ExportText();
  void SaveRecord();
  /// Writes a whole file, or leaves the old one and says why.
  void WriteFile(const QString& path, const QByteArray& content);
  void Complain(const QString& title, const std::string& text);

  catalogue::Catalogue catalogue_;
  QString catalogueName_;
  std::optional<RulesFile> rules_;
  QString rule_;  // the name of the one that is open, "" for a new one

  QListWidget* list_ = nullptr;
  QLabel* heading_ = nullptr;
  QLabel* note_ = nullptr;
  QHBoxLayout* buttons_ = nullptr;
  QMenu* statements_ = nullptr;
  QVBoxLayout* composing_ = nullptr;
  RecordedMap* map_ = nullptr;
  QList<QAction*> ofRule_;  // need a rule of the file
};

}  // namespace zolt20::composer
