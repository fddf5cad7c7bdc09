// The tab strip: one row of tabs, which scrolls sideways where it is too long.
import {make, setAttributes} from './dom';
import type {Face} from './face';
import type {Address} from './logic';
import {Ask, Gesture} from './numbers';
import type {View} from './views';

const kPages = 7;

export class TabStripView implements View {
  readonly node = make('div', {role: 'tablist', part: 'tabs', class: 'tabs'});
  readonly #face: Face;
  readonly #control: Address;
  readonly #tabs: HTMLButtonElement[];

  constructor(face: Face, control: Address) {
    this.#face = face;
    this.#control = control;
    this.#tabs = Array.from({length: kPages}, (_, page) => this.#makeTab(page));
    this.node.append(...this.#tabs);
    this.node.addEventListener('keydown', (event) => this.#key(event));
    this.node.addEventListener('wheel', (event) => this.#wheel(event), {passive: false});
    this.node.addEventListener('scroll', () => this.#showMore(), {passive: true});
    new ResizeObserver(() => this.#bringIntoSight()).observe(this.node);
  }
  #makeTab(page: number): HTMLButtonElement {
    const tab = make(
      'button',
      {
        type: 'button',
        role: 'tab',
        part: 'tab',
        id: `page${page}.tab`,
        'data-page': page,
        'aria-controls': `page${page}`,
      },
      this.#face.logic.pageCaption(page),
    );
    tab.addEventListener('click', () => this.#face.gesture(Gesture.Tab, this.#control, page));
    return tab;
  }

  get #active(): number {
    return this.#face.logic.number(this.#control, Ask.Value);
  }
  get focus(): HTMLElement {
    return this.#tabs[this.#active]!;
  }
  show(): void {
    const active = this.#active;
    this.#tabs.forEach((tab, page) => {
      setAttributes(tab, {
        'aria-selected': String(page === active),
        tabindex: page === active ? 0 : -1,
      });
      tab.part.toggle('active', page === active);
    });
    this.#face.showPage(active);
    this.#bringIntoSight();
  }
  restorePlace(): void {
    this.#bringIntoSight();
  }

  // Scrolling.

  // Scrolls so that the active tab is visible, and some of the tabs beside it.
  #bringIntoSight(): void {
    const strip = this.node.getBoundingClientRect();
    const tab = this.focus.getBoundingClientRect();
    const beside = Math.min(48, Math.max(0, strip.width - tab.width) / 2);
    if (tab.left - beside < strip.left) this.node.scrollLeft += tab.left - beside - strip.left;
    else if (tab.right + beside > strip.right)
      this.node.scrollLeft += tab.right + beside - strip.right;
    this.#showMore();
  }
  // Fades out an end of the strip that hides tabs. Right to left, scrollLeft runs from 0 down.
  #showMore(): void {
    const {scrollLeft, scrollWidth, clientWidth} = this.node;
    const most = scrollWidth - clientWidth;
    const isRightToLeft = getComputedStyle(this.node).direction === 'rtl';
    const left = isRightToLeft ? most + scrollLeft : scrollLeft;
    this.node.classList.toggle('more-left', left > 1);
    this.node.classList.toggle('more-right', left < most - 1);
  }
  // A vertical wheel scrolls the strip sideways, and the page when the strip is at its end.
  #wheel(event: WheelEvent): void {
    if (event.deltaX !== 0 || event.ctrlKey || event.shiftKey) return;
    const before = this.node.scrollLeft;
    this.node.scrollLeft += event.deltaY;
    if (this.node.scrollLeft !== before) event.preventDefault();
  }

  #key(event: KeyboardEvent): void {
    if (event.ctrlKey || event.altKey || event.metaKey) return;
    const isRightToLeft = getComputedStyle(this.node).direction === 'rtl';
    const page = this.#active;
    const pages: Record<string, number> = {
      ArrowRight: page + (isRightToLeft ? -1 : 1),
      ArrowLeft: page + (isRightToLeft ? 1 : -1),
      Home: 0,
      End: kPages - 1,
    };
    const wanted = pages[event.key];
    if (wanted === undefined) return;
    event.preventDefault();
    this.#face.gesture(Gesture.Tab, this.#control, (wanted + kPages) % kPages);
  }
}
