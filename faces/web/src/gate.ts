// What a person may do with the element at the moment: everything, only read, or nothing.
import {setAttributes} from './dom';
import {Gesture, Kind} from './numbers';

export const enum Use {
  Full,
  /** Read-only: look, copy, turn pages, move in lists and scroll. */
  Reading,
  None,
}

export class Gate {
  use = Use.Full;
  #isHosts = false;

  /** Runs a call of the host, whose gestures are taken whatever the person may do. */
  byHost(act: () => void): void {
    this.#isHosts = true;
    try {
      act();
    } finally {
      this.#isHosts = false;
    }
  }
  get isHosts(): boolean {
    return this.#isHosts;
  }

  /** Whether a gesture is taken; without one, whether anything may be changed. */
  lets(gesture?: Gesture): boolean {
    if (this.use === Use.Full || this.#isHosts) return true;
    const isLook =
      gesture === Gesture.Focus || gesture === Gesture.Tab || gesture === Gesture.Scroll;
    return this.use === Use.Reading && isLook;
  }

  /** Shows on the node that takes a control's focus whether the control is read-only. */
  mark(node: HTMLElement, kind: Kind): void {
    const isReading = this.use === Use.Reading;
    const isForLooking = kind === Kind.TabStrip || kind === Kind.ScrollBar;
    node.part.toggle('readonly', isReading && !isForLooking);
    if (node instanceof HTMLTextAreaElement) node.readOnly = isReading;
    else if (node instanceof HTMLInputElement && node.type === 'text') node.readOnly = isReading;
    else if (kind === Kind.ListBox || kind === Kind.ComboBox)
      setAttributes(node, {'aria-readonly': isReading ? 'true' : false});
    else if (kind === Kind.Button || kind === Kind.OptionButton)
      setAttributes(node, {'aria-disabled': isReading ? 'true' : false});
  }
}
