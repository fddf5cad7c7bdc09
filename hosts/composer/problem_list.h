// What is wrong in a text, as a list that leads to the places: by a click, or by Enter.
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
  /// The person wants to see the place of the finding, by its number from 0.
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
