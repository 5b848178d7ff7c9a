// The keys of the page: one table for what they do and for the page that lists them.
import { showDialog } from "./dialogs.js";
import { el } from "./dom.js";
import { t } from "./language.js";
import type { TextKey } from "./texts.js";

export type Action =
  | "run" | "pause" | "step" | "stepBack" | "stepOver" | "stepOut" | "runToCursor" | "restart" | "breakpoint"
  | "keyNextFault" | "keyPreviousFault" | "keyPanes" | "keyPanesBack" | "saveUtf8" | "open" | "keyHelp";

/// "Mod" is the Ctrl key, on a Mac the command key.
const keys: [Action, string][] = [
  ["run", "Mod+Enter"],
  ["step", "F7"],
  ["stepBack", "Shift+F7"],
  ["stepOver", "F10"],
  ["stepOut", "Mod+F10"],
  ["runToCursor", "F4"],
  ["restart", "Shift+F4"],
  ["breakpoint", "F9"],
  ["keyNextFault", "F8"],
  ["keyPreviousFault", "Shift+F8"],
  ["keyPanes", "F6"],
  ["keyPanesBack", "Shift+F6"],
  ["open", "Mod+O"],
  ["saveUtf8", "Mod+S"],
  ["keyHelp", "F1"],
];
/// Keys of the editor, which it handles itself.
const editorKeys: [TextKey, string][] = [
  ["keyComplete", "Mod+Space"],
  ["keyNextColumn", "Tab"],
  ["keyLeaveEditor", "Escape"],
  ["keyComment", "Mod+/"],
  ["keyUndo", "Mod+Z"],
  ["keyRedo", "Mod+Y"],
];

const isMac = /Mac|iPhone|iPad/.test(navigator.platform);

function shown(key: string): string {
  return key.replace("Mod", isMac ? "⌘" : "Ctrl");
}

export function keysOf(action: Action): string {
  return shown(keys.find(([name]) => name === action)?.[1] ?? "");
}

function nameOf(event: KeyboardEvent): string {
  const mod = isMac ? event.metaKey : event.ctrlKey;
  const key = event.key.length === 1 ? event.key.toUpperCase() : event.key;
  return (mod ? "Mod+" : "") + (event.shiftKey ? "Shift+" : "") + key;
}

/// Calls `act` for the keys of the table.  Keys go to an open dialog and to an input method first.
export function listenForKeys(act: (action: Action) => void): void {
  const listener = (event: KeyboardEvent): void => {
    if (event.isComposing || event.altKey || document.querySelector("dialog[open]")) return;
    const name = nameOf(event);
    const found = keys.find(([, key]) => key === name);
    if (!found) return;
    event.preventDefault();
    event.stopPropagation();
    act(found[0]);
  };
  document.addEventListener("keydown", listener, true);
}

export async function showShortcuts(): Promise<void> {
  const body = el("tbody");
  const rows: [TextKey, string][] = [...keys, ...editorKeys];
  for (const [action, key] of rows) {
    body.append(el("tr", {}, el("th", { scope: "row" }, el("kbd", {}, shown(key))), el("td", {}, t(action))));
  }
  const head = el("tr", {}, el("th", { scope: "col" }, t("shortcutKeys")), el("th", { scope: "col" }, t("shortcutAction")));
  const table = el("table", { class: "shortcuts" }, el("thead", {}, head), body);
  await showDialog(t("shortcuts"), [table], [{ text: t("close"), value: "", primary: true }], true);
}
