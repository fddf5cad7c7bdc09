// The ES module. Whoever imports it has the element whole: the module is over when the logic is
// there.
import {define} from './define';
import {Logic} from './logic';

if (globalThis.customElements !== undefined)
  define(await Logic.at(new URL('zolt20-map-control.wasm', import.meta.url)));

export {ZOLT20MapControlElement} from './element';
export {ZOLT20Error} from './logic';
