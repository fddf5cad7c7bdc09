// Boxes like the browser's own: keys and clicks made up at random go to each box of the element and
// to a plain box of the same size and letters in another page. Text, caret and mark agree after
// each of them.
//
// Apart from where the form itself does something with a key:
// - When the plain box has nothing to undo, Ctrl+Z is the form's, and no box gets it; the same with
//   Ctrl+Y.
// - The row limit hands its keys to the form, which drops some and writes the others into the text.
//   The plain box is set to what the form has then.
// - Up and Down go to the entries of a combo, which a plain box has none of.
// - A plain box of one line takes no line end. Ours shows one as a code, which the plain box is
//   given instead.
//
// ZOLT20_ALIKE_KEYS says how many keys each box gets, ZOLT20_ALIKE_SEED plays one course, and
// ZOLT20_ALIKE_BOX chooses a box.
import assert from 'node:assert/strict';
import {after, before, test} from 'node:test';

import {courseOf, firstSeedOf, kKeysOfACourse, writtenOf} from './box_keys.mjs';
import {designOf} from './form.mjs';
import {Stage} from './harness.mjs';

/** @import {CDPSession, Page} from 'playwright-core' */
/** @import {BoxCourse, BoxKey, BoxManner} from './box_keys.mjs' */
/** @import {Person} from './harness.mjs' */

const kUsualKeys = 120;
const kKeys = Number(process.env.ZOLT20_ALIKE_KEYS ?? kUsualKeys);
const kSeed = process.env.ZOLT20_ALIKE_SEED;
const kBox = process.env.ZOLT20_ALIKE_BOX;
const kMost = 24 * 3600 * 1000;
/// How many pixels the two may be scrolled apart.
const kNear = 24;
const kLineEndInALine = '\ufdd0';

/** @typedef {{value: string, start: number, end: number, way: string, scrolled: number[]}} Look */

/// Where each box is: its page, and what is clicked there before.
/** @type {[string, number, string[]][]} */
const kBoxes = [
  ['TxtOutput', 0, []],
  ['cboWhereFields1', 1, []],
  ['txtwhereCondition', 1, []],
  ['txtCondition', 1, ['template']],
  ['txtAsSet', 1, []],
  ['txtSelectDo', 2, []],
  ['txtSelectEOS', 3, []],
  ['txtselectempty', 4, []],
  ['txtSelectError', 5, []],
  ['txtCond', 6, ['optIfThen']],
  ['txtStmt1', 6, ['optIfThen']],
  ['txtStmt2', 6, ['optIfThen']],
  ['txtWhlCnd', 6, ['optwhile']],
  ['txtWhlStm', 6, ['optwhile']],
  ['txtRepCnd', 6, ['optRepeat']],
  ['txtRepStm', 6, ['optRepeat']],
  ['txtVariable', 6, ['optFor']],
  ['txtinitval', 6, ['optFor']],
  ['txtFinVal', 6, ['optFor']],
  ['txtStep', 6, ['optFor']],
  ['txtForStmt', 6, ['optFor']],
  ['txtcaseexp', 6, ['optCase']],
  ['TxtDef', 6, ['optCase']],
  ['TxtExpr(0)', 6, ['optCase']],
  ['txtStmt(0)', 6, ['optCase']],
  ['TxtExpr(1)', 6, ['optCase', 'cmdNext']],
  ['txtStmt(1)', 6, ['optCase', 'cmdNext']],
];

/** @type {Stage} */
let stage;
/** @type {Person} */
let person;
/** @type {Page} */
let plainPage;
/** @type {CDPSession} */
let ours;
/** @type {CDPSession} */
let plain;
before(async () => {
  stage = await Stage.open();
  person = await stage.openElement();
  plainPage = await stage.openPage('blank.html');
  ours = await person.page.context().newCDPSession(person.page);
  plain = await plainPage.context().newCDPSession(plainPage);
  await person.page.evaluate(() => {
    const look = () => {
      const box = /** @type {HTMLInputElement} */ (host.element.shadowRoot?.activeElement);
      const {value, selectionStart, selectionEnd, selectionDirection, scrollLeft, scrollTop} = box;
      return {
        value,
        start: selectionStart ?? 0,
        end: selectionEnd ?? 0,
        way: selectionDirection === 'backward' ? 'backward' : 'forward',
        scrolled: [scrollLeft, scrollTop].map(Math.round),
      };
    };
    Object.assign(globalThis, {lookAtBox: look});
  });
});
after(() => stage?.close());

