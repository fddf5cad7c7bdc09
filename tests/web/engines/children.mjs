// Programs that a test starts and ends.
import {once} from 'node:events';
import {createInterface} from 'node:readline';

/** @import {ChildProcess} from 'node:child_process' */

const kPatience = 20000;
const kEnd = 5000;

/// Waits for a line of a stream of a program. Gives its first group; fails with what the program
/// said when it ends before, cannot be started or takes too long.
/** @type {(child: ChildProcess, stream: number, line: RegExp) => Promise<string>} */
export async function lineOf(child, stream, line) {
  const name = child.spawnfile;
  /** @type {string[]} */
  const said = [];
  /** @type {NodeJS.Timeout | undefined} */
  let timer;
  /** @type {(source: unknown, found?: (text: string) => void) => void} */
  const listen = (source, found) => {
    if (source === null || source === undefined) return;
    const input = /** @type {import('node:stream').Readable} */ (source);
    createInterface({input}).on('line', (text) =>
      found === undefined ? said.push(text) : found(text),
    );
  };
  try {
    return await new Promise((resolve, reject) => {
      /** @type {(why: string) => void} */
      const fail = (why) => reject(new Error(`${name} ${why}: ${said.slice(-10).join('; ')}`));
      child.once('error', (error) => fail(`can not be started (${error.message})`));
      child.once('exit', (status) => fail(`ended with ${status}`));
      timer = setTimeout(() => fail(`does not begin within ${kPatience} ms`), kPatience);
      if (stream !== 2) listen(child.stdio[2]);
      listen(child.stdio[stream], (text) => {
        said.push(text);
        const found = line.exec(text);
        if (found !== null) resolve(found[1]);
      });
    });
  } finally {
    clearTimeout(timer);
  }
}

/// Ends a program; by force when it takes its time.
/** @type {(child: ChildProcess) => Promise<void>} */
export async function endChild(child) {
  if (child.exitCode !== null || child.signalCode !== null || child.pid === undefined) return;
  const ended = once(child, 'exit');
  child.kill();
  const timer = setTimeout(() => child.kill('SIGKILL'), kEnd);
  await ended;
  clearTimeout(timer);
}
