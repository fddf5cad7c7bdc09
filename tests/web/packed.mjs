// The package as others install it: packed by npm, unpacked into a folder, beside the packages of
// the tests.
import assert from 'node:assert/strict';
import {spawnSync} from 'node:child_process';
import {mkdirSync, mkdtempSync, readdirSync, rmSync, symlinkSync, writeFileSync} from 'node:fs';
import {tmpdir} from 'node:os';
import path from 'node:path';

import {kModules, kPackage, require} from './places.mjs';

/** @type {(folder: string, program: string, ...given: string[]) => string} */
function run(folder, program, ...given) {
  const {stdout, stderr, status} = spawnSync(program, given, {cwd: folder, encoding: 'utf8'});
  assert.equal(status, 0, stderr + stdout);
  return stdout;
}

/// A folder of somebody who has installed the package, until it is removed.
export class Site {
  /// The packages of the tests that stand beside it, by their names.
  /** @param {string[]} others */
  constructor(...others) {
    this.folder = mkdtempSync(path.join(tmpdir(), 'zolt20-'));
    const packed = ['--pack-destination', this.folder, '--silent', '--ignore-scripts'];
    run(kPackage, 'npm', 'pack', ...packed);
    const [archive] = readdirSync(this.folder);
    this.package = path.join(this.folder, 'node_modules', 'zolt20-map-control');
    mkdirSync(this.package, {recursive: true});
    run(this.folder, 'tar', 'xzf', archive, '-C', this.package, '--strip-components=1');
    for (const name of others)
      symlinkSync(
        path.join(kModules, 'node_modules', name),
        path.join(this.folder, 'node_modules', name),
      );
  }

  /// What Node prints of a script, which may complain of nothing.
  /** @type {(kind: 'module' | 'commonjs', script: string) => string} */
  node(kind, script) {
    return run(this.folder, process.execPath, `--input-type=${kind}`, '-e', script).trim();
  }
  /// What the compiler says of files, by their names, in a project of these settings.
  /** @type {(options: object, texts: Record<string, string>) => string[]} */
  complaintsOfTypes(options, texts) {
    const files = Object.keys(texts);
    for (const file of files) writeFileSync(path.join(this.folder, file), texts[file]);
    const compilerOptions = {
      strict: true,
      noEmit: true,
      target: 'es2022',
      lib: ['es2022', 'dom', 'dom.iterable'],
      types: [],
      exactOptionalPropertyTypes: true,
      skipLibCheck: false,
      jsx: 'react-jsx',
      ...options,
    };
    const project = JSON.stringify({compilerOptions, files});
    writeFileSync(path.join(this.folder, 'tsconfig.json'), project);
    const compiler = require.resolve('typescript/bin/tsc');
    const {stdout} = spawnSync(process.execPath, [compiler, '-p', '.'], {
      cwd: this.folder,
      encoding: 'utf8',
    });
    return stdout.split('\n').filter((line) => /error TS\d+:/.test(line) && !line.startsWith(' '));
  }

  remove() {
    rmSync(this.folder, {recursive: true});
  }
}
