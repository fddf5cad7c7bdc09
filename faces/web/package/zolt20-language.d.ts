// The statement language as text, such as a Result, a stored rule or a statement box: its tree, what is wrong with it, what it
// does in words, and the way back of stored statements. Nothing here needs a page.
//
// Texts are as `prpStroutput` gives them, with CR LF, tabs and quotes as they are. Places, columns and lengths are offsets into the
// JavaScript string, in units of UTF-16. Whatever is no string throws a TypeError.

/** The kinds of nodes of the tree. */
export type NodeKind =
  | 'blank'
  | 'statement'
  | 'head'
  | 'more'
  | 'end'
  | 'select'
  | 'select list'
  | 'from'
  | 'where'
  | 'group by'
  | 'order by'
  | 'row limit'
  | 'select do'
  | 'select eos'
  | 'select empty'
  | 'select error'
  | 'if'
  | 'else'
  | 'for'
  | 'while'
  | 'repeat'
  | 'on case'
  | 'case row'
  | 'default';

/** The problems that a node can have. */
export type NodeProblem = 'not closed' | 'nothing to close' | 'out of place' | 'incomplete';

/** One node of the tree. The leaves, one behind the other, are the text. */
export interface OutlineNode {
  readonly kind: NodeKind;
  /** The offset of the node's first character, from 0. */
  readonly first: number;
  /** The offset behind the node's last character. */
  readonly last: number;
  /** How many nodes are around this one. */
  readonly depth: number;
  /** The head: the words of the node's first line, without blanks around them. */
  readonly head: string;
  /** The offset where the head begins; the node's problem is shown there. */
  readonly headFirst: number;
  /** The offset behind the head. */
  readonly headLast: number;
  /** The index of the node around this one, -1 for none. */
  readonly parent: number;
  /** The index behind the last node within this one. */
  readonly behind: number;
  readonly problem?: NodeProblem;
}

/** The code of a finding: a short word that never changes. */
export type FindingCode =
  | 'not-closed'
  | 'nothing-to-close'
  | 'out-of-place'
  | 'incomplete'
  | 'glued'
  | 'open-string'
  | 'open-bracket'
  | 'stray-bracket'
  | 'empty-entry'
  | 'mixed-aggregate'
  | 'unknown-table'
  | 'unknown-field'
  | 'not-sendable'
  | 'too-long';

/** One finding of a check: a problem with its place. */
export interface Finding {
  /** The line of the finding, from 1; a line ends with CR LF, CR or LF. */
  readonly line: number;
  /** From 1. */
  readonly column: number;
  /** The offset of the finding in the text, from 0. */
  readonly first: number;
  /** The count of characters, which never goes beyond the line; 0 only at the end of a line. */
  readonly length: number;
  readonly code: FindingCode;
  readonly severity: 'error' | 'warning';
  readonly sentence: string;
  /** The index of the node of the tree that the finding is in. */
  readonly node: number;
}

/** A place of a name of the catalogue, or of a function. */
export interface Use {
  /** From 1; a line ends with CR LF, CR or LF. */
  readonly line: number;
  /** From 1. */
  readonly column: number;
  /** The offset of the name in the text, from 0. */
  readonly first: number;
  /** The length of the whole name, without the star of `ORDERS__.*`. */
  readonly length: number;
  readonly kind: 'table' | 'field' | 'index' | 'function';
  /** As it stands there: `CUSTOMER`, `CUSTOMER.C_ID`, `CUSTOMER._index1`, `round`. */
  readonly name: string;
  /** What the text is there. In a plain statement or a text in quotes it need not mean the catalogue. */
  readonly place: 'clause' | 'head' | 'statement' | 'string';
  /** The index of the node of the tree that it stands in. */
  readonly node: number;
  /** Only with a catalogue: whether the name is missing in it. Functions and texts in quotes are never missing. */
  readonly missing?: boolean;
}

