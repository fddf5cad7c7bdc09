// Made by faces/web/package/numbers.mjs from the lists and enums of C++. Changed there, and written
// anew by it.

/** Kinds of controls. */
export const enum Kind {
  TabStrip = 0,
  SyntaxTextBox = 1,
  TextBox = 2,
  ListBox = 3,
  ComboBox = 4,
  Button = 5,
  OptionButton = 6,
  Frame = 7,
  Label = 8,
  Rectangle = 9,
  ScrollBar = 10,
}

/** Traits of controls. */
export const enum Style {
  Plain = 0,
  MultiLine = 1,
  MultiSelect = 2,
  CheckBoxes = 4,
  Sorted = 8,
  PickOnly = 16,
  Editable = 32,
  NoBorder = 64,
  Hidden = 128,
  Arial = 256,
}

/** What a person does. */
export const enum Gesture {
  Focus = 0,
  Click = 1,
  ClickRow = 2,
  DoubleClickRow = 3,
  Pick = 4,
  Type = 5,
  Key = 6,
  Tab = 7,
  Scroll = 8,
}

/** Keys of a list. */
export const enum ListKey {
  Up = 0,
  Down = 1,
  PageUp = 2,
  PageDown = 3,
  Home = 4,
  End = 5,
  Space = 6,
  Enter = 7,
}

/** What changed of a control, a bit each. */
export const enum What {
  Enabled = 1,
  Visible = 2,
  Text = 4,
  SelStart = 8,
  BackColor = 16,
  Caption = 32,
  Value = 64,
  Max = 128,
  Tab = 256,
  ListIndex = 512,
  Highlight = 1024,
  Place = 2048,
  Rows = 65536,
  Marks = 131072,
  Everything = 262135,
}

/** Parts of the layout. */
export const enum PartKind {
  Control = 0,
  Filter = 1,
  Marks = 2,
  Tools = 3,
  Space = 4,
  Row = 5,
  Column = 6,
  Split = 7,
  Fields = 8,
  Pair = 9,
  Notes = 10,
  Pages = 11,
  Stack = 12,
  Frame = 13,
  Own = 14,
}

/** How a call ended. */
export const enum Status {
  Done = 0,
  RuntimeError = 1,
  Failed = 2,
  NotTaken = 3,
}

/** Types of values. */
export const enum ValueType {
  None = 0,
  String = 1,
  Integer = 2,
  Boolean = 3,
}

/** What a control can be asked. */
export const enum Ask {
  Enabled = 0,
  Visible = 1,
  Shown = 2,
  TabIndex = 3,
  ListCount = 4,
  ListIndex = 5,
  SelCount = 6,
  Value = 7,
  Max = 8,
  BackColor = 9,
  Highlight = 10,
  SelStart = 11,
  Left = 12,
  Top = 13,
  Width = 14,
  Height = 15,
  Kind = 16,
  Page = 17,
  Style = 18,
  Frame = 19,
  TakesFocus = 20,
  SmallChange = 21,
  HasSearch = 22,
}

/** The same for texts. */
export const enum AskText {
  Name = 0,
  Text = 1,
  Caption = 2,
}
