// Unpacks what gzip has packed, at once: the browser's own way of unpacking makes scripts wait.

const kLongestCode = 15;
// Symbols below this one are bytes, those above it are lengths of what is repeated.
const kEndOfBlock = 256;
const kLongestRepeat = 258;
// The lengths of the code of lengths come in this order.
const kOrder = [16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15];

/** A Huffman code: how many codes there are of each length, and the symbols by their codes. */
interface Code {
  counts: Uint16Array;
  symbols: Uint16Array;
  /** By the bits that come next: a symbol, and the length of its code, for codes that are short. */
  short: Uint16Array;
}
const kShort = 9;

/** The canonical code in which each symbol has a code of this length, or none with 0. */
function codeOf(lengths: number[]): Code {
  const counts = new Uint16Array(kLongestCode + 1);
  for (const length of lengths) ++counts[length]!;
  counts[0] = 0;
  // The first code of each length, and where the symbols of that length begin.
  const next = [0];
  const places = [0];
  for (let length = 1; length <= kLongestCode; ++length) {
    next[length] = (next[length - 1]! + counts[length - 1]!) << 1;
    places[length] = places[length - 1]! + counts[length - 1]!;
  }
  const symbols = new Uint16Array(lengths.length);
  const short = new Uint16Array(1 << kShort);
  for (let symbol = 0; symbol < lengths.length; ++symbol) {
    const length = lengths[symbol]!;
    if (length === 0) continue;
    symbols[places[length]!++] = symbol;
    const code = next[length]!++;
    if (length > kShort) continue;
    // Codes come from their highest bit on, all else from its lowest one.
    let turned = 0;
    for (let bit = 0; bit < length; ++bit) turned |= ((code >> bit) & 1) << (length - 1 - bit);
    for (; turned < short.length; turned += 1 << length) short[turned] = (symbol << 4) | length;
  }
  return {counts, symbols, short};
}

/** What the symbols of lengths, or of distances, stand for at least, by the bits that add to it. */
function leastOf(first: number, bits: number[]): number[] {
  let least = first;
  return bits.map((count) => {
    const here = least;
    least += 1 << count;
    return here;
  });
}
const kLengthBits = Array.from({length: 28}, (_, at) => Math.max(0, (at >> 2) - 1));
const kLengths = leastOf(3, kLengthBits);
const kDistanceBits = Array.from({length: 30}, (_, at) => Math.max(0, (at >> 1) - 1));
const kDistances = leastOf(1, kDistanceBits);

class Unpacking {
  #held = 0;
  #heldCount = 0;
  #end = 0;

  constructor(
    readonly packed: Uint8Array,
    private at: number,
    readonly bytes: Uint8Array,
  ) {}

  /** Unpacks a block, and tells whether it was the last one. */
  block(): boolean {
    const isLast = this.#take(1) !== 0;
    const kind = this.#take(2);
    if (kind === 0) this.#copy();
    else this.#repeat(...(kind === 1 ? kFixed : this.#codes()));
    return isLast;
  }

  #hold(count: number): void {
    for (; this.#heldCount < count; this.#heldCount += 8)
      this.#held |= this.packed[this.at++]! << this.#heldCount;
  }
  #drop(count: number): void {
    this.#held >>>= count;
    this.#heldCount -= count;
  }
  #take(count: number): number {
    this.#hold(count);
    const taken = this.#held & ((1 << count) - 1);
    this.#drop(count);
    return taken;
  }

  #symbol({counts, symbols, short}: Code): number {
    this.#hold(kLongestCode);
    const found = short[this.#held & ((1 << kShort) - 1)]!;
    if (found !== 0) {
      this.#drop(found & 15);
      return found >> 4;
    }
    let code = 0;
    let first = 0; // the first code of this length
    let before = 0; // how many codes are shorter
    for (let length = 1; length <= kLongestCode; ++length) {
      code |= (this.#held >> (length - 1)) & 1;
      const count = counts[length]!;
      if (code - first < count) {
        this.#drop(length);
        return symbols[before + code - first]!;
      }
      before += count;
      first = (first + count) << 1;
      code <<= 1;
    }
    throw new Error('what was packed is damaged');
  }

  // A block that is not packed: its length, the same with each bit turned over, its bytes.
  #copy(): void {
    this.at -= this.#heldCount >> 3;
    this.#held = 0;
    this.#heldCount = 0;
    const length = this.packed[this.at]! | (this.packed[this.at + 1]! << 8);
    this.at += 4;
    this.bytes.set(this.packed.subarray(this.at, this.at + length), this.#end);
    this.at += length;
    this.#end += length;
  }

  /** The two codes that a block begins with: of bytes and lengths, and of distances. */
  #codes(): [Code, Code] {
    const lengthCount = this.#take(5) + 257;
    const count = lengthCount + this.#take(5) + 1;
    const given = this.#take(4) + 4;
    const lengthsOfLengths = new Array<number>(kOrder.length).fill(0);
    for (const symbol of kOrder.slice(0, given)) lengthsOfLengths[symbol] = this.#take(3);
    const codeOfLengths = codeOf(lengthsOfLengths);
    const lengths: number[] = [];
    while (lengths.length < count) {
      const symbol = this.#symbol(codeOfLengths);
      if (symbol < 16) {
        lengths.push(symbol);
        continue;
      }
      const repeated = symbol === 16 ? lengths[lengths.length - 1]! : 0;
      const times = symbol === 18 ? 11 + this.#take(7) : 3 + this.#take(symbol - 14);
      for (let time = 0; time < times; ++time) lengths.push(repeated);
    }
    return [codeOf(lengths.slice(0, lengthCount)), codeOf(lengths.slice(lengthCount))];
  }

  #repeat(codeOfLengths: Code, codeOfDistances: Code): void {
    const {bytes} = this;
    for (;;) {
      const symbol = this.#symbol(codeOfLengths);
      if (symbol === kEndOfBlock) return;
      if (symbol < kEndOfBlock) {
        bytes[this.#end++] = symbol;
        continue;
      }
      const which = symbol - kEndOfBlock - 1;
      const length =
        which < kLengths.length
          ? kLengths[which]! + this.#take(kLengthBits[which]!)
          : kLongestRepeat;
      const far = this.#symbol(codeOfDistances);
      const distance = kDistances[far]! + this.#take(kDistanceBits[far]!);
      // What is repeated may reach into itself.
      for (const end = this.#end + length; this.#end < end; ++this.#end)
        bytes[this.#end] = bytes[this.#end - distance]!;
    }
  }
}

// The codes of a block that brings none.
const kFixed: [Code, Code] = [
  codeOf(Array.from({length: 288}, (_, at) => (at < 144 ? 8 : at < 256 ? 9 : at < 280 ? 7 : 8))),
  codeOf(new Array<number>(30).fill(5)),
];

/** The bytes of a file that gzip has made, without a name or a comment in it. */
export function inflated(packed: Uint8Array): Uint8Array<ArrayBuffer> {
  const kHeader = 10;
  const size = new DataView(packed.buffer, packed.byteOffset).getUint32(packed.length - 4, true);
  const bytes = new Uint8Array(size);
  const unpacking = new Unpacking(packed, kHeader, bytes);
  while (!unpacking.block());
  return bytes;
}
