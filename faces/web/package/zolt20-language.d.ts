// The statement language as text, such as a Result, a stored rule or a statement box: its tree, what is wrong with it, what it
// does in words, and the way back of stored statements. Nothing here needs a page.
//
// Texts are as `prpStroutput` gives them, with CR LF, tabs and quotes as they are. Places, columns and lengths are offsets into the
// JavaScript string, in units of UTF-16. Whatever is no string throws a TypeError.

/** What a node of the tree is. */
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

/** What is wrong with a node. */
export type NodeProblem = 'not closed' | 'nothing to close' | 'out of place' | 'incomplete';

/** One node of the tree. The leaves, one behind the other, are the text. */
export interface OutlineNode {
  readonly kind: NodeKind;
  /** Its first character, from 0. */
  readonly first: number;
  /** Behind its last character. */
  readonly last: number;
  /** How many nodes it stands within. */
  readonly depth: number;
  /** The words of its first line, without blanks around them. */
  readonly head: string;
  /** Where these begin; its problem is shown there. */
  readonly headFirst: number;
  /** Behind them. */
  readonly headLast: number;
  /** The index of the node around it, -1 for none. */
  readonly parent: number;
  /** The index behind the last of the nodes within it. */
  readonly behind: number;
  readonly problem?: NodeProblem;
}

/** A short word for what is wrong, which never changes. */
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

/** One thing that is wrong. */
export interface Finding {
  /** From 1; a line ends with CR LF, CR or LF. */
  readonly line: number;
  /** From 1. */
  readonly column: number;
  /** Its place in the text, from 0. */
  readonly first: number;
  /** Never beyond its line; 0 only at the end of a line. */
  readonly length: number;
  readonly code: FindingCode;
  readonly severity: 'error' | 'warning';
  readonly sentence: string;
  /** The index of the node of the tree that it stands in. */
  readonly node: number;
}

/** A place of a name of the catalogue, or of a function. */
export interface Use {
  /** From 1; a line ends with CR LF, CR or LF. */
  readonly line: number;
  /** From 1. */
  readonly column: number;
  /** Its place in the text, from 0. */
  readonly first: number;
  /** Of the whole name, without the star of `ORDERS__.*`. */
  readonly length: number;
  readonly kind: 'table' | 'field' | 'index' | 'function';
  /** As it stands there: `CUSTOMER`, `CUSTOMER.C_ID`, `CUSTOMER._index1`, `round`. */
  readonly name: string;
  /** What the text is there. In a plain statement or a text in quotes it need not mean the catalogue. */
  readonly place: 'clause' | 'head' | 'statement' | 'string';
  /** The index of the node of the tree that it stands in. */
  readonly node: number;
  /** Only with a catalogue: whether it has the name not. Functions and texts in quotes are never missing. */
  readonly missing?: boolean;
}

/** What a node does. */
export interface Explanation {
  readonly sentence: string;
  /** How many of the sentences before it tell what is around it. */
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

/** Why something does not come back as it stands in the text. */
export interface ReopenProblem {
  /** From 1; lines end with CR LF. */
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

/** Lines of the stored text and what comes in their place; either can be none. */
export interface Difference {
  /** Of the stored text, from 1: the first of `stored`, or the one behind it. */
  readonly line: number;
  readonly stored: readonly string[];
  readonly comes: readonly string[];
}

export interface Opening {
  /** Whether the same text comes again, but for line breaks at its start. */
  readonly isEqual: boolean;
  /** Fill the pages of a control that has its catalogue and nothing else yet. Empty for a text that the form can't show. */
  readonly steps: readonly Step[];
  /** What the person does then for the text to come into the Result. */
  readonly finish: readonly Step[];
  /** The Result that comes of it. */
  readonly result: string;
  readonly differences: readonly Difference[];
  /** Why the text, or a clause of it, can't be shown on the pages, where that is known. */
  readonly problems: readonly ReopenProblem[];
}

/** The tree: its nodes in the order of the text, each before those within it. Never fails; takes time in proportion to the text. */
export declare function outline(text: string): OutlineNode[];

/** What is wrong in the text, in its order. Names are looked at with a catalogue. Of each code the first 1,000 are told. */
export declare function check(text: string, catalogue?: Catalogue | null): Finding[];

/** Where tables, fields, indexes and functions stand, in the order of the text. With a catalogue its tables are known by their names; without one a table's name has 8 characters. */
export declare function uses(text: string, catalogue?: Catalogue | null): Use[];

/** What the text does, a sentence for each statement and each block. */
export declare function explain(text: string): Explanation[];

/** A select statement, as the control wrote it at depth 0, in the values of the part properties. */
export declare function reopen(text: string): Reopened;
/** The same, and the steps that bring a select statement or a control-flow statement back onto the form, tried on a control with the catalogue. */
export declare function reopen(
  text: string,
  catalogue: Catalogue,
): Reopened & {readonly opening: Opening};

/** The text as `prpStroutput` and the other properties take it, in one line; undefined for one that none of them can take. */
export declare function encode(text: string): string | undefined;

/** Compiles what the functions need, aside. Nobody has to call it: the first call of a function compiles it otherwise, and waits for it. */
export declare function load(): Promise<void>;
