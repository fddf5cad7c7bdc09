// A small server of files for pages with the browser element: for its tests, its example and for
// trying things out. It serves to this machine alone, under a policy by which a page may run its
// own scripts and WebAssembly, and nothing else.
//   node scripts/serve.mjs PORT DIRECTORY[=/MOUNT] ...
// PORT 0 takes any that is free. The address is printed when it can be used.
import {createReadStream} from 'node:fs';
import {realpath, stat} from 'node:fs/promises';
import {createServer} from 'node:http';
import path from 'node:path';
import {pathToFileURL} from 'node:url';

export const kPolicy =
  "default-src 'none'; script-src 'self' 'wasm-unsafe-eval'; style-src 'self'; connect-src 'self'";

/** @type {Readonly<Record<string, string>>} */
const kTypes = {
  '.css': 'text/css; charset=utf-8',
  '.html': 'text/html; charset=utf-8',
  '.js': 'text/javascript; charset=utf-8',
  '.json': 'application/json; charset=utf-8',
  '.jsonl': 'text/plain; charset=utf-8',
  '.map': 'application/json; charset=utf-8',
  '.mjs': 'text/javascript; charset=utf-8',
  '.svg': 'image/svg+xml',
  '.ts': 'text/plain; charset=utf-8',
  '.txt': 'text/plain; charset=utf-8',
  '.wasm': 'application/wasm',
};

/** @type {(file: string, folder: string) => boolean} */
const isWithin = (file, folder) => file === folder || file.startsWith(folder + path.sep);

// The file that an address stands for; nothing when it stands for none, or for one outside of the
// folders.
/**
 * @type {(address: string, mounts: {prefix: string, folder: string}[]) =>
 *   Promise<string | undefined>}
 */
async function fileOf(address, mounts) {
  let name;
  try {
    name = decodeURIComponent(new URL(address, 'http://localhost').pathname);
  } catch {
    return undefined;
  }
  if (name.includes('\0') || name.includes('\\')) return undefined;
  const mount = mounts.find(({prefix}) => name.startsWith(prefix));
  if (mount === undefined) return undefined;
  let file = path.join(mount.folder, name.slice(mount.prefix.length));
  if (name.endsWith('/')) file = path.join(file, 'index.html');
  try {
    // A link may lead elsewhere, so the real place counts.
    file = await realpath(file);
    return isWithin(file, await realpath(mount.folder)) && (await stat(file)).isFile()
      ? file
      : undefined;
  } catch {
    return undefined;
  }
}

/// Serves folders by the mounts of `root`, the longest that fits an address: for instance
/// {'/package/': 'build/web/package', '/': 'examples/web'}. Gives the address, and what ends it.
/**
 * @type {(where: {root: Record<string, string>, port?: number}) =>
 *   Promise<{address: string, close: () => Promise<void>}>}
 */
export async function serve({root, port = 0}) {
  const mounts = Object.entries(root)
    .map(([prefix, folder]) => ({
      prefix: prefix.endsWith('/') ? prefix : `${prefix}/`,
      folder: path.resolve(folder),
    }))
    .sort((one, other) => other.prefix.length - one.prefix.length);
  for (const {prefix, folder} of mounts) {
    const isFolder = await stat(folder).then(
      (found) => found.isDirectory(),
      () => false,
    );
    if (!isFolder) throw new Error(`there is no folder ${folder} to serve at ${prefix}`);
  }
  const server = createServer(async (request, response) => {
    const headers = {
      'Cache-Control': 'no-store',
      'Content-Security-Policy': kPolicy,
      'X-Content-Type-Options': 'nosniff',
    };
    /** @type {(status: number, why: string) => void} */
    const refuse = (status, why) => {
      response.writeHead(status, {...headers, 'Content-Type': 'text/plain; charset=utf-8'});
      response.end(`${why}\n`);
    };
    if (request.method !== 'GET' && request.method !== 'HEAD')
      return refuse(405, 'Files can only be read');
    const file = await fileOf(request.url ?? '', mounts);
    if (file === undefined) return refuse(404, 'There is no such file');
    const type = kTypes[path.extname(file)] ?? 'application/octet-stream';
    response.writeHead(200, {
      ...headers,
      'Content-Type': type,
      'Content-Length': (await stat(file)).size,
    });
    if (request.method === 'HEAD') return response.end();
    createReadStream(file)
      .on('error', () => response.destroy())
      .pipe(response);
  });
  await new Promise((/** @type {(value?: unknown) => void} */ resolve, reject) => {
    server.once('error', (error) => {
      const taken = 'code' in error && error.code === 'EADDRINUSE';
      reject(taken ? new Error(`the port ${port} is taken by another program`) : error);
    });
    server.listen(port, '127.0.0.1', resolve);
  });
  return {
    address: `http://127.0.0.1:${/** @type {import('node:net').AddressInfo} */ (server.address()).port}`,
    close: () =>
      new Promise((/** @type {() => void} */ resolve) => {
        server.close(() => resolve());
        server.closeAllConnections?.();
      }),
  };
}

/** @type {(words: string[]) => Promise<void>} */
async function main(words) {
  const port = Number(words[0]);
  const isNumber = words.length > 0 && /^\d+$/.test(words[0]) && port <= 65535;
  if (!isNumber || words.length < 2) {
    throw new Error('usage: node scripts/serve.mjs PORT DIRECTORY[=/MOUNT] ...');
  }
  /** @type {Record<string, string>} */
  const root = {};
  for (const word of words.slice(1)) {
    const [, folder, mount] = /^(.*?)(?:=(\/.*))?$/.exec(word) ?? [word, word];
    root[mount ?? '/'] = folder;
  }
  console.log(`${(await serve({root, port})).address}/`);
}

if (process.argv[1] !== undefined && import.meta.url === pathToFileURL(process.argv[1]).href) {
  main(process.argv.slice(2)).catch((error) => {
    console.error(`serve: ${error.message}`);
    process.exitCode = 2;
  });
}
