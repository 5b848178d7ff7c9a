// The five views of a word, as the reports show them.

export interface Views {
  character: string;
  hex: string;
  unsigned: string;
  signed: string;
  binary: string;
}

export function hex(value: number): string {
  return "#" + value.toString(16).toUpperCase().padStart(4, "0");
}

export function viewsOf(word: number): Views {
  const signed = word >= 0x8000 ? word - 0x10000 : word;
  const bits = word.toString(2).padStart(16, "0");
  return {
    character: word >= 0x20 && word <= 0x7e ? `'${String.fromCharCode(word)}'` : "",
    hex: hex(word),
    unsigned: String(word),
    signed: (signed < 0 ? "" : "+") + signed,
    binary: bits.replace(/(.{4})(?=.)/g, "$1 "),
  };
}
