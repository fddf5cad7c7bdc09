// Keys and clicks made up at random, from a seed, for a text box of the element and for a plain box
// of the browser beside it. A walk in a box is made of courses; each begins with a text that the
// boxes were given by a program, and a failure names the seed of its course.

/**
 * @typedef {{key: string, shift?: boolean, control?: boolean, text?: string, across?: number,
 *   down?: number}} BoxKey A key by its name, or 'click' and 'double click'; the clipboard has
 *   `text` at a paste, or else what was copied last; a click is at a share of the box
 * @typedef {{seed: number, text: string, keys: BoxKey[]}} BoxCourse
 * @typedef {{hasSeveralLines: boolean, takesDigits: boolean}} BoxManner
 */

export const kKeysOfACourse = 100;
const kLetters = 'abcxyzSELECT.,=( )\'"';
const kWords = ['a', 'select ', 'x7', ' ', 'CUSTOMER.C_LAST', '= 12', '( ', '\t', 'if b', 'é'];
const kLineEnds = ['\r\n', '\n', '\r\n\r\n'];

/// The same numbers for the same seed.
/** @type {(seed: number) => (count: number) => number} */
export function randomOf(seed) {
  let state = seed;
  return (count) => {
    state = (state + 0x6d2b79f5) | 0;
    let mixed = Math.imul(state ^ (state >>> 15), 1 | state);
    mixed = (mixed + Math.imul(mixed ^ (mixed >>> 7), 61 | mixed)) ^ mixed;
    return ((mixed ^ (mixed >>> 14)) >>> 0) % count;
  };
}

/** @type {(seed: number, manner: BoxManner, count: number) => BoxCourse} */
export function courseOf(seed, {hasSeveralLines, takesDigits}, count) {
  const any = randomOf(seed);
  const oneIn = (/** @type {number} */ among) => any(among) === 0;
  /** @type {(most: number, withLineEnds: boolean) => string} */
  const words = (most, withLineEnds) =>
    Array.from({length: 1 + any(most)}, () =>
      withLineEnds && oneIn(3) ? kLineEnds[any(kLineEnds.length)] : kWords[any(kWords.length)],
    ).join('');
  const typed = () => {
    if (hasSeveralLines && oneIn(8)) return {key: 'Enter'};
    return {key: oneIn(takesDigits ? 2 : 4) ? String(any(10)) : kLetters[any(kLetters.length)]};
  };
  /** @type {(key: string, moves: boolean, byWordsToo: boolean) => BoxKey} */
  const pressed = (key, moves, byWordsToo) => ({
    key,
    shift: moves && oneIn(3),
    control: byWordsToo && oneIn(4),
  });
  /** @type {(letter: string) => BoxKey} */
  const command = (letter) => ({key: letter, control: true});
  const pasted = () => {
    if (oneIn(2)) return command('v');
    return {...command('v'), text: words(4, hasSeveralLines || oneIn(4))};
  };
  /** @type {(key: string) => BoxKey} */
  const mouse = (key) => ({
    key,
    shift: key === 'click' && oneIn(4),
    across: any(1000) / 1000,
    down: any(1000) / 1000,
  });
  /** @type {[number, () => BoxKey][]} The keys, each with its share of a hundred. */
  const shares = [
    [34, typed],
    [8, () => pressed('ArrowLeft', true, true)],
    [8, () => pressed('ArrowRight', true, true)],
    [4, () => pressed('ArrowUp', true, false)],
    [4, () => pressed('ArrowDown', true, false)],
    [4, () => pressed('Home', true, true)],
    [4, () => pressed('End', true, true)],
    [7, () => pressed('Backspace', false, true)],
    [4, () => pressed('Delete', false, true)],
    [1, () => command('a')],
    [2, () => command('c')],
    [2, () => command('x')],
    [3, pasted],
    [5, () => command('z')],
    [3, () => command('y')],
    [5, () => mouse('click')],
    [2, () => mouse('double click')],
  ];
  const next = () => {
    let dice = any(100);
    for (const [share, make] of shares) {
      if (dice < share) return make();
      dice -= share;
    }
    throw new Error('the shares are less than a hundred');
  };
  const text = oneIn(3) ? '' : words(hasSeveralLines ? 14 : 4, hasSeveralLines);
  return {seed, text, keys: Array.from({length: count}, next)};
}

/** @type {(key: BoxKey) => string} */
export function writtenOf({key, shift, control, text, across, down}) {
  const name = key.length === 1 && !control ? `'${key}'` : key;
  const place =
    across === undefined
      ? ''
      : ` at ${Math.round(100 * across)}% ${Math.round(100 * (down ?? 0))}%`;
  const pasted = text === undefined ? '' : ` of ${JSON.stringify(text)}`;
  return `${control ? 'Ctrl+' : ''}${shift ? 'Shift+' : ''}${name}${place}${pasted}`;
}

/// A number of its own for each box, to begin the seeds with.
/** @type {(box: string) => number} */
export function firstSeedOf(box) {
  let seed = 0;
  for (const letter of box) seed = (seed * 31 + letter.charCodeAt(0)) % 1000;
  return seed * 1_000_000;
}
