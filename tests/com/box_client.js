// A script client of the box of statements: creates it by its ProgID and uses it by name. Ends with
// the line "0 failures" when all is as it should be.
var failures = 0;

function equal(what, is, should) {
  if (is === should) return;
  failures++;
  WScript.Echo(what + ': ' + is + ' and not ' + should);
}

var box = new ActiveXObject('ZOLT21TextBox.ZOLT21SyntTextBox');
equal('a new text', box.Text, '');
equal('colours at first', box.Highlight, false);
equal('the margin at first', box.rightmargin, 0);
box.Text = 'select 1\r\n\tendselect\r\n';
box.Highlight = true;
box.rightmargin = 100000;
equal('the text', box.Text, 'select 1\r\n\tendselect\r\n');
equal('colours', box.Highlight, true);
equal('the margin', box.rightmargin, 100000);
equal('no window', box.hWnd, 0);
equal('enabled', box.Enabled, true);
try {
  box.rightmargin = -1;
  equal('a margin below 0', 'no error', 'an error');
} catch (error) {
  equal('its number', (error.number >>> 0).toString(16), (0x800a0000 + 380).toString(16));
}
var second = new ActiveXObject('ZOLT21TextBox.ZOLT21SyntTextBox.1');
equal('of the version', second.Text, '');

WScript.Echo(failures + ' failures');
WScript.Quit(failures > 0 ? 1 : 0);
