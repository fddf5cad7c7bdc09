// Texts on their way from one control into another one.

const kLineBreak = '\r\n';
const kTab = '\t';
const kTabCode = '\u0001';
const kMarker = '*zlt*';

/// The first piece of a text that can't be sent, since it has a meaning of its own on the way; ''
/// for none.
/** @type {(text: string) => string} */
export function unsendablePieceOf(text) {
  // Backtick and caret before a quote would read as an encoded quote one character too early.
  return text.match(/~|\u0001|`\^`|`\^(?=")/)?.[0] ?? '';
}

// CR LF only is a line break; a lone CR or LF has no code and goes as it is.
/** @type {(text: string) => string} */
const encodeCharacters = (text) =>
  text.replaceAll(kLineBreak, '~').replaceAll(kTab, kTabCode).replaceAll('"', '`^`');

// A marker within the text would cost it its first five characters, so those are a marker too.
/** @type {(text: string, encoded: string) => string} */
const marked = (text, encoded) => (text.includes(kMarker) ? kMarker + encoded : encoded);

/// A text without an unsendable piece, encoded for prpStroutput.
/** @type {(text: string) => string} */
export const encode = (text) => marked(text, encodeCharacters(text));

/// The same for prpSelectDoPart, or for one of the three other blocks: all lines but the first may
/// be one tab in, as prpStroutput gives them at a depth above 0.
/** @type {(block: string, isSelectDo: boolean) => string} */
export function encodeBlock(block, isSelectDo) {
  let text = block.replaceAll(kLineBreak + kTab, kLineBreak);
  // prpSelectDoPart makes one tab of two, wherever they stand.
  if (isSelectDo) text = text.replaceAll(kTab, kTab + kTab);
  // The properties of blocks take one tab off every line but the first.
  return marked(text, encodeCharacters(text.replaceAll(kLineBreak, kLineBreak + kTab)));
}
