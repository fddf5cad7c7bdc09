// The logic for scripts that have it in them.
import {letters, text} from 'zolt20-map-control.wasm.json';

import {Logic} from './logic';

/** The logic at once, or later where the browser compiles so much aside alone. */
export function embeddedLogic(): Logic | Promise<Logic> {
  const byteOf = new Uint8Array(letters.length);
  for (let byte = 0; byte < letters.length; ++byte) byteOf[letters.charCodeAt(byte)] = byte;
  const bytes = new Uint8Array(text.length);
  for (let at = 0; at < bytes.length; ++at) bytes[at] = byteOf[text.charCodeAt(at)]!;
  return Logic.from(bytes);
}
