// Brings the packages of all tool chains to where applications are built, from their lock, unless
// they are there; and the package of the element, which is always taken anew.
//   node tests/web/matrix/install.mjs
import {copyFileSync, existsSync, mkdirSync, readFileSync} from 'node:fs';
import path from 'node:path';

import {installPackage, kMatrix, kWorkshop, run} from './workshop.mjs';

const kLock = 'package-lock.json';
const lock = path.join(kMatrix, kLock);
const installed = path.join(kWorkshop, 'node_modules/installed.json');
const isThere = existsSync(installed) && readFileSync(lock).equals(readFileSync(installed));
if (!isThere) {
  mkdirSync(kWorkshop, {recursive: true});
  for (const file of ['package.json', kLock])
    copyFileSync(path.join(kMatrix, file), path.join(kWorkshop, file));
  // Tool chains bring their programs as packages, one for each system, and none needs a script of
  // its own to be installed. `npm ci` would insist on those for all systems, which not every
  // registry has; everything else comes as the lock says, here too.
  const quietly = ['--ignore-scripts', '--no-audit', '--no-fund', '--loglevel=error'];
  await run(kWorkshop, ['npm', 'install', '--no-save', ...quietly]);
  copyFileSync(lock, installed);
}
await installPackage();
