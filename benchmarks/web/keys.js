// A key in a long text: from the key to the frame after, in milliseconds.

/**
 * @typedef {object} Shown A box that shows a text.
 * @property {(place: number) => void} caretAt
 * @property {() => string} text
 * @property {() => number} linesRead How many lines of the text a screen reader gets.
 */

/** @type {Shown} */
let shown;
/** @type {Promise<number>} */
let key;

const nextFrame = () => new Promise((done) => requestAnimationFrame(() => setTimeout(done)));

/** @type {(letters: number) => string} */
function textOf(letters) {
  let text = '';
  for (let line = 1; text.length < letters; ++line)
    text += `select sum(A.B) from A where A.C > ${String(line).padStart(5, '0')}\n`;
  return text.slice(0, letters);
}

/** @type {(source: string, name: string, letters: number) => Promise<void>} */
export async function show(source, name, letters) {
  const boxes = await import(source);
  const place = document.body.appendChild(document.createElement('div'));
  Object.assign(place.style, {width: '71rem', height: '22rem'});
  shown = boxes[name](place, textOf(letters));
  await nextFrame();
}

/** @type {(part: number) => Promise<void>} */
export async function caretAt(part) {
  shown.caretAt(Math.floor(part * shown.text().length));
  await nextFrame();
}

/** Waits for a key, which is pressed once this has returned. */
export function awaitKey() {
  key = new Promise((done) => {
    addEventListener(
      'keydown',
      ({timeStamp}) =>
        addEventListener(
          'keypress',
          async () => {
            await nextFrame();
            done(performance.now() - timeStamp);
          },
          {capture: true, once: true},
        ),
      {capture: true, once: true},
    );
  });
}
export const keyTime = () => key;
export const linesRead = () => shown.linesRead();
