// Decodes the WebAssembly modules that scripts embed as text.

/** The bytes of `text`, which has a letter for each; `letters` has the letter of byte N at N. */
export function bytesOf({text, letters}: {text: string; letters: string}): Uint8Array<ArrayBuffer> {
  const byteOf = new Uint8Array(letters.length);
  for (let byte = 0; byte < letters.length; ++byte) byteOf[letters.charCodeAt(byte)] = byte;
  const bytes = new Uint8Array(text.length);
  for (let at = 0; at < bytes.length; ++at) bytes[at] = byteOf[text.charCodeAt(at)]!;
  return bytes;
}
