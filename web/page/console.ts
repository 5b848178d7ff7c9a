// What OUT writes, where IN asks, and why a run was stopped.
import { el, setText } from "./dom.js";
import type { Editor } from "./editor.js";
import { labelled, languageChanged, t, words } from "./language.js";
import type { Event } from "./protocol.js";
import type { Runner } from "./run.js";

/// As many of the last rows are shown.
const kShown = 1000;

export class Console {
  readonly node: HTMLElement;
  private readonly lines = el("div", { class: "console-lines", role: "log", "aria-live": "off" });
  private readonly stop = el("div", { class: "console-stop" });
  private readonly scroller: HTMLElement;
  private readonly form: HTMLFormElement;
  private readonly input = el("input", { type: "text", id: "console-input", autocomplete: "off", spellcheck: "false" });
  private readonly kept = el("p", { class: "console-kept" });
  /// The events whose rows are there, to find out which rows are new.
  private shown: Event[] = [];
  private leftOut = 0;

  constructor(
    private readonly runner: Runner,
    private readonly editor: Editor,
  ) {
    labelled(this.lines, "console", "aria-label");
    this.form = this.inputForm();
    this.scroller = el("div", { class: "pane-body console-body", tabindex: 0, role: "group", "aria-labelledby": "console-title" });
    this.scroller.append(this.lines, this.form, this.kept, this.stop);
    const title = labelled(el("h2", { id: "console-title" }), "console");
    this.node = el("section", { class: "pane console-pane", id: "console", "aria-labelledby": "console-title", tabindex: -1 });
    this.node.append(el("div", { class: "pane-head" }, title), this.scroller);
    runner.changed.on(() => this.show());
    languageChanged.on(() => this.show(true));
    this.show();
  }

  private inputForm(): HTMLFormElement {
    const label = labelled(el("label", { for: "console-input" }), "inputPrompt");
    const give = labelled(el("button", { type: "submit", class: "primary small" }), "inputGive");
    const end = labelled(el("button", { type: "button", class: "small", onclick: () => void this.runner.endInput() }), "inputEnd");
    return el(
      "form",
      {
        class: "console-input",
        hidden: true,
        onsubmit: (event) => {
          event.preventDefault();
          const line = this.input.value;
          this.input.value = "";
          void this.runner.give(line);
        },
      },
      label,
      this.input,
      give,
      end,
    );
  }

  private show(everything = false): void {
    this.showLines(everything);
    this.showInput();
    this.showStop();
    this.scroller.scrollTop = this.scroller.scrollHeight;
  }

  /// Adds and removes rows at the end only, so that a long output costs no more than its new rows.
  private showLines(everything: boolean): void {
    const events = this.runner.events;
    const leftOut = Math.max(0, events.length - kShown);
    const wanted = leftOut ? events.slice(leftOut) : events.slice();
    if (everything || leftOut !== this.leftOut) this.shown = [];
    let same = 0;
    while (same < this.shown.length && same < wanted.length && this.shown[same] === wanted[same]) same++;
    if (same === 0) {
      this.lines.replaceChildren();
      if (leftOut) this.lines.append(el("p", { class: "empty" }, t("outputCut", { n: leftOut })));
      if (events.length === 0) this.lines.append(el("p", { class: "empty" }, t("consoleEmpty")));
    }
    const head = leftOut ? 1 : 0;
    while (this.lines.children.length > same + head && same > 0) this.lines.lastElementChild?.remove();
    if (wanted.length > same) this.lines.append(...wanted.slice(same).map((event) => this.row(event)));
    this.shown = wanted;
    this.leftOut = leftOut;
  }

  private row(event: Event): HTMLElement {
    if (event.kind === "in") {
      const name = el("span", { class: "visually-hidden" }, t("typed") + ": ");
      return el("p", { class: "console-in" }, el("span", { "aria-hidden": "true" }, "› "), name, event.text);
    }
    if (event.kind === "message" && event.message) return el("p", { class: "console-message" }, words(event.message.printed).trim());
    return el("p", { class: "console-out" }, event.text);
  }

  private showInput(): void {
    const { state, waitsForInput } = this.runner;
    const appears = waitsForInput && this.form.hidden;
    this.form.hidden = !waitsForInput;
    if (appears) this.input.focus();
    const waiting = (state?.linesGiven ?? 0) - (state?.linesRead ?? 0);
    this.kept.replaceChildren();
    if (waiting <= 0 || this.runner.running) return;
    const forget = el("button", { type: "button", class: "small", onclick: () => void this.runner.forgetFuture() }, t("typeAnew"));
    this.kept.append(t("linesKept", { n: waiting }), " ", forget);
  }

  private showStop(): void {
    const { state, running } = this.runner;
    this.stop.replaceChildren();
    if (!state || running || state.messages.length === 0) return;
    for (const message of state.messages) this.stop.append(el("p", {}, words(message.printed).trim()));
    if (state.line) {
      const { line } = state;
      const go = el("button", { type: "button", class: "small", onclick: () => this.editor.goTo(line) });
      setText(go, t("lineNumber", { line }));
      this.stop.append(go);
    }
  }
}
