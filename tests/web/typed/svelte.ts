// What the checker of Svelte's templates knows of the element, and what its types refuse.
import 'zolt20-map-control/svelte';
import type {SvelteHTMLElements} from 'svelte/elements';

type Rule = SvelteHTMLElements['zolt20-map-control'];

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

// @ts-expect-error a text
export const numbered: Rule = {tables: 7};
// @ts-expect-error a function
export const heard: Rule = {oneventDone: 'a'};
// @ts-expect-error no such attribute
export const misspelt: Rule = {table: 'CUSTOMER2'};
