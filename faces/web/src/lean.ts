// The module whose logic is a file beside it. The element is defined once that was loaded.
import {classesOfPage} from './define';
import {Logic} from './logic';

export const {ZOLT20MapControlElement, ZOLT20Error} = classesOfPage(() =>
  Logic.at(new URL('zolt20-map-control.wasm', import.meta.url)),
);
