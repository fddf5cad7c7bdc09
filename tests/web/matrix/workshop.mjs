// Where applications with the package are built: a folder for each in the build tree, with the
// package installed as users do it, and below the folder of all tool chains. And running these.
import {execFile, spawn} from 'node:child_process';
import {cpSync, mkdirSync, readdirSync, readFileSync, rmSync, writeFileSync} from 'node:fs';
import path from 'node:path';
import {promisify} from 'node:util';

import {kPackage, kRoot, kTests} from '../places.mjs';

export const kMatrix = path.join(kTests, 'matrix');
export const kWorkshop = process.env.ZOLT20_WORKSHOP ?? path.join(kRoot, 'build/web/matrix');
/// How the package gets into an application: as the archive that `npm pack` makes, or as a link to
/// its folder.
export const kWays = ['archive', 'link'];

const kPatience = 300000;
/** @type {NodeJS.ProcessEnv} */
const kEnvironment = {
  ...process.env,
  NO_COLOR: '1',
  FORCE_COLOR: '0',
  BROWSERSLIST_IGNORE_OLD_DATA: '1',
};
delete kEnvironment.NODE_TEST_CONTEXT;

/** @type {(file: string) => any} */
export const jsonOf = (file) => JSON.parse(readFileSync(file, 'utf8'));
/** @type {(name: string) => any} */
const listOf = (name) => jsonOf(path.join(kWorkshop, 'node_modules', name, 'package.json'));
/// The version of a package that is installed.
/** @type {(name: string) => string} */
export const versionOf = (name) => listOf(name).version;

/// Why a package does not run on this Node, by the versions that it names; false when it does.
/** @type {(name: string) => string | false} */
export function needsOtherNode(name) {
  const asked = listOf(name).engines?.node ?? '*';
  const [major, minor] = process.versions.node.split('.').map(Number);
  const fits = asked.split('||').some((/** @type {string} */ range) => {
    const [, sign, from, behind] = /^\s*(\^|>=|)\s*(\*|\d+)(?:\.(\d+))?/.exec(range) ?? [];
    if (from === '*' || (sign === '>=' && major > Number(from))) return true;
    return major === Number(from) && minor >= Number(behind ?? 0);
  });
  return fits ? false : `it needs Node ${asked}`;
}

/// Runs a program with its words in a folder. What it printed; throws with that when it fails.
/** @type {(folder: string, line: string[]) => Promise<string>} */
export async function run(folder, [program, ...words]) {
  try {
    const {stdout, stderr} = await promisify(execFile)(program, words, {
      cwd: folder,
      env: kEnvironment,
      timeout: kPatience,
      maxBuffer: 1 << 26,
    });
    return stdout + stderr;
  } catch (error) {
    const {stdout, stderr} = /** @type {{stdout: string, stderr: string}} */ (error);
    throw new Error(`${path.basename(program)} ${words.join(' ')}\n${stdout}${stderr}`);
  }
}

/// The program of a tool that is installed, as a line for `run` and `startServer`.
/** @type {(name: string, ...words: string[]) => string[]} */
export function toolLine(name, ...words) {
  const {bin} = listOf(name);
  const file = typeof bin === 'string' ? bin : String(Object.values(bin)[0]);
  return [process.execPath, path.join(kWorkshop, 'node_modules', name, file), ...words];
}

/// Starts a program that serves pages. The address that it prints, and what ends it.
/**
 * @type {(folder: string, line: string[]) =>
 *   Promise<{address: string, close: () => Promise<void>}>}
 */
export async function startServer(folder, [program, ...words]) {
  const server = spawn(program, words, {
    cwd: folder,
    env: kEnvironment,
    stdio: ['ignore', 'pipe', 'pipe'],
  });
  const over = new Promise((done) => server.once('exit', done));
  const close = async () => {
    server.kill();
    await over;
  };
  let told = '';
  /** @type {string | undefined} */
  const address = await new Promise((done) => {
    for (const stream of [server.stdout, server.stderr])
      stream.on('data', (/** @type {Buffer} */ some) => {
        told += some;
        const found = /http:\/\/127\.0\.0\.1:\d+/.exec(told);
        if (found !== null) done(found[0]);
      });
    setTimeout(() => done(undefined), kPatience).unref();
    void over.then(() => done(undefined));
  });
  if (address !== undefined) return {address, close};
  await close();
  throw new Error(`${words.join(' ')} serves nothing:\n${told}`);
}

/// Installs the package in both ways, each in the folder `package` that applications are copied of.
export async function installPackage() {
  const applications = path.join(kWorkshop, 'applications');
  // What was seen before was seen of another package.
  for (const old of [applications, path.join(kWorkshop, 'results')])
    rmSync(old, {recursive: true, force: true});
  mkdirSync(applications, {recursive: true});
  await run(applications, ['npm', 'pack', '--silent', kPackage]);
  const [archive] = readdirSync(applications).map((file) => path.join(applications, file));
  for (const [way, what] of [
    ['archive', archive],
    ['link', kPackage],
  ]) {
    const folder = path.join(applications, way, 'package');
    mkdirSync(folder, {recursive: true});
    writeFileSync(path.join(folder, 'package.json'), '{"private": true, "type": "module"}\n');
    await run(folder, ['npm', 'install', '--loglevel=error', what]);
  }
}

/// A new application: the package in one of the ways, with the folders of the matrix over it.
/** @type {(name: string, way: string, folders: string[]) => string} */
export function makeApplication(name, way, folders) {
  const applications = path.join(kWorkshop, 'applications', way);
  const folder = path.join(applications, name);
  rmSync(folder, {recursive: true, force: true});
  // A link in it is relative, and leads to the same place from here.
  cpSync(path.join(applications, 'package'), folder, {recursive: true, verbatimSymlinks: true});
  for (const each of folders) cpSync(path.join(kMatrix, each), folder, {recursive: true});
  return folder;
}
