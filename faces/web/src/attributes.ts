// The attributes of the element: one for each writable member of the contract, so that plain HTML
// fills the control. One rule makes an attribute's name from the member's.
import {attributeOf} from '../package/attribute_names.mjs';
import type {Logic} from './logic';
import {ValueType} from './numbers';
import {checked} from './values';

/** A member that an attribute writes. */
export interface Fillable {
  attribute: string;
  /** The number of the member. */
  member: number;
  name: string;
  type: ValueType;
}

// The calling order, in which a host writes members: later members read what earlier ones wrote.
// Members that are not in this list come last.
const kCallingOrder = [
  'prpParentorChild',
  'PrpStrTables',
  'PrpStrFields',
  'prpSelectPart',
  'prpSelectFromPart',
  'prpSelectGroupbyPart',
  'prpSelectOrderbyPart',
  'prpSelectAsSetPart',
  'prpSelectWherePart',
  'prpSelectDoPart',
  'prpSelectEOSPart',
  'prpSelectEmptyPart',
  'prpSelectErrorPart',
  'prpStroutput',
  'prpTab',
  'prpintTabcount',
  'Syntax_Highlight',
];

/** All members that attributes write, in the calling order. */
export function fillablesOf(logic: Logic): Fillable[] {
  const kLet = 4;
  const found: Fillable[] = [];
  for (let member = 1; member <= logic.memberCount; ++member) {
    const traits = logic.memberTraits(member);
    if ((traits & kLet) === 0) continue;
    const name = logic.memberName(member);
    found.push({attribute: attributeOf(name), member, name, type: traits & 3});
  }
  const rank = ({name}: Fillable) => {
    const place = kCallingOrder.indexOf(name);
    return place < 0 ? kCallingOrder.length : place;
  };
  return found.sort((one, other) => rank(one) - rank(other));
}

/**
 * The value that an attribute's text writes, undefined for none. `asProperty` if the attribute has
 * the property's own name: a server wrote the property's value then, and "false" means false.
 */
export function valueFrom(
  text: string | null,
  {type, attribute}: Fillable,
  asProperty: boolean,
): string | number | undefined {
  if (type === ValueType.Boolean) return Number(text !== null && !(asProperty && text === 'false'));
  if (text === null) return undefined;
  if (type === ValueType.String) return text;
  const isWhole = /^\s*[-+]?\d+\s*$/.test(text);
  return checked(isWhole ? Number(text) : text, type, `The attribute ${attribute}`);
}
