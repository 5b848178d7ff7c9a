// The memory: 65,536 rows of which only the visible ones exist.
import { el, setText } from "./dom.js";
import type { Engine } from "./engine.js";
import { hex, viewsOf } from "./format.js";
import { labelled, languageChanged, t } from "./language.js";
import { announce } from "./live.js";
import type { MemoryRow } from "./protocol.js";
import type { Runner } from "./run.js";
import { shortCount } from "./marks.js";

const kRows = 65_536;
/// The height of a row in pixels, as style.css has it.
const kRowHeight = 22;
const kColumns = ["address", "memoryLabel", "character", "hex", "unsigned", "signed", "binary", "count", "statement"] as const;

export class Memory {
  readonly node: HTMLElement;
  private readonly viewport: HTMLElement;
  private readonly rows = el("div", { class: "memory-rows", role: "rowgroup" });
  private readonly place = el("input", { type: "text", size: 8, autocomplete: "off", spellcheck: "false" });
  /// The words that the last step has changed, which may be far from the visible rows.
  private readonly changes = el("p", { class: "memory-changes" });
  private readonly follow = el("input", { type: "checkbox", checked: true });
  private selected = -1;
  private busy = false;
  private again = false;

  constructor(
    private readonly engine: Engine,
    private readonly runner: Runner,
  ) {
    const head = el("div", { class: "memory-row memory-head", role: "row" });
    for (const key of kColumns) head.append(labelled(el("span", { role: "columnheader", class: `m-${key}` }), key));
    const space = el("div", { class: "memory-space", role: "presentation" }, this.rows);
    const table = el("div", { class: "memory-table", role: "table", "aria-rowcount": kRows }, el("div", { role: "rowgroup", class: "memory-top" }, head), space);
    labelled(table, "memory", "aria-label");
    this.viewport = el("div", { class: "memory", id: "memory-scroll", tabindex: 0, role: "group" }, table);
    labelled(this.viewport, "memory", "aria-label");
    this.viewport.addEventListener("scroll", () => void this.refresh());
    const title = labelled(el("h2", { id: "memory-title" }), "memory");
    this.node = el("section", { class: "pane memory-pane", id: "memory", "aria-labelledby": "memory-title", tabindex: -1 });
    this.node.append(el("div", { class: "pane-head" }, title, this.controls()), this.changes, this.viewport);
    new ResizeObserver(() => void this.refresh()).observe(this.viewport);
    runner.changed.on(() => {
      this.showChanges();
      void this.refresh(this.follow.checked);
    });
    languageChanged.on(() => void this.refresh());
  }

  private controls(): HTMLElement {
    const form = el("form", {
      class: "memory-controls",
      onsubmit: (event) => {
        event.preventDefault();
        void this.goToPlace();
      },
    });
    labelled(this.place, "goToAddress", "aria-label");
    labelled(this.place, "goToAddress", "title");
    const placeholder = (): void => void (this.place.placeholder = t("goToShort"));
    languageChanged.on(placeholder);
    placeholder();
    const back = el("button", { type: "button", class: "small", onclick: () => void this.backToChange() });
    labelled(back, "lastChangeTitle", "title");
    back.append(labelled(el("span"), "lastChangeButton"));
    form.append(this.place, back, el("label", {}, this.follow, labelled(el("span"), "followPr")));
    this.follow.addEventListener("change", () => void this.refresh(this.follow.checked));
    return form;
  }

  /// Runs back to the step that changed the word that the field names.
  private async backToChange(): Promise<void> {
    const address = await this.goToPlace();
    if (address < 0 || !this.runner.canGoBack) return;
    await this.runner.go({ kind: "backToChange", address });
    if (this.runner.state?.steps === 0) announce(t("neverChanged", { address: hex(address) }));
  }

  private showChanges(): void {
    const { state, loaded } = this.runner;
    const words = (state?.changes ?? []).filter((change) => change.place === "Memory");
    this.changes.hidden = words.length === 0;
    this.changes.replaceChildren();
    for (const { index, before, after } of words.slice(0, 8)) {
      const label = loaded?.labels.find((one) => one.address === index)?.name ?? "";
      const text = `* ${label} ${hex(index)}: ${hex(before)} → ${hex(after)}`;
      this.changes.append(el("button", { type: "button", class: "link", onclick: () => void this.goTo(index) }, text));
    }
  }

  private async goToPlace(): Promise<number> {
    const place = this.place.value.trim();
    const address = place ? await this.engine.call("addressOf", { place }) : -1;
    if (address < 0) {
      this.place.setAttribute("aria-invalid", "true");
      announce(t("noSuchAddress"));
      return -1;
    }
    this.place.removeAttribute("aria-invalid");
    await this.goTo(address);
    return address;
  }

  private async goTo(address: number): Promise<void> {
    this.follow.checked = false;
    this.selected = address;
    this.viewport.scrollTop = Math.max(0, address - 2) * kRowHeight;
    await this.refresh();
  }

  /// Asks for the visible rows; with `toPr` the row of PR is made visible before.
  private async refresh(toPr = false): Promise<void> {
    if (toPr && this.runner.state) this.scrollTo(this.runner.state.pr);
    this.again = true;
    if (this.runner.loaded === null) this.rows.replaceChildren();
    if (this.busy || this.runner.loaded === null) return;
    this.busy = true;
    try {
      while (this.again) {
        this.again = false;
        const first = Math.max(0, Math.floor(this.viewport.scrollTop / kRowHeight) - 4);
        const count = Math.min(kRows - first, Math.ceil(this.viewport.clientHeight / kRowHeight) + 8);
        this.show(first, await this.engine.memory(first, count));
      }
    } catch {
      // The machine was replaced; the next change asks again.
    } finally {
      this.busy = false;
    }
  }

  private scrollTo(address: number): void {
    const top = address * kRowHeight;
    const height = this.viewport.clientHeight - 2 * kRowHeight;
    if (top >= this.viewport.scrollTop && top < this.viewport.scrollTop + height) return;
    this.viewport.scrollTop = Math.max(0, top - 2 * kRowHeight);
  }

  private show(first: number, rows: MemoryRow[]): void {
    const state = this.runner.state;
    const changed = new Set(state?.changes.filter((c) => c.place === "Memory").map((c) => c.index));
    while (this.rows.children.length > rows.length) this.rows.lastElementChild?.remove();
    while (this.rows.children.length < rows.length) this.rows.append(this.emptyRow());
    this.rows.style.transform = `translateY(${first * kRowHeight}px)`;
    rows.forEach((row, i) => {
      const node = this.rows.children[i] as HTMLElement;
      const isPr = row.address === state?.pr;
      const views = viewsOf(row.word);
      const mark = isPr ? "▶" : changed.has(row.address) ? "*" : "";
      node.setAttribute("aria-rowindex", String(row.address + 2));
      node.className = "memory-row" + (isPr ? " is-pr" : "") + (changed.has(row.address) ? " is-changed" : "");
      node.classList.toggle("is-selected", row.address === this.selected);
      const cells = { ...views, memoryLabel: row.label, count: row.count ? shortCount(row.count) : "", statement: row.statement };
      const texts = { ...cells, address: `${mark} ${hex(row.address)} ${String(row.address).padStart(5)}` };
      kColumns.forEach((key, column) => setText(node.children[column]!, texts[key]));
    });
  }

  private emptyRow(): HTMLElement {
    return el("div", { class: "memory-row", role: "row" }, ...kColumns.map((key) => el("span", { role: "cell", class: `m-${key}` })));
  }
}