/** The explanation of a node: what it does, as a sentence. */
export interface Explanation {
  readonly sentence: string;
  /** How many of the sentences before this one explain nodes around this one. */
  readonly depth: number;
  /** The index of the node of the tree. */
  readonly node: number;
}

/** The values of `PrpStrTables` and `PrpStrFields`. */
export interface Catalogue {
  readonly tables: string;
  readonly fields: string;
}

/** The part properties. */
export type PartName =
  | 'prpSelectFromPart'
  | 'prpSelectPart'
  | 'prpSelectGroupbyPart'
  | 'prpSelectOrderbyPart'
  | 'prpSelectAsSetPart'
  | 'prpSelectWherePart'
  | 'prpSelectDoPart'
  | 'prpSelectEOSPart'
  | 'prpSelectEmptyPart'
  | 'prpSelectErrorPart';

/** Why a part of the text can't be reopened as it stands. */
export interface ReopenProblem {
  /** The line of the problem, from 1; lines end with CR LF. */
  readonly line: number;
  /** From 1. */
  readonly column: number;
  readonly message: string;
}

export interface Reopened {
  /** The parts that are there, encoded, in the order of writing: `Object.assign(control, parts)` writes them to a control that has its catalogue and nothing else yet. */
  readonly parts: Readonly<Partial<Record<PartName, string>>>;
  /** Empty when the parts have all of the statement and bring it back as it is. */
  readonly problems: readonly ReopenProblem[];
  /** The clauses that no part can carry, or the whole text when it is no statement that can be split. */
  readonly rest: string;
}

/** A property that is written, or a gesture of the person, as a request of the JSON lines that zolt20-host plays. */
export type Step =
  | {readonly set: PartName; readonly value: string}
  | {
      readonly user: string;
      readonly control?: string;
      readonly row?: number;
      readonly page?: number;
      readonly text?: string;
    };

/** Lines of the stored text and the lines that replace them; either can be empty. */
export interface Difference {
  /** The line in the stored text, from 1: the first of `stored`, or the line behind the difference. */
  readonly line: number;
  readonly stored: readonly string[];
  readonly comes: readonly string[];
}

export interface Opening {
  /** Whether the steps make the stored text again, except for line breaks at its start. */
  readonly isEqual: boolean;
  /** The steps that fill the pages of a control which has its catalogue and nothing else yet. Empty for a text that the form can't show. */
  readonly steps: readonly Step[];
  /** The steps that then bring the text into the Result, as gestures of the person. */
  readonly finish: readonly Step[];
  /** The Result after all steps. */
  readonly result: string;
  readonly differences: readonly Difference[];
  /** Why the text, or a clause of it, can't be shown on the pages, where that is known. */
  readonly problems: readonly ReopenProblem[];
}

/** The tree: its nodes in the order of the text, each before those within it. Never fails; takes time in proportion to the text. */
export declare function outline(text: string): OutlineNode[];

/** The findings in the text, in its order. Names are checked if there is a catalogue. Of each code, the first 1,000 findings are given. */
export declare function check(text: string, catalogue?: Catalogue | null): Finding[];

/** Where tables, fields, indexes and functions stand, in the order of the text. With a catalogue its tables are known by their names; without one a table's name has 8 characters. */
export declare function uses(text: string, catalogue?: Catalogue | null): Use[];

/** Explains the text, by a sentence for each statement and each block. */
export declare function explain(text: string): Explanation[];

/** Splits a select statement, as the control wrote it at depth 0, into the values of the part properties. */
export declare function reopen(text: string): Reopened;
/** The steps that bring a select statement or a control-flow statement back onto the form, tried on a control with the catalogue. */
export declare function reopen(
  text: string,
  catalogue: Catalogue,
): Reopened & {readonly opening: Opening};

/** Encodes a text in one line, as `prpStroutput` and the other properties take it; undefined for a text that none of them can take. */
export declare function encode(text: string): string | undefined;

/** Compiles the module of the functions in the background. The call is optional: without it, the first call of a function compiles the module and waits for it. */
export declare function load(): Promise<void>;
