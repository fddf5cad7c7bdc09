// The views of text boxes.
//
// A box shows the text of its control, with one character for each line end, and hands over the
// text after an edit. Line ends of any kind survive outside the place that is edited.
import {make, showText} from './dom';
import type {Address, BoxTexts} from './crossing';
import {What} from './numbers';

/**
 * The character that stands for a line end: '\n' in a box of several lines; in a box of one line
 * a noncharacter of Unicode, which no text has.
 */
const kLineEnd = '\n';
const kLineEndInALine = '\ufdd0';
/** Of a longer line, so many characters get syntax colours. */
const kColoredLine = 20_000;
/** Of lines that change, in or out of sight, so many are coloured before their places are known. */
const kColoredAtOnce = 64;

/** Takes the edits of a box. */
export interface TypedInto {
  typed(box: Address, shown: string, caret: number, lineEnd: string): void;
  /** A key where the shown characters from `first` on and before `behind` are marked. */
  keyed(box: Address, first: number, behind: number, code: number): void;
  /** Whether the last thing that the person did was typing into this box. */
  isTypingIn(box: Address): boolean;
}

type Input = HTMLTextAreaElement | HTMLInputElement;

/** A box that a person types into. */
export class TypedBox {
  static readonly #boxes = new WeakMap<Element, TypedBox>();
  /** The box that the node is, if any. */
  static of(node: Element): TypedBox | undefined {
    return TypedBox.#boxes.get(node);
  }

  readonly input: Input;
  readonly #texts: BoxTexts;
  readonly #box: Address;
  readonly #lineEnd: string;
  readonly #into: TypedInto;
  #before = ''; // the shown text before the edit in progress
  #runStart = ''; // the shown text at the beginning of the run of typing
  #takenBack = 0; // how many steps the browser's redo has for this box
  #isTakingBack = false; // the last edit here was an undo by the browser
  #wasAtStart = false; // typing, and not undo, brought the text back to #runStart in the run

  /** With `byKeys` each key is handed over by itself, so that the control can refuse it. */
  constructor(texts: BoxTexts, box: Address, input: Input, into: TypedInto, byKeys = false) {
    this.#texts = texts;
    this.#box = box;
    this.#into = into;
    this.input = input;
    TypedBox.#boxes.set(input, this);
    this.#lineEnd = input instanceof HTMLTextAreaElement ? kLineEnd : kLineEndInALine;
    input.spellcheck = false;
    input.setAttribute('autocomplete', 'off');
    input.setAttribute('autocapitalize', 'off');
    // Statements are written from left to right, in every page.
    input.dir = 'ltr';

    this.#takeEdits(byKeys);
    this.#giveTexts();
    if (input instanceof HTMLInputElement) this.#pasteAsOneLine();
  }

  #takeEdits(byKeys: boolean): void {
    const {input} = this;
    const into = this.#into;
    const box = this.#box;
    const hand = () => {
      if (!into.isTypingIn(box)) {
        this.#runStart = this.#before;
        this.#wasAtStart = false;
      }
      const isTyped = !this.#isTakingBack && this.#takenBack === 0;
      if (isTyped && input.value === this.#runStart) this.#wasAtStart = true;
      into.typed(box, input.value, input.selectionEnd ?? input.value.length, this.#lineEnd);
    };
    input.addEventListener('beforeinput', () => {
      this.#before = input.value;
    });
    input.addEventListener('input', (event) => {
      const {inputType, isComposing} = event as InputEvent;
      if (inputType === 'historyUndo') ++this.#takenBack;
      else if (inputType === 'historyRedo') --this.#takenBack;
      else this.#takenBack = 0;
      this.#isTakingBack = inputType === 'historyUndo';
      // Some browsers fire `input` once more after a composition, which was taken as keys already.
      const isComposed = byKeys && inputType === 'insertCompositionText';
      if (!isComposing && !isComposed) hand();
    });
    if (byKeys) this.#takeKeys();
    // In a microtask, against re-entrancy: when a call of the control moves the focus, the
    // composition ends inside that call.
    else input.addEventListener('compositionend', () => queueMicrotask(hand));
  }

  // Copy, cut and drag give the text of the control, with its own line ends.
  #giveTexts(): void {
    const {input} = this;
    const texts = this.#texts;
    const box = this.#box;
    for (const kind of ['copy', 'cut'] as const) {
      input.addEventListener(kind, (event) => {
        const [first, behind] = this.selection;
        if (first === behind) return;
        (event as ClipboardEvent).clipboardData?.setData(
          'text/plain',
          texts.textBetween(box, first, behind),
        );
        event.preventDefault();
        if (kind === 'cut') this.#command('delete');
      });
    }
    input.addEventListener('dragstart', (event) => {
      const [first, behind] = this.selection;
      (event as DragEvent).dataTransfer?.setData(
        'text/plain',
        texts.textBetween(box, first, behind),
      );
    });
  }

