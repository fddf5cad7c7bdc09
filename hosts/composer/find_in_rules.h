// Finds a text, a name of the catalogue or a problem in all rules of a file, and leads to the
// place.
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

/// Where in the rules something is looked for.
enum class Searched { kText, kNames, kProblems };

struct RuleText {
  QString rule;
  QString text;
  std::vector<language::NodeNote> notes = {};  ///< of nodes of the text
};

/// A place that was found.
struct FoundPlace {
  QString rule;
  std::size_t first = 0;  ///< in the text of the rule, from 0
  std::size_t length = 0;
  int line = 1;
  QString told;  ///< the line of the text, what is wrong there, or the note

  bool operator==(const FoundPlace&) const = default;
};

/// No more are looked for.
inline constexpr std::size_t kMostFound = 1000;

/// The places in the order of the rules, letter case aside; those of notes behind those of the
/// text. Without words every name, or every problem, is found, and no text. Names of tables,
/// fields, indexes and functions are those of the catalogue where there is one.
std::vector<FoundPlace> FindInRules(const std::vector<RuleText>& rules, const QString& words,
                                    Searched searched, const language::Names* names);

/// The window for it. It stays open beside the composer's own.
class FindWindow final : public QDialog {
  Q_OBJECT

 public:
  using Source = std::function<std::vector<RuleText>()>;
  using NamesSource = std::function<const language::Names*()>;

  FindWindow(Source rules, NamesSource names, QWidget* parent);

  /// With the focus on the line, and what is found now.
  void Begin();

 signals:
  /// The person wants to see a place of the text of a rule.
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