/** @type {(session: CDPSession, expression: string) => Promise<any>} */
async function ask(session, expression) {
  const {result, exceptionDetails} = await session.send('Runtime.evaluate', {
    expression,
    returnByValue: true,
    awaitPromise: true,
  });
  if (exceptionDetails !== undefined)
    throw new Error(exceptionDetails.exception?.description ?? exceptionDetails.text);
  return result.value;
}

// Sending keys.

/** @type {Record<string, [string, number]>} The code of a key and its number in Windows. */
const kNamed = {
  ArrowLeft: ['ArrowLeft', 37],
  ArrowUp: ['ArrowUp', 38],
  ArrowRight: ['ArrowRight', 39],
  ArrowDown: ['ArrowDown', 40],
  Home: ['Home', 36],
  End: ['End', 35],
  Backspace: ['Backspace', 8],
  Delete: ['Delete', 46],
  Enter: ['Enter', 13],
};

/**
 * A box on its page: a click goes to the middle of a line there.
 * @typedef {{x: number, y: number, width: number, height: number, line: number, top: number,
 *   free: number}} Spot
 */
/** @type {(session: CDPSession, pressed: BoxKey, place: Spot) => Promise<unknown>} */
async function send(session, pressed, place) {
  const {key, shift, control, across = 0, down = 0} = pressed;
  const modifiers = (control ? 2 : 0) + (shift ? 8 : 0);
  if (key.endsWith('click')) {
    const at = {
      x: place.x + 1 + across * (place.free - 2),
      y: place.y + middleOfLine(place, down * (place.height - 2), await scrolled(session)),
      modifiers,
      button: /** @type {const} */ ('left'),
    };
    /** @type {(clickCount: number) => Promise<unknown>[]} */
    const press = (clickCount) => [
      session.send('Input.dispatchMouseEvent', {...at, type: 'mousePressed', clickCount}),
      session.send('Input.dispatchMouseEvent', {...at, type: 'mouseReleased', clickCount}),
    ];
    return Promise.all(key === 'click' ? press(1) : [...press(1), ...press(2)]);
  }
  const named = kNamed[key];
  const isAlphanumeric = /^[a-z0-9]$/i.test(key);
  const [code, windowsVirtualKeyCode] = named ?? [
    isAlphanumeric ? `Key${key.toUpperCase()}` : '',
    isAlphanumeric ? key.toUpperCase().charCodeAt(0) : 0,
  ];
  const isText = !control && (named === undefined || key === 'Enter');
  const text = key === 'Enter' ? '\r' : key;
  const event = {key, code, windowsVirtualKeyCode, modifiers};
  return Promise.all([
    session.send('Input.dispatchKeyEvent', {
      ...event,
      type: isText ? 'keyDown' : 'rawKeyDown',
      ...(isText ? {text, unmodifiedText: text} : {}),
    }),
    session.send('Input.dispatchKeyEvent', {...event, type: 'keyUp'}),
  ]);
}

/** @typedef {{place: Spot, style: string[][], look: Look, isArea: boolean}} Like */

/** @type {(session: CDPSession) => Promise<number>} */
const scrolled = async (session) => (await ask(session, 'lookAtBox()')).scrolled[1];
/** @type {(place: Spot, down: number, scrolledBy: number) => number} */
function middleOfLine({height, line, top}, down, scrolledBy) {
  const number = Math.max(0, Math.floor((down + scrolledBy - top) / line));
  const middle = top + (number + 0.5) * line - scrolledBy;
  return Math.max(2, Math.min(height - 2, middle));
}

