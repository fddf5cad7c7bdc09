// What a call of the logic ended with.
import {type Logic, ZOLT20Error} from './logic';
import {Status} from './numbers';

/** What a call that ended so is to be told as, if anything. */
export function errorOf(logic: Logic, handle: number, status: Status): Error | undefined {
  if (status === Status.RuntimeError) return logic.error(handle);
  if (status === Status.Failed) return new ZOLT20Error('memory', 0, 'out of memory');
  return undefined;
}
