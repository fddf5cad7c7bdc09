// Checks a stored rule in Node: its tree, its mistakes, its names, and whether it can be opened again.
import {check, outline, reopen, uses} from 'zolt20-map-control/language';

// The values of PrpStrTables and PrpStrFields.
const catalogue = {
  tables: 'CUSTOMER1',
  fields: [
    'char*Q*V*R*N*NCUSTOMER.C_LAST*Q*V*R*N*the last name',
    'long*Q*V*R*N*NCUSTOMER.C_ID*Q*V*R*N*the number of the customer',
  ].join(','),
};
const select = ['select CUSTOMER.C_LAST', 'from  CUSTOMER', 'endselect'].join('\r\n');
const rule = `if :var.total > 100 then \r\n${select.replace('C_LAST', 'C_LSAT')}`;

for (const {depth, kind, head} of outline(rule))
  if (kind !== 'head' && kind !== 'end') console.log(`${'  '.repeat(depth)}${kind}: ${head}`);
for (const {line, column, severity, sentence, code} of check(rule, catalogue))
  console.log(`${line}:${column}: ${severity}: ${sentence} [${code}]`);
for (const {line, column, kind, name, missing} of uses(rule, catalogue))
  console.log(`${line}:${column}: ${kind} ${name}${missing ? ', which is missing' : ''}`);

const {parts, opening} = reopen(select, catalogue);
console.log(parts);
console.log(opening.isEqual, opening.finish);
