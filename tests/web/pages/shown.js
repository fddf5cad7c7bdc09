// What the element shows of its controls, for the tests that play steps.

/**
 * What is shown of a control. Rows bear their mark in the attribute `mark`.
 * @type {(node: any, what: string, mark: string) => unknown}
 */
function shownOf(node, what, mark) {
  const rows = () => [...node.querySelectorAll('[role=option]')];
  switch (what) {
    case 'text':
      return node.value ?? node.textContent;
    case 'mark':
      return [node.selectionStart, node.selectionEnd];
    case 'enabled':
      return !node.disabled && node.getAttribute('aria-disabled') !== 'true';
    case 'isOn':
      return node.checked;
    case 'isArial':
      // The letters of an option are those of its label, those of a frame those of its title.
      return /^"?Arial\b/.test(
        getComputedStyle(node.querySelector(':scope > .title') ?? node.closest('label') ?? node)
          .fontFamily,
      );
    case 'page':
      return Number(node.querySelector('[role=tab][aria-selected=true]').dataset.page);
    case 'captions':
      return [...node.querySelectorAll('[role=tab]')].map((tab) => tab.textContent);
    case 'wraps':
      return node.wrap !== 'off' && getComputedStyle(node).whiteSpace !== 'pre';
    case 'scrolls': {
      const {overflowX, overflowY} = getComputedStyle(node);
      const ways = [];
      /** @type {(overflow: string) => boolean} */
      // Firefox calls it visible where a box of several lines scrolls.
      const isScrolled = (overflow) =>
        ['auto', 'scroll', ...(node.matches('textarea') ? ['visible'] : [])].includes(overflow);
      if (isScrolled(overflowX) && node.scrollWidth > node.clientWidth) ways.push('across');
      if (isScrolled(overflowY) && node.scrollHeight > node.clientHeight) ways.push('down');
      return ways;
    }
    case 'rows':
      return rows().map((row) => row.querySelector('.text').textContent);
    case 'marked':
      return rows()
        .filter((row) => row.getAttribute(mark) === 'true')
        .map((row) => Number(row.dataset.row));
    case 'at':
      return Number(/\d+$/.exec(node.getAttribute('aria-activedescendant') ?? '')?.[0] ?? -1);
    case 'cut':
      return cutRowOf(node, rows());
    default:
      throw new Error(`nothing shows ${what}`);
  }
}

/**
 * The last row that is cut, and where; its end has to be in sight.
 * @type {(list: HTMLElement, rows: HTMLElement[]) => [number, string] | null}
 */
function cutRowOf(list, rows) {
  /** @type {[number, string] | null} */
  let found = null;
  for (const row of rows) {
    const head = row.querySelector('.beginning');
    const tail = row.querySelector('.ending')?.getBoundingClientRect();
    if (head === null || head.scrollWidth <= head.clientWidth) continue;
    const isInside = tail.right <= list.getBoundingClientRect().right;
    found = [Number(row.dataset.row), isInside ? 'middle' : 'elsewhere'];
  }
  return found;
}
Object.assign(globalThis, {shownOf});
