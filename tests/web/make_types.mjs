// Writes the types of the package by the list of the contract, without building the module: for the
// check of types. package.test.mjs holds the package against them.
//   node make_types.mjs FILE
import {copyFileSync, mkdirSync, writeFileSync} from 'node:fs';
import path from 'node:path';

import {typesOf} from '../../faces/web/package/types.mjs';
import {kEvents, kMembers} from './form.mjs';
import {kRoot} from './places.mjs';

const [file] = process.argv.slice(2);
mkdirSync(path.dirname(file), {recursive: true});
writeFileSync(file, typesOf({members: kMembers, events: kEvents}, kRoot));
// The others are written by hand.
for (const name of ['zolt20-language.d.ts', 'zolt21-synt-text-box.d.ts'])
  copyFileSync(path.join(kRoot, 'faces/web/package', name), path.join(path.dirname(file), name));
