// A button that opens a list of commands.
import { el, setText } from "./dom.js";
import { labelled, languageChanged } from "./language.js";
import type { TextKey } from "./texts.js";

export interface MenuItem {
  /// The text: a key of the table, or a name that is the same in both languages.
  key?: TextKey;
  text?: string;
  /// A text that depends on the language.
  title?: () => string;
  group?: TextKey;
  run: () => void;
}

let count = 0;

/// Opens with Enter, blank, arrow down or a click; arrows, Home and End move, Escape and Tab close.
export class Menu {
  readonly node: HTMLElement;
  private readonly button: HTMLButtonElement;
  private readonly list: HTMLElement;

  constructor(name: TextKey, items: MenuItem[]) {
    const id = `menu-${++count}`;
    const caption = labelled(el("span"), name);
    this.button = el("button", { type: "button", class: "menu-button", "aria-haspopup": "menu", "aria-expanded": "false", "aria-controls": id });
    this.button.append(caption, el("span", { class: "caret", "aria-hidden": "true" }, "▾"));
    this.list = el("div", { class: "menu", role: "menu", id, hidden: true });
    labelled(this.list, name, "aria-label");
    for (const item of items) this.add(item);
    this.node = el("div", { class: "menu-holder" }, this.button, this.list);
    this.button.addEventListener("click", () => this.toggle(!this.isOpen));
    this.node.addEventListener("keydown", (event) => this.key(event));
    document.addEventListener("pointerdown", (event) => {
      if (!event.composedPath().includes(this.node)) this.toggle(false, false);
    });
  }

  private add(item: MenuItem): void {
    if (item.group) this.list.append(labelled(el("div", { class: "menu-group", role: "presentation" }), item.group));
    const entry = el("button", { type: "button", role: "menuitem", tabindex: -1 });
    const { title } = item;
    if (item.key) labelled(entry, item.key);
    else if (title) {
      languageChanged.on(() => setText(entry, title()));
      setText(entry, title());
    } else entry.append(item.text ?? "");
    entry.addEventListener("click", () => {
      this.toggle(false);
      item.run();
    });
    this.list.append(entry);
  }

  private get isOpen(): boolean {
    return this.list.hidden !== true;
  }
  private get entries(): HTMLElement[] {
    return [...this.list.querySelectorAll<HTMLElement>("[role=menuitem]")];
  }

  private toggle(open: boolean, focus = true): void {
    if (this.isOpen === open) return;
    this.list.hidden = !open;
    this.button.setAttribute("aria-expanded", String(open));
    if (open) this.entries[0]?.focus();
    else if (focus) this.button.focus();
  }

  private key(event: KeyboardEvent): void {
    const { entries } = this;
    const at = entries.indexOf(document.activeElement as HTMLElement);
    const last = entries.length - 1;
    if (!this.isOpen) {
      if (event.key !== "ArrowDown" || event.target !== this.button) return;
      this.toggle(true);
    } else if (event.key === "ArrowDown") entries[at >= last ? 0 : at + 1]?.focus();
    else if (event.key === "ArrowUp") entries[at <= 0 ? last : at - 1]?.focus();
    else if (event.key === "Home") entries[0]?.focus();
    else if (event.key === "End") entries[last]?.focus();
    else if (event.key === "Escape") this.toggle(false);
    else {
      if (event.key === "Tab") this.toggle(false, false);
      return;
    }
    event.preventDefault();
    event.stopPropagation();
  }
}
