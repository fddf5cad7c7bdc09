// A page with two boxes of statements by themselves: both show the same rule.
import './package/zolt21-synt-text-box.js';

const boxes = [...document.getElementsByTagName('zolt21-synt-text-box')];
const [shown] = document.getElementsByTagName('output');
const text = [
  'for :var.order = 1 to :var.orders  Step    1',
  '\tselect ORDRLINE.OL_AMOUNT',
  '\tfrom  ORDRLINE',
  '\twhere ORDRLINE.OL_O_ID = :var.order and ORDRLINE.OL_DIST_INFO IN ( "north" , "south" , "east" , "west" )',
  '\tselectdo',
  '\t\t:var.sum = round ( :var.sum + ORDRLINE.OL_AMOUNT , 2 )',
  '\tendselect',
  'endfor',
].join('\r\n');

for (const box of boxes) {
  box.Text = text;
  box.addEventListener('TabChain', () => {
    shown.textContent = 'The focus is in a box.';
  });
  box.addEventListener('input', () => {
    for (const other of boxes) other.Text = box.Text;
  });
}
