// The style sheets of the face: the same objects for all elements of a document.
import boxes from './boxes.css';
import contrast from './contrast.css';
import form from './form.css';
import lists from './lists.css';
import type {Logic} from './logic';
import messages from './messages.css';
import narrow from './narrow.css';
import phone from './phone.css';
import touch from './touch.css';
import use from './use.css';

// In this order: where two rules weigh the same, the later one holds.
const text = [form, boxes, lists, messages, narrow, touch, phone, use, contrast].join('');

const made = new WeakMap<Document, CSSStyleSheet[]>();

export function styleSheets(document: Document, logic: Logic): CSSStyleSheet[] {
  let sheets = made.get(document);
  if (sheets === undefined) {
    const Sheet = (document.defaultView as Window & typeof globalThis).CSSStyleSheet;
    sheets = [text, coloursOf(logic)].map((rules) => {
      const sheet = new Sheet();
      sheet.replaceSync(rules);
      return sheet;
    });
    made.set(document, sheets);
  }
  return sheets;
}

// A heavier word has a stroke and a slanted one is skewed: neither moves the letters behind it,
// which have to stay under those of the box.
function coloursOf(logic: Logic): string {
  const kStrokePerWeight = 0.5 / 500;
  const looks = logic.looks();
  const rules: string[] = [];
  for (let kind = 0; kind * 4 < looks.length; ++kind) {
    const [onLight, onDark, weight, isItalic] = looks.slice(kind * 4) as [
      number,
      number,
      number,
      number,
    ];
    const hex = (colour: number) => `#${colour.toString(16).padStart(6, '0')}`;
    const stroke = Math.max(0, (weight - 400) * kStrokePerWeight);
    rules.push(
      `.kind${kind} { color: light-dark(${hex(onLight)}, ${hex(onDark)}); -webkit-text-stroke-width: ${stroke}px;`,
      isItalic !== 0 ? 'display: inline-block; transform: skewX(-10deg); }' : '}',
    );
  }
  return rules.join('\n');
}
