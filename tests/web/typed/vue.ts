// What the checker of Vue's templates knows of the element, and what its types refuse.
import 'zolt20-map-control/vue';
import type {GlobalComponents} from 'vue';

type Rule = InstanceType<GlobalComponents['zolt20-map-control']>;
type Box = InstanceType<GlobalComponents['zolt21-synt-text-box']>;

export const given: Rule['$props'] = {
  class: 'wide',
  key: 'rule',
  tables: 'CUSTOMER2',
  tab: 2,
  'syntax-highlight': true,
  // As the checker writes what stands in kebab case.
  syntaxHighlight: true,
  PrpStrFields: 'char*Q*V*R*N*NCUSTOMER.C_LAST*Q*V*R*N*name',
  tableNames: {CUSTOMER: 'Customers'},
};
declare const rule: Rule;
rule.$emit('propertychanged', new CustomEvent('propertychanged', {detail: {name: 'prpTab'}}));
rule.$emit('eventDone', new Event('eventDone'));
export const text: string = rule.prpStroutput;

export const givenBox: Box['$props'] = {
  class: 'wide',
  text: 'endselect',
  highlight: true,
  rightmargin: 32000,
};
declare const box: Box;
box.$emit('TabChain', new Event('TabChain'));
export const boxText: string = box.Text;

// @ts-expect-error a text
export const numbered: Rule['$props'] = {tables: 7};
// @ts-expect-error no such attribute
export const misspelt: Rule['$props'] = {table: 'CUSTOMER2'};
// @ts-expect-error no such event
rule.$emit('eventdone', new Event('eventdone'));
// @ts-expect-error no such attribute
export const misspeltBox: Box['$props'] = {margin: 7};
