// A message of the control, as a modal dialog. The control does not wait for the answer, which can
// only be OK. Messages that come while one is open wait in a queue.
import {make} from './dom';
import type {OwnTexts} from './texts';

interface Message {
  text: string;
  title: string;
}

/**
 * Called when the person answers: `close` closes the dialog, `hadFocus` tells whether the focus was
 * in the element before the dialog opened.
 */
export type Answered = (close: () => void, hadFocus: boolean) => void;

export class MessageBox {
  readonly node: HTMLDialogElement;
  readonly #title = make('div', {id: 'message.title', class: 'title', part: 'title'});
  readonly #text = make('p', {id: 'message.text'});
  readonly #waiting: Message[] = [];
  #hadFocus = false;

  constructor(texts: OwnTexts, answered: Answered) {
    const ok = make('button', {type: 'button', part: 'button default', autofocus: true});
    texts.keep(() => ok.replaceChildren(texts.of('ok')));
    const sign = make('span', {class: 'sign', 'aria-hidden': 'true'}, '\u00d7');
    this.node = make(
      'dialog',
      {
        class: 'message',
        part: 'message',
        'aria-labelledby': 'message.title',
      },
      // The dialog is outside the form. It has the role by which screen readers pass keys on, too.
      make(
        'div',
        {role: 'application', class: 'whole'},
        make(
          'div',
          {
            role: 'dialog',
            class: 'whole',
            'aria-labelledby': 'message.title',
            'aria-describedby': 'message.text',
          },
          this.#title,
          make('div', {class: 'words'}, sign, this.#text),
          make('div', {class: 'buttons'}, ok),
        ),
      ),
    );
    const close = () =>
      answered(() => {
        this.node.close();
        this.#waiting.shift();
        this.showWaiting();
      }, this.#hadFocus);
    ok.addEventListener('click', close);
    this.node.addEventListener('cancel', (event) => {
      event.preventDefault();
      close();
    });
  }

  show(text: string, title: string): void {
    this.#waiting.push({text, title});
    if (this.#waiting.length > 1) return;
    this.#hadFocus = (this.node.getRootNode() as ShadowRoot).activeElement !== null;
    this.showWaiting();
  }
  /**
   * Shows the first waiting message as soon as the element is visible: a modal dialog that is not
   * drawn would lock the page.
   */
  showWaiting(): void {
    const message = this.#waiting[0];
    const element = (this.node.getRootNode() as ShadowRoot).host;
    if (
      message === undefined ||
      this.node.open ||
      !element.isConnected ||
      !element.checkVisibility()
    )
      return;
    this.#title.textContent = message.title;
    this.#text.textContent = message.text;
    this.node.showModal();
  }
  /** Closes an open dialog while the element is hidden; it opens again when the element is back. */
  suspend(): void {
    if (this.node.open) this.node.close();
  }
}
