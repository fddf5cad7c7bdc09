// CodeMirror with what plain typing needs, as it is and with colours for the words of the language.
import {defaultKeymap, history, historyKeymap} from '@codemirror/commands';
import {StreamLanguage, defaultHighlightStyle, syntaxHighlighting} from '@codemirror/language';
import {EditorState} from '@codemirror/state';
import {EditorView, keymap} from '@codemirror/view';

const kTyping = [
  history(),
  keymap.of([...defaultKeymap, ...historyKeymap]),
  EditorView.theme({'&': {height: '100%'}, '.cm-scroller': {overflow: 'auto'}}),
];

const statements = StreamLanguage.define({
  token(stream) {
    if (stream.eatSpace()) return null;
    if (stream.match(/^(select|sum|from|where|and|or|if|then|end)\b/)) return 'keyword';
    if (stream.match(/^"[^"]*"/)) return 'string';
    if (stream.match(/^\d+/)) return 'number';
    if (!stream.match(/^\w+/)) stream.next();
    return null;
  },
});
const kColours = [statements, syntaxHighlighting(defaultHighlightStyle)];

/** @type {(more: import('@codemirror/state').Extension[]) => import('../keys.js').Shown} */
const shownWith = (more) => (place, text) => {
  const state = EditorState.create({doc: text, extensions: [...kTyping, ...more]});
  // In a shadow tree its style sheets are constructed ones, which the policy of the page lets pass.
  const root = place.attachShadow({mode: 'open'});
  const view = new EditorView({state, parent: root, root});
  return {
    caretAt(at) {
      view.focus();
      view.dispatch({selection: {anchor: at}, scrollIntoView: true});
    },
    text: () => view.state.doc.toString(),
    linesRead: () => view.contentDOM.querySelectorAll('.cm-line').length,
  };
};
export const plain = shownWith([]);
export const coloured = shownWith(kColours);
