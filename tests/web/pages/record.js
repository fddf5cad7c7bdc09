// The record of what was done to the element, as lines of the automation host: what its host asked
// for, and what it told of the person. What is undone is taken out.

/**
 * @typedef {Record<string, unknown>} Line
 */

/// From now on, for the host of the page.
function keepRecord() {
  globalThis.record = [];
  // Undo and redo come back to a state that was there: the record is the one that led to it.
  /** @type {Map<string, Line[]>} */
  const records = new Map();
  const state = () => JSON.stringify(host.element.dump());
  const keep = (/** @type {Line[]} */ ...lines) => {
    globalThis.record = [...record, ...lines];
    records.set(state(), record);
  };
  globalThis.carryOutForRecord = (request) => {
    host.carryOut(JSON.stringify(request));
    // An answer stands before the gesture that asks for it.
    if (request.answer === undefined) keep(request);
  };
  let raised = '';
  for (const name of ['eventCancel', 'eventDone', 'eventSubQuery', 'eventCondition'])
    host.element.addEventListener(name, () => (raised = name));
  host.element.addEventListener('eventFunction', () => (raised = 'eventFunction'));
  host.element.addEventListener('gesturemade', () => {
    const answer = host.answers[raised];
    const gesture = /** @type {Line} */ (host.element.madeGesture());
    if (answer === undefined) keep(gesture);
    else keep({answer: raised, with: answer}, gesture);
    raised = '';
  });
  records.set(state(), record);
  for (const name of ['undone', 'redone']) {
    host.element.addEventListener(name, () => {
      const before = records.get(state());
      if (before === undefined) throw new Error(`${name} to a state that never was`);
      globalThis.record = before;
    });
  }
}
Object.assign(globalThis, {keepRecord});
