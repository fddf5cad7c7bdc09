// The whole state of the form as a plain object, in the words of the JSON lines that zolt20-host
// speaks.
import type {Address, Logic} from './logic';
import {Ask, AskText, Kind} from './numbers';

/** A control: the values of its properties, which depend on its kind. */
export type DumpedControl = Record<string, unknown>;
export interface Dump {
  controls: Record<string, DumpedControl>;
  /** The name of the control with the focus. */
  focus: string | null;
}

export function dumpOf(logic: Logic, handle: number): Dump {
  const controls: Record<string, DumpedControl> = {};
  for (const control of logic.controls(handle))
    controls[logic.text(control, AskText.Name)] = dumpControl(logic, control);
  const focused = logic.focused(handle);
  return {controls, focus: focused === 0 ? null : logic.text(focused, AskText.Name)};
}

function dumpControl(logic: Logic, control: Address): DumpedControl {
  const number = (ask: Ask) => logic.number(control, ask);
  const is = (ask: Ask) => logic.is(control, ask);
  const kind = number(Ask.Kind) as Kind;
  const backColor = () => number(Ask.BackColor) >>> 0;
  const rows = () => logic.rows(control, 0, number(Ask.ListCount));
  const text = () => logic.text(control, AskText.Text);

  const dumped: DumpedControl = {Enabled: is(Ask.Enabled), Visible: is(Ask.Visible)};
  if (kind !== Kind.Rectangle) dumped['TabIndex'] = number(Ask.TabIndex);
  switch (kind) {
    case Kind.TabStrip:
      dumped['Tab'] = number(Ask.Value);
      break;
    case Kind.SyntaxTextBox:
      Object.assign(dumped, {Text: text(), Highlight: is(Ask.Highlight)});
      break;
    case Kind.TextBox:
      Object.assign(dumped, dumpTextBox(logic, control));
      break;
    case Kind.ListBox: {
      const all = rows();
      Object.assign(dumped, {
        List: all.map((row) => row.text),
        Selected: all.map((row) => row.marked),
        ListIndex: number(Ask.ListIndex),
      });
      break;
    }
    case Kind.ComboBox:
      Object.assign(dumped, {
        List: rows().map((row) => row.text),
        ListIndex: number(Ask.ListIndex),
        Text: text(),
        BackColor: backColor(),
      });
      break;
    case Kind.OptionButton:
      dumped['Value'] = is(Ask.Value);
      break;
    case Kind.ScrollBar:
      Object.assign(dumped, {
        Value: number(Ask.Value),
        Max: number(Ask.Max),
        SmallChange: number(Ask.SmallChange),
      });
      break;
    case Kind.Rectangle:
      break;
    default:
      dumped['Caption'] = logic.text(control, AskText.Caption);
  }
  return dumped;
}

function dumpTextBox(logic: Logic, control: Address): DumpedControl {
  const number = (ask: Ask) => logic.number(control, ask);
  const name = logic.text(control, AskText.Name);
  const dumped: DumpedControl = {
    Text: logic.text(control, AskText.Text),
    SelStart: number(Ask.SelStart),
  };
  if (name === 'txtCondition') dumped['BackColor'] = number(Ask.BackColor) >>> 0;
  if (/^(TxtExpr|txtStmt)\(/.test(name)) {
    Object.assign(dumped, {
      Left: number(Ask.Left),
      Top: number(Ask.Top),
      Width: number(Ask.Width),
      Height: number(Ask.Height),
    });
  }
  return dumped;
}
