// Where things stand. CTest says it by the environment; otherwise everything is where the presets
// leave it.
import {createRequire} from 'node:module';
import path from 'node:path';
import {fileURLToPath} from 'node:url';

export const kTests = path.dirname(fileURLToPath(import.meta.url));
export const kRoot = process.env.ZOLT20_ROOT ?? path.resolve(kTests, '../..');
export const kPackage = process.env.ZOLT20_PACKAGE ?? path.join(kRoot, 'build/web/package');
export const kHost = process.env.ZOLT20_HOST ?? path.join(kRoot, 'build/release/hosts/zolt20-host');
export const kPeople =
  process.env.ZOLT20_PEOPLE ?? path.join(kRoot, 'build/release/tests/zolt20-people');
export const kChromium = process.env.CHROMIUM ?? '/usr/bin/chromium';
export const kFirefox = process.env.FIREFOX ?? '/usr/bin/firefox-esr';
export const kWebKitDriver = process.env.WEBKIT_DRIVER ?? '/usr/bin/WebKitWebDriver';
export const kEngine = process.env.ZOLT20_ENGINE ?? 'chromium';

/// The packages of the registry are installed in the build tree, beside a copy of their list.
export const kModules = process.env.ZOLT20_MODULES ?? path.join(kRoot, 'build/web/tests/web');

export const require = createRequire(path.join(kModules, 'package.json'));
