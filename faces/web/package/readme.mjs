// Makes the package's README.md: fills members and events of the manifest into the template
// README.md.in.
import {attributeOf} from './attribute_names.mjs';

/** @import {Member} from './types.mjs' */

/**
 * @typedef {object} Told
 * @property {string} name
 * @property {string} [kind]
 * @property {string} [description]
 * @property {boolean} [static]
 */

/** @type {(text: string | undefined) => string} */
const cell = (text) => (text ?? '').replaceAll('|', '\\|');

/// The text of README.md, by the template, the contract's members and the manifest's class.
/**
 * @type {(template: string, version: string, contract: Member[],
 *   declared: {members: Told[], events: Told[]}) => string}
 */
export function readmeOf(template, version, contract, declared) {
  const written = new Set(contract.filter(({canSet}) => canSet).map(({name}) => name));
  const members = declared.members
    .filter((member) => !member.static)
    .map(({name, kind, description}) => {
      const attribute = written.has(name) ? `\`${attributeOf(name)}\`` : '';
      return `| \`${name}${kind === 'method' ? '()' : ''}\` | ${attribute} | ${cell(description)} |`;
    });
  const events = declared.events.map(
    ({name, description}) => `| \`${name}\` | ${cell(description)} |`,
  );
  return template
    .replaceAll('@VERSION@', version)
    .replace('@MEMBERS@', () => members.join('\n'))
    .replace('@EVENTS@', () => events.join('\n'));
}
