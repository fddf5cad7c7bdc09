// The logic for scripts that embed it.
import * as written from 'zolt20-map-control.wasm.json';

import {bytesOf} from './letters';
import {Logic} from './logic';

/** The logic at once, or a promise where the browser compiles large modules only in background. */
export function embeddedLogic(): Logic | Promise<Logic> {
  return Logic.from(bytesOf(written));
}
