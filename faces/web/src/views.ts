// The views, one for each kind of control: a view has the nodes of one control and draws them. It
// turns what a person does into gestures of the face. No view has a copy of the control's state.
import {BackColor} from './back_colors';
import {ComboView} from './combo';
import {make, setAttributes, showText} from './dom';
import type {Face} from './face';
import type {Address} from './logic';
import {Ask, AskText, Gesture, Kind, Style, What} from './numbers';
import {Rows} from './rows';
import {ScrollBarView} from './scroll_bar';
import {TabStripView} from './tab_strip';
import {LinesBox, lineBox} from './text_boxes';

export interface View {
  /** The node that is laid out. */
  readonly node: HTMLElement;
  /** The node that takes the focus; its id is the name of the control. */
  readonly focus: HTMLElement;
  /** Draws what changed, by bits of What. */
  show(what: number): void;
  enable?(enabled: boolean): void;
  /** Restores scrolling, which the browser forgot as the element moved in its page. */
  restorePlace?(): void;
}

export function viewOf(face: Face, control: Address): View {
  const {logic} = face;
  switch (logic.number(control, Ask.Kind) as Kind) {
    case Kind.TabStrip:
      return new TabStripView(face, control);
    case Kind.SyntaxTextBox:
      return linesBox(face, control);
    case Kind.TextBox:
      return (logic.number(control, Ask.Style) & Style.MultiLine) !== 0
        ? linesBox(face, control)
        : oneLine(face, control);
    case Kind.ListBox:
      return new ListView(face, control);
    case Kind.ComboBox:
      return new ComboView(face, control);
    case Kind.Button:
      return button(face, control);
    case Kind.OptionButton:
      return option(face, control);
    case Kind.Frame:
      return frame(face, control);
    case Kind.Label:
      return label(face, control);
    case Kind.Rectangle:
      return plain(make('div', {class: 'shape', part: 'group', role: 'group'}));
    case Kind.ScrollBar:
      return new ScrollBarView(face, control);
  }
}

function plain(node: HTMLElement): View {
  return {node, focus: node, show() {}};
}

function button(face: Face, control: Address): View {
  const isDefault = face.logic.text(control, AskText.Name) === 'cmdDone';
  const node = make('button', {type: 'button', part: isDefault ? 'button default' : 'button'});
  node.addEventListener('click', () => face.gesture(Gesture.Click, control));
  return {
    node,
    focus: node,
    show: () => {
      showText(node, face.logic.text(control, AskText.Caption));
    },
    enable: (enabled) => {
      node.disabled = !enabled;
      node.part.toggle('disabled', !enabled);
    },
  };
}

function option(face: Face, control: Address): View {
  const input = make('input', {type: 'radio', part: 'radio'});
  const text = make('span', {part: 'label'});
  const node = make('label', {class: 'option'}, input, text);
  input.addEventListener('click', () => face.gesture(Gesture.Click, control));
  input.addEventListener('keydown', (event) => {
    const isForward = event.key === 'ArrowDown' || event.key === 'ArrowRight';
    if (!isForward && event.key !== 'ArrowUp' && event.key !== 'ArrowLeft') return;
    event.preventDefault();
    const next = face.logic.nextOption(face.handle, control, isForward);
    if (next !== 0) face.gesture(Gesture.Click, next);
  });
  return {
    node,
    focus: input,
    show: () => {
      showText(text, face.logic.text(control, AskText.Caption));
      input.checked = face.logic.is(control, Ask.Value);
      input.part.toggle('checked', input.checked);
    },
    enable: (enabled) => {
      input.disabled = !enabled;
      input.part.toggle('disabled', !enabled);
    },
  };
}

function frame(face: Face, control: Address): View {
  const hasBorder = (face.logic.number(control, Ask.Style) & Style.NoBorder) === 0;
  const node = make('div', {
    role: 'group',
    class: hasBorder ? 'frame' : 'frame bare',
    part: 'group',
  });
  const title = make('span', {class: 'title', part: 'title', 'aria-hidden': 'true'});
  if (hasBorder) node.append(title);
  return {
    node,
    focus: node,
    show: () => {
      showText(title, face.logic.text(control, AskText.Caption));
      title.hidden = title.textContent === '';
    },
  };
}