  #pasteAsOneLine(): void {
    this.input.addEventListener('paste', (event) => {
      const text = (event as ClipboardEvent).clipboardData?.getData('text/plain') ?? '';
      if (!/[\r\n]/.test(text)) return;
      event.preventDefault();
      this.#command('insertText', text.replace(/\r\n|\r|\n/g, kLineEndInALine));
    });
  }

  // An edit by execCommand, as an undo step of its own in the browser. To set the selection again
  // ends a run of typing. It also makes the browser forget a double click: a word selected by one
  // would be replaced together with a blank beside it (smart delete).
  #command(name: string, text?: string): void {
    const {input} = this;
    const [first, behind] = this.selection;
    const way = input.selectionDirection ?? undefined;
    input.setSelectionRange(first, first);
    input.setSelectionRange(first, behind, way);
    document.execCommand(name, false, text);
    const place = input.selectionEnd ?? 0;
    input.setSelectionRange(place, place);
    // execCommand does not scroll to the caret, as a key would.
    this.#bringIntoSight(place);
    const {fontStyle, fontWeight, fontSize, fontFamily, paddingLeft, paddingRight} =
      getComputedStyle(input);
    const ruler = make('canvas').getContext('2d')!;
    ruler.font = `${fontStyle} ${fontWeight} ${fontSize} ${fontFamily}`;
    const lineStart = input.value.lastIndexOf('\n', place - 1) + 1;
    const before = ruler.measureText(input.value.slice(lineStart, place)).width;
    const width = input.clientWidth - parseFloat(paddingLeft) - parseFloat(paddingRight);
    if (before < input.scrollLeft) input.scrollLeft = before;
    else if (before > input.scrollLeft + width) input.scrollLeft = before - width + 1;
  }

  #takeKeys(): void {
    const kBackspace = 8;
    const kEnter = 13;
    const {input} = this;
    const key = (code: number) => this.#into.keyed(this.#box, ...this.selection, code);
    const keys = (text: string) => {
      for (let at = 0; at < text.length; ++at) key(text.charCodeAt(at));
    };
    input.addEventListener('beforeinput', (event) => {
      const {data, inputType, isComposing} = event as InputEvent;
      // Several characters at once, such as dictated ones, are no key.
      const isCharacter = inputType === 'insertText' && [...(data ?? '')].length === 1;
      if (isComposing || (!isCharacter && inputType !== 'deleteContentBackward')) return;
      event.preventDefault();
      if (isCharacter) keys(data!);
      else key(kBackspace);
    });
    input.addEventListener('keydown', (event) => {
      const {key: name, isComposing, ctrlKey, altKey, metaKey} = event as KeyboardEvent;
      if (name !== 'Enter' || isComposing || ctrlKey || altKey || metaKey) return;
      event.preventDefault();
      key(kEnter);
    });
    // An input method or a dead key composes its text in the box. At the end the box gets its text
    // of before back, and each composed character is taken as a key.
    let before: {value: string; selection: [number, number]} | undefined;
    input.addEventListener('compositionstart', () => {
      before = {value: input.value, selection: this.selection};
    });
    input.addEventListener('compositionend', (event) => {
      const {data} = event as CompositionEvent;
      queueMicrotask(() => {
        if (before === undefined) return;
        input.value = before.value;
        input.setSelectionRange(...before.selection);
        before = undefined;
        keys(data);
      });
    });
  }

  /** Inserts a text at the caret, or replaces the selection by it. */
  insert(text: string): void {
    this.#command('insertText', text);
  }

  get selection(): [number, number] {
    return [this.input.selectionStart ?? 0, this.input.selectionEnd ?? 0];
  }

  /** Whether the browser's undo and redo apply to the run of typing in this box. */
  get hasOwnUndo(): boolean {
    const isBack = this.input.value === this.#runStart && this.#isTakingBack;
    return this.#into.isTypingIn(this.#box) && !isBack;
  }
  get hasOwnRedo(): boolean {
    return this.#into.isTypingIn(this.#box) && this.#takenBack > 0;
  }

  /**
   * Undoes by the browser where only the browser knows whether the run has a step left: the box
   * shows the text of the run's beginning, but did so in between too. Gives whether it had one.
   */
  tryOwnUndo(): boolean {
    if (!this.#into.isTypingIn(this.#box) || !this.#wasAtStart) return false;
    let isHere = false;
    let isElsewhere = false;
    const watch = (event: Event) => {
      if (event.composedPath()[0] === this.input) {
        isHere = true;
        return;
      }
      isElsewhere = true;
      event.stopImmediatePropagation();
    };
    window.addEventListener('input', watch, true);
    document.execCommand('undo');
    // The browser undid a step of another box: redo it, unheard.
    if (!isHere && isElsewhere) document.execCommand('redo');
    window.removeEventListener('input', watch, true);
    return isHere;
  }

  enable(enabled: boolean): void {
    this.input.disabled = !enabled;
    this.input.part.toggle('disabled', !enabled);
  }

  /** Shows the control's text and, if it moved, its caret. Gives whether the text changed. */
  show(what: number): boolean {
    const text =
      (what & What.Text) !== 0 ? this.#texts.shownText(this.#box, this.#lineEnd) : this.input.value;
    const before = this.input.value;
    const isOther = text !== before;
    if (isOther) {
      const wasEmpty = before === '';
      this.input.value = text;
      this.#runStart = text;
      this.#wasAtStart = false;
      this.#takenBack = 0;
      // Scrolls so that the end of the change is visible.
      const end = endOfChange(before, text);
      this.input.setSelectionRange(end, end);
      if (!wasEmpty) this.#bringIntoSight(end);
    }
    return isOther;
  }
  /** Puts the caret behind `caret` characters of the control's text, and scrolls to it. */
  showCaret(caret: number): void {
    const place = this.#texts.shownPlace(this.#box, caret);
    this.input.setSelectionRange(place, place);
    this.#bringIntoSight(place);
  }
  #bringIntoSight(place: number): void {
    if (!(this.input instanceof HTMLTextAreaElement)) return;
    const style = getComputedStyle(this.input);
    const height = parseFloat(style.lineHeight) || 20;
    const line = this.input.value.slice(0, place).split('\n').length - 1;
    const top = parseFloat(style.paddingTop) + line * height;
    if (top < this.input.scrollTop) this.input.scrollTop = top;
    else if (top + height > this.input.scrollTop + this.input.clientHeight)
      this.input.scrollTop = top + 2 * height - this.input.clientHeight;
  }
}

