// The functions of the module of WebAssembly.
import type {Ask, AskText, Gesture, ListKey, Status} from './numbers';

/** The functions of exports.cpp and list_exports.cpp. */
export interface Exports {
  memory: WebAssembly.Memory;
  _initialize(): void;
  text_in(length: number): number;
  text_out(): number;
  text_out_length(): number;
  numbers_out(): number;
  numbers_out_length(): number;
  forget_texts(): void;
  member_count(): number;
  member_name(number: number): void;
  member_argument(number: number): void;
  member_traits(number: number): number;
  event_count(): number;
  event_name(number: number): void;
  bag_count(): number;
  bag_key(entry: number, forReading: number): void;
  bag_type(entry: number): number;
  page_caption(page: number): void;
  looks(): void;
  layout(): void;
  make(id: number): number;
  destroy(element: number): void;
  let(element: number, member: number, value: number): Status;
  get(element: number, member: number): Status;
  call(element: number, member: number, argument: number): Status;
  bag_init(element: number): Status;
  bag_put(element: number, entry: number, value: number): void;
  bag_read(element: number): Status;
  bag_write(element: number, entry: number): void;
  error_number(element: number): number;
  error_kind(element: number): void;
  error_text(element: number): void;
  controls(element: number): void;
  focused(element: number): number;
  next_in_tab_order(element: number, from: number, forward: number): number;
  next_option(element: number, option: number, forward: number): number;
  list_key(key: ListKey, current: number, count: number, page: number, isSingle: number): void;
  type_ahead(
    element: number,
    list: number,
    current: number,
    letter: number,
    time: number,
  ): number;
  set_filter(element: number, list: number): void;
  add_name(length: number): void;
  name_rows(element: number, list: number): void;
  drawn_count(element: number, list: number): number;
  control_row(element: number, list: number, drawn: number): number;
  drawn_row(element: number, list: number, row: number): number;
  hidden_marks(element: number, list: number): void;
  drawn_rows(element: number, list: number, first: number, count: number): void;
  can_be_read(text: number, background: number): number;
  control_number(control: number, ask: Ask): number;
  case_span(element: number, control: number): void;
  control_text(control: number, ask: AskText): void;
  shown_text(box: number, lineEnd: number): void;
  text_between(box: number, first: number, behind: number): void;
  shown_place(box: number, place: number): number;
  rows(list: number, first: number, count: number): void;
  coloured_words(): void;
  gesture(element: number, kind: Gesture, control: number, number: number): Status;
  type(element: number, box: number, caret: number, lineEnd: number): Status;
  type_key(element: number, box: number, first: number, behind: number, code: number): Status;
  made(element: number): void;
  gesture_words(gesture: Gesture): void;
  begin_step(element: number): number;
  end_step(element: number): void;
  undo(element: number): Status;
  redo(element: number): Status;
  history(element: number): number;
  switch_history(element: number, on: number): void;
  changes(element: number): void;
  words(element: number): void;
}
