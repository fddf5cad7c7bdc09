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

// What may stand there, and what is needed then. With no `next` a value is complete, and what is
// needed is up to the array or object that holds it.
const kValueSteps = [
  {pattern: /\{/y, next: kKeyOrEnd, opens: kNextKey},
  {pattern: /\[/y, next: kValueOrEnd, opens: kNextValue},
  {pattern: kString},
  {pattern: kPlainValue},
];
const kKeySteps = [{pattern: kString, next: kColon}];
const kEndOfArray = {pattern: /\]/y, closes: true};
const kEndOfObject = {pattern: /\}/y, closes: true};
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

function tell(text, at, needed) {
  const lines = text.slice(0, at).split(/\r\n|\r|\n/);
  const place = `line ${lines.length}, column ${lines.at(-1).length + 1}`;
  if (at === text.length) return `it ends in ${place}, where ${needed} should follow`;
  return `${place} has ${JSON.stringify(String.fromCodePoint(text.codePointAt(at)))} where ${needed} should be`;
}

/// What is wrong with a text that is no JSON, with its line and column.
export function findMistake(text) {
  const open = [];
  let needed = kValue;
  let at = 0;
  const endOf = (pattern) => {
    pattern.lastIndex = at;
    return pattern.test(text) ? pattern.lastIndex : -1;
  };
  for (;;) {
    at = endOf(kBlank);
    const step = kSteps.get(needed).find(({pattern}) => endOf(pattern) >= 0);
    if (step === undefined) break;
    at = step.pattern.lastIndex;
    if (step.closes) open.pop();
    if (step.opens !== undefined) open.push(step.opens);
    needed = step.next ?? open.at(-1) ?? kEnd;
  }
  if (text[at] === '"' && kSteps.get(needed).some(({pattern}) => pattern === kString)) {
    at = endOf(kBegunString);
    needed =
      text[at] === '\\' ? 'an escape that JSON knows' : 'the double quote at the end of a text';
  }
  return tell(text, at, needed);
}
