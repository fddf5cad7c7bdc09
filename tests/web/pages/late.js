// The element is defined when the test asks for it, which then hears by how much what stands behind
// the element moved.
let shift = 0;
new PerformanceObserver((list) => {
  for (const entry of list.getEntries())
    shift += /** @type {PerformanceEntry & {value: number}} */ (entry).value;
}).observe({type: 'layout-shift', buffered: true});

/** @type {() => Promise<unknown>} */
const frame = () => new Promise((done) => requestAnimationFrame(done));
const height = () => document.querySelector('zolt20-map-control').offsetHeight;

globalThis.define = async () => {
  for (let frames = 0; frames < 3; ++frames) await frame();
  const before = height();
  await import('/package/zolt20-map-control.js');
  for (let frames = 0; frames < 6; ++frames) await frame();
  return {before, after: height(), shift};
};
