// Where the controls stand: the pages, the Result below them, the three buttons.
import {icon, make} from './dom';
import type {Face} from './face';

type Child = Node | string;

export function layOut(face: Face): HTMLElement {
  const of = (name: string) => face.nodeOf(name);
  const box = (className: string, ...children: Child[]) =>
    make('div', {class: className}, ...children);
  const names = (...all: string[]) => all.map(of);

  const labelled = (label: string, list: string) => {
    const filter = face.filterOf(list);
    return box('labelled', of(label), ...(filter === undefined ? [] : [filter]), of(list));
  };
  const foot = (labels: string[], button: string) =>
    box('foot', box('instructions', ...names(...labels)), of(button));
  const page = (number: number, ...children: Child[]) =>
    make(
      'div',
      {
        role: 'tabpanel',
        class: 'page',
        part: 'page',
        id: `page${number}`,
        'data-page': number,
        'aria-labelledby': `page${number}.tab`,
      },
      ...children,
    );

  const selectList = page(
    0,
    box(
      'columns lists',
      box('column sources', labelled('Label1', 'lsttables'), labelled('Label4', 'lstFunctions')),
      box('column', labelled('Label3', 'lstFields')),
      box('moves', ...names('cmdMoveOne', 'cmdMoveAll', 'cmdRemoveOne', 'cmdRemoveAll')),
      box(
        'column chosen',
        labelled('Label2', 'lstSelectedFields'),
        labelled('Label5', 'lstGroupby'),
      ),
    ),
    foot(['Label41', 'Label9', 'Label10', 'Label11', 'Label42'], 'cmdAddSelect'),
  );

  of('FrawhereCondition').append(of('txtwhereCondition'));
  of('FraCondition').append(of('txtCondition'));
  of('Shape1').append(
    of('Label13'),
    box(
      'orders',
      labelled('lblorderbyasc', 'lstorderbyasc'),
      labelled('lblOrderbyDesc', 'lstorderbydesc'),
    ),
  );
  const where = page(
    1,
    box(
      'columns where',
      box(
        'column condition',
        box(
          'operands',
          labelled('Label6', 'cboWhereFields'),
          labelled('Label7', 'cboOper'),
          labelled('Label8', 'cboWhereFields1'),
        ),
        // The two views of the condition take turns in one place.
        box('stack', of('FraCondition'), of('FrawhereCondition')),
        box('row-of', ...names('cmdAnd', 'CmdOr', 'cmdCancelWhere')),
      ),
      box('column order', of('Shape1'), box('row-of', ...names('lblAsset', 'txtAsSet', 'Label12'))),
    ),
    foot(['Label20', 'Label21', 'Label22', 'Label23', 'Label24'], 'cmdAddWhereQuery'),
  );

  const statements = (
    [
      ['txtSelectDo', 'cmdAddSelectDoQuer', ['Label27', 'Label26', 'Label28', 'Label25']],
      ['txtSelectEOS', 'cmdAddSEOStoquery', ['Label31', 'Label30', 'Label32', 'Label29']],
      ['txtselectempty', 'cmdSelectmpty', ['Label35', 'Label34', 'Label36', 'Label33']],
      ['txtSelectError', 'cmdAddtoSERROR', ['Label39', 'Label38', 'Label40', 'Label37']],
    ] as const
  ).map(([text, add, labels], index) =>
    page(
      index + 2,
      box(
        'columns statements',
        of(text),
        box(
          'requests',
          ...names(`cmdFunction(${index})`, `cmdCondition(${index})`, `cmdSubQuery(${index})`),
        ),
      ),
      foot([...labels], add),
    ),
  );

  const options = box(
    'options',
    ...names('optIfThen', 'optwhile', 'optRepeat', 'optFor', 'optCase'),
  );
  of('fraSelect').append(options);
  const rows = (frame: string, ...pairs: [string, string][]) => {
    const tall = (node: Node) => node instanceof HTMLElement && node.classList.contains('lines');
    of(frame).append(
      ...pairs.map(([label, text]) =>
        box(tall(of(text)) ? 'field tall' : 'field', of(label), of(text)),
      ),
    );
    return of(frame);
  };
  rows('fraif', ['lblCondtion', 'txtCond'], ['lblStmt1', 'txtStmt1'], ['lblstmt2', 'txtStmt2']);
  rows('frawhile', ['lblWhereCnd', 'txtWhlCnd'], ['lblwherestm', 'txtWhlStm']);
  rows('frarepeat', ['lblRepcond', 'txtRepCnd'], ['lblrepstmt', 'txtRepStm']);
  rows(
    'fraFor',
    ['lblVariable', 'txtVariable'],
    ['lnlintval', 'txtinitval'],
    ['lblfinValue', 'txtFinVal'],
    ['lblStep', 'txtStep'],
    ['lblforStatement', 'txtForStmt'],
  );
  of('fracase').append(...names('TxtExpr(0)', 'txtStmt(0)', 'VscrCase', 'cmdNext'));
  of('fraOnCase').append(
    box(
      'case-head',
      box('field', of('lblexprcase'), of('txtcaseexp')),
      box('field', of('lblDefault'), of('TxtDef')),
    ),
    box('case-words', of('lblexpr'), of('lblstmt')),
    of('fracase'),
  );
  of('Frainitial').append(
    ...names('Label14', 'Label15', 'Label16', 'Label17', 'Label18', 'Label19'),
  );
  const condition = page(
    6,
    box(
      'columns kinds',
      of('fraSelect'),
      // All of them in one and the same rectangle.
      box('stack', ...names('Frainitial', 'fraif', 'frawhile', 'frarepeat', 'fraFor', 'fraOnCase')),
    ),
    box(
      'row-of ends',
      ...names('cmdFunction(4)', 'cmdSubQuery(4)'),
      box('gap'),
      ...names('cmdAdd', 'cmdBuild'),
    ),
  );

  const tool = (id: string, name: string, keys: string, path: string, act: () => void) => {
    const button = make(
      'button',
      {
        type: 'button',
        id,
        class: 'tool',
        part: 'tool',
        tabindex: -1,
        disabled: true,
        'aria-label': name,
        title: `${name} (${keys.replace('Control', 'Ctrl')})`,
        'aria-keyshortcuts': keys,
      },
      icon(path),
    );
    button.addEventListener('click', act);
    return button;
  };
  return make(
    'div',
    {class: 'face', part: 'face', tabindex: -1},
    face.edges[0],
    box(
      'head',
      of('tabVrn'),
      make(
        'div',
        {class: 'tools', role: 'group', 'aria-label': 'History'},
        tool('undo', 'Undo', 'Control+Z', 'M6 3L3 6l3 3M3 6h6a4 4 0 0 1 0 8H6', () => face.undo()),
        tool('redo', 'Redo', 'Control+Y', 'M10 3l3 3-3 3M13 6H7a4 4 0 0 0 0 8h3', () =>
          face.redo(),
        ),
      ),
    ),
    box('pages', selectList, where, ...statements, condition),
    box('result', of('lblResult'), of('TxtOutput')),
    box('buttons', ...names('cmdClear', 'cmdCancel', 'cmdDone')),
    face.edges[1],
  );
}
