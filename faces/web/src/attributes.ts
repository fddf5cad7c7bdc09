// The attributes of the element: one for each member of the contract that can be written, so that
// plain HTML fills the control. Their names are made from the members' by one rule.
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

// The order in which a host calls, since later members read what earlier ones left. Members that
// do not stand here come last.
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

/** All that attributes can write, in the calling order. */
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
 * What an attribute's text writes, undefined for nothing. `asProperty` when it has the property's
 * own name: a server wrote the value of a property, and so "false" for false.
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
