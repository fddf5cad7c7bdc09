// zolt20-host, driven line by line: the control that the one in the page is held against.
import {spawn} from 'node:child_process';
import {existsSync} from 'node:fs';
import {createInterface} from 'node:readline';

import {kHost} from './places.mjs';

/** @import {Dump, Reply} from './types' */

export class Automation {
  constructor() {
    if (!existsSync(kHost))
      throw new Error(`there is no ${kHost}: build the preset "release" first`);
    this.process_ = spawn(kHost, {stdio: ['pipe', 'pipe', 'inherit']});
    this.replies_ = createInterface({input: this.process_.stdout})[Symbol.asyncIterator]();
  }

  /// The reply to a request, which is an object or a line.
  /** @type {(request: string | object) => Promise<Reply>} */
  async ask(request) {
    this.process_.stdin.write(
      `${typeof request === 'string' ? request : JSON.stringify(request)}\n`,
    );
    const {value, done} = await this.replies_.next();
    if (done) throw new Error('zolt20-host has ended');
    return JSON.parse(value);
  }
  /// The whole state of its form.
  /** @type {() => Promise<Dump>} */
  async dump() {
    return /** @type {Dump} */ ((await this.ask({dump: true})).value);
  }

  close() {
    this.process_.stdin.end();
  }
}