// The offset in `after` behind the last difference from `before`.
function endOfChange(before: string, after: string): number {
  let start = 0;
  const least = Math.min(before.length, after.length);
  while (start < least && before[start] === after[start]) ++start;
  let end = 0;
  while (end < least - start && before[before.length - 1 - end] === after[after.length - 1 - end])
    ++end;
  return after.length - end;
}

/** A box of one line. */
export function lineBox(texts: BoxTexts, box: Address, into: TypedInto, byKeys: boolean): TypedBox {
  return new TypedBox(texts, box, make('input', {type: 'text', part: 'input'}), into, byKeys);
}

/** A box of several lines, with syntax colours or without. */
export class LinesBox {
  readonly node: HTMLElement;
  readonly typed: TypedBox;
  readonly #texts: BoxTexts;
  readonly #area = make('textarea', {wrap: 'off', part: 'input', rows: 2});
  readonly #colors = make('div', {class: 'colours', 'aria-hidden': 'true'});
  readonly #sheet = make('div', {class: 'sheet'});
  #isColored = false;
  #margin: number | undefined; // where lines wrap, in pixels, 0 at the edge; undefined for nowhere
  #lines: string[] | undefined;
  #placed: string[] | undefined; // the lines that the sheet has, if it has all of them
  readonly #nodes: HTMLElement[] = []; // of the sheet, one a line
  readonly #drawn = new WeakMap<Element, string>(); // the line whose colours a node shows
  // A cache of scrolling and measures, in pixels: to ask the browser for them would force a layout
  // with each key.
  #place: [number, number] = [0, 0];
  #view = {width: 0, height: 0, line: 0, padding: 0};

