import {useEffect, useRef, useState} from 'react';
import type {ZOLT20MapControlElement} from 'zolt20-map-control/react';
import 'zolt20-map-control/react';

export function HydratedRule({tables, fields}: {tables?: string; fields?: string}) {
  const control = useRef<ZOLT20MapControlElement>(null);
  const [result, setResult] = useState('');
  useEffect(() => {
    const element = control.current!;
    const show = () => setResult(element.prpStroutput);
    element.addEventListener('eventDone', show);
    return () => element.removeEventListener('eventDone', show);
  }, []);
  return (
    <main>
      <zolt20-map-control ref={control} tables={tables} fields={fields} syntax-highlight />
      <pre>{result}</pre>
    </main>
  );
}
