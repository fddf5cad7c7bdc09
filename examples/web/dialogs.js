// Modal dialogs, made of the templates of the page.
import {partOf} from './parts.js';

/** @import {ZOLT20Error} from './package/zolt20-map-control.js' */

let dialogs = 0;

// Says by what its heading and its text are read out.
/** @type {(dialog: HTMLDialogElement) => void} */
function nameParts(dialog) {
  const number = ++dialogs;
  for (const [attribute, part] of [
    ['aria-labelledby', 'h2'],
    ['aria-describedby', '.text'],
  ]) {
    const element = dialog.querySelector(part);
    if (element === null) continue;
    element.id = `dialog${number}-${attribute}`;
    dialog.setAttribute(attribute, element.id);
  }
}

/**
 * Gets the dialog and what ends it with an answer. Gives what happens when the person turns away
 * from it; when it gives nothing, the dialog ends without an answer then.
 * @template Answer
 * @typedef {(dialog: HTMLDialogElement, end: (answer?: Answer) => void) =>
 *   (() => unknown) | undefined} Filler
 */

/// Shows a dialog until it has an answer, and gives that.
/**
 * @type {<Answer>(template: string, title: string, fill: Filler<Answer>) =>
 *   Promise<Answer | undefined>}
 */
export function show(template, title, fill) {
  const {content} = partOf(document, `#${template}`, HTMLTemplateElement);
  const dialog = document.importNode(partOf(content, 'dialog', HTMLDialogElement), true);
  partOf(dialog, 'h2', HTMLElement).textContent = title;
  nameParts(dialog);
  return new Promise((resolve) => {
    /** @param {Parameters<typeof resolve>[0]} [answer] */
    const end = (answer) => {
      resolve(answer);
      dialog.close();
      dialog.remove();
    };
    const leave = fill(dialog, end) ?? (() => end());
    dialog.querySelector('.leave')?.addEventListener('click', leave);
    // A browser closes a dialog at the second Escape in a row whatever becomes of its event
    // "cancel", so the key is taken.
    dialog.addEventListener('keydown', (event) => {
      const isOwn =
        event.composedPath().find((node) => node instanceof HTMLDialogElement) === dialog;
      if (event.key !== 'Escape' || event.isComposing || event.defaultPrevented || !isOwn) return;
      event.preventDefault();
      leave();
    });
    dialog.addEventListener('cancel', (event) => {
      if (event.target !== dialog) return;
      event.preventDefault();
      leave();
    });
    dialog.addEventListener('close', () => end());
    document.body.append(dialog);
    dialog.showModal();
    dialog.dispatchEvent(new Event('shown'));
  });
}

/// Asks with a button for each answer, the last of which is the one that Escape gives too. Gives
/// the text of the button.
/** @type {(title: string, text: string, ...answers: string[]) => Promise<string | undefined>} */
export function ask(title, text, ...answers) {
  return show('message', title, (dialog, end) => {
    partOf(dialog, '.text', HTMLElement).textContent = text;
    partOf(dialog, '.buttons', HTMLElement).append(
      ...answers.map((answer) => {
        const button = document.createElement('button');
        button.type = 'button';
        button.textContent = answer;
        button.autofocus = answer === answers.at(-1);
        button.classList.toggle('strong', button.autofocus);
        button.addEventListener('click', () => end(answer));
        return button;
      }),
    );
    return () => end(answers.at(-1));
  });
}

/// Tells what failed in a control.
/** @type {(error: ZOLT20Error) => Promise<string | undefined>} */
export const tellFailure = (error) =>
  ask('Error', `${error.kind} (${error.number}): ${error.message}`, 'OK');
