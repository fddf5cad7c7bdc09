/** @jsxImportSource preact */
// A page of Preact with the element, and what its types refuse.
import 'zolt20-map-control/preact';
import {useRef} from 'preact/hooks';
import type {ZOLT20MapControlElement} from 'zolt20-map-control';
import type {ZOLT21SyntTextBoxElement} from 'zolt20-map-control/text-box';

export function Rule() {
  const control = useRef<ZOLT20MapControlElement>(null);
  return (
    <zolt20-map-control
      ref={control}
      key="rule"
      id="rule"
      class="wide"
      style={{height: '100%'}}
      hidden={false}
      tables="CUSTOMER2"
      select-from-part="CUSTOMER,"
      tab={2}
      tabcount="3"
      syntax-highlight
      name="rule"
      form="rules"
      required
      readOnly
      PrpStrFields="char*Q*V*R*N*NCUSTOMER.C_LAST*Q*V*R*N*name"
      Syntax_Highlight={false}
      tableNames={{CUSTOMER: 'Customers'}}
      undoEnabled={undefined}
      prpSelectFromPart={null}
      onpropertychanged={(event) => event.detail.name.length}
      oneventDone={() => control.current?.prpStroutput.length}
    />
  );
}

export function Statement() {
  const box = useRef<ZOLT21SyntTextBoxElement>(null);
  return (
    <zolt21-synt-text-box
      ref={box}
      key="statement"
      class="wide"
      text="endselect"
      highlight
      rightmargin="32000"
      name="statement"
      form="rules"
      disabled={false}
      onpropertychanged={(event) => event.detail.name.length}
      onTabChain={() => box.current?.Text.length}
    />
  );
}

// @ts-expect-error a text
export const numbered = <zolt20-map-control tables={7} />;
// @ts-expect-error a whole number
export const worded = <zolt20-map-control tab="two" />;
// @ts-expect-error a text
export const assigned = <zolt20-map-control PrpStrTables={7} />;
// @ts-expect-error can only be read
export const read = <zolt20-map-control prpstrSelectedFields="a" />;
// @ts-expect-error a function
export const heard = <zolt20-map-control oneventDone="a" />;
// @ts-expect-error takes the event of its own
export const told = <zolt20-map-control oneventDone={(event: MouseEvent) => event.x} />;
// @ts-expect-error no such attribute
export const misspelt = <zolt20-map-control table="CUSTOMER2" />;
// @ts-expect-error a text
export const numberedBox = <zolt21-synt-text-box text={7} />;
// @ts-expect-error no such attribute
export const misspeltBox = <zolt21-synt-text-box margin={7} />;
