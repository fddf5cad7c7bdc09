// The least that an element can be.
customElements.define(
  'zolt20-empty',
  class extends HTMLElement {
    constructor() {
      super();
      this.attachShadow({mode: 'open'});
    }
  },
);

export {};
