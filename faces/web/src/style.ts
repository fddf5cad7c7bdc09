// The style sheets of the face: the same objects for all elements of a document.
import boxes from './boxes.css';
import contrast from './contrast.css';
import form from './form.css';
import lists from './lists.css';
import type {Logic} from './logic';
import messages from './messages.css';
import narrow from './narrow.css';
import phone from './phone.css';
import alone from './synt_text_box.css';
import touch from './touch.css';
import use from './use.css';

// The order counts: of two rules with the same specificity the later one wins.
const text = [form, boxes, lists, messages, narrow, touch, phone, use, contrast].join('');

const textOfBox = [form, boxes, contrast, alone].join('');

type Made = WeakMap<Document, CSSStyleSheet[]>;
const made: Made = new WeakMap();
const madeOfBox: Made = new WeakMap();

export function styleSheets(document: Document, logic: Logic): CSSStyleSheet[] {
  return sheetsOf(document, made, text, () => logic.looks());
}
/** The style sheets of the box of statements as an element of its own. */
export function boxStyleSheets(document: Document, looks: () => number[]): CSSStyleSheet[] {
  return sheetsOf(document, madeOfBox, textOfBox, looks);
}

function sheetsOf(
  document: Document,
  kept: Made,
  rulesOfAll: string,
  looks: () => number[],
): CSSStyleSheet[] {
  let sheets = kept.get(document);
  if (sheets === undefined) {
    const Sheet = (document.defaultView as Window & typeof globalThis).CSSStyleSheet;
    sheets = [rulesOfAll, colorsOf(looks())].map((rules) => {
      const sheet = new Sheet();
      sheet.replaceSync(rules);
      return sheet;
    });
    kept.set(document, sheets);
  }
  return sheets;
}

// Bold is drawn as a stroke and italic as a skew: neither moves the letters behind the word, which
// have to stay exactly under those of the text area.
function colorsOf(looks: number[]): string {
  const kStrokePerWeight = 0.5 / 500;
  const rules: string[] = [];
  for (let kind = 0; kind * 4 < looks.length; ++kind) {
    const [onLight, onDark, weight, isItalic] = looks.slice(kind * 4) as [
      number,
      number,
      number,
      number,
    ];
    const hex = (color: number) => `#${color.toString(16).padStart(6, '0')}`;
    const stroke = Math.max(0, (weight - 400) * kStrokePerWeight);
    rules.push(
      `.kind${kind} { color: light-dark(${hex(onLight)}, ${hex(onDark)}); -webkit-text-stroke-width: ${stroke}px;`,
      isItalic !== 0 ? 'display: inline-block; transform: skewX(-10deg); }' : '}',
    );
  }
  return rules.join('\n');
}
