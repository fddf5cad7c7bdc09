// The logic for scripts that have it in them.
import {ungzip} from 'pako';
import packed from 'zolt20-map-control.wasm.gz';

import {Logic} from './logic';

/** The logic at once, or later where the browser compiles so much aside alone. */
export function embeddedLogic(): Logic | Promise<Logic> {
  const letters = atob(packed);
  const bytes = new Uint8Array(letters.length);
  for (let at = 0; at < bytes.length; ++at) bytes[at] = letters.charCodeAt(at);
  return Logic.from(ungzip(bytes));
}
