// Controls on a catalogue, and what their requests are answered by: further controls for sub
// queries and conditions, and the functions of the catalogue.
import {fieldListOf, tableListOf, tableNamesOf} from './catalogue.js';
import {ask, show, tellFailure} from './dialogs.js';
import {pickFunction} from './functions.js';
import {partOf} from './parts.js';
import {encode, encodeBlock, unsendablePieceOf} from './texts.js';

/** @import {ZOLT20Error, ZOLT20MapControlElement} from './package/zolt20-map-control.js' */
/** @import {Catalogue} from './catalogue.js' */

const kSelectListPage = 0;
const kConditionPage = 6;

// By the codes that prpStrSQLPart gives.
/** @type {Record<string, {name: string, property: string, isBlock: boolean}>} */
const kPages = {
  D: {name: 'SelectDo', property: 'prpSelectDoPart', isBlock: true},
  E: {name: 'SelectEOS', property: 'prpSelectEOSPart', isBlock: true},
  O: {name: 'SelectEmpty', property: 'prpSelectEmptyPart', isBlock: true},
  F: {name: 'SelectError', property: 'prpSelectErrorPart', isBlock: true},
  C: {name: 'Condition', property: 'prpStroutput', isBlock: false},
};

/** @type {(code: string, text: string) => string} */
const encodeFor = (code, text) =>
  kPages[code].isBlock ? encodeBlock(text, code === 'D') : encode(text);

// Why a text can't be handed over, '' when it can.
/** @type {(text: string) => string} */
function complaintOf(text) {
  const piece = unsendablePieceOf(text);
  if (piece === '') return '';
  const shown = piece === '\u0001' ? 'the character of code 1' : `"${piece}"`;
  return `The text can't be handed over: it holds ${shown}, which has a meaning of its own on the way.`;
}

// What a person has put into the form, wherever they look at it. This look changes nothing, as a
// read of prpStroutput may.
/** @type {(control: ZOLT20MapControlElement) => string} */
const contentOf = (control) =>
  JSON.stringify(
    Object.values(control.dump().controls).map(({Text, List, Selected, Value}) => [
      Text,
      List,
      Selected,
      Value,
    ]),
  );

const settledContents = new WeakMap();

/// What was composed is stored somewhere.
/** @type {(control: ZOLT20MapControlElement) => void} */
export function settle(control) {
  settledContents.set(control, contentOf(control));
}

/// Whether anything was composed since the last `settle`.
/** @type {(control: ZOLT20MapControlElement) => boolean} */
export const isChanged = (control) => settledContents.get(control) !== contentOf(control);

/// Whether the person agrees to lose what was composed; true when there is nothing to lose.
/** @type {(control: ZOLT20MapControlElement, title: string) => Promise<boolean>} */
export async function mayLeave(control, title) {
  return (
    !isChanged(control) ||
    (await ask(title, 'Leave without what was composed?', 'Discard', 'Keep')) === 'Discard'
  );
}

// The page is known within the request only; the text comes later, as one step that can be undone.
/**
 * @type {(control: ZOLT20MapControlElement,
 *   textFor: (code: string) => Promise<string | undefined>) => Promise<void>}
 */
async function answer(control, textFor) {
  const code = control.prpStrSQLPart;
  const text = await textFor(code);
  if (!text) return;
  try {
    control.asStep(() => {
      Object.assign(control, {[kPages[code].property]: text});
    });
  } catch (error) {
    tellFailure(/** @type {ZOLT20Error} */ (error));
  }
}

/**
 * @type {(control: ZOLT20MapControlElement, catalogue: Catalogue, what: string,
 *   firstPage: number) => Promise<void>}
 */
const answerByComposer = (control, catalogue, what, firstPage) =>
  answer(control, (code) =>
    composeFor(
      code,
      catalogue,
      `${what} for ${kPages[code].name}`,
      firstPage,
      control.Syntax_Highlight,
    ),
  );

/** @type {(control: ZOLT20MapControlElement, catalogue: Catalogue) => Promise<void>} */
const answerByFunction = (control, catalogue) =>
  answer(control, async (code) => {
    const call = await pickFunction(
      catalogue.functions,
      `Function for ${kPages[code].name}`,
      complaintOf,
    );
    return call && encodeFor(code, call);
  });

/// A control that answers its own requests. Throws what the properties throw.
/** @type {(catalogue: Catalogue, isColoured: boolean) => ZOLT20MapControlElement} */
export function makeControl(catalogue, isColored) {
  const control = document.createElement('zolt20-map-control');
  control.PrpStrTables = tableListOf(catalogue);
  control.PrpStrFields = fieldListOf(catalogue);
  control.tableNames = tableNamesOf(catalogue);
  control.Syntax_Highlight = isColored;
  control.addEventListener('eventSubQuery', () =>
    answerByComposer(control, catalogue, 'Sub Query', kSelectListPage),
  );
  control.addEventListener('eventCondition', () =>
    answerByComposer(control, catalogue, 'Condition', kConditionPage),
  );
  control.addEventListener('eventFunction', () => answerByFunction(control, catalogue));
  control.addEventListener('failed', ({detail}) => tellFailure(detail));
  settle(control);
  return control;
}

// A further control in a dialog. Gives what was composed, encoded for the property of the page;
// nothing when the person turns away. Its text is composed at the margin. Of a block the property
// takes one level off every line but the first, so it is read one level deep, and only once, since
// every such read indents the text.
/**
 * @type {(code: string, catalogue: Catalogue, title: string, firstPage: number,
 *   isColoured: boolean) => Promise<string | undefined>}
 */
function composeFor(code, catalogue, title, firstPage, isColored) {
  return show('composer', title, (dialog, end) => {
    const control = makeControl(catalogue, isColored);
    control.prpParentorChild = 'Child';
    control.prpTab = firstPage;
    control.prpintTabcount = 0;
    settle(control);

    const leave = async () => {
      if (await mayLeave(control, title)) end();
    };
    const takeText = async () => {
      const composed = String(control.dump().controls.TxtOutput.Text);
      if (composed === '') return leave();
      const why = complaintOf(composed);
      if (why !== '') return ask(title, why, 'OK');
      if (kPages[code].isBlock) control.prpintTabcount = 1;
      return end(encodeFor(code, control.prpStroutput));
    };
    control.addEventListener('eventDone', takeText);
    control.addEventListener('eventCancel', leave);
    partOf(dialog, '.stage', HTMLElement).append(control);
    dialog.addEventListener('shown', () => control.focus());
    return leave;
  });
}
