// Registers, PR, SP and flags.
import { el, setText } from "./dom.js";
import { viewsOf, type Views } from "./format.js";
import { labelled, languageChanged, t } from "./language.js";
import type { Change, State } from "./protocol.js";
import type { Runner } from "./run.js";
import type { TextKey } from "./texts.js";

const columns: [keyof Views, TextKey][] = [
  ["character", "character"],
  ["hex", "hex"],
  ["unsigned", "unsigned"],
  ["signed", "signed"],
  ["binary", "binary"],
];

/// A row of the table, whose changed value is marked by more than its colour.
class Row {
  readonly node: HTMLTableRowElement;
  private readonly cells: HTMLTableCellElement[];
  private readonly mark = el("span", { class: "change-mark" });

  constructor(name: string) {
    this.cells = columns.map(([view]) => el("td", { class: `word word-${view}` }));
    this.node = el("tr", {}, el("th", { scope: "row" }, name, this.mark), ...this.cells);
  }
  show(word: number, change: Change | undefined): void {
    const views = viewsOf(word & 0xffff);
    columns.forEach(([view], i) => setText(this.cells[i]!, views[view]));
    this.node.classList.toggle("is-changed", change !== undefined);
    setText(this.mark, change ? " *" : "");
    if (change) this.mark.setAttribute("title", `${viewsOf(change.before & 0xffff).hex} → ${views.hex}`);
  }
}

export class Registers {
  readonly node: HTMLElement;
  private readonly gr = Array.from({ length: 8 }, (_, i) => new Row(`GR${i}`));
  private readonly pr = new Row("PR");
  private readonly sp = new Row("SP");
  private readonly flags: [HTMLElement, TextKey][];

  constructor(private readonly runner: Runner) {
    const head = el("tr", {}, labelled(el("th", { scope: "col" }), "name"));
    for (const [view, key] of columns) head.append(labelled(el("th", { scope: "col", class: `word word-${view}` }), key));
    const body = el("tbody", {}, ...this.gr.map((row) => row.node), this.pr.node, this.sp.node);
    this.flags = [
      [el("span", { class: "flag" }), "flagOverflow"],
      [el("span", { class: "flag" }), "flagSign"],
      [el("span", { class: "flag" }), "flagZero"],
    ];
    const title = labelled(el("h2", { id: "registers-title" }), "registers");
    const flags = el("p", { class: "flags" }, ...this.flags.map(([node]) => node));
    this.node = el("section", { class: "pane registers-pane", id: "registers", "aria-labelledby": "registers-title", tabindex: -1 });
    const table = el("table", { class: "words", "aria-labelledby": "registers-title" }, el("thead", {}, head), body);
    const scroller = el("div", { class: "pane-body", tabindex: 0, role: "group", "aria-labelledby": "registers-title" }, table);
    this.node.append(el("div", { class: "pane-head" }, title, flags), scroller);
    runner.changed.on(() => this.show());
    languageChanged.on(() => this.show());
    this.show();
  }

  private show(): void {
    const state = this.runner.state;
    const changes = state?.changes ?? [];
    const changeOf = (place: Change["place"], index?: number): Change | undefined =>
      changes.find((c) => c.place === place && (index === undefined || c.index === index));
    this.gr.forEach((row, i) => row.show(state?.gr[i] ?? 0, changeOf("GR", i)));
    this.pr.show(state?.pr ?? 0, undefined);
    this.sp.show(state?.sp ?? 0xffff, changeOf("SP"));
    this.showFlags(state, changeOf);
  }

  private showFlags(state: State | null, changeOf: (place: Change["place"]) => Change | undefined): void {
    const values = [state?.overflow, state?.sign, state?.zero];
    const places = ["Overflow", "Sign", "Zero"] as const;
    this.flags.forEach(([node, key], i) => {
      const changed = changeOf(places[i]!) !== undefined;
      setText(node, `${t(key)} ${values[i] ? 1 : 0}${changed ? " *" : ""}`);
      node.classList.toggle("is-set", values[i] === true);
      node.classList.toggle("is-changed", changed);
    });
  }
}
