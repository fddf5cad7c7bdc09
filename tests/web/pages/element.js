// A page with one element: the module defines it, and then its host begins.
import * as zolt20 from '/package/zolt20-map-control.js';
import './host.js';

globalThis.zolt20 = zolt20;
beginHost();
