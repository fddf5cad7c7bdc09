// The host of an element in a page of the tests. It keeps what the element tells, in the words of
// the automation host's log, carries requests of the automation host out by the element's members,
// and finds out where things are drawn.
//
// What goes to the test and back is text of JSON, which holds any 16-bit characters. It is no
// module, so that a page from a file can have it too.
const kEvents = ['eventCancel', 'eventDone', 'eventSubQuery', 'eventCondition', 'eventFunction'];

/**
 * @typedef {import('../types').Control} Control
 * @typedef {import('../types').Controls} Controls
 * @typedef {import('../types').Design} Design
 * @typedef {import('../types').DumpedControl} DumpedControl
 * @typedef {import('../types').HostRequest} HostRequest
 * @typedef {import('../types').LogEntry} LogEntry
 * @typedef {import('../types').Place} Place
 * @typedef {import('../types').ToldError} ToldError
 * @typedef {import('zolt20-map-control').ZOLT20Error} ZOLT20Error
 * @typedef {import('zolt20-map-control').ZOLT20MapControlElement} ZOLT20MapControlElement
 */

/** @type {(error: ZOLT20Error) => ToldError} */
const told = (error) => ({kind: error.kind, number: error.number, description: error.message});

class Host {
  /**
   * The form at design, which the test hands over: see form.mjs.
   * @type {import('../types').Form}
   */
  static form;

  /** @param {ZOLT20MapControlElement} element */
  constructor(element) {
    this.element = /** @type {Control} */ (element);
    /** @type {LogEntry[]} */
    this.log = [];
    /**
     * What is carried out within an event, by its name.
     * @type {Record<string, HostRequest[]>}
     */
    this.answers = {};
    for (const name of kEvents) element.addEventListener(name, () => this.#answer(name));
    element.addEventListener('propertychanged', (event) =>
      this.log.push({changed: event.detail.name}),
    );
    element.addEventListener('message', ({detail: {text, title, icon, buttons}}) =>
      this.log.push({message: text, title, icon, buttons}),
    );
    element.addEventListener('failed', (event) => this.log.push({failed: told(event.detail)}));
    for (const name of ['undone', 'redone'])
      element.addEventListener(name, () => this.log.push({[name]: true}));
  }

  takeLog() {
    return JSON.stringify(this.log.splice(0));
  }

  /** @type {(event: string) => void} */
  #answer(event) {
    this.log.push({event});
    for (const request of this.answers[event] ?? []) {
      const {value, error} = this.#run(request);
      /** @type {LogEntry} */
      const entry = {answered: request.set ?? request.get ?? request.call};
      if (error !== undefined) entry.error = error;
      else if (request.set === undefined) entry.value = value;
      this.log.push(entry);
      if (error !== undefined) break;
    }
  }

