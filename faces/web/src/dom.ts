// Making nodes.

type Attributes = Record<string, string | number | boolean>;

/** A node with these attributes and children; an attribute that is false is left out. */
export function make<K extends keyof HTMLElementTagNameMap>(
  tag: K,
  attributes: Attributes = {},
  ...children: (Node | string)[]
): HTMLElementTagNameMap[K] {
  const node = document.createElement(tag);
  setAttributes(node, attributes);
  node.append(...children);
  return node;
}

export function setAttributes(node: Element, attributes: Attributes): void {
  for (const [name, value] of Object.entries(attributes)) {
    if (value === false) node.removeAttribute(name);
    else node.setAttribute(name, value === true ? '' : String(value));
  }
}

/**
 * Shows a text in a node that has no other content. It removes no node: wherever in the page a node
 * is removed, browsers end the run of typing that Undo takes back as one step.
 */
export function showText(node: Element, text: string): void {
  const shown = node.firstChild;
  if (!(shown instanceof Text)) node.append(text);
  else if (shown.data !== text) shown.data = text;
}

/** A line icon, as large as a letter. */
export function icon(path: string): SVGElement {
  const kSvg = 'http://www.w3.org/2000/svg';
  const svg = document.createElementNS(kSvg, 'svg');
  setAttributes(svg, {viewBox: '0 0 16 16', 'aria-hidden': 'true', class: 'icon'});
  const line = document.createElementNS(kSvg, 'path');
  line.setAttribute('d', path);
  svg.append(line);
  return svg;
}
