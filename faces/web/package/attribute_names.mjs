// The attributes' names, which are made from the names of the contract's members.

// What the rule would cut in the wrong place.
/** @type {Readonly<Record<string, string>>} */
const kOtherwise = {prpParentorChild: 'parent-or-child'};

/// A member's name without its prefix, in kebab case: PrpStrTables is "tables".
/** @type {(member: string) => string} */
export function attributeOf(member) {
  return (
    kOtherwise[member] ??
    member
      .replace(/^prp(str|int)?/i, '')
      .replaceAll('_', '-')
      .replace(/([a-z\d])([A-Z])/g, '$1-$2')
      .replace(/([A-Z])([A-Z][a-z])/g, '$1-$2')
      .toLowerCase()
  );
}
