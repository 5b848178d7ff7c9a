// The words on the stack, and the depth of CALL.
import { el, setText } from "./dom.js";
import { hex } from "./format.js";
import { labelled, languageChanged, t } from "./language.js";
import type { StackRow } from "./protocol.js";
import type { Runner } from "./run.js";

export class Stack {
  readonly node: HTMLElement;
  private readonly depth = el("p", { class: "depth" });
  private readonly list = el("ol", { class: "stack" });

  constructor(private readonly runner: Runner) {
    const title = labelled(el("h2", { id: "stack-title" }), "stack");
    this.node = el("section", { class: "pane stack-pane", id: "stack", "aria-labelledby": "stack-title", tabindex: -1 });
    const scroller = el("div", { class: "pane-body", tabindex: 0, role: "group", "aria-labelledby": "stack-title" }, this.list);
    this.node.append(el("div", { class: "pane-head" }, title, this.depth), scroller);
    runner.changed.on(() => this.show());
    languageChanged.on(() => this.show());
    this.show();
  }

  private show(): void {
    const state = this.runner.state;
    const rows = state?.stack ?? [];
    setText(this.depth, t("callDepth", { n: state?.os ?? 0 }));
    if (rows.length === 0) return this.list.replaceChildren(el("li", { class: "empty" }, t("stackEmpty")));
    const changed = new Set(state?.changes.filter((c) => c.place === "Stack").map((c) => c.index));
    this.list.replaceChildren(...rows.map((row) => this.item(row, changed.has(row.address))));
    const more = (state?.stackSize ?? 0) - rows.length;
    if (more > 0) this.list.append(el("li", { class: "empty" }, t("leftOut", { n: more })));
  }

  private item(row: StackRow, changed: boolean): HTMLElement {
    const node = el("li", { class: changed ? "is-changed" : "" });
    node.append(el("span", { class: "soft" }, hex(row.address)), ` ${hex(row.word)}${row.depth ? "" : ` ${row.word}`}${changed ? " *" : ""}`);
    if (row.depth) node.append(el("span", { class: "call" }, ` CALL, ${t("lineNumber", { line: row.callLine })}`));
    return node;
  }
}
