// The script for pages without modules. It has the logic in it, since a page from a file can't load
// one.
import bytes from 'zolt20-map-control.wasm';

import {define} from './define';
import {ZOLT20MapControlElement} from './element';
import {Logic, ZOLT20Error} from './logic';

Object.assign(globalThis, {ZOLT20MapControlElement, ZOLT20Error});
WebAssembly.compile(bytes).then((module) => define(Logic.of(module)), reportError);
