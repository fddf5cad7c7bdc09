// A script of a page that has the classic script before it, and what its types refuse.
import 'zolt20-map-control/classic';

const rule: ZOLT20MapControlElement = document.createElement('zolt20-map-control');
export const isOurs = (error: unknown) => error instanceof ZOLT20Error && error.kind === 'value';
export const made: ZOLT20MapControlElement = new ZOLT20MapControlElement();
export const text: string = rule.prpStroutput;

// @ts-expect-error a text
rule.PrpStrTables = 7;
// @ts-expect-error no such member
export const none = ZOLT20MapControlElement.name_of_none;
