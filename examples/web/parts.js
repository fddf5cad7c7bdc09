// Parts of the page and of its dialogs.

/// The first part of this kind of node that the selector finds; an error when there is none.
/**
 * @type {<Part extends Element>(within: ParentNode, selector: string, kind: new () => Part) =>
 *   Part}
 */
export function partOf(within, selector, kind) {
  const found = within.querySelector(selector);
  if (!(found instanceof kind)) throw new Error(`there is no ${kind.name} ${selector}`);
  return found;
}
