// A host in strict TypeScript: it compiles, and each wrong use in it is refused where the line
// before says so.
import {type ZOLT20Error, ZOLT20MapControlElement} from 'zolt20-map-control';

const element = document.createElement('zolt20-map-control');
const same: ZOLT20MapControlElement = element;
const found: ZOLT20MapControlElement | null = document.querySelector('zolt20-map-control');
found?.focus();

element.PrpStrTables = 'CUSTOMER2,ORDERS__1';
element.prpTab = 6;
element.prpSelectDoPart = undefined; // is not written
element.Syntax_Highlight = null;
element.prpintTabcount = element.prpintTabcount + 1;
element.Syntax_Highlight = !element.Syntax_Highlight;
const result: string = element.prpStroutput;
const code: string = element.prpStrSQLPart;
const fields: string = element.prpstrSelectedFields;
element.BuildGroupBy();
element.ClearAll(0);
element.UserControl_InitProperties();
const bag: Record<string, string | number> = element.UserControl_WriteProperties();
element.UserControl_ReadProperties(bag);

element.addEventListener('eventDone', (event) =>
  console.log(event.type, result, code, fields, same),
);
element.addEventListener('propertychanged', ({detail}) => detail.name.length);
element.addEventListener('message', (event) => {
  const text: string = `${event.detail.title}: ${event.detail.text} ${event.detail.icon} ${event.detail.buttons}`;
  if (text !== '') event.preventDefault();
});
element.addEventListener('failed', ({detail}) => {
  const error: ZOLT20Error = detail;
  const {kind, number, message}: {kind: string; number: number; message: string} = error;
  console.log(kind, number, message);
});
element.addEventListener('historychanged', ({detail}) => detail.canUndo !== detail.canRedo);
element.addEventListener('click', (event: MouseEvent) => event.button);

element.undoEnabled = false;
const sum: number = element.asStep(() => 1 + 1);
if (element.canUndo && sum > 0) element.undo();
if (element.canRedo) element.redo();
element.name = 'rule';
element.required = element.readOnly || element.disabled;
if (!element.reportValidity())
  element.setCustomValidity(element.validity.valueMissing ? 'empty' : '');
const held: [HTMLFormElement | null, string, number] = [
  element.form,
  element.value,
  element.labels.length,
];
element.addEventListener('change', (event: Event) => event.target !== held[0]);
element.tableNames = {CUSTOMER: 'Customers'};
element.tableNames = new Map([['CUSTOMER', 'Customers']]);
const focus: string | null = element.dump().focus;
const {elements, memoryBytes}: {elements: number; memoryBytes: number} =
  ZOLT20MapControlElement.statistics();
console.log(focus, elements, memoryBytes);

element.texts = {undo: 'Zurück', rows: '{count} Zeilen'};
const undo: string = element.texts.undo;
element.texts = undefined;
console.log(undo);
// @ts-expect-error
element.texts = {undo: 1};
// @ts-expect-error
element.texts = {undoo: 'Zurück'};

// What can only be written.
// @ts-expect-error
const tables: string = element.PrpStrTables;
// @ts-expect-error
const page: number = element.prpTab;
// @ts-expect-error
element.prpSelectDoPart.length;

// What can only be read.
// @ts-expect-error
element.prpStrSQLPart = 'D';
// @ts-expect-error
element.prpstrSelectedFields = '';
// @ts-expect-error
element.canUndo = true;
// @ts-expect-error
element.value = 'select';

// Values of another type.
// @ts-expect-error
element.PrpStrTables = 1;
// @ts-expect-error
element.prpTab = '1';
// @ts-expect-error
element.Syntax_Highlight = 1;
// @ts-expect-error
element.prpStroutput = {};
// @ts-expect-error
element.tableNames = {CUSTOMER: 1};
// @ts-expect-error
element.ClearAll('0');
// @ts-expect-error
element.ClearAll();
// @ts-expect-error
element.UserControl_ReadProperties('bag');
// @ts-expect-error
const wrong: string = element.prpintTabcount;

// Names that are none, and events with another detail.
// @ts-expect-error
element.PrpStrTable = '';
// @ts-expect-error
element.addEventListener('propertychanged', (event: MouseEvent) => event.button);
// @ts-expect-error
element.addEventListener('message', ({detail}) => detail.name);

console.log(tables, page, wrong);
