// What a page complains of, for an engine whose driver does not tell: see engines/webkit.mjs. It is
// the first script of its page.
/** @type {string[]} */
const complained = [];
globalThis.complaints = complained;
for (const kind of /** @type {const} */ (['error', 'warn'])) {
  const say = console[kind];
  console[kind] = (...words) => {
    complained.push(`console: ${words.join(' ')}`);
    say.apply(console, words);
  };
}
addEventListener('error', ({message}) => complained.push(`error: ${message}`));
addEventListener('unhandledrejection', ({reason}) => complained.push(`error: ${reason}`));
document.addEventListener('securitypolicyviolation', ({violatedDirective, blockedURI, sample}) => {
  // The browser looks for an icon by itself.
  if (!blockedURI.endsWith('/favicon.ico'))
    complained.push(`${violatedDirective} ${blockedURI} ${sample}`);
});