/// A box of the element and a plain box that is like it.
class Pair {
  /** @param {string} box @param {number} page @param {string[]} clicks */
  constructor(box, page, clicks) {
    this.box = box;
    this.page = page;
    this.clicks = clicks;
    const {kind, styles} = designOf(box);
    this.isByKeys = box === 'txtAsSet';
    this.isCombo = kind === 'ComboBox';
    /** @type {BoxManner} */
    this.manner = {
      hasSeveralLines: kind !== 'ComboBox' && styles.includes('kMultiLine'),
      takesDigits: this.isByKeys,
    };
    /** @type {boolean | undefined} Whether words are coloured in the element that is there. */
    this.isColored = undefined;
    /** @type {Spot} */
    this.place = {x: 0, y: 0, width: 0, height: 0, line: 0, top: 0, free: 0};
    /** @type {Omit<Like, 'look'>} */
    this.like = {place: this.place, style: [], isArea: this.manner.hasSeveralLines};
    /** @type {[string, string]} What each side copied last. */
    this.copied = ['', ''];
  }

  // A new element with this box in sight. In every other course the words have their colours.
  /** @type {(isColored: boolean) => Promise<void>} */
  async open(isColored) {
    await person.makeNew('{"new":{}}');
    await person.page.evaluate(
      ([colored]) =>
        Object.assign(host.element, {
          Syntax_Highlight: colored,
          PrpStrTables: 'ORDERITM0,ORDERLIN1',
          PrpStrFields: 'long*Q*V*R*N*YORDERITM.NO*Q*V*R*N*number',
        }),
      [isColored],
    );
    await person.clickRow('lsttables', 0);
    if (this.page !== 0) await person.tab(this.page);
    for (const name of this.clicks) {
      if (name === 'template') {
        await person.pick('cboWhereFields', 0);
        await person.pick('cboOper', 7);
      } else {
        await person.click(name);
      }
    }
  }
  // The text of a course comes by the form's Redo, so that the box has no undo of its own; and a
  // plain box is made like it.
  /** @type {(course: BoxCourse) => Promise<void>} */
  async begin({seed, text}) {
    const isColored = seed % 2 === 0;
    if (this.isColored !== isColored) await this.open(isColored);
    this.isColored = isColored;
    await person.focus(this.box);
    await this.giveText('before');
    await this.giveText(text);
    await person.press('tabVrn', `[data-page="${this.page}"]`);
    await person.focus(this.box);
    await person.keyboard.press('Control+Home');
    await person.nextFrame();
    const like = await person.page.evaluate(likeOf);
    this.place = like.place;
    this.like = {...like, isArea: this.manner.hasSeveralLines};
    const [look] = await this.looks();
    await plainPage.evaluate(makePlain, {...this.like, look});
    await person.page.evaluate(() => navigator.clipboard.writeText('first'));
    this.copied = ['first', 'first'];
  }
  /** @type {(text: string) => Promise<void>} */
  async giveText(text) {
    await person.keyboard.press('Control+A');
    if (text === '') await person.keyboard.press('Delete');
    else if (this.isByKeys) await this.paste(text);
    else await person.keyboard.insertText(text);
    await person.page.evaluate(() => {
      if (!host.element.canUndo) return;
      host.element.undo();
      host.element.redo();
    });
  }
  /** @type {(text: string) => Promise<void>} */
  async paste(text) {
    await person.page.evaluate((pasted) => navigator.clipboard.writeText(pasted), text);
    await person.keyboard.press('Control+V');
  }