function label(face: Face, control: Address): View {
  const node = make('span', {class: 'label', part: 'label'});
  return {
    node,
    focus: node,
    show: () => {
      showText(node, face.logic.text(control, AskText.Caption));
    },
  };
}

function linesBox(face: Face, control: Address): View {
  const box = new LinesBox(face.logic, control, face);
  const isPlain = face.logic.number(control, Ask.Kind) === Kind.TextBox;
  const color = new BackColor(face.logic, box.node);
  return {
    node: box.node,
    focus: box.typed.input,
    show: (what) => {
      box.show(what, !isPlain && face.logic.is(control, Ask.Highlight));
      if (!isPlain) return;
      if ((what & What.SelStart) !== 0)
        box.typed.showCaret(face.logic.number(control, Ask.SelStart));
      color.show(face.logic.number(control, Ask.BackColor));
    },
    enable: (enabled) => {
      box.typed.enable(enabled);
    },
    restorePlace: () => {
      box.restorePlace();
      color.showAgain();
    },
  };
}

function oneLine(face: Face, control: Address): View {
  const byKeys = face.logic.text(control, AskText.Name) === 'txtAsSet';
  const box = lineBox(face.logic, control, face, byKeys);
  return {
    node: box.input,
    focus: box.input,
    show: (what) => {
      box.show(what);
      if ((what & What.SelStart) !== 0) box.showCaret(face.logic.number(control, Ask.SelStart));
    },
    enable: (enabled) => {
      box.enable(enabled);
    },
  };
}

class ListView implements View {
  readonly node: HTMLElement;
  readonly rows: Rows;
  /** The row of a press that a second press would make a double click; -1 for none. */
  #pressed = -1;

  constructor(face: Face, control: Address) {
    const {logic} = face;
    const style = logic.number(control, Ask.Style);
    const isSingle = (style & (Style.MultiSelect | Style.CheckBoxes)) === 0;
    this.node = make('div', {
      role: 'listbox',
      part: 'list',
      tabindex: 0,
      class: (style & Style.CheckBoxes) !== 0 ? 'rows checks' : 'rows',
      'aria-multiselectable': isSingle ? false : 'true',
    });
    const {node} = this;
    this.rows = new Rows({logic, handle: face.handle, list: control, box: node, holder: node});
    this.node.addEventListener('click', (event) => {
      const row = this.rows.rowUnder(event);
      if (row < 0 || !logic.is(control, Ask.Enabled)) return;
      this.rows.moveToRow(row);
      // The second press of a double click makes no click of its own. If it finds another row,
      // since the list was scrolled under the mouse, it is a click.
      const isSecond = event.detail > 1 && row === this.#pressed;
      this.#pressed = isSecond ? -1 : row;
      face.gesture(isSecond ? Gesture.DoubleClickRow : Gesture.ClickRow, control, row);
    });
    this.node.addEventListener('keydown', (event) => {
      const taken = this.rows.takeKey(event, isSingle);
      if (taken === undefined) return;
      event.preventDefault();
      if (taken.gesture !== undefined) face.gesture(taken.gesture, control, this.rows.current);
    });
  }

  get focus(): HTMLElement {
    return this.node;
  }
  show(what: number): void {
    if ((what & What.Rows) !== 0) this.rows.rowsChanged();
    else if ((what & What.ListIndex) !== 0) this.rows.showListIndex();
    else this.rows.draw();
  }
  enable(enabled: boolean): void {
    setAttributes(this.node, {
      'aria-disabled': enabled ? false : 'true',
      tabindex: enabled ? 0 : false,
    });
    this.node.part.toggle('disabled', !enabled);
  }
  restorePlace(): void {
    this.rows.restorePlace();
  }
}

/** Draws all lists again, some of which may have come into sight. */
export function drawLists(views: Iterable<View>): void {
  const lists = [...views].filter((view) => view instanceof ListView);
  // Read all heights before any list is drawn: one layout instead of one for each list.
  const heights = lists.map((list) => list.node.clientHeight);
  for (const [at, list] of lists.entries()) list.rows.lookAgain(heights[at]!);
}

export {ListView};
