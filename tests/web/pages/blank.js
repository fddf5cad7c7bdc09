// A page without an element. The module has defined it when `zolt20` is there.
import * as zolt20 from '/package/zolt20-map-control.js';
import './host.js';

globalThis.zolt20 = zolt20;
