// A script client: creates the control by its ProgID, writes a catalogue and parts, reads the
// Result, and gets errors by number. Ends with 1 when anything is otherwise than it should be, and
// with the line "0 failures" when all is: Wine's cscript ends with 0 also where a script breaks off.
var failures = 0;

function equal(what, is, should) {
  if (is === should) return;
  failures++;
  WScript.Echo(what + ': ' + is + ' and not ' + should);
}

function fails(what, act, number) {
  try {
    act();
  } catch (error) {
    equal(what, (error.number >>> 0).toString(16), number.toString(16));
    return error;
  }
  equal(what, 'no error', number);
  return null;
}

var control = new ActiveXObject('ZOLT20MappingCtrl.ZOLT20MapControl');

control.PrpStrTables = 'CUSTOMER1,ORDERITM0';
control.PrpStrFields =
  'char*Q*V*R*N*NCUSTOMER.NAME*Q*V*R*N*name,long*Q*V*R*N*YORDERITM.NO*Q*V*R*N*number';
control.prpSelectPart = 'CUSTOMER.NAME,';
control.prpSelectFromPart = '';
equal('a page code', control.prpStrSQLPart, '0');
equal('the selected fields', control.prpstrSelectedFields, '');

control.prpStroutput =
  'select CUSTOMER.NAME~from  CUSTOMER~where CUSTOMER.NAME = `^`x`^`~endselect';
equal(
  'the Result',
  control.prpStroutput,
  'select CUSTOMER.NAME\r\nfrom  CUSTOMER\r\nwhere CUSTOMER.NAME = "x"\r\nendselect'
);
control.ClearAll(9);

control.prpintTabcount = 3;
equal('a number', control.prpintTabcount, 3);
equal('its type', typeof control.prpintTabcount, 'number');
control.Syntax_Highlight = true;
equal('a truth value', control.Syntax_Highlight, true);

var error = fails(
  'a page that is none',
  function () {
    control.prpTab = 7;
  },
  0x800a0000 + 380
);
equal('its text', error && error.description, 'invalid property value');
fails(
  'a text that is no number',
  function () {
    control.prpTab = 'x';
  },
  0x80020005
);
fails(
  'a number that is too great',
  function () {
    control.prpTab = 70000;
  },
  0x8002000a
);
fails(
  'one argument too many',
  function () {
    control.BuildGroupBy(1);
  },
  0x8002000e
);
control.prpTab = 6;

WScript.Echo(failures + ' failures');
WScript.Quit(failures > 0 ? 1 : 0);
