// Values of the contract's types, as a page writes them.
import {ValueType} from './numbers';

/** The value as the logic takes it. Throws a TypeError for one of another type. */
export function checked(value: unknown, type: ValueType, name: string): string | number {
  switch (type) {
    case ValueType.String:
      if (typeof value === 'string') return value;
      throw new TypeError(`${name} takes a string`);
    case ValueType.Integer: {
      if (typeof value !== 'number' || !Number.isInteger(value))
        throw new TypeError(`${name} takes a whole number`);
      // A number that does not fit 32 bits is passed on as one that does not fit 16, so the control
      // raises overflow.
      const kOutside = 0x10000;
      return Math.max(-kOutside, Math.min(value, kOutside));
    }
    default:
      if (typeof value === 'boolean') return Number(value);
      throw new TypeError(`${name} takes true or false`);
  }
}

/** Whether a page that writes this value wants to leave the property as it is. */
export function isNothing(value: unknown): value is undefined | null {
  return value === undefined || value === null;
}
