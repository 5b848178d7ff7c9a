// A text or a task in the fragment of a link: compressed, and sent to nobody.  Opening a link never runs it.
import type { Lesson } from "./lessons.js";
import type { TaskFile } from "./tasks.js";

/// A link of more characters, or one whose text has more bytes, is refused.
const kMostCharacters = 2_000_000;
const kMostBytes = 1_000_000;

export type Shared =
  | { kind: "text"; name: string; text: string }
  | { kind: "task"; file: TaskFile }
  | { kind: "lesson"; id: Lesson["id"] }
  | { kind: "tooLarge" }
  | { kind: "broken" }
  | { kind: "none" };

function toBase64Url(bytes: Uint8Array): string {
  let binary = "";
  for (const byte of bytes) binary += String.fromCharCode(byte);
  return btoa(binary).replace(/\+/g, "-").replace(/\//g, "_").replace(/=+$/, "");
}

function fromBase64Url(text: string): Uint8Array {
  const binary = atob(text.replace(/-/g, "+").replace(/_/g, "/"));
  return Uint8Array.from(binary, (c) => c.charCodeAt(0));
}

/// The bytes of a stream, or null if it has more than `most`: a small link must not unpack to a large text.
async function collect(stream: ReadableStream<Uint8Array>, most: number): Promise<Uint8Array | null> {
  const parts: Uint8Array[] = [];
  let size = 0;
  const reader = stream.getReader();
  for (;;) {
    const { done, value } = await reader.read();
    if (done) break;
    size += value.length;
    if (size > most) {
      await reader.cancel();
      return null;
    }
    parts.push(value);
  }
  const bytes = new Uint8Array(size);
  let at = 0;
  for (const part of parts) {
    bytes.set(part, at);
    at += part.length;
  }
  return bytes;
}

function through(bytes: Uint8Array, change: TransformStream<BufferSource, Uint8Array>): ReadableStream<Uint8Array> {
  return new Blob([bytes as BlobPart]).stream().pipeThrough(change as ReadableWritablePair<Uint8Array, BufferSource>);
}

/// The fragment for a text or a task, "#text=..." or "#task=..."; null if it is too large for a link.
export async function fragmentOf(kind: "text" | "task", value: { name: string; text: string } | TaskFile): Promise<string | null> {
  const bytes = new TextEncoder().encode(JSON.stringify(value));
  if (bytes.length > kMostBytes) return null;
  const packed = await collect(through(bytes, new CompressionStream("deflate-raw")), kMostCharacters);
  return packed && `#${kind}=` + toBase64Url(packed);
}

/// What a fragment carries.
export async function readFragment(fragment: string): Promise<Shared> {
  const match = /^#(text|task|lesson)=(.*)$/s.exec(fragment);
  if (!match) return { kind: "none" };
  const value = match[2] ?? "";
  if (match[1] === "lesson") return { kind: "lesson", id: value };
  if (value.length > kMostCharacters) return { kind: "tooLarge" };
  try {
    const bytes = await collect(through(fromBase64Url(value), new DecompressionStream("deflate-raw")), kMostBytes);
    if (!bytes) return { kind: "tooLarge" };
    const read = JSON.parse(new TextDecoder("utf-8", { fatal: true }).decode(bytes)) as Record<string, unknown>;
    const name = typeof read.name === "string" ? read.name.slice(0, 100) : "link.txt";
    if (match[1] === "text") return typeof read.text === "string" ? { kind: "text", name, text: read.text } : { kind: "broken" };
    const { toml, driver } = read;
    if (typeof toml !== "string") return { kind: "broken" };
    return { kind: "task", file: typeof driver === "string" ? { name, toml, driver } : { name, toml } };
  } catch {
    return { kind: "broken" };
  }
}