  constructor(texts: BoxTexts, box: Address, into: TypedInto) {
    this.#texts = texts;
    this.typed = new TypedBox(texts, box, this.#area, {
      typed: (...typed) => {
        this.#lines = undefined;
        into.typed(...typed);
        this.#draw();
      },
      keyed: (...key) => into.keyed(...key),
      isTypingIn: () => into.isTypingIn(box),
    });
    this.#colors.append(this.#sheet);
    this.node = make('div', {class: 'lines', part: 'lines'}, this.#colors, this.#area);
    this.#area.addEventListener(
      'scroll',
      () => {
        this.#place = [this.#area.scrollLeft, this.#area.scrollTop];
        this.#draw();
      },
      {passive: true},
    );
    new ResizeObserver(() => {
      const wasHidden = this.#view.height === 0;
      this.#measure();
      if (wasHidden) this.restorePlace();
      else this.#place = [this.#area.scrollLeft, this.#area.scrollTop];
      this.#draw();
    }).observe(this.#area);
    this.#area.addEventListener('keydown', (event) => {
      // The Tab key moves the focus, so Ctrl+I and Ctrl+Tab insert a tab character.
      const isTab =
        event.ctrlKey &&
        !event.altKey &&
        !event.metaKey &&
        (event.key === 'i' || event.key === 'Tab');
      if (!isTab) return;
      event.preventDefault();
      this.typed.insert('\t');
    });
  }

  show(what: number, isColored: boolean): void {
    if (this.typed.show(what)) this.#lines = undefined;
    this.#isColored = isColored;
    this.node.classList.toggle('coloured', isColored);
    this.#draw();
  }
  /** Wraps lines at a margin in pixels, or at the edge with 0; undefined for no wrap. */
  wrapAt(margin: number | undefined): void {
    this.#margin = margin;
    this.node.classList.toggle('wraps', margin !== undefined);
    this.#area.wrap = margin === undefined ? 'off' : 'soft';
    this.#measure();
    this.#draw();
  }
  restorePlace(): void {
    if (this.#place[0] === 0 && this.#place[1] === 0) return;
    [this.#area.scrollLeft, this.#area.scrollTop] = this.#place;
    this.#draw();
  }

  #measure(): void {
    const style = getComputedStyle(this.#area);
    this.#view = {
      width: this.#area.clientWidth,
      height: this.#area.clientHeight,
      line: parseFloat(style.lineHeight),
      padding: parseFloat(style.paddingTop),
    };
    if (!this.#margin) this.node.style.removeProperty('--wrap-end');
    else {
      const start = parseFloat(style.paddingLeft);
      const end = Math.max(start, this.#view.width - start - this.#margin);
      this.node.style.setProperty('--wrap-end', `${end}px`);
    }
  }
  // Draws the coloured lines in sight under the text area, whose own letters are transparent then.
  #draw(): void {
    if (!this.#isColored) return;
    const {width, height: view, line: height, padding} = this.#view;
    if (view === 0) return; // hidden: drawn when it is shown again
    this.#lines ??= this.#area.value.split('\n');
    this.#colors.style.width = `${width}px`;
    this.#colors.style.height = `${view}px`;
    const [scrollLeft, scrollTop] = this.#place;
    if (this.#margin !== undefined) {
      this.#drawAll(this.#lines, scrollTop - padding, view);
      this.#sheet.style.transform = `translateY(${padding - scrollTop}px)`;
      return;
    }
    const first = Math.max(0, Math.floor((scrollTop - padding) / height));
    const behind = Math.min(this.#lines.length, first + Math.ceil(view / height) + 2);
    this.#placed = undefined;
    this.#drawThese(this.#lines.slice(first, behind), (node, line) => this.#drawLine(node, line));
    this.#sheet.style.transform = `translate(${-scrollLeft}px, ${padding + first * height - scrollTop}px)`;
  }
  // `shown` are the lines that the first nodes show already.
  #drawThese(
    lines: string[],
    draw: (node: HTMLElement, line: string) => void,
    shown: string[] = [],
  ): void {
    while (this.#nodes.length < lines.length)
      this.#nodes.push(this.#sheet.appendChild(make('div', {class: 'line'})));
    for (const [at, node] of this.#nodes.entries()) {
      const line = lines[at];
      if (line !== undefined && line === shown[at]) continue;
      node.hidden = line === undefined;
      if (line !== undefined) draw(node, line);
    }
  }
  // Only the browser knows the height of a wrapped line. So the sheet has all lines, and colours
  // those in sight. Places are read before anything is drawn: each read behind a change would be a
  // layout of all lines.
  #drawAll(lines: string[], top: number, height: number): void {
    if (lines !== this.#placed) {
      // A line that is typed into is coloured at once.
      let colorings = this.#placed === undefined ? 0 : kColoredAtOnce;
      const draw = (node: HTMLElement, line: string) => {
        if (colorings-- > 0) this.#drawLine(node, line);
        else this.#drawPlain(node, line);
      };
      this.#drawThese(lines, draw, this.#placed);
      this.#placed = lines;
    }
    let first = 0;
    for (let high = lines.length; first < high; ) {
      const middle = (first + high) >> 1;
      const {offsetTop, offsetHeight} = this.#nodes[middle]!;
      if (offsetTop + offsetHeight <= top) first = middle + 1;
      else high = middle;
    }
    let behind = first;
    while (behind < lines.length && this.#nodes[behind]!.offsetTop < top + height) ++behind;
    for (let at = first; at < behind; ++at) this.#drawLine(this.#nodes[at]!, lines[at]!);
  }
  #drawPlain(node: Element, line: string): void {
    this.#drawn.delete(node);
    this.#drawPieces(node, [[line, '']]);
  }
  #drawLine(node: Element, line: string): void {
    if (this.#drawn.get(node) === line) return;
    this.#drawn.set(node, line);
    const pieces: [string, string][] = [];
    let at = 0;
    for (const {first, count, kind} of this.#texts.coloredWords(line.slice(0, kColoredLine))) {
      if (first > at) pieces.push([line.slice(at, first), '']);
      // An italic word is an inline block, in which a tab would not reach its tab stop.
      for (const text of line.slice(first, first + count).split(/(\t)/))
        if (text !== '') pieces.push([text, text === '\t' ? '' : `word kind${kind}`]);
      at = first + count;
    }
    if (at < line.length) pieces.push([line.slice(at), '']);
    this.#drawPieces(node, pieces);
  }
  // Reuses the pieces that the node has; pieces that are too many become empty.
  #drawPieces(node: Element, pieces: [string, string][]): void {
    for (const [at, [text, kind]] of pieces.entries()) {
      const piece = node.children[at] ?? node.appendChild(make('span'));
      if (piece.className !== kind) piece.className = kind;
      showText(piece, text);
    }
    for (let at = pieces.length; at < node.childElementCount; ++at) {
      const piece = node.children[at]!;
      if (piece.className !== '') piece.className = '';
      showText(piece, '');
    }
  }
}
