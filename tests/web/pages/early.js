// A script that runs before the element is defined. What it writes is kept by the plain nodes until
// then, in this order.
const kTables = 'TABLE__11,TABLE__21';
const kFields = 'char*Q*V*R*N*NTABLE__1.A*Q*V*R*N*text';
const kHeard = ['propertychanged', 'eventCancel'];

globalThis.early = {
  log: /** @type {string[]} */ ([]),
  wasDefined: customElements.get('zolt20-map-control') !== undefined,
};
for (const name of kHeard) {
  document.addEventListener(name, (event) =>
    early.log.push(
      `${/** @type {Element} */ (event.target).id} ${event instanceof CustomEvent ? event.detail.name : name}`,
    ),
  );
}
Object.assign(document.getElementById('tables-first'), {
  PrpStrTables: kTables,
  PrpStrFields: kFields,
  prpSelectFromPart: 'TABLE__1,',
  prpintTabcount: 2,
  undoEnabled: false,
});
Object.assign(document.getElementById('tables-last'), {
  prpSelectFromPart: 'TABLE__1,',
  PrpStrFields: kFields,
  PrpStrTables: kTables,
  prpTab: 6,
});
