import {useState, type FunctionComponent} from 'react';

import {fields, tables} from './catalogue';

interface Shown {
  Rule: FunctionComponent<{tables?: string; fields?: string}>;
}

// The catalogue goes away when the button is clicked.
export function Application({Rule}: Shown) {
  const [isThere, setThere] = useState(true);
  return (
    <>
      <Rule tables={isThere ? tables : undefined} fields={isThere ? fields : undefined} />
      <button type="button" onClick={() => setThere(false)}>
        Drop
      </button>
    </>
  );
}
