// F6: from one part of the page to the next, without a mouse.
import type { Editor } from "./editor.js";

const order = ["head", "controls", "lesson", "editor", "faults", "registers", "stack", "memory", "console"];
/// What takes the focus of a part.
const inside = "button:not([tabindex='-1']), input, select, [tabindex='0']";

export function movePane(direction: 1 | -1, editor: Editor): void {
  const parts = order.map((id) => document.getElementById(id)).filter((node): node is HTMLElement => node !== null && !node.hidden);
  const at = parts.findIndex((node) => node.contains(document.activeElement));
  const next = parts[at < 0 && direction < 0 ? parts.length - 1 : (at + direction + parts.length) % parts.length];
  if (!next) return;
  if (next.id === "editor") return editor.focus();
  (next.querySelector<HTMLElement>(inside) ?? next).focus();
}
