#include "hosts/automation/dump.h"

#include <string>

#include "hosts/kit/text_coding.h"

namespace zolt20::automation {
namespace {

using Json = nlohmann::ordered_json;
using hosts::ToJsonText;

void AddRows(Json& entry, const RowsControl& rows) {
  Json texts = Json::array();
  for (int row = 0; row < rows.ListCount(); ++row)
    texts.push_back(ToJsonText(rows.List(row)));
  entry["List"] = std::move(texts);
}

void AddPlace(Json& entry, const Control& control) {
  entry["Left"] = control.Left();
  entry["Top"] = control.Top();
  entry["Width"] = control.Width();
  entry["Height"] = control.Height();
}

void AddTextBox(Json& entry, const TextBox& box) {
  entry["Text"] = ToJsonText(box.Text());
  entry["SelStart"] = box.SelStart();
  const ControlName name = box.design().name;
  if (name == ControlName::txtCondition) entry["BackColor"] = box.BackColor();
  if (name == ControlName::TxtExpr || name == ControlName::txtStmt) AddPlace(entry, box);
}

void AddListBox(Json& entry, const ListBox& list) {
  AddRows(entry, list);
  Json marks = Json::array();
  for (int row = 0; row < list.ListCount(); ++row)
    marks.push_back(list.Selected(row));
  entry["Selected"] = std::move(marks);
  entry["ListIndex"] = list.ListIndex();
}

void AddComboBox(Json& entry, const ComboBox& combo) {
  AddRows(entry, combo);
  entry["ListIndex"] = combo.ListIndex();
  entry["Text"] = ToJsonText(combo.Text());
  entry["BackColor"] = combo.BackColor();
}

void AddKind(Json& entry, const Control& control) {
  switch (control.kind()) {
    case Kind::TabStrip:
      entry["Tab"] = static_cast<const TabStrip&>(control).Tab().value();
      break;
    case Kind::SyntaxTextBox: {
      const auto& box = static_cast<const SyntaxTextBox&>(control);
      entry["Text"] = ToJsonText(box.Text());
      entry["Highlight"] = box.Highlight();
      break;
    }
    case Kind::TextBox:
      AddTextBox(entry, static_cast<const TextBox&>(control));
      break;
    case Kind::ListBox:
      AddListBox(entry, static_cast<const ListBox&>(control));
      break;
    case Kind::ComboBox:
      AddComboBox(entry, static_cast<const ComboBox&>(control));
      break;
    case Kind::OptionButton:
      entry["Value"] = static_cast<const OptionButton&>(control).Value();
      break;
    case Kind::Button:
    case Kind::Label:
    case Kind::Frame:
      entry["Caption"] = ToJsonText(static_cast<const CaptionedControl&>(control).Caption());
      break;
    case Kind::ScrollBar: {
      const auto& bar = static_cast<const ScrollBar&>(control);
      entry["Value"] = bar.Value();
      entry["Max"] = bar.Max();
      entry["SmallChange"] = bar.SmallChange();
      break;
    }
    case Kind::Rectangle:
      break;
  }
}

}  // namespace

Json Dump(const Surface& form) {
  Json controls = Json::object();
  for (const Control* control : form.Controls()) {
    Json entry;
    entry["Enabled"] = control->Enabled();
    entry["Visible"] = control->Visible();
    if (control->kind() != Kind::Rectangle) entry["TabIndex"] = control->TabIndex().value();
    AddKind(entry, *control);
    controls.push_back({std::string(control->name()), std::move(entry)});
  }
  Json dump;
  dump["controls"] = std::move(controls);
  dump["focus"] = form.Focused() == nullptr ? Json() : Json(std::string(form.Focused()->name()));
  return dump;
}

}  // namespace zolt20::automation
