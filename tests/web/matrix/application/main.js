// A page with the control: it offers two tables, and shows the statement behind Done.
import 'zolt20-map-control';

const [control] = document.getElementsByTagName('zolt20-map-control');
const [result] = document.getElementsByTagName('pre');

control.PrpStrTables = 'CUSTOMER2,ORDERS__1';
control.PrpStrFields = [
  'long*Q*V*R*N*NCUSTOMER.C_ID*Q*V*R*N*key',
  'char*Q*V*R*N*NCUSTOMER.C_LAST*Q*V*R*N*name',
  'long*Q*V*R*N*NORDERS__.O_C_ID*Q*V*R*N*key',
].join(',');
control.addEventListener('eventDone', () => {
  result.textContent = control.prpStroutput;
});
