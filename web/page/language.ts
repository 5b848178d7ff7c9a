// The language of the page.  Whatever shows a text registers here and is written again after a switch, so that
// nothing else of the page changes with it.
import { Emitter } from "./emitter.js";
import { setText } from "./dom.js";
import type { Language, Text } from "./protocol.js";
import { texts, type TextKey } from "./texts.js";


let current: Language = "en";
export const languageChanged = new Emitter<Language>();

export function language(): Language {
  return current;
}

export function setLanguage(next: Language): void {
  current = next;
  document.documentElement.lang = next;
  languageChanged.emit(next);
}

/// The language that the browser prefers of the two.
export function browserLanguage(): Language {
  for (const tag of navigator.languages ?? [navigator.language]) {
    if (tag.toLowerCase().startsWith("ja")) return "ja";
    if (tag.toLowerCase().startsWith("en")) return "en";
  }
  return "en";
}

/// A text of the table; each {name} is replaced by the value of that name.
export function t(key: TextKey, values: Record<string, string | number> = {}): string {
  return texts[key][current].replace(/\{(\w+)\}/g, (hole, name: string) => String(values[name] ?? hole));
}

/// The words of the core in the language of the page.
export function words(text: Text): string {
  return text[current];
}

/// Keeps a node's text, or one of its attributes, in the language of the page.
export function labelled<N extends Element>(node: N, key: TextKey, attribute?: "title" | "aria-label"): N {
  const write = (): void => {
    if (attribute) node.setAttribute(attribute, t(key));
    else setText(node, t(key));
  };
  write();
  languageChanged.on(write);
  return node;
}
