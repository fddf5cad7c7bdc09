// What has been seen to work, row by row, for the table of docs/web.md. A tool chain that does not
// run on this Node is left out, by its own word.
import {mkdirSync, writeFileSync} from 'node:fs';
import path from 'node:path';

import {kWorkshop, needsOtherNode, versionOf} from './workshop.mjs';

/** @import {TestContext} from 'node:test' */

/**
 * @typedef {object} Row
 * @property {string} name
 * @property {string} tool  the package whose version counts
 * @property {string} [by]  the package that runs, where that is another one
 * @property {string} told  what is run, in the words of its users
 * @property {string} way
 * @property {boolean} [mayFail]  for what has limits that docs/web.md tells
 */

/** @typedef {Row & {version: string, worked?: boolean, why?: string}} Result */

export class Results {
  /** @param {string} name */
  constructor(name) {
    this.name = name;
    /** @type {Result[]} */
    this.rows = [];
  }
  /// The arguments of a test that does what a row tells.
  /**
   * @type {(row: Row, act: (name: string) => Promise<void>) =>
   *   [string, {skip: string | false}, (context: TestContext) => Promise<void>]}
   */
  test(row, act) {
    const version = versionOf(row.tool);
    /** @type {Result} */
    const result = {...row, version};
    this.rows.push(result);
    const title = `${row.name} ${version}, ${row.told}, ${row.way}`;
    return [
      title,
      {skip: needsOtherNode(row.by ?? row.tool)},
      async (context) => {
        try {
          await act(title.replace(/[^\w.]+/g, '-'));
          result.worked = true;
        } catch (error) {
          Object.assign(result, {worked: false, why: /** @type {Error} */ (error).message});
          // The document tells of each whether it works.
          if (!row.mayFail) throw error;
          context.diagnostic(result.why ?? '');
        }
      },
    ];
  }
  write() {
    const folder = path.join(kWorkshop, 'results');
    mkdirSync(folder, {recursive: true});
    writeFileSync(path.join(folder, `${this.name}.json`), JSON.stringify(this.rows, null, 1));
  }
}
