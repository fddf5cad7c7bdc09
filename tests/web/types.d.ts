// What the tests of the element tell each other, and what is global in their pages.
import type {ZOLT20MapControlElement} from 'zolt20-map-control';

/** A control in a dump: of these properties those that its kind has. */
export interface DumpedControl {
  Enabled: boolean;
  Visible: boolean;
  TabIndex: number;
  Tab: number;
  Text: string;
  SelStart: number;
  Highlight: boolean;
  Caption: string;
  List: string[];
  Selected: boolean[];
  ListIndex: number;
  /** Of an option button true or false. */
  Value: number;
  Max: number;
}
export type Controls = Record<string, DumpedControl>;
/** The whole state of the form. */
export interface Dump {
  controls: Controls;
  focus: string;
}

/** An error as the automation host writes it. */
export interface ToldError {
  kind: string;
  number: number;
  description: string;
}
/** What a host is told: of these the one that it is, with what belongs to it. */
export interface LogEntry {
  event?: string;
  changed?: string;
  message?: string;
  title?: string;
  icon?: string;
  buttons?: string;
  failed?: ToldError;
  answered?: string;
  value?: unknown;
  error?: ToldError;
  undone?: boolean;
  redone?: boolean;
}
/** A set, get or call of a host. */
export interface HostRequest {
  set?: string;
  get?: string;
  call?: string;
  value?: unknown;
  args?: unknown[];
}
/** A gesture of a person. */
export type Gesture =
  | {user: 'tab'; page: number}
  | {user: 'click'; control: string; row?: number | undefined}
  | {user: 'dblclick' | 'pick'; control: string; row: number}
  | {user: 'type'; control: string; text: string}
  | {user: 'key'; control: string; code: number; from?: number; to?: number}
  | {user: 'focus'; control: string}
  | {user: 'scroll'; control: string; value: number};
export interface Reply {
  ok: boolean;
  value?: unknown;
  error?: ToldError;
  refused?: unknown;
  log: LogEntry[];
}

/** What custom-elements.json says, as far as the tests read it. */
export interface Manifest {
  schemaVersion: string;
  modules: {declarations: ManifestClass[]}[];
}
export interface ManifestClass {
  tagName?: string;
  attributes: {name: string; fieldName: string; type: {text: string}}[];
  members: {
    name: string;
    description?: string;
    kind: string;
    readonly?: boolean;
    type?: {text: string};
    parameters?: {name: string; type?: {text: string}}[];
  }[];
  events: {name: string; description?: string; type: {text: string}}[];
  cssParts: {name: string; description?: string}[];
  cssProperties: {name: string; description?: string; default: string}[];
}

/** Where something is drawn, in the window. */
export interface Place {
  isThere: boolean;
  isOnTop: boolean;
  isEnabled: boolean;
  left: number;
  top: number;
  right: number;
  bottom: number;
  x: number;
  y: number;
}

/** A control at design, by the words of form.def. */
export interface Design {
  kind: string;
  page: number | null;
  frame: string | null;
  caption: string;
  styles: string[];
}
export type Form = Record<string, Design>;

/** The element with its members by their names as well. */
export type Control = {dump(): Dump} & ZOLT20MapControlElement & Record<string, unknown>;

declare module 'zolt20-map-control' {
  interface ZOLT20MapControlElement {
    readonly shadowRoot: ShadowRoot;
  }
}
declare module 'playwright-core' {
  interface Page {
    /** What it has complained of in its console. */
    complaints: string[];
  }
}

declare global {
  /** What the policy of the page was broken by. */
  var violations: string[];
  /** What the page has complained of, where the driver does not tell. */
  var complaints: string[] | undefined;
  var zolt20: typeof import('zolt20-map-control');
  var axe: typeof import('axe-core');
  var define: () => Promise<{before: number; after: number; shift: number}>;
  /** Is there when the mouse was pressed twice. */
  var doubled: Promise<boolean>;
  var early: {log: string[]; wasDefined: boolean};
  var host: Host;
  /** What single tests keep in their page. */
  var heard: unknown[][];
  var compiled: Promise<string>;
  var RealModule: typeof WebAssembly.Module;
  var failures: boolean[][];
  var histories: boolean[][];
  var hosts: Host[];
  /** The gestures that a player of steps has not taken yet. */
  var made: (Gesture | undefined)[];
  /** What was done to the element, as lines of the automation host. */
  var record: Record<string, unknown>[];
  /** Carries a request of a host out, for the record too. */
  var carryOutForRecord: (request: Record<string, unknown>) => void;
  var kept: Element[] | undefined;
  /** The box of statements by itself, its area, and what it told. */
  var box: import('../../faces/web/package/zolt21-synt-text-box').ZOLT21SyntTextBoxElement;
  var area: HTMLTextAreaElement;
  var noticed: string[];
  var picks: string[];
  var presses: number;
  var read: string;
  var seen: {name: string; isElement: boolean; kind?: string; cancelable?: boolean}[];
  var shown: string;

  /** Of Firefox: where the page stands on its display. */
  interface Window {
    readonly mozInnerScreenX: number;
    readonly mozInnerScreenY: number;
  }

  // A test looks for what must be there, and fails by itself when it is not.
  interface ParentNode {
    querySelector<Tag extends keyof HTMLElementTagNameMap>(
      selectors: Tag,
    ): HTMLElementTagNameMap[Tag];
    querySelector(selectors: string): HTMLInputElement;
    querySelectorAll<Tag extends keyof HTMLElementTagNameMap>(
      selectors: Tag,
    ): NodeListOf<HTMLElementTagNameMap[Tag]>;
    querySelectorAll(selectors: string): NodeListOf<HTMLInputElement>;
  }
  interface Document {
    getElementById(id: string): HTMLInputElement;
  }
  interface DocumentFragment {
    getElementById(id: string): HTMLInputElement;
  }
}
