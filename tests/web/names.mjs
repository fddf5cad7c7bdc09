// What a screen reader says of each control: its role and its name, by the page on which it stands.
// The Condition page has five panels beside what is always there.

/** @type {Names} */
const kEverywhere = {
  tabVrn: ['tablist', 'Pages'],
  TxtOutput: ['textbox', 'Result'],
  cmdClear: ['button', 'Clear'],
  cmdCancel: ['button', 'Cancel'],
  cmdDone: ['button', 'Done'],
  undo: ['button', 'Undo'],
  redo: ['button', 'Redo'],
};

export const kTabs = [
  'Select List',
  'Where',
  'SelectDo',
  'SelectEOS',
  'SelectEmpty',
  'SelectError',
  'Condition',
];

/**
 * The role and the name of each control, by that of the control.
 * @typedef {Record<string, [role: Role, name: string]>} Names
 */
/** @typedef {Parameters<import('playwright-core').Page['getByRole']>[0]} Role */

/** @type {(index: number, page: string, box: string, button: string) => Names} */
const blockPage = (index, page, box, button) => ({
  [box]: ['textbox', `${page} statements`],
  [`cmdFunction(${index})`]: ['button', `Function, ${page}`],
  [`cmdCondition(${index})`]: ['button', `Condition, ${page}`],
  [`cmdSubQuery(${index})`]: ['button', `Sub Query, ${page}`],
  [button]: ['button', `Add To Result, ${page}`],
});

/** @type {Names[]} */
const kPages = [
  {
    lsttables: ['listbox', 'Tables'],
    'lsttables.filter': ['searchbox', 'Filter Tables'],
    lstFunctions: ['listbox', 'Functions'],
    lstFields: ['listbox', 'Fields'],
    'lstFields.filter': ['searchbox', 'Filter Fields'],
    cmdMoveOne: ['button', 'Add marked fields'],
    cmdMoveAll: ['button', 'Add all fields'],
    cmdRemoveOne: ['button', 'Remove marked fields'],
    cmdRemoveAll: ['button', 'Remove all fields'],
    lstSelectedFields: ['listbox', 'Selected fields'],
    lstGroupby: ['listbox', 'Group By'],
    cmdAddSelect: ['button', 'Add To Result, Select List'],
  },
  {
    lstorderbyasc: ['listbox', 'Order By Asc'],
    lstorderbydesc: ['listbox', 'Order By Desc'],
    Shape1: ['group', 'Order'],
    cboWhereFields: ['combobox', 'Operand1'],
    cboOper: ['combobox', 'Operator'],
    cboWhereFields1: ['combobox', 'Value'],
    'cboWhereFields1.open': ['button', 'Value entries'],
    FrawhereCondition: ['group', 'Where condition'],
    txtwhereCondition: ['textbox', 'Where condition'],
    FraCondition: ['group', 'Condition to complete'],
    txtCondition: ['textbox', 'Condition to complete'],
    cmdAnd: ['button', 'Apply as AND, Where'],
    CmdOr: ['button', 'Apply as OR, Where'],
    cmdCancelWhere: ['button', 'Clear, Where'],
    cmdAddWhereQuery: ['button', 'Add To Result, Where'],
    txtAsSet: ['textbox', 'As set with rows'],
  },
  blockPage(0, 'SelectDo', 'txtSelectDo', 'cmdAddSelectDoQuer'),
  blockPage(1, 'SelectEOS', 'txtSelectEOS', 'cmdAddSEOStoquery'),
  blockPage(2, 'SelectEmpty', 'txtselectempty', 'cmdSelectmpty'),
  blockPage(3, 'SelectError', 'txtSelectError', 'cmdAddtoSERROR'),
  {
    fraSelect: ['radiogroup', 'Select Condition'],
    optIfThen: ['radio', 'If..Then'],
    optwhile: ['radio', 'While'],
    optRepeat: ['radio', 'Repeat...Until'],
    optFor: ['radio', 'For Statement'],
    optCase: ['radio', 'On...Case'],
    'cmdFunction(4)': ['button', 'Function, Condition'],
    'cmdSubQuery(4)': ['button', 'Sub Query /Condition, Condition'],
    cmdAdd: ['button', 'Add Condition, Condition'],
    cmdBuild: ['button', 'Build Condition, Condition'],
  },
];

/// The panels of the Condition page by the option that shows them, '' before any was chosen.
/** @type {Record<string, Names>} */
export const kPanels = {
  '': {Frainitial: ['group', 'Instructions']},
  optIfThen: {
    fraif: ['group', 'if...then'],
    txtCond: ['textbox', 'If condition'],
    txtStmt1: ['textbox', 'Then, Statement1'],
    txtStmt2: ['textbox', 'Else, Statement2'],
  },
  optwhile: {
    frawhile: ['group', 'While'],
    txtWhlCnd: ['textbox', 'While expression'],
    txtWhlStm: ['textbox', 'While statement'],
  },
  optRepeat: {
    frarepeat: ['group', 'Repeat...Until'],
    txtRepCnd: ['textbox', 'Until expression'],
    txtRepStm: ['textbox', 'Repeat statement'],
  },
  optFor: {
    fraFor: ['group', 'For Statement'],
    txtVariable: ['textbox', 'For variable'],
    txtinitval: ['textbox', 'For initial value'],
    txtFinVal: ['textbox', 'For final value'],
    txtStep: ['textbox', 'For step'],
    txtForStmt: ['textbox', 'For statement'],
  },
  optCase: {
    fraOnCase: ['group', 'On...Case'],
    txtcaseexp: ['textbox', 'Case expression'],
    TxtDef: ['textbox', 'Default statement'],
    fracase: ['group', 'Case rows'],
    'TxtExpr(0)': ['textbox', 'Case value 1'],
    'txtStmt(0)': ['textbox', 'Case statements 1'],
    cmdNext: ['button', 'Next, Condition'],
  },
};

/// All that is to be found on a page.
/** @type {(page: number, panel?: string) => Names} */
export const namesOn = (page, panel = '') => ({
  ...kEverywhere,
  ...kPages[page],
  ...(page === 6 ? kPanels[panel] : {}),
});
