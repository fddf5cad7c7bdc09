// What the checker of Svelte's templates knows of the element, and what its types refuse.
import 'zolt20-map-control/svelte';
import type {SvelteHTMLElements} from 'svelte/elements';

type Rule = SvelteHTMLElements['zolt20-map-control'];
type Box = SvelteHTMLElements['zolt21-synt-text-box'];

export const given: Rule = {
  class: 'wide',
  tables: 'CUSTOMER2',
  tab: 2,
  'syntax-highlight': '',
  PrpStrFields: 'char*Q*V*R*N*NCUSTOMER.C_LAST*Q*V*R*N*name',
  tableNames: {CUSTOMER: 'Customers'},
  onpropertychanged: (event) => event.detail.name.length,
  oneventDone: (event) => event.type,
  'on:propertychanged': (event) => event.detail.name.length,
};

export const givenBox: Box = {
  class: 'wide',
  text: 'endselect',
  highlight: '',
  rightmargin: 32000,
  onTabChain: (event) => event.type,
  'on:propertychanged': (event) => event.detail.name.length,
};

// @ts-expect-error a text
export const numbered: Rule = {tables: 7};
// @ts-expect-error a function
export const heard: Rule = {oneventDone: 'a'};
// @ts-expect-error no such attribute
export const misspelt: Rule = {table: 'CUSTOMER2'};
// @ts-expect-error no such attribute
export const misspeltBox: Box = {margin: 7};
