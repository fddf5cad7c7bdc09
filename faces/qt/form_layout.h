// Builds the widgets' layouts from the description of the form. Done once: the only controls that
// are loaded and unloaded later are case rows, which are outside of layouts.
#pragma once

#include <QWidget>

#include "faces/shared/layout.h"

class QBoxLayout;
class QGridLayout;
class QKeySequence;
class QStackedWidget;
class QVBoxLayout;

namespace zolt20::qt {

class FormFace;

class FormLayout {
 public:
  FormLayout(FormFace& face, QWidget& owner) : face_(face), owner_(owner) {}

  void Build();

 private:
  QWidget* Of(const Design& design) const;
  void SetLetters();

  // Add appends the widget or layout of a part to a layout, AddAll those of the parts within it.
  void Add(QBoxLayout& into, const faces::Part& part, bool isAcross);
  void AddAll(QBoxLayout& into, const faces::Part& part, bool isAcross);
  void AddPairs(QGridLayout& into, const faces::Part& fields);

  // Containers, each as a widget.
  QWidget* WidgetOf(const faces::Part& part);
  QWidget* Whole(const faces::Part& part);
  QWidget* Pages(const faces::Part& part);
  QWidget* Stack(const faces::Part& part);
  QWidget* Split(const faces::Part& part);
  QWidget* Framed(const faces::Part& part);
  QWidget* Notes(const faces::Part& part);
  QWidget* CaseRows(const faces::Part& part);
  QWidget* Tools();
  void AddTool(QBoxLayout& into, bool forward);
  QWidget* Filter(const Design& list);
  QWidget* HiddenMarks(const Design& list);

  FormFace& face_;
  QWidget& owner_;
};

}  // namespace zolt20::qt