  /// Where the boxes differ, and after how many keys; undefined when they agree all along.
  /** @type {(course: BoxCourse) => Promise<{keys: number, what: string} | undefined>} */
  async play(course) {
    await this.begin(course);
    let what = this.difference(...(await this.looks()));
    if (what !== '') return {keys: 0, what};
    for (const [at, key] of course.keys.entries()) {
      what = await this.playKey(key);
      if (what !== '') {
        this.isColored = undefined;
        return {keys: at + 1, what: `after ${writtenOf(key)} ${what}`};
      }
    }
    return undefined;
  }
  /** @type {() => Promise<[Look, Look]>} */
  async looks() {
    return Promise.all([ask(ours, 'lookAtBox()'), ask(plain, 'globalThis.lookAtBox?.()')]);
  }
  /** @type {(a: Look, b: Look) => string} */
  difference(a, b) {
    const [box, other] = [JSON.stringify(a), JSON.stringify(b)];
    return box === other ? '' : `the box has ${box}\n  and the plain box ${other}`;
  }
  /** @type {(key: BoxKey) => Promise<string>} */
  async playKey(key) {
    const takesBack = key.control && ['z', 'y'].includes(key.key);
    if (takesBack) {
      const name = key.key === 'z' ? 'undo' : 'redo';
      if (!(await ask(plain, `canDo('${name}')`))) return '';
    }
    if (this.isCombo && ['ArrowUp', 'ArrowDown'].includes(key.key)) return '';
    if (key.control && ['c', 'x'].includes(key.key)) return this.playCopy(key);
    if (key.control && key.key === 'v') return this.playPaste(key);
    if (this.isByKeys && !key.control && (key.key.length === 1 || key.key === 'Backspace'))
      return this.playKeyOfForm(key);
    await Promise.all([send(ours, key, this.place), send(plain, key, this.place)]);
    return this.roughDifference();
  }
  // The two boxes one behind the other: there is one clipboard.
  /** @type {(key: BoxKey) => Promise<string>} */
  async playCopy(key) {
    const copied = [];
    for (const [at, session] of [ours, plain].entries()) {
      await write(session, this.copied[at]);
      await send(session, key, this.place);
      copied.push(await ask(session, 'navigator.clipboard.readText()'));
    }
    this.copied = /** @type {[string, string]} */ (copied);
    const [own, other] = copied.map((text) => text.replace(/\r\n|\ufdd0/g, '\n'));
    if (own !== other)
      return `the clipboard has ${JSON.stringify(own)}, not ${JSON.stringify(other)}`;
    return this.roughDifference();
  }
  // How far a box scrolls for its caret to be in sight, small parts of a pixel decide.
  async roughDifference() {
    const [own, other] = await this.looks();
    const isNear = own.scrolled.every((at, axis) => Math.abs(at - other.scrolled[axis]) <= kNear);
    if (!isNear) return this.difference(own, other);
    other.scrolled = own.scrolled;
    await ask(plain, `scrollPlain(${JSON.stringify(own.scrolled)})`);
    return this.difference(own, other);
  }
  /** @type {(key: BoxKey) => Promise<string>} */
  async playPaste(key) {
    const {text} = key;
    if (text !== undefined) this.copied = [text, text];
    if (!this.manner.hasSeveralLines)
      this.copied[1] = this.copied[1].replace(/\r\n|\r|\n/g, kLineEndInALine);
    for (const [at, session] of [ours, plain].entries()) {
      await write(session, this.copied[at]);
      await send(session, key, this.place);
    }
    return this.roughDifference();
  }
  // The form drops the key, or writes the text with it: then the history of the box begins anew.
  /** @type {(key: BoxKey) => Promise<string>} */
  async playKeyOfForm(key) {
    const [before] = await this.looks();
    await send(ours, key, this.place);
    const isDropped = key.key.length === 1 && !/[0-9]/.test(key.key);
    if (!isDropped) await send(plain, key, this.place);
    const [own, other] = await this.looks();
    // How far a line is scrolled is the browser's business where a program wrote the text.
    if (!isDropped) other.scrolled = own.scrolled;
    const what = this.difference(own, other);
    if (!isDropped && before.value !== own.value)
      await plainPage.evaluate(makePlain, {...this.like, look: own});
    return what;
  }
}
/** @type {(session: CDPSession, text: string) => Promise<void>} */
const write = (session, text) =>
  ask(session, `navigator.clipboard.writeText(${JSON.stringify(text)})`);

