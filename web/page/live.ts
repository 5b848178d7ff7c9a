// The live region: what a screen reader says without being asked.
import { el, setText } from "./dom.js";

export const liveRegion = el("div", { class: "visually-hidden", role: "status", "aria-live": "polite", id: "live" });
let timer = 0;

/// Announces a text after a rest, so that typing is not talked over.  Only the last one within the rest is said.
export function announceSoon(text: () => string, milliseconds = 1000): void {
  clearTimeout(timer);
  timer = window.setTimeout(() => setText(liveRegion, text()), milliseconds);
}

export function announce(text: string): void {
  announceSoon(() => text, 0);
}