  // A set, get or call.
  /** @type {(request: HostRequest) => {ok: boolean, value?: unknown, error?: ToldError}} */
  #run(request) {
    try {
      if (request.set !== undefined) {
        if (!(request.set in this.element)) throw new Error(`there is no property ${request.set}`);
        this.element[request.set] = request.value;
        return {ok: true};
      }
      if (request.get !== undefined) return {ok: true, value: this.element[request.get]};
      const call = /** @type {Function} */ (this.element[request.call ?? '']);
      return {ok: true, value: call.apply(this.element, request.args ?? []) ?? null};
    } catch (error) {
      const failure = /** @type {ZOLT20Error} */ (error);
      if (failure.name !== 'ZOLT20Error') throw error;
      return {ok: false, error: told(failure)};
    }
  }

  /// What a host does for a line that no person does. The reply without its log.
  /** @type {(line: string) => string} */
  carryOut(line) {
    const request = JSON.parse(line);
    if (request.answer !== undefined) {
      this.answers[request.answer] = request.with;
      return JSON.stringify({ok: true});
    }
    if (request.save !== undefined) {
      return JSON.stringify({ok: true, value: this.element.UserControl_WriteProperties()});
    }
    return JSON.stringify(this.#run(request));
  }

  dump() {
    return JSON.stringify(this.element.dump());
  }

  // Where a person finds things.

  /** @type {(id: string) => HTMLInputElement} */
  on(id) {
    return this.element.shadowRoot.getElementById(id);
  }
  /// A node of the control with this name by a selector within it, or of the whole element for no
  /// name.
  /** @type {(id: string, selector: string) => HTMLInputElement} */
  find(id, selector) {
    const within = id === '' ? this.element.shadowRoot : this.on(id);
    const isItself = selector === '' || within === null;
    return isItself ? /** @type {HTMLInputElement} */ (within) : within.querySelector(selector);
  }
  /// The middle of a node in the window, cut to what its scrolling ancestors show; and whether
  /// nothing lies on it.
  /** @type {(id: string, selector?: string) => Place} */
  place(id, selector = '') {
    const node = this.find(id, selector);
    if (node === null || !node.checkVisibility())
      return /** @type {Place} */ ({isThere: false, isOnTop: false});
    let {left, top, right, bottom} = node.getBoundingClientRect();
    // What stands in the top layer is cut by nothing around it.
    /** @type {(at: Element) => boolean} */
    const isOnItsOwn = (at) => at.matches(':popover-open, dialog[open]');
    /** @type {HTMLElement} */
    let at = node;
    for (;;) {
      const around = isOnItsOwn(at) ? null : this.around(at);
      if (around === null) break;
      at = around;
      if (getComputedStyle(around).overflow === 'visible') continue;
      const box = around.getBoundingClientRect();
      [left, top] = [Math.max(left, box.left), Math.max(top, box.top)];
      [right, bottom] = [Math.min(right, box.right), Math.min(bottom, box.bottom)];
    }
    const [x, y] = [(left + right) / 2, (top + bottom) / 2];
    const hit =
      right > left && bottom > top ? this.element.shadowRoot.elementFromPoint(x, y) : null;
    return {
      isThere: true,
      isOnTop: hit !== null && (hit === node || node.contains(hit)),
      isEnabled: !node.disabled && node.getAttribute('aria-disabled') !== 'true',
      left,
      top,
      right,
      bottom,
      x,
      y,
    };
  }
  /// What is around a node, across the border of the element too, within the page's own scrolling.
  /** @type {(node: HTMLElement) => HTMLElement | null} */
  around(node) {
    if (node.parentElement !== null)
      return node.parentElement === document.body ? null : node.parentElement;
    const root = node.getRootNode();
    return root instanceof ShadowRoot ? /** @type {HTMLElement} */ (root.host) : null;
  }
  /// Where the wheel has to be turned next, and how far, for a node to come into sight; null when
  /// it is there.
  /** @type {(id: string, selector: string) => {x: number, y: number, way: number} | null} */
  wayIntoSight(id, selector) {
    const node = this.find(id, selector);
    const scrolled = [];
    for (let at = this.around(node); at !== null; at = this.around(at)) {
      if (/auto|scroll/.test(getComputedStyle(at).overflowY) && at.scrollHeight > at.clientHeight)
        scrolled.unshift(at);
    }
    let box = {left: 0, top: 0, bottom: innerHeight};
    for (const target of [...scrolled, node]) {
      const {left, top, bottom} = target.getBoundingClientRect();
      const kEnough = target === node ? bottom - top : 60;
      const seen = Math.min(bottom, box.bottom) - Math.max(top, box.top);
      if (seen < Math.min(kEnough, bottom - top, box.bottom - box.top) - 1) {
        // At the edge lies nothing that is scrolled by itself.
        return {
          x: box.left + 2,
          y: (box.top + box.bottom) / 2,
          way: (top + bottom - box.top - box.bottom) / 2,
        };
      }
      box = {left, top: Math.max(top, box.top), bottom: Math.min(bottom, box.bottom)};
    }
    return null;
  }
  /// How far everything is scrolled.
  scrolled() {
    const all = [document.documentElement, ...this.element.shadowRoot.querySelectorAll('*')];
    return all.map((node) => `${node.scrollLeft} ${node.scrollTop}`).join();
  }
  /// When what the wheel scrolls has come to rest. Engines scroll aside, later than the wheel turned and
  /// step by step, and a wheel at the end of what is scrolled does nothing.
  /** @type {(before: string) => Promise<void>} */
  async scrollingEnds(before) {
    const kFramesToBegin = 10;
    const kStillFrames = 4;
    const kMostFrames = 300;
    let now = before;
    let still = 0;
    for (let frame = 0; frame < kMostFrames; ++frame) {
      await new Promise((done) => requestAnimationFrame(done));
      const last = now;
      now = this.scrolled();
      still = now === last ? still + 1 : 0;
      if (still >= (now === before ? kFramesToBegin : kStillFrames)) return;
    }
  }
  /// Where the wheel has to be turned sideways, and how far, for a node to come into sight of what it
  /// is scrolled in; null when it is there.
  /** @type {(id: string, selector: string) => {x: number, y: number, way: number} | null} */
  waySideways(id, selector) {
    const node = this.find(id, selector);
    const {left, right} = node.getBoundingClientRect();
    for (let at = this.around(node); at !== null; at = this.around(at)) {
      if (!/auto|scroll/.test(getComputedStyle(at).overflowX) || at.scrollWidth <= at.clientWidth)
        continue;
      const box = at.getBoundingClientRect();
      if (left >= box.left - 1 && right <= box.right + 1) continue;
      return {
        x: (box.left + box.right) / 2,
        y: (box.top + box.bottom) / 2,
        way: (left + right - box.left - box.right) / 2,
      };
    }
    return null;
  }
  /// How far a list has to be scrolled for a row to be in its sight; 0 when it is, null
  /// when no rows are drawn yet.
  /** @type {(list: string, row: number) => number | null} */
  wayToRow(list, row) {
    const box = this.on(list);
    const first = box.querySelector('[data-row]');
    if (first === null) return null;
    const height = first.getBoundingClientRect().height;
    const place = box.getBoundingClientRect();
    const top = first.getBoundingClientRect().top + (row - Number(first.dataset.row)) * height;
    const upper = place.top + box.clientTop;
    const lower = upper + box.clientHeight;
    if (top >= upper && top + height <= lower) return 0;
    const middle = (upper + lower - height) / 2;
    return Math.abs(top - middle) < 1 ? 0 : top - middle;
  }

  /// The name of the control that the keyboard is at, or whatever else it is at.
  keyboard() {
    const active = document.activeElement;
    if (active !== this.element) return active === document.body ? 'body' : `#${active?.id}`;
    for (let at = this.element.shadowRoot.activeElement; at !== null; at = at.parentElement) {
      if (at.id !== '' && at.role !== 'tab') return at.id;
    }
    return '';
  }

  /// The log since the last call, the state, and what is drawn otherwise.
  look() {
    const dump = this.element.dump();
    return JSON.stringify({log: this.log.splice(0), dump, difference: this.difference(dump)});
  }
  /// Whether a page is hidden and has nothing on it yet.
  /** @type {(page: number) => boolean} */
  isEmpty(page) {
    const node = this.on(`page${page}`);
    return node.hidden && node.childElementCount === 0;
  }
  /// The first way in which what is drawn is not what the form has; '' when there is none.
  difference({controls, focus} = this.element.dump()) {
    for (const [name, control] of Object.entries(controls)) {
      const node = this.on(name);
      const {kind, styles, page} = designOf(name);
      // What stands on a page is made when the page is shown for the first time.
      if (node === null && page !== null && this.isEmpty(page)) continue;
      if (node === null) return `${name} is not there`;
      const shown = isShown(controls, name);
      if (node.checkVisibility() !== shown) return `${name} is ${shown ? 'hidden' : 'shown'}`;
      const what = shown ? kindDifference(kind, styles, node, control) : '';
      if (what !== '') return `${name} ${what}`;
    }
    const keyboard = this.keyboard();
    const isModal = this.find('', 'dialog[open]') !== null;
    if (
      document.activeElement === this.element &&
      focus !== null &&
      keyboard !== focus &&
      !isModal
    ) {
      return `the keyboard is at ${keyboard === '' ? 'no control' : keyboard} and the focus at ${focus}`;
    }
    return '';
  }
}

