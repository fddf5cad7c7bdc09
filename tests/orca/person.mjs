// A person at a face who has keys and Orca, and no eyes: carries out the gestures of recorded
// sessions by keys alone.
import {designOf} from '../web/form.mjs';

/** @import {Desktop} from './desktop.mjs' */
/** @import {Face} from './faces.mjs' */
/** @import {Gesture} from '../web/types' */

const kMostKeys = 80;

// The names by which the display knows keys that are no letters or digits.
/** @type {Record<string, string>} */
const kKeyNames = {
  ' ': 'space',
  '\n': 'Return',
  '\t': 'Tab',
};

/** @type {(character: string) => string} */
export function keyOf(character) {
  if (/[A-Za-z0-9]/.test(character)) return character;
  return kKeyNames[character] ?? `U${character.codePointAt(0)?.toString(16).padStart(4, '0')}`;
}

export class KeyPerson {
  /** @param {Desktop} desktop @param {Face} face */
  constructor(desktop, face) {
    this.desktop = desktop;
    this.face = face;
    /**
     * The controls that Orca was heard at.
     * @type {Set<string>}
     */
    this.visited = new Set();
    /**
     * The controls and pages that the keys led over on the way to the last gesture.
     * @type {object[]}
     */
    this.way = [];
  }

  /// Presses a key and gives what Orca said of it.
  /** @type {(...keys: string[]) => Promise<string[]>} */
  async hear(...keys) {
    await this.desktop.press(...keys);
    return this.desktop.heard();
  }

  /// Carries a gesture out. Gives what Orca said at each turn: on arriving at the control for
  /// the first time, on the row, and of what was done.
  /** @type {(gesture: Gesture) => Promise<string[][]>} */
  async make(gesture) {
    this.way = [];
    const control = gesture.user === 'tab' ? 'tabVrn' : gesture.control;
    const heard = [await this.#goTo(control), ...(await this.#act(gesture))];
    const kMostMessages = 3;
    for (let at = 0; at < kMostMessages && (await this.face.state()).message; ++at)
      heard.push(await this.hear('space'));
    return heard.filter((words) => words.length > 0);
  }

  /** @type {(control: string) => Promise<string[]>} */
  async #goTo(control) {
    let {focus, controls} = await this.face.state();
    if (focus === control) return [];
    const placeOf = (/** @type {string | null} */ name) =>
      name === null ? -1 : Number(controls[name].TabIndex);
    const isForward = placeOf(control) > placeOf(focus);
    const [on, back] = isForward ? ['Tab', 'shift+Tab'] : ['shift+Tab', 'Tab'];
    for (let keys = 0; focus !== control; ++keys) {
      if (keys > kMostKeys) throw new Error(`the Tab key does not come to ${control}`);
      const before = focus;
      await this.desktop.send(on);
      await this.desktop.waitFor(`the Tab key leaves ${before} for ${control}`, async () => {
        ({focus} = await this.face.state());
        return focus !== before;
      });
      this.way.push({user: 'focus', control: String(focus)});
    }
    if (this.visited.has(control)) {
      await this.desktop.quiet();
      this.desktop.heard();
      return [];
    }
    // Once more, with nothing said before it.
    this.visited.add(control);
    await this.hear(back);
    const beside = String((await this.face.state()).focus);
    this.way.push({user: 'focus', control: beside}, {user: 'focus', control});
    return this.hear(on);
  }

  /** @type {(gesture: any) => Promise<string[][]>} */
  async #act(gesture) {
    const {control, row} = gesture;
    switch (gesture.user) {
      case 'tab': {
        const page = async () => Number((await this.face.state()).controls.tabVrn.Tab);
        return [await this.#stepTo(control ?? 'tabVrn', page, gesture.page, 'Right', 'Left')];
      }
      case 'click':
        if (row === undefined) return [await this.hear('space')];
        return this.#clickRow(control, row);
      case 'dblclick':
        return [...(await this.#goToRow(row)), await this.hear('Return')];
      case 'pick': {
        // Of a list that opens Orca tells in words of its own for each of the faces.
        await this.hear('alt+Down');
        const moves = ['Home', ...Array(row).fill('Down')];
        await this.hear(...moves.slice(0, -1));
        const entry = await this.hear(...moves.slice(-1));
        return [entry, await this.hear('Return')];
      }
      case 'type':
        return [await this.#type(control, gesture.text)];
      case 'scroll': {
        const value = async () => Number((await this.face.state()).controls[control].Value);
        return [await this.#stepTo(control, value, gesture.value, 'Down', 'Up')];
      }
      case 'focus':
        return [];
      default:
        throw new Error(`no keys for ${JSON.stringify(gesture)}`);
    }
  }

  // Presses one of two keys until a number is the wanted one. What is said of the last press.
  /**
   * @type {(control: string, read: () => Promise<number>, wanted: number, up: string, down: string) =>
   *   Promise<string[]>}
   */
  async #stepTo(control, read, wanted, up, down) {
    let words = [''];
    for (let keys = 0, now = await read(); now !== wanted; now = await read(), ++keys) {
      if (keys > kMostKeys) throw new Error(`${up} and ${down} do not come to ${wanted}`);
      // A page may take the focus as it comes.
      await this.#goTo(control);
      words = await this.hear(now < wanted ? up : down);
      if (control === 'tabVrn') this.way.push({user: 'tab', page: await read()});
      if ((await this.face.state()).message) await this.hear('space');
    }
    return words;
  }

  // The keys stand on no row, or on the first one, until they are moved.
  /** @type {(row: number) => Promise<string[][]>} */
  async #goToRow(row) {
    const now = (await this.face.state()).row;
    if (now === row) return [];
    const key = now < row ? 'Down' : 'Up';
    const steps = Array(Math.abs(row - now)).fill(key);
    if (steps.length > 1) await this.hear(...steps.slice(1));
    return [await this.hear(key)];
  }

  /** @type {(list: string, row: number) => Promise<string[][]>} */
  async #clickRow(list, row) {
    const {controls} = await this.face.state();
    const moved = await this.#goToRow(row);
    const {styles} = designOf(list);
    const isSingle = !styles.includes('kMultiSelect') && !styles.includes('kCheckBoxes');
    // Where one row is marked, the keys mark it as they come to it.
    if (isSingle && moved.length > 0 && controls[list].ListIndex !== row) return moved;
    return [...moved, await this.hear('space')];
  }

  /** @type {(box: string, text: string) => Promise<string[]>} */
  async #type(box, text) {
    const now = (await this.face.state()).controls[box].Text;
    if (now !== '') await this.hear('ctrl+a');
    if (text === '') return this.hear('Delete');
    // Of what is typed the last letter stands for all.
    const keys = [...text.replace(/\r\n/g, '\n')].map(keyOf);
    await this.hear(...keys.slice(0, -1));
    return this.hear(...keys.slice(-1));
  }
}
