// Makes the nodes for the parts of the layout. The style sheets place them, also in a narrow
// element.
import {icon, make, setAttributes} from './dom';
import type {Face} from './face';
import type {Part} from './logic';
import {PartKind} from './numbers';
import type {Pages} from './pages';

const kClasses: Partial<Record<PartKind, string>> = {
  [PartKind.Row]: 'across',
  [PartKind.Column]: 'down',
  [PartKind.Split]: 'down',
  [PartKind.Fields]: 'down',
};

/** Parts of the layout that a page can style. */
const kParts = new Set(['head', 'notes', 'result', 'buttons']);

function tool(face: Face, id: 'undo' | 'redo', keys: string, path: string) {
  const attributes = {type: 'button', id, class: 'tool', part: 'tool disabled'};
  const button = make('button', {...attributes, tabindex: -1, disabled: true}, icon(path));
  button.addEventListener('click', () => face[id]());
  face.texts.keep(() => {
    const name = face.texts.of(id);
    setAttributes(button, {
      'aria-label': name,
      title: `${name} (${keys.replace('Control', 'Ctrl')})`,
      'aria-keyshortcuts': keys,
    });
  });
  return button;
}

function tools(face: Face): HTMLElement {
  const node = make(
    'div',
    {class: 'tools', role: 'group'},
    tool(face, 'undo', 'Control+Z', 'M6 3L3 6l3 3M3 6h6a4 4 0 0 1 0 8H6'),
    tool(face, 'redo', 'Control+Y', 'M10 3l3 3-3 3M13 6H7a4 4 0 0 0 0 8h3'),
  );
  face.texts.keep(() => node.setAttribute('aria-label', face.texts.of('history')));
  return node;
}

/** The nodes of parts. Pages are empty, and are handed over. */
export function layOut(face: Face, parts: readonly Part[], pages: Pages): HTMLElement[] {
  return parts.map((part) => {
    const node = emptyNode(face, part);
    const [kind, , , inner] = part;
    if (kind === PartKind.Pages)
      node.append(...inner.map((page, number) => emptyPage(face, page, number, pages)));
    else node.append(...layOut(face, inner, pages));
    return node;
  });
}

function emptyPage(face: Face, part: Part, number: number, pages: Pages): HTMLElement {
  const node = emptyNode(face, part);
  setAttributes(node, {
    id: `page${number}`,
    role: 'tabpanel',
    part: 'page',
    'data-page': number,
    'aria-labelledby': `page${number}.tab`,
  });
  pages.add(node);
  return node;
}

function emptyNode(face: Face, [kind, name, weight]: Part): HTMLElement {
  const node = ownNode(face, kind, name);
  if (weight > 0) {
    node.classList.add('shares');
    node.style.setProperty('--weight', String(weight));
  }
  return node;
}

function ownNode(face: Face, kind: PartKind, name: string): HTMLElement {
  switch (kind) {
    case PartKind.Control:
    case PartKind.Frame:
    case PartKind.Own:
      return face.nodeOf(name);
    case PartKind.Filter:
      return face.filters.make(name);
    case PartKind.Marks:
      return face.filters.makeMarks(name);
    case PartKind.Tools:
      return tools(face);
    default:
      return make('div', {
        class: `${kClasses[kind] ?? ''} ${name}`.trim(),
        part: kParts.has(name) ? name : false,
      });
  }
}

/** The node of the form. */
export function layOutForm(face: Face, layout: Part, pages: Pages): HTMLElement {
  const [node] = layOut(face, [layout], pages) as [HTMLElement];
  setAttributes(node, {part: 'face', tabindex: -1});
  node.prepend(face.edges[0]);
  node.append(face.edges[1]);
  return node;
}
