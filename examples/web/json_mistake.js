// Where a text ceases to be JSON. The messages of browsers tell it each in another way, or not at
// all.

const kBlank = /[ \t\n\r]*/y;
const kBegunString = /"(?:[^"\\\u0000-\u001f]|\\(?:["\\/bfnrt]|u[0-9a-fA-F]{4}))*/y;
const kString = new RegExp(`${kBegunString.source}"`, 'y');
const kPlainValue = /-?(?:0|[1-9]\d*)(?:\.\d+)?(?:[eE][+-]?\d+)?|true|false|null/y;

// What can be needed next.
const kValue = 'a value';
const kValueOrEnd = 'a value or "]"';
const kKey = 'a key in double quotes';
const kKeyOrEnd = 'a key in double quotes or "}"';
const kColon = 'a colon';
const kNextValue = 'a comma or "]"';
const kNextKey = 'a comma or "}"';
const kEnd = 'the end';

/** @typedef {{pattern: RegExp, next?: string, opens?: string, closes?: boolean}} Step */

// What may stand there, and what is needed then. With no `next` a value is complete, and what is
// needed is up to the array or object that holds it.
/** @type {Step[]} */
const kValueSteps = [
  {pattern: /\{/y, next: kKeyOrEnd, opens: kNextKey},
  {pattern: /\[/y, next: kValueOrEnd, opens: kNextValue},
  {pattern: kString},
  {pattern: kPlainValue},
];
/** @type {Step[]} */
const kKeySteps = [{pattern: kString, next: kColon}];
/** @type {Step} */
const kEndOfArray = {pattern: /\]/y, closes: true};
/** @type {Step} */
const kEndOfObject = {pattern: /\}/y, closes: true};
/** @type {Map<string, Step[]>} */
const kSteps = new Map([
  [kValue, kValueSteps],
  [kValueOrEnd, [...kValueSteps, kEndOfArray]],
  [kKey, kKeySteps],
  [kKeyOrEnd, [...kKeySteps, kEndOfObject]],
  [kColon, [{pattern: /:/y, next: kValue}]],
  [kNextValue, [{pattern: /,/y, next: kValue}, kEndOfArray]],
  [kNextKey, [{pattern: /,/y, next: kKey}, kEndOfObject]],
  [kEnd, []],
]);

/** @type {(text: string, at: number, needed: string) => string} */
function tell(text, at, needed) {
  const lines = text.slice(0, at).split(/\r\n|\r|\n/);
  const place = `line ${lines.length}, column ${lines[lines.length - 1].length + 1}`;
  if (at === text.length) return `it ends in ${place}, where ${needed} should follow`;
  const [character] = text.slice(at);
  return `${place} has ${JSON.stringify(character)} where ${needed} should be`;
}

/// What is wrong with a text that is no JSON, with its line and column.
/** @type {(text: string) => string} */
export function findMistake(text) {
  /** @type {string[]} */
  const open = [];
  let needed = kValue;
  let at = 0;
  /** @type {(pattern: RegExp) => number} */
  const endOf = (pattern) => {
    pattern.lastIndex = at;
    return pattern.test(text) ? pattern.lastIndex : -1;
  };
  for (;;) {
    at = endOf(kBlank);
    const step = kSteps.get(needed)?.find(({pattern}) => endOf(pattern) >= 0);
    if (step === undefined) break;
    at = step.pattern.lastIndex;
    if (step.closes) open.pop();
    if (step.opens !== undefined) open.push(step.opens);
    needed = step.next ?? open.at(-1) ?? kEnd;
  }
  if (text[at] === '"' && kSteps.get(needed)?.some(({pattern}) => pattern === kString)) {
    at = endOf(kBegunString);
    needed =
      text[at] === '\\' ? 'an escape that JSON knows' : 'the double quote at the end of a text';
  }
  return tell(text, at, needed);
}
