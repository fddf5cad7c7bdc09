// Where the widgets of the form stand: the pages, and what is on them. Made once; what comes and
// goes later are the case rows alone, which have places of their own.
#pragma once

#include <QWidget>

#include "surface/form.h"

class QBoxLayout;
class QGridLayout;
class QLayout;
class QVBoxLayout;

namespace zolt20::qt {

class FormFace;

class FormLayout {
 public:
  FormLayout(FormFace& face, QWidget& owner) : face_(face), owner_(owner) {}

  void Build();

 private:
  QWidget* SelectListPage();
  QWidget* WherePage();
  QWidget* StatementPage(int page);
  QWidget* ConditionPage();
  QWidget* ResultPart();
  QWidget* Toolbar();
  QLayout* ButtonRow();
  QWidget* CaseRowsFrame();

  QWidget* Of(ControlName name, int index = kNoIndex) const;
  // The layout of a new page, its parent widget.
  QVBoxLayout* NewPage();
  // The instructions of a page, and the button beside them.
  QLayout* Foot(const std::vector<ControlName>& instructions, ControlName button);
  // A label above a list, with a filter between them when the list has one.
  QLayout* Labelled(ControlName label, ControlName list, bool hasFilter = false);
  // The labels of a page that tell how it is used, small and out of the way.
  QWidget* Instructions(const std::vector<ControlName>& labels);

  FormFace& face_;
  QWidget& owner_;
};

}  // namespace zolt20::qt
