// A desktop that nobody sees or hears: a display, a window manager, a bus of its own, and on it
// Orca, whose words are read from its debug file.
import {spawn} from 'node:child_process';
import {once} from 'node:events';
import {
  copyFileSync,
  mkdirSync,
  mkdtempSync,
  readFileSync,
  rmSync,
  statSync,
  writeFileSync,
} from 'node:fs';
import os from 'node:os';
import path from 'node:path';
import {createInterface} from 'node:readline';

import {kRoot} from '../web/places.mjs';

/** @import {ChildProcess} from 'node:child_process' */

const kPatience = 20000;
// Orca is done when its file has not grown for so long.
// What is live in a page is read a tenth of a second later.
const kQuiet = Number(process.env.ORCA_QUIET ?? 190);
// A key of which it does not hear by then.
const kLongest = 800;
const kStartQuiet = 500;
const kLook = 5;

/** @type {(milliseconds: number) => Promise<void>} */
export const pause = (milliseconds) => new Promise((done) => setTimeout(done, milliseconds));

export class Desktop {
  /** @type {() => Promise<Desktop>} */
  static async open() {
    const desktop = new Desktop();
    try {
      await desktop.#start();
    } catch (error) {
      await desktop.close();
      throw error;
    }
    return desktop;
  }

  constructor() {
    this.folder = mkdtempSync(path.join(os.tmpdir(), 'orca-'));
    /** @type {ChildProcess[]} */
    this.children = [];
    this.file = path.join(this.folder, 'heard.txt');
    this.from = 0;
    /** Returns when the face has drawn what it was told, and told of it. */
    this.settle = async () => {};
    /** @type {NodeJS.ProcessEnv} */
    this.env = {};
  }

  async #start() {
    const run = path.join(this.folder, 'run');
    const preferences = path.join(this.folder, 'preferences');
    const programs = path.join(this.folder, 'programs');
    for (const folder of [run, preferences, programs]) mkdirSync(folder, {mode: 0o700});
    // Orca asks it whether another Orca of the same user runs, and then ends.
    writeFileSync(path.join(programs, 'pgrep'), '#!/bin/sh\nexit 1\n', {mode: 0o700});
    copyFileSync(
      path.join(kRoot, 'tests/orca/orca-customizations.py'),
      path.join(preferences, 'orca-customizations.py'),
    );
    this.env = {
      PATH: `${programs}:${process.env.PATH}`,
      HOME: this.folder,
      LC_ALL: 'C.UTF-8',
      XDG_RUNTIME_DIR: run,
      ORCA_HEARD: this.file,
      QT_QPA_PLATFORM: 'xcb',
      QT_LINUX_ACCESSIBILITY_ALWAYS_ON: '1',
      ACCESSIBILITY_ENABLED: '1',
      QT_LOGGING_RULES: '*=false',
    };
    const screen = ['-displayfd', '3', '-screen', '0', '1400x1100x24', '-nolisten', 'tcp'];
    const display = this.spawn('Xvfb', screen, ['ignore', 'ignore', 'ignore', 'pipe']);
    this.env.DISPLAY = `:${await firstLine(display, 3)}`;
    const bus = this.spawn(
      'dbus-daemon',
      ['--session', '--nofork', '--print-address=1'],
      ['ignore', 'pipe', 'ignore'],
    );
    this.env.DBUS_SESSION_BUS_ADDRESS = await firstLine(bus, 1);
    this.spawn('openbox', []);
    this.spawn('orca', ['--user-prefs', preferences]);
    await this.waitFor('Orca starts', () => this.#text().includes('Screen reader on'));
    await this.quiet(kStartQuiet);
  }

  /** @type {(command: string, words: string[], stdio?: any) => ChildProcess} */
  spawn(command, words, stdio = 'ignore') {
    const child = spawn(command, words, {env: this.env, stdio});
    child.on('error', (error) => {
      throw error;
    });
    this.children.push(child);
    return child;
  }

  #size() {
    try {
      return statSync(this.file).size;
    } catch {
      return 0;
    }
  }
  /** @type {(what: string, condition: () => boolean | Promise<boolean>) => Promise<void>} */
  async waitFor(what, condition) {
    const end = Date.now() + kPatience;
    while (!(await condition())) {
      if (Date.now() > end) throw new Error(`${what}: not within ${kPatience} ms`);
      await pause(kLook);
    }
  }
  /// Returns when Orca has had nothing to do for a while.
  async quiet(time = kQuiet) {
    let size = this.#size();
    for (let since = Date.now(); Date.now() - since < time; ) {
      await pause(kLook);
      const now = this.#size();
      if (now !== size) since = Date.now();
      size = now;
    }
  }

  /// Presses keys, one behind the other, and returns when Orca is done with all that came of them.
  /** @type {(...keys: string[]) => Promise<void>} */
  async press(...keys) {
    if (keys.length === 0) return;
    const before = this.#text().length;
    await this.send(...keys);
    // Of a key that closes a window, nobody hears that it goes up again.
    const end = Date.now() + kLongest;
    const released = () =>
      this.#text()
        .slice(before)
        .match(/\^ PROCESS ATSPI_KEY_RELEASED/g);
    while ((released()?.length ?? 0) < keys.length && Date.now() < end) await pause(kLook);
    await this.settle();
    await this.quiet();
  }
  /// Presses keys and waits for nothing.
  /** @type {(...keys: string[]) => Promise<void>} */
  send(...keys) {
    return this.#xdotool('key', '--delay', '8', ...keys);
  }
  /** @type {(x: number, y: number) => Promise<void>} */
  clickAt(x, y) {
    return this.#xdotool('mousemove', `${x}`, `${y}`, 'click', '1');
  }
  /** @type {(...words: string[]) => Promise<void>} */
  async #xdotool(...words) {
    const child = spawn('xdotool', words, {env: this.env, stdio: 'inherit'});
    const [status] = await once(child, 'exit');
    if (status !== 0) throw new Error(`xdotool ${words.join(' ')} fails`);
  }

  /// Whether Orca hears of keys at all: one that does nothing.
  async isHearing() {
    const before = this.#text().length;
    await this.press('Shift_L');
    return this.#text().slice(before).includes('PROCESS ATSPI_KEY_RELEASED');
  }

  #text() {
    if (this.#size() === 0) return '';
    return readFileSync(this.file, 'utf8').slice(this.from);
  }
  /// What Orca has said since the last call, as it put it together.
  heard() {
    const text = this.#text();
    this.from += text.length;
    return [...text.matchAll(/SPEECH OUTPUT: '([\s\S]*?)'(?: voice=\w+)? ?[[{\n]/g)].map(
      ([, words]) => String(words),
    );
  }

  async close() {
    for (const child of this.children.reverse()) {
      if (child.exitCode !== null || child.signalCode !== null) continue;
      child.kill();
      await Promise.race([once(child, 'exit'), pause(2000)]);
      if (child.exitCode === null && child.signalCode === null) child.kill('SIGKILL');
    }
    rmSync(this.folder, {recursive: true, force: true, maxRetries: 5});
  }
}

/** @type {(child: ChildProcess, stream: number) => Promise<string>} */
async function firstLine(child, stream) {
  const input = /** @type {import('node:stream').Readable} */ (child.stdio[stream]);
  const lines = createInterface({input});
  const [line] = await once(lines, 'line');
  return line;
}
