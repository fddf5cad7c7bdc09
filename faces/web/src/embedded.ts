// The logic for scripts that have it in them.
import * as written from 'zolt20-map-control.wasm.json';

import {bytesOf} from './letters';
import {Logic} from './logic';

/** The logic at once, or later where the browser compiles so much aside alone. */
export function embeddedLogic(): Logic | Promise<Logic> {
  return Logic.from(bytesOf(written));
}
