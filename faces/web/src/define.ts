// Defines the custom element once its logic is loaded. A page defines it once, however many copies
// of the scripts it loads: the later copies give the classes of the first.
import {useLogic, ZOLT20MapControlElement} from './element';
import {type Logic, ZOLT20Error} from './logic';

export const kTag = 'zolt20-map-control';

/** The classes that each script exports. */
interface Classes {
  ZOLT20MapControlElement: typeof ZOLT20MapControlElement;
  ZOLT20Error: typeof ZOLT20Error;
}

// Where the first copy keeps its classes for the later ones.
const kPlace = Symbol.for(kTag);
const page = globalThis as {[kPlace]?: Classes};
const own: Classes = {ZOLT20MapControlElement, ZOLT20Error};

/**
 * The classes of the page. If no other copy of the scripts has defined the element, it is defined
 * with the logic that `make` gives: at once, or when that promise is fulfilled.
 */
export function classesOfPage(make: () => Logic | Promise<Logic>): Classes {
  if (globalThis.customElements === undefined) return own; // no page, such as on a server
  const before = classesBefore();
  if (before !== undefined) {
    const {version} = before.ZOLT20MapControlElement;
    if (version !== own.ZOLT20MapControlElement.version)
      console.warn(
        `<${kTag}> is here already, by a script of version ${version ?? 'unknown'}, which stays in use. ` +
          `The script of version ${own.ZOLT20MapControlElement.version} that was loaded now is not used.`,
      );
    return before;
  }
  page[kPlace] = own;
  try {
    const made = make();
    if (made instanceof Promise) made.then(define).catch(giveUp);
    else define(made);
  } catch (error) {
    delete page[kPlace];
    throw error;
  }
  return own;
}

function classesBefore(): Classes | undefined {
  const defined = customElements.get(kTag) as typeof ZOLT20MapControlElement | undefined;
  return page[kPlace] ?? (defined && {...own, ZOLT20MapControlElement: defined});
}

function define(logic: Logic): void {
  useLogic(logic);
  customElements.define(kTag, ZOLT20MapControlElement);
}

// Makes room for another try by a copy that is loaded later.
function giveUp(error: unknown): void {
  delete page[kPlace];
  reportError(error);
}
