// The pages of the form, of which one is shown. The nodes on a page are made when it is shown for
// the first time: a new element has those of one page.
import type {Part} from './logic';
import {PartKind} from './numbers';

function controlsIn([kind, name, , parts]: Part): string[] {
  const isControl = [PartKind.Control, PartKind.Frame, PartKind.Own].includes(kind);
  return [...(isControl ? [name] : []), ...parts.flatMap(controlsIn)];
}
function pagesIn([kind, , , parts]: Part): Part[] {
  return kind === PartKind.Pages ? parts : parts.flatMap(pagesIn);
}

export class Pages {
  readonly #pageOf = new Map<string, number>(); // by the names of controls
  readonly #nodes: HTMLElement[] = [];
  readonly #unmade: Map<number, readonly Part[]>;
  #active = -1;

  constructor(layout: Part) {
    const pages = pagesIn(layout);
    this.#unmade = new Map(pages.map(([, , , parts], page) => [page, parts]));
    for (const [page, part] of pages.entries())
      for (const name of controlsIn(part)) this.#pageOf.set(name, page);
  }

  /** Takes the empty node of the next page. */
  add(node: HTMLElement): void {
    node.hidden = true;
    this.#nodes.push(node);
  }
  /** Whether the control has a view: it stands on no page, or on one that was shown. */
  isMade(name: string): boolean {
    // Further elements of an array stand where its first one does.
    const page = this.#pageOf.get(name) ?? this.#pageOf.get(name.replace(/\(\d+\)/, '(0)'));
    return page === undefined || !this.#unmade.has(page);
  }

  /**
   * Shows this page alone; false if it is shown already. `make` makes the nodes of the parts of a
   * page that is shown for the first time.
   */
  show(active: number, make: (parts: readonly Part[]) => HTMLElement[]): boolean {
    if (active === this.#active) return false;
    this.#active = active;
    const parts = this.#unmade.get(active);
    this.#unmade.delete(active);
    if (parts !== undefined) this.#nodes[active]!.append(...make(parts));
    for (const [page, node] of this.#nodes.entries()) node.hidden = page !== active;
    return true;
  }
}
