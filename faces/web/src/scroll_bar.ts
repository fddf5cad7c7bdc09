// The scroll bar of the case rows.
import {icon, make, setAttributes} from './dom';
import type {Face} from './face';
import type {Address} from './logic';
import {Ask, Gesture} from './numbers';
import type {View} from './views';

export class ScrollBarView implements View {
  readonly node: HTMLElement;
  readonly #face: Face;
  readonly #control: Address;
  readonly #thumb = make('span', {class: 'thumb', part: 'thumb'});
  readonly #track = make('span', {class: 'track'}, this.#thumb);

  constructor(face: Face, control: Address) {
    this.#face = face;
    this.#control = control;
    this.node = make(
      'div',
      {
        role: 'scrollbar',
        class: 'scroll',
        part: 'scrollbar',
        tabindex: 0,
        'aria-orientation': 'vertical',
        'aria-controls': 'fracase',
        'aria-valuemin': 0,
      },
      make('span', {class: 'arrow', part: 'arrow', 'data-step': -1}, icon('M4 10l4-4 4 4')),
      this.#track,
      make('span', {class: 'arrow', part: 'arrow', 'data-step': 1}, icon('M4 6l4 4 4-4')),
    );
    this.node.addEventListener('click', (event) => this.#press(event));
    this.node.addEventListener('keydown', (event) => this.#key(event));
    this.#thumb.addEventListener('pointerdown', (event) => this.#drag(event));
  }

  get focus(): HTMLElement {
    return this.node;
  }
  show(): void {
    setAttributes(this.node, {'aria-valuenow': this.#value, 'aria-valuemax': this.#most});
    this.#showThumb(this.#value);
  }
  enable(enabled: boolean): void {
    setAttributes(this.node, {
      'aria-disabled': enabled ? false : 'true',
      tabindex: enabled ? 0 : false,
    });
    this.node.part.toggle('disabled', !enabled);
  }

  get #value(): number {
    return this.#face.logic.number(this.#control, Ask.Value);
  }
  get #most(): number {
    return this.#face.logic.number(this.#control, Ask.Max);
  }
  get #step(): number {
    return this.#face.logic.number(this.#control, Ask.SmallChange);
  }
  #goTo(wanted: number): void {
    const to = Math.max(0, Math.min(wanted, this.#most));
    if (to !== this.#value) this.#face.gesture(Gesture.Scroll, this.#control, to);
  }
  #showThumb(at: number): void {
    const rows = this.#most + 1;
    this.#thumb.style.height = `${100 / rows}%`;
    this.#thumb.style.top = `${(100 * at) / rows}%`;
  }

  #press(event: MouseEvent): void {
    const target = event.target as Element;
    const arrow = target.closest<HTMLElement>('[data-step]');
    if (arrow !== null) {
      this.#goTo(this.#value + this.#step * Number(arrow.dataset['step']));
    } else if (target === this.#track) {
      const isAbove = event.clientY < this.#thumb.getBoundingClientRect().top;
      this.#goTo(this.#value + (isAbove ? -this.#step : this.#step));
    }
  }
  // A drag is one gesture, made when the thumb is released.
  #drag(down: PointerEvent): void {
    if (down.button !== 0) return;
    const thumb = this.#thumb;
    const height = this.#track.getBoundingClientRect().height;
    const from = this.#value;
    let at = from;
    thumb.setPointerCapture(down.pointerId);
    const move = (event: PointerEvent) => {
      const by = ((event.clientY - down.clientY) / height) * (this.#most + 1);
      at = Math.round(Math.max(0, Math.min(from + by, this.#most)));
      this.#showThumb(at);
    };
    const end = (event: PointerEvent) => {
      thumb.removeEventListener('pointermove', move);
      thumb.removeEventListener('pointerup', end);
      thumb.removeEventListener('pointercancel', end);
      this.#showThumb(this.#value);
      if (event.type === 'pointerup') this.#goTo(at);
    };
    thumb.addEventListener('pointermove', move);
    thumb.addEventListener('pointerup', end);
    thumb.addEventListener('pointercancel', end);
  }
  #key(event: KeyboardEvent): void {
    const places: Record<string, number> = {
      ArrowUp: this.#value - this.#step,
      ArrowDown: this.#value + this.#step,
      PageUp: this.#value - this.#step,
      PageDown: this.#value + this.#step,
      Home: 0,
      End: this.#most,
    };
    const place = places[event.key];
    if (place === undefined || event.ctrlKey || event.altKey || event.metaKey) return;
    event.preventDefault();
    this.#goTo(place);
  }
}
