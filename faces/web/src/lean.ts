// The module that loads its logic from a .wasm file. The element is defined once that is loaded.
import {classesOfPage} from './define';
import {Logic} from './logic';

export const {ZOLT20MapControlElement, ZOLT20Error} = classesOfPage(() =>
  Logic.at(new URL('zolt20-map-control.wasm', import.meta.url)),
);
