// A session of the automation host played in the page and by zolt20-host side by side: behind each
// line both must have told the same and stand at the same place, and the page must show it.
import assert from 'node:assert/strict';

import {Automation} from './automation.mjs';

/** @import {Person} from './harness.mjs' */
/** @import {Dump, Gesture, Reply} from './types' */

/** @type {(value: unknown) => value is Record<string, unknown>} */
const isParts = (value) => typeof value === 'object' && value !== null;

/// The first few places in which two values of JSON differ, '' when there is none.
/** @type {(one: unknown, other: unknown, at?: string) => string} */
export function differencesOf(one, other, at = '') {
  if (!isParts(one) || !isParts(other))
    return Object.is(one, other)
      ? ''
      : `${at}: ${JSON.stringify(one)} instead of ${JSON.stringify(other)}`;
  const kMost = 5;
  const keys = [...new Set([...Object.keys(one), ...Object.keys(other)])];
  return keys
    .map((key) => differencesOf(one[key], other[key], `${at}/${key}`))
    .filter((what) => what !== '')
    .slice(0, kMost)
    .join('; ');
}

export class Replay {
  /** @param {Person} person */
  constructor(person) {
    this.person = person;
    /**
     * Behind the last line.
     * @type {Dump | undefined}
     */
    this.dump = undefined;
    this.automation = new Automation();
    this.gestures = 0;
    this.messages = 0;
    this.refusals = 0;
    this.failures = 0;
  }

  /// Carries a line out on both sides. What the person does may take further lines before it.
  /** @type {(line: string, before?: string[]) => Promise<void>} */
  async play(line, before = []) {
    try {
      await this.#play(line, before);
    } catch (error) {
      throw new Error(`${line.slice(0, 200)}: ${error}`, {cause: error});
    }
  }

  /** @type {(line: string, before: string[]) => Promise<void>} */
  async #play(line, before) {
    const request = JSON.parse(line);
    const logBefore = [];
    for (const one of before) logBefore.push(...(await this.automation.ask(one)).log);
    const expected = await this.automation.ask(line);
    const isGesture = request.user !== undefined;
    const reply = isGesture
      ? await this.#makeGesture(request, expected)
      : await this.#carryOut(line, request);
    const log = [...logBefore, ...expected.log];
    if (isGesture && expected.error !== undefined) {
      log.push({failed: expected.error});
      ++this.failures;
    } else if (!isGesture) {
      // By its text, as the order of the bag's keys counts.
      const {log: _, ...rest} = expected;
      assert.equal(JSON.stringify(reply), JSON.stringify(rest), 'the reply');
    }
    const {log: told, dump, difference} = await this.person.look();
    const logs = differencesOf(told, log);
    if (logs !== '') assert.fail(`the log: ${logs}`);
    const state = await this.automation.dump();
    /** @type {(what: string, now: Dump) => void} */
    const compare = (what, now) => {
      const differences = differencesOf(now, state);
      if (differences !== '') assert.fail(`${what}: ${differences}`);
    };
    compare('the state', dump);
    this.dump = dump;
    const messages = told.filter((entry) => entry.message !== undefined);
    this.messages += messages.length;
    if (messages.length > 0) {
      await this.person.answerMessages(messages);
      compare('the state behind the messages', await this.person.dump());
    }
    const drawn = difference === '' && messages.length === 0 ? '' : await this.person.difference();
    if (drawn !== '') assert.fail(`what is drawn: ${drawn}`);
  }

  /** @type {(line: string, request: {new?: object}) => Promise<Omit<Reply, 'log'>>} */
  async #carryOut(line, request) {
    if (request.new === undefined) return this.person.carryOut(line);
    await this.person.makeNew(line);
    return {ok: true};
  }
  /** @type {(request: Gesture, expected: Reply) => Promise<void>} */
  async #makeGesture(request, expected) {
    ++this.gestures;
    if (expected.refused === undefined) return this.person.make(request);
    ++this.refusals;
    const before = await this.person.dump();
    await this.person.tryInVain(request);
    assert.deepEqual(await this.person.dump(), before, 'a refused gesture changes something');
    return undefined;
  }

  close() {
    this.automation.close();
  }
}
