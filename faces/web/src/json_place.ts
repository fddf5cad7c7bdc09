// Finds where a text stops being JSON. Browsers word that in different ways, or do not tell.

const kToken =
  /[ \t\r\n]*(?:([{}[\]:,])|("(?:[^"\\\u0000-\u001f]|\\(?:["\\/bfnrt]|u[\da-fA-F]{4}))*")|(-?(?:0|[1-9]\d*)(?:\.\d+)?(?:[eE][+-]?\d+)?|true|false|null))/y;
const kBlanks = /[ \t\r\n]*/y;

// The state of the parser, what may come next: a value, the first entry of an object or a list, a
// key, a colon, or what follows a value.
type Next = 'value' | 'entry' | 'element' | 'key' | 'colon' | 'behind';

/** The offset of the first character that is wrong, or the length of a text that ends too early. */
export function placeOfFault(text: string): number {
  const open: string[] = [];
  let next: Next = 'value';
  let at = 0;
  while (next !== 'behind' || open.length > 0) {
    kToken.lastIndex = at;
    const [whole, sign, word, other] = kToken.exec(text) ?? [];
    if (whole === undefined) break;
    const after = follow(next, sign ?? (word === undefined ? other! : '"'), open);
    if (after === undefined) break;
    next = after;
    at = kToken.lastIndex;
  }
  kBlanks.lastIndex = at;
  kBlanks.exec(text);
  return kBlanks.lastIndex;
}

// The next state after a token; undefined if the token is not allowed there.
function follow(next: Next, token: string, open: string[]): Next | undefined {
  const inner = open.at(-1);
  const close = inner === '{' ? '}' : ']';
  if (next === 'colon') return token === ':' ? 'value' : undefined;
  if (token === close && inner !== undefined) {
    if (next !== 'behind' && next !== 'entry' && next !== 'element') return undefined;
    open.pop();
    return 'behind';
  }
  if (next === 'behind') {
    if (token !== ',') return undefined;
    return inner === '{' ? 'key' : 'value';
  }
  if (next === 'key' || next === 'entry') return token === '"' ? 'colon' : undefined;
  if (token === '{' || token === '[') {
    open.push(token);
    return token === '{' ? 'entry' : 'element';
  }
  return /[}\]:,]/.test(token) ? undefined : 'behind';
}

/** An offset as a line and a column, both from 1. */
export function lineAndColumn(text: string, place: number): {line: number; column: number} {
  const lines = text.slice(0, place).split(/\r\n|\r|\n/);
  return {line: lines.length, column: lines.at(-1)!.length + 1};
}
