// Makes what Orca said in the two faces the approved words: a line for both where they agree, a line
// for each where they do not.
//
//   node tests/orca/approve.mjs QT_FOLDER WEB_FOLDER
import {mkdirSync, readdirSync, readFileSync, writeFileSync} from 'node:fs';
import path from 'node:path';

import {kRoot} from '../web/places.mjs';

const [qt, web] = process.argv.slice(2).map(String);
const approved = path.join(kRoot, 'tests/orca/approved');
mkdirSync(approved, {recursive: true});
for (const file of readdirSync(qt)) {
  const linesIn = (/** @type {string} */ folder) =>
    readFileSync(path.join(folder, file), 'utf8').trimEnd().split('\n');
  const [ofQt, ofWeb] = [linesIn(qt), linesIn(web)];
  if (ofQt.length !== ofWeb.length) throw new Error(`${file}: the faces made other gestures`);
  const lines = ofQt.flatMap((line, at) =>
    line === ofWeb[at] ? [line] : [`qt| ${line}`, `web| ${ofWeb[at]}`],
  );
  writeFileSync(path.join(approved, file), `${lines.join('\n')}\n`);
}
