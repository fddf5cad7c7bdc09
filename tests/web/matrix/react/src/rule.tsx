import {useState} from 'react';
import type {ZOLT20MapControlElement} from 'zolt20-map-control/react';
import 'zolt20-map-control/react';

export function Rule({tables, fields}: {tables?: string; fields?: string}) {
  const [result, setResult] = useState('');
  return (
    <main>
      <zolt20-map-control
        tables={tables}
        fields={fields}
        syntax-highlight
        oneventDone={({currentTarget}) =>
          setResult((currentTarget as ZOLT20MapControlElement).prpStroutput)
        }
      />
      <pre>{result}</pre>
    </main>
  );
}
