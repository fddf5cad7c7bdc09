// From the status of a call of the logic to the error that a page hears of.
import {type Logic, ZOLT20Error} from './logic';
import {Status} from './numbers';

/** The error to throw or report for a status; undefined when the call did not fail. */
export function errorOf(logic: Logic, handle: number, status: Status): Error | undefined {
  if (status === Status.RuntimeError) return logic.error(handle);
  if (status === Status.Failed) return new ZOLT20Error('memory', 0, 'out of memory');
  return undefined;
}