/** @type {(name: string) => Design} */
const designOf = (name) => Host.form[name] ?? Host.form[name.replace(/\(\d+\)$/, '(0)')];

/** @type {(controls: Controls, name: string) => boolean} */
function isShown(controls, name) {
  const {page} = designOf(name);
  if (page !== null && page !== controls.tabVrn.Tab) return false;
  /** @type {string | null} */
  let at = name;
  for (; at !== null; at = designOf(at).frame) {
    if (!controls[at].Visible) return false;
  }
  return true;
}

/** @type {(text: string) => string} */
const lines = (text) => text.replace(/\r\n/g, '\n');
/** @type {(text: string) => string} */
const quoted = (text) => `shows ${JSON.stringify(text)}`;

/**
 * @type {(kind: string, styles: string[], node: HTMLInputElement, control: DumpedControl) =>
 *   string}
 */
function kindDifference(kind, styles, node, control) {
  /** @type {(shown: string | null, text: string) => string} */
  const has = (shown, text) => (shown === lines(text) ? '' : quoted(String(shown)));
  const isDisabled = node.disabled === true || node.getAttribute('aria-disabled') === 'true';
  switch (kind) {
    case 'TabStrip':
      return node.querySelector('[role=tab][aria-selected=true]').dataset.page ===
        String(control.Tab)
        ? ''
        : 'shows another page';
    case 'TextBox':
    case 'SyntaxTextBox':
      return isDisabled !== !control.Enabled ? 'Enabled' : has(node.value, control.Text);
    case 'Button':
      return isDisabled !== !control.Enabled ? 'Enabled' : has(node.textContent, control.Caption);
    case 'Label':
      return has(node.textContent, control.Caption);
    case 'OptionButton':
      if (isDisabled !== !control.Enabled) return 'Enabled';
      return Object.is(node.checked, control.Value) ? '' : 'shows another Value';
    case 'ScrollBar':
      return Number(node.getAttribute('aria-valuenow')) === control.Value &&
        Number(node.getAttribute('aria-valuemax')) === control.Max
        ? ''
        : 'is at another place';
    case 'ComboBox':
      if (isDisabled !== !control.Enabled) return 'Enabled';
      return has(styles.includes('kEditable') ? node.value : node.textContent, control.Text);
    case 'ListBox':
      return isDisabled !== !control.Enabled ? 'Enabled' : rowsDifference(node, control);
    default:
      return '';
  }
}

