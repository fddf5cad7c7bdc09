// Find in Rules: finds a text, a name of the catalogue or a problem in all rules of a file, and
// shows the place that the person chooses.
#pragma once

#include <QDialog>
#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

#include "language/names.h"
#include "language/node_notes.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QTimer;

namespace zolt20::composer {

/// What is searched: the text, the names or the problems of the rules.
enum class Searched { kText, kNames, kProblems };

struct RuleText {
  QString rule;
  QString text;
  std::vector<language::NodeNote> notes = {};  ///< notes on statements of the text
};

/// A place that was found.
struct FoundPlace {
  QString rule;
  std::size_t first = 0;  ///< index in the text of the rule, from 0
  std::size_t length = 0;
  int line = 1;
  QString told;  ///< the line of the text, the problem, or the note

  bool operator==(const FoundPlace&) const = default;
};

/// The search stops after so many places.
inline constexpr std::size_t kMostFound = 1000;

/// The places in the order of the rules, those in notes after those in the text. Letter case does
/// not count. Without words every name or every problem is found, but no text. `names` has the
/// tables, fields, indexes and functions of the catalogue; it may be null.
std::vector<FoundPlace> FindInRules(const std::vector<RuleText>& rules, const QString& words,
                                    Searched searched, const language::Names* names);

/// The window of Find in Rules. It is not modal: it stays open beside the composer's window.
class FindWindow final : public QDialog {
  Q_OBJECT

 public:
  using Source = std::function<std::vector<RuleText>()>;
  using NamesSource = std::function<const language::Names*()>;

  FindWindow(Source rules, NamesSource names, QWidget* parent);

  /// Searches anew and gives the line for the words the focus.
  void Begin();

 signals:
  /// The person chose a found place: this part of the text of a rule.
  void Chosen(const QString& rule, std::size_t first, std::size_t length);

 private:
  void Search();
  void Choose(int row);

  Source rules_;
  NamesSource names_;
  QLineEdit* words_;
  QComboBox* searched_;
  QLabel* told_;
  QListWidget* list_;
  QTimer* soon_;
  std::vector<FoundPlace> found_;
};

}  // namespace zolt20::composer
