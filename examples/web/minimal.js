// A page with the control: it offers two tables, answers the requests with a line of its own, and
// shows the statement when the person clicks Done.
import './package/zolt20-map-control.js';

const [control] = document.getElementsByTagName('zolt20-map-control');
const [result] = document.getElementsByTagName('pre');

// Tables have names of 8 characters, with the count of their indexes behind them.
control.PrpStrTables = 'CUSTOMER2,ORDERS__1';
control.PrpStrFields = [
  'long*Q*V*R*N*NCUSTOMER.C_ID*Q*V*R*N*key',
  'char*Q*V*R*N*NCUSTOMER.C_LAST*Q*V*R*N*name',
  'long*Q*V*R*N*NORDERS__.O_C_ID*Q*V*R*N*key',
  'date*Q*V*R*N*YORDERS__.O_ENTRY_D*Q*V*R*N*day',
].join(',');
control.Syntax_Highlight = true;

// A request is answered inside its event, through the property of the page.
/** @type {Record<string, string>} */
const properties = {
  D: 'prpSelectDoPart',
  E: 'prpSelectEOSPart',
  O: 'prpSelectEmptyPart',
  F: 'prpSelectErrorPart',
  C: 'prpStroutput',
};
for (const request of ['eventSubQuery', 'eventCondition', 'eventFunction']) {
  control.addEventListener(request, () => {
    Object.assign(control, {[properties[control.prpStrSQLPart]]: 'print ( :var.name )'});
  });
}

// The Result is read once; its lines end with CR LF.
control.addEventListener('eventDone', () => {
  result.textContent = `${control.prpStroutput}\r\n\r\n${control.prpstrSelectedFields}`;
});
