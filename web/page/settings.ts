// What the browser keeps: the text and how the page is set.  A browser that keeps nothing (a private window, a
// full disk) is no fault: the page then works without.
import type { Language } from "./protocol.js";

export interface Settings {
  language?: Language;
  theme?: "light" | "dark" | "system";
  speed?: number;
  heat?: boolean;
  lessonsDone?: string[];
}

const kSettings = "zelvaro.settings";
const kText = "zelvaro.text";

/// A text that the learner has in the editor.
export interface KeptText {
  name: string;
  text: string;
  /// No change that a file or a sample does not have.
  isSaved?: boolean;
}

function read<T>(key: string): Partial<T> {
  try {
    const value: unknown = JSON.parse(localStorage.getItem(key) ?? "{}");
    return typeof value === "object" && value !== null ? (value as Partial<T>) : {};
  } catch {
    return {};
  }
}

function write(key: string, value: unknown): boolean {
  try {
    localStorage.setItem(key, JSON.stringify(value));
    return true;
  } catch {
    return false;
  }
}

export function settings(): Settings {
  return read<Settings>(kSettings);
}

export function keepSettings(change: Settings): void {
  write(kSettings, { ...settings(), ...change });
}

/// The text of the last visit, if there is one.
export function keptText(): KeptText | null {
  const { name, text, isSaved } = read<KeptText>(kText);
  return typeof name === "string" && typeof text === "string" ? { name, text, isSaved: isSaved === true } : null;
}

/// Reports whether the browser has kept it.
export function keepText(kept: KeptText): boolean {
  return write(kText, kept);
}
