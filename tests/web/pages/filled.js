// A script that runs before the element is defined, and hears what its elements are filled with.
globalThis.early = {
  log: /** @type {string[]} */ ([]),
  wasDefined: customElements.get('zolt20-map-control') !== undefined,
};
for (const name of ['propertychanged', 'failed']) {
  document.addEventListener(name, (event) => {
    const {detail, target} = /** @type {CustomEvent} */ (event);
    early.log.push(`${/** @type {Element} */ (target).id} ${detail.name ?? detail.message}`);
  });
}