// What the box that has the keyboard is like.
function likeOf() {
  const box = /** @type {HTMLInputElement} */ (host.element.shadowRoot?.activeElement);
  const {x, y, width, height} = box.getBoundingClientRect();
  const style = getComputedStyle(box);
  // The button of a combo lies on its box.
  const button = host.element.shadowRoot?.getElementById(`${box.id}.open`);
  const free = button ? button.getBoundingClientRect().x - x : width;
  const kAlike = [
    'font-family',
    'font-size',
    'font-style',
    'font-weight',
    'font-stretch',
    'font-kerning',
    'font-variant-ligatures',
    'letter-spacing',
    'line-height',
    'white-space',
    'tab-size',
    'padding',
    'border-width',
    'border-style',
    'box-sizing',
    'direction',
    'text-align',
  ];
  const number = (/** @type {string} */ name) => parseFloat(style.getPropertyValue(name));
  const line = number('line-height');
  const isArea = box.localName === 'textarea';
  const top = isArea ? number('border-top-width') + number('padding-top') : (height - line) / 2;
  return {
    place: {x, y, width, height, line, top, free},
    style: kAlike.map((name) => [name, style.getPropertyValue(name)]),
  };
}
// A plain box in a frame of its own, whose history is empty.
/** @param {Like} like */
function makePlain({place, style, look, isArea}) {
  document.querySelector('iframe')?.remove();
  const frame = document.createElement('iframe');
  frame.style.cssText = 'position:fixed;inset:0;width:100%;height:100%;border:0';
  document.body.append(frame);
  const inside = /** @type {Document} */ (frame.contentDocument);
  inside.open();
  inside.write('<!doctype html><title>Plain</title><body>');
  inside.close();
  const box = /** @type {HTMLInputElement} */ (
    /** @type {unknown} */ (inside.createElement(isArea ? 'textarea' : 'input'))
  );
  if (isArea) box.setAttribute('wrap', 'off');
  box.spellcheck = false;
  box.setAttribute('autocomplete', 'off');
  for (const [name, text] of style) box.style.setProperty(name, text);
  const {x, y, width, height} = place;
  box.style.cssText += `position:fixed;margin:0;resize:none;left:${x}px;top:${y}px;width:${width}px;height:${height}px`;
  inside.body.append(box);
  box.value = look.value;
  frame.contentWindow?.focus();
  box.focus();
  box.setSelectionRange(look.start, look.end, /** @type {'forward'} */ (look.way));
  [box.scrollLeft, box.scrollTop] = look.scrolled;
  Object.assign(globalThis, {
    lookAtBox: () => ({
      value: box.value,
      start: box.selectionStart,
      end: box.selectionEnd,
      way: box.selectionDirection === 'backward' ? 'backward' : 'forward',
      scrolled: [box.scrollLeft, box.scrollTop].map(Math.round),
    }),
    canDo: (/** @type {string} */ name) => inside.queryCommandEnabled(name),
    scrollPlain: (/** @type {number[]} */ to) => {
      [box.scrollLeft, box.scrollTop] = to;
    },
  });
}

/// The course with the fewest keys at its end that still shows a difference.
/**
 * @type {(pair: Pair, course: BoxCourse) =>
 *   Promise<{course: BoxCourse, what: string} | undefined>}
 */
async function shortest(pair, course) {
  for (let count = 1; count < course.keys.length; ++count) {
    const tail = {...course, keys: course.keys.slice(-count)};
    const found = await pair.play(tail);
    if (found !== undefined)
      return {course: {...tail, keys: tail.keys.slice(0, found.keys)}, what: found.what};
  }
  return undefined;
}

for (const [box, page, clicks] of kBoxes) {
  if (kBox !== undefined && kBox !== box) continue;
  test(`${box} does with each key what a plain box does`, {timeout: kMost}, async () => {
    const pair = new Pair(box, page, clicks);
    let seed = kSeed === undefined ? firstSeedOf(box) : Number(kSeed);
    let left = kSeed === undefined ? kKeys : kKeysOfACourse;
    for (; left > 0; left -= kKeysOfACourse, ++seed) {
      const course = courseOf(seed, pair.manner, Math.min(left, kKeysOfACourse));
      const found = await pair.play(course);
      if (found === undefined) continue;
      course.keys.length = found.keys;
      const least = (await shortest(pair, course)) ?? {course, what: found.what};
      assert.fail(
        `${box} with seed ${seed}: ${least.what}\n` +
          `  a text of ${JSON.stringify(course.text)} and the keys ` +
          `${least.course.keys.map(writtenOf).join(', ')}\n  To run it alone: ` +
          `ZOLT20_ALIKE_SEED=${seed} ZOLT20_ALIKE_BOX='${box}' node --test tests/web/alike.test.mjs`,
      );
    }
    assert.deepEqual(person.page.complaints.splice(0), []);
  });
}
