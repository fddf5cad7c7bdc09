// The server of pages: what it serves, as what, and what it keeps to itself.
import assert from 'node:assert/strict';
import {spawn, spawnSync} from 'node:child_process';
import {mkdirSync, mkdtempSync, rmSync, symlinkSync, writeFileSync} from 'node:fs';
import {request} from 'node:http';
import {tmpdir} from 'node:os';
import path from 'node:path';
import {after, before, describe, test} from 'node:test';

import {kPolicy, serve} from '../../scripts/serve.mjs';
import {kRoot} from './places.mjs';

/** @import {IncomingHttpHeaders} from 'node:http' */

const kScript = path.join(kRoot, 'scripts/serve.mjs');

describe('the server', () => {
  /** @type {string} */
  let folder;
  /** @type {Awaited<ReturnType<typeof serve>>} */
  let server;
  before(async () => {
    folder = mkdtempSync(path.join(tmpdir(), 'zolt20-'));
    for (const name of ['site', 'site/inner', 'package', 'siteways'])
      mkdirSync(path.join(folder, name));
    const files = {
      'site/index.html': '<p>index</p>',
      'site/inner/index.html': '<p>inner</p>',
      'site/a b.js': '1',
      'package/m.wasm': '\0asm',
      'package/x.css': 'p {}',
      'secret.txt': 'secret',
      'siteways/secret.txt': 'secret',
    };
    for (const [name, text] of Object.entries(files)) writeFileSync(path.join(folder, name), text);
    symlinkSync(path.join(folder, 'secret.txt'), path.join(folder, 'site/link.txt'));
    server = await serve({
      root: {'/package/': path.join(folder, 'package'), '/': path.join(folder, 'site')},
    });
  });
  after(async () => {
    await server?.close();
    rmSync(folder, {recursive: true});
  });

  // The path goes out as it is written here, which fetch would tidy up.
  /**
   * @type {(address: string, method?: string) =>
   *   Promise<{status: number | undefined, headers: IncomingHttpHeaders, text: string}>}
   */
  const get = (address, method = 'GET') =>
    new Promise((resolve, reject) => {
      const {hostname, port} = new URL(server.address);
      request({hostname, port, path: address, method}, (response) => {
        let text = '';
        response
          .on('data', (piece) => (text += piece))
          .on('end', () => resolve({status: response.statusCode, headers: response.headers, text}));
      })
        .on('error', reject)
        .end();
    });

  test('serves files under their mounts, with their types and the policy', async () => {
    const kServed = {
      '/': ['text/html; charset=utf-8', '<p>index</p>'],
      '/index.html?query': ['text/html; charset=utf-8', '<p>index</p>'],
      '/inner/': ['text/html; charset=utf-8', '<p>inner</p>'],
      '/a%20b.js': ['text/javascript; charset=utf-8', '1'],
      '/package/m.wasm': ['application/wasm', '\0asm'],
      '/package/x.css': ['text/css; charset=utf-8', 'p {}'],
    };
    for (const [address, [type, text]] of Object.entries(kServed)) {
      const came = await get(address);
      assert.deepEqual(
        [came.status, came.headers['content-type'], came.text],
        [200, type, text],
        address,
      );
      assert.equal(came.headers['content-security-policy'], kPolicy);
    }
    const head = await get('/', 'HEAD');
    assert.deepEqual([head.status, head.text], [200, '']);
  });

  test('serves nothing outside of its folders', async () => {
    const kRefused = [
      '/../secret.txt',
      '/%2e%2e/secret.txt',
      '/..%2fsecret.txt',
      '/inner/../../secret.txt',
      '/package/../../secret.txt',
      '/..\\secret.txt',
      '/%5c..%5csecret.txt',
      '/link.txt',
      '/../siteways/secret.txt',
      '/%00',
      '/%ff',
      '/none',
      '/inner',
      `/${path.join(folder, 'secret.txt')}`,
    ];
    for (const address of kRefused) {
      const {status, text} = await get(address);
      assert.equal(status, 404, address);
      assert.ok(!text.includes('secret'), address);
    }
    assert.equal((await get('/', 'POST')).status, 405);
    await assert.rejects(serve({root: {'/': path.join(folder, 'none')}}), /there is no folder/);
  });

  test('says so when its port is taken', async () => {
    const {port} = new URL(server.address);
    await assert.rejects(
      serve({root: {'/': folder}, port: Number(port)}),
      new RegExp(`the port ${port} is taken`),
    );
    const {stderr, status} = spawnSync(process.execPath, [kScript, port, folder], {
      encoding: 'utf8',
    });
    assert.equal(status, 2);
    assert.match(stderr, /^serve: the port \d+ is taken/);
  });

  test('is a command as well', async () => {
    for (const words of [
      [],
      ['0'],
      ['x', folder],
      ['70000', folder],
      ['0', path.join(folder, 'none')],
    ]) {
      const {stderr, status} = spawnSync(process.execPath, [kScript, ...words], {encoding: 'utf8'});
      assert.equal(status, 2);
      assert.match(stderr, /^serve: /);
    }
    const command = spawn(process.execPath, [
      kScript,
      '0',
      path.join(folder, 'site'),
      `${path.join(folder, 'package')}=/package`,
    ]);
    try {
      const address = await new Promise((resolve) =>
        command.stdout.once('data', (text) => resolve(String(text).trim())),
      );
      assert.match(address, /^http:\/\/127\.0\.0\.1:\d+\/$/);
      assert.equal(await (await fetch(`${address}package/x.css`)).text(), 'p {}');
      assert.equal(await (await fetch(address)).text(), '<p>index</p>');
    } finally {
      command.kill();
    }
  });
});
