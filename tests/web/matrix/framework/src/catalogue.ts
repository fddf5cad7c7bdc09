export const tables = 'CUSTOMER2,ORDERS__1';
export const fields = [
  'long*Q*V*R*N*NCUSTOMER.C_ID*Q*V*R*N*key',
  'char*Q*V*R*N*NCUSTOMER.C_LAST*Q*V*R*N*name',
  'long*Q*V*R*N*NORDERS__.O_C_ID*Q*V*R*N*key',
].join(',');
