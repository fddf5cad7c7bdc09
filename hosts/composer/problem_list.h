// A list of the problems in a text. A click or Enter shows the place of one.
#pragma once

#include <QWidget>
#include <vector>

#include "language/check.h"

class QLabel;
class QListView;

namespace zolt20::composer {

class ProblemList final : public QWidget {
  Q_OBJECT

 public:
  explicit ProblemList(QWidget* parent = nullptr);

  void Show(const std::vector<language::Finding>& findings);

 signals:
  /// The person chose the problem with this index.
  void Chosen(std::size_t finding);

 protected:
  void changeEvent(QEvent* event) override;

 private:
  class Model;

  QLabel* title_;
  QListView* list_;
  Model* model_;
};

}  // namespace zolt20::composer
