// The element for pages: defined when its logic is there, under its one name. A page has it once,
// however many copies of the scripts it loads: the later copies give the classes of the first.
import {useLogic, ZOLT20MapControlElement} from './element';
import {type Logic, ZOLT20Error} from './logic';

export const kTag = 'zolt20-map-control';

/** What the scripts give. */
interface Classes {
  ZOLT20MapControlElement: typeof ZOLT20MapControlElement;
  ZOLT20Error: typeof ZOLT20Error;
}

// Where the first copy keeps its classes for the later ones.
const kPlace = Symbol.for(kTag);
const page = globalThis as {[kPlace]?: Classes};
const own: Classes = {ZOLT20MapControlElement, ZOLT20Error};

/**
 * The classes of the page. When no other copy has brought them, the element is defined with the
 * logic that this one makes: at once, or once it is there.
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

// A copy that is loaded later may have more luck.
function giveUp(error: unknown): void {
  delete page[kPlace];
  reportError(error);
}