/** @type {(node: HTMLElement, control: DumpedControl) => string} */
function rowsDifference(node, control) {
  const rows = [...node.querySelectorAll('[role=option]')];
  if ((rows.length === 0) !== (control.List.length === 0)) return `draws ${rows.length} rows`;
  for (const row of rows) {
    const number = Number(row.dataset.row);
    const text = row.querySelector('.text').textContent ?? '';
    if (text !== control.List[number]) return `row ${number} ${quoted(text)}`;
    if (row.getAttribute('aria-setsize') !== String(control.List.length))
      return `row ${number} has another size of set`;
    if (row.getAttribute('aria-posinset') !== String(number + 1))
      return `row ${number} has another position`;
    if ((row.getAttribute('aria-selected') === 'true') !== control.Selected[number])
      return `row ${number} is marked otherwise`;
  }
  return '';
}

/// What a page offers to the test: the host of its first element, and a new element instead of
/// that.
function beginHost() {
  globalThis.host = new Host(document.querySelector('zolt20-map-control'));
}
/** @type {(line: string) => void} */
function makeNew(line) {
  const {new: settings} = JSON.parse(line);
  const before = globalThis.host;
  const element = document.createElement('zolt20-map-control');
  before.element.remove();
  document.querySelector('main').insertBefore(element, document.querySelector('#behind'));
  globalThis.host = new Host(element);
  globalThis.host.answers = before.answers;
  if (settings.bag !== undefined) element.UserControl_ReadProperties(settings.bag);
}
Object.assign(globalThis, {Host, beginHost, makeNew});
