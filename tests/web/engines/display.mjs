// A display that nobody sees, for browsers that need one, and the keys of its keyboard.
import {spawn} from 'node:child_process';
import {once} from 'node:events';

import {endChild, lineOf} from './children.mjs';

const kPatience = 20000;
const kSize = [1400, 1200];
// On a busy machine a key is held for long; it must not be repeated by the display.
const kKeysOnce = '-r';
const kScreen = ['-screen', '0', `${kSize.join('x')}x24`, '-nolisten', 'tcp', kKeysOnce];

export class Display {
  /** @type {() => Promise<Display>} */
  static async open() {
    const child = spawn('Xvfb', ['-displayfd', '3', ...kScreen], {
      stdio: ['ignore', 'ignore', 'pipe', 'pipe'],
    });
    return new Display(child, await lineOf(child, 3, /^(\d+)$/));
  }
  /** @param {import('node:child_process').ChildProcess} child @param {string} number */
  constructor(child, number) {
    this.child = child;
    this.env = {...process.env, DISPLAY: `:${number}`, GDK_BACKEND: 'x11'};
  }

  /// Gives the keyboard to the window with this in its title.
  /** @type {(title: string) => Promise<void>} */
  focus(title) {
    return this.#xdotool('search', '--sync', '--onlyvisible', '--name', title, 'windowfocus');
  }
  /// Presses keys by the names of X, such as 'shift+Tab'.
  /** @type {(...keys: string[]) => Promise<void>} */
  press(...keys) {
    return this.#xdotool('key', '--delay', '1', ...keys);
  }
  /// Presses the mouse twice, and takes it away.
  /** @type {(x: number, y: number) => Promise<void>} */
  async doubleClickAt(x, y) {
    const [width, height] = kSize;
    await this.#xdotool(
      'mousemove',
      `${Math.round(x)}`,
      `${Math.round(y)}`,
      'click',
      '--repeat',
      '2',
      '--delay',
      '20',
      '1',
      'mousemove',
      `${width - 1}`,
      `${height - 1}`,
    );
  }
  /** @type {(...words: string[]) => Promise<void>} */
  async #xdotool(...words) {
    const child = spawn('xdotool', words, {
      env: this.env,
      stdio: 'inherit',
      timeout: kPatience,
    });
    const [status] = await once(child, 'exit');
    if (status !== 0) throw new Error(`xdotool ${words.join(' ')} fails`);
  }

  close() {
    return endChild(this.child);
  }
}
