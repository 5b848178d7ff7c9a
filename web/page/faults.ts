// The faults as a list, in the core's words, and as marks in the editor.
import type { Diagnostic } from "@codemirror/lint";
import type { Checker } from "./check.js";
import { el, setText } from "./dom.js";
import type { Editor } from "./editor.js";
import { languageChanged, labelled, t, words } from "./language.js";
import { announceSoon } from "./live.js";
import type { Check, Finding, Hint, Place, Severity, Text } from "./protocol.js";
import type { TextKey } from "./texts.js";

type Kind = Severity | "hint";

/// A row of the list: a finding with those that continue it, or a hint.
interface Row extends Place {
  kind: Kind;
  text: Text;
  quoted: string;
  /// The words that lack, for a fault of the completed text.
  missing: string;
}

const names: Record<Kind, TextKey> = {
  error: "severityError",
  warning: "severityWarning",
  note: "severityNote",
  memo: "severityMemo",
  notice: "severityNotice",
  hint: "hint",
};
/// A shape for each kind, so that colour is not the only difference.
const signs: Record<Kind, string> = { error: "✕", warning: "▲", note: "●", memo: "●", notice: "ℹ", hint: "➜" };

function rowsOf(findings: Finding[], hints: Hint[], missing: string): Row[] {
  const rows: Row[] = [];
  for (const finding of findings) {
    const last = rows[rows.length - 1];
    if (finding.severity === "notice" && !finding.continues) continue;
    if (finding.continues && last) {
      last.text = { ja: last.text.ja + "\n" + finding.text.ja, en: last.text.en + "\n" + finding.text.en };
    } else if (finding.severity !== "notice") {
      rows.push({ ...finding, kind: finding.severity, missing });
    }
  }
  return [...rows, ...hints.map((hint): Row => ({ ...hint, kind: "hint", quoted: "", missing }))];
}

function rowsOfCheck(check: Check): Row[] {
  const rows = rowsOf(check.findings, check.hints, "");
  const more = check.whenComplete;
  if (!more) return rows;
  return [...rows, ...rowsOf(more.findings, more.hints, more.added.join(", "))];
}

/// Without blank lines at its ends; the quoted text first, as the dialogue prints it.
function wordsOf(row: Row): string {
  const text = words(row.text).trim();
  return row.quoted && !text.includes(row.quoted) ? `"${row.quoted}"  ${text}` : text;
}

export class Faults {
  readonly node: HTMLElement;
  private readonly list = el("ul", { class: "faults" });
  private readonly summary = el("p", { class: "faults-summary" });
  private rows: Row[] = [];
  /// The row that F8 visited last.
  private visited = -1;

  constructor(
    private readonly checker: Checker,
    private readonly editor: Editor,
  ) {
    const title = labelled(el("h2", { id: "faults-title" }), "faults");
    const head = el("div", { class: "pane-head" }, title, this.summary);
    this.node = el("section", { class: "pane faults-pane", id: "faults", "aria-labelledby": "faults-title", tabindex: -1 });
    this.node.append(head, el("div", { class: "pane-body" }, this.list));
    checker.changed.on((check) => {
      this.rows = rowsOfCheck(check);
      this.visited = -1;
      this.show();
      announceSoon(() => this.summary.textContent ?? "");
    });
    languageChanged.on(() => this.show());
    setText(this.summary, t("checking"));
  }

  /// Goes to the next fault, or with -1 to the one before.
  visit(direction: 1 | -1): void {
    const count = this.rows.length;
    if (count === 0) return announceSoon(() => t("noFaults"), 0);
    this.visited = this.visited < 0 && direction < 0 ? count - 1 : (this.visited + direction + count) % count;
    this.goTo(this.visited);
  }

  private goTo(index: number): void {
    const row = this.rows[index];
    if (!row) return;
    this.visited = index;
    this.editor.goTo(Math.max(1, row.line), row.from, row.from);
    announceSoon(() => `${t(names[row.kind])}: ${this.placeOf(row)}: ${wordsOf(row)}`, 0);
    this.list.children[index]?.scrollIntoView({ block: "nearest" });
    for (const [i, item] of [...this.list.children].entries()) item.classList.toggle("is-visited", i === index);
  }

  private placeOf(row: Row): string {
    return row.line ? t("lineNumber", { line: row.line }) : t("wholeText");
  }

  private show(): void {
    const check = this.checker.result;
    if (!check) return setText(this.summary, t("checking"));
    const { errors, warnings, notes, memos } = check.tallies;
    const isClean = this.rows.length === 0;
    const tally = { errors, warnings, notes: notes + memos };
    setText(this.summary, isClean ? t("noFaults") : t("faultTally", tally));
    this.list.replaceChildren(...this.rows.slice(0, 200).map((row, index) => this.item(row, index)));
    const leftOut = check.findingsLeftOut + Math.max(0, this.rows.length - 200);
    if (leftOut) this.list.append(el("li", { class: "faults-more" }, t("leftOut", { n: leftOut })));
    this.editor.showDiagnostics(this.diagnostics());
  }

  private item(row: Row, index: number): HTMLElement {
    const sign = el("span", { class: `sign sign-${row.kind}`, "aria-hidden": "true" }, signs[row.kind]);
    const head = el("span", { class: "fault-head" }, sign, `${t(names[row.kind])} · ${this.placeOf(row)}`);
    if (row.missing) head.append(el("span", { class: "badge" }, t("whenComplete", { missing: row.missing })));
    const button = el("button", { type: "button", class: "fault", onclick: () => this.goTo(index) });
    button.append(head, el("span", { class: "fault-text" }, wordsOf(row)));
    return el("li", { "data-kind": row.kind }, button);
  }

  private diagnostics(): Diagnostic[] {
    const { doc } = this.editor.view.state;
    const result: Diagnostic[] = [];
    for (const row of this.rows) {
      if (row.line < 1 || row.line > doc.lines) continue;
      const line = doc.line(row.line);
      const from = Math.min(line.from + row.from, line.to);
      const to = Math.min(line.from + row.to, line.to);
      const severity = row.kind === "error" || row.kind === "warning" ? row.kind : row.kind === "hint" ? "hint" : "info";
      result.push({ from, to, severity, message: `${t(names[row.kind])}: ${wordsOf(row)}` });
    }
    return result.sort((a, b) => a.from - b.from);
  }
}
