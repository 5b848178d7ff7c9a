// The buttons of a run, what state it is in, and the lines that an endless one executes most.
import { el, icon, setText } from "./dom.js";
import type { Editor } from "./editor.js";
import { labelled, languageChanged, t, words } from "./language.js";
import { announce } from "./live.js";
import type { Runner } from "./run.js";
import { keepSettings, settings } from "./settings.js";
import { keysOf, type Action } from "./shortcuts.js";

/// Steps a second; 0 is as fast as possible.
const kSpeeds = [1, 2, 5, 10, 30, 100, 1000, 10_000, 0];

const pictures: Partial<Record<Action, string>> = {
  run: "M4 2.5v11l9-5.5z",
  pause: "M4 2.5h3v11h-3zM9 2.5h3v11h-3z",
  step: "M2 7h7V3.5l5 4.5-5 4.5V9H2z",
  stepBack: "M14 7H7V3.5L2 8l5 4.5V9h7z",
  stepOver: "M2 11a5.5 5.5 0 0 1 9.6-3.6L13.5 5.5V11H8l2-2A3.5 3.5 0 0 0 4 11zM6.5 12h3v2.5h-3z",
  stepOut: "M7 14V7H3.5L8 2l4.500 5H9v7z",
  runToCursor: "M2 3v10l6-5zM10 2h1.500v12H10zM12.500 2H14v12h-1.500z",
  restart: "M3 3h2v10H3zM13 3v10L6 8z",
};

export class Controls {
  readonly node: HTMLElement;
  private readonly buttons = new Map<Action, HTMLButtonElement>();
  private readonly status = el("span", { class: "status", id: "run-status" });
  private readonly hot = el("span", { class: "hottest" });
  private readonly speed = el("input", { type: "range", min: 0, max: kSpeeds.length - 1, step: 1, id: "speed" });
  private readonly speedText = el("output", { for: "speed" });

  constructor(
    private readonly runner: Runner,
    private readonly editor: Editor,
    act: (action: Action) => void,
  ) {
    this.node = el("div", { class: "controls", role: "toolbar", id: "controls" });
    labelled(this.node, "runControls", "aria-label");
    for (const action of ["run", "stepBack", "step", "stepOver", "stepOut", "runToCursor", "restart"] as const) {
      this.node.append(this.button(action, act));
    }
    this.node.append(this.speedControl(), this.status, this.hot);
    runner.changed.on(() => this.show());
    languageChanged.on(() => this.show());
    runner.rested.on((state) => {
      const why = state.messages.map((message) => words(message.text).trim());
      announce([this.stateText(), ...why].join(" "));
    });
    this.show();
  }

  private button(action: Action, act: (action: Action) => void): HTMLButtonElement {
    const isUsual = action === "step" || action === "stepBack";
    const caption = el("span", { class: action === "run" ? "caption" : isUsual ? "caption is-short" : "caption is-rare" });
    const button = el("button", { type: "button", class: action === "run" ? "primary run" : "tool", "data-action": action });
    button.append(icon(pictures[action] ?? ""), caption);
    button.addEventListener("click", () => {
      if (button.getAttribute("aria-disabled") !== "true") act(action);
    });
    const name = (): void => {
      setText(caption, t(action));
      button.title = `${t(action)} (${keysOf(action)})`;
      button.setAttribute("aria-label", t(action));
    };
    languageChanged.on(name);
    name();
    this.buttons.set(action, button);
    return button;
  }

  private speedControl(): HTMLElement {
    const kept = kSpeeds.indexOf(settings().speed ?? 0);
    this.speed.value = String(kept < 0 ? kSpeeds.length - 1 : kept);
    this.speed.addEventListener("input", () => {
      const perSecond = kSpeeds[Number(this.speed.value)] ?? 0;
      keepSettings({ speed: perSecond });
      void this.runner.setSpeed(perSecond);
      this.showSpeed();
    });
    void this.runner.setSpeed(kSpeeds[Number(this.speed.value)] ?? 0);
    const label = labelled(el("label", { for: "speed" }), "speed");
    languageChanged.on(() => this.showSpeed());
    this.showSpeed();
    return el("span", { class: "speed" }, label, this.speed, this.speedText);
  }

  private showSpeed(): void {
    const perSecond = kSpeeds[Number(this.speed.value)] ?? 0;
    const text = perSecond ? t("speedPer", { n: perSecond.toLocaleString("en") }) : t("speedFull");
    setText(this.speedText, text);
    this.speed.setAttribute("aria-valuetext", text);
  }

  private show(): void {
    const { runner } = this;
    this.node.classList.toggle("is-running", runner.running);
    this.showRunButton();
    const off = (action: Action, value: boolean): void =>
      this.buttons.get(action)?.setAttribute("aria-disabled", String(value));
    off("stepBack", !runner.canGoBack);
    off("restart", runner.running || !runner.state);
    off("stepOut", runner.running || runner.stale || !runner.state?.os);
    for (const action of ["step", "stepOver", "runToCursor"] as const) off(action, runner.running);
    setText(this.status, this.stateText());
    this.status.dataset["stop"] = runner.running ? "running" : (runner.state?.stop ?? runner.phase);
    this.showHottest();
  }

  private showRunButton(): void {
    const action = this.runner.running ? "pause" : "run";
    const button = this.buttons.get("run");
    if (!button || button.dataset["shows"] === action + t(action)) return;
    button.dataset["shows"] = action + t(action);
    button.replaceChildren(icon(pictures[action] ?? ""), el("span", { class: "caption" }, t(action)));
    button.title = `${t(action)} (${keysOf("run")})`;
    button.setAttribute("aria-label", t(action));
  }

  /// The lines that a long run executes most, during it and after it was paused.
  private showHottest(): void {
    const { runner } = this;
    this.hot.replaceChildren();
    const isLong = (runner.state?.steps ?? 0) > 10_000;
    if (runner.stale || runner.ended || !isLong || runner.hottest.length === 0) return;
    this.hot.append(`${t("hottest")}: `);
    for (const { line, count } of runner.hottest.slice(0, 3)) {
      const text = `${t("lineNumber", { line })} (${count.toLocaleString("en")})`;
      this.hot.append(el("button", { type: "button", class: "link", onclick: () => this.editor.goTo(line) }, text), " ");
    }
  }

  private stateText(): string {
    const { runner } = this;
    if (runner.failure) return t("engineFailed", { reason: runner.failure });
    if (runner.phase === "faulty" && !runner.stale) return t("stateFaulty");
    const { state } = runner;
    if (!state) return t("notReady");
    const values = { steps: state.steps.toLocaleString("en"), line: state.line };
    if (runner.running) return t("stateRunning", values);
    if (runner.stale) return state.steps ? t("stateChanged") : t("notReady");
    if (state.stop === "InputWanted") return t("stateInput", values);
    if (state.stop === "Breakpoint") return t("stateBreakpoint", values);
    if (state.stop === "OutputFull") return t("stateOutput");
    if (state.kind === "end") return t("stateEnd", values);
    if (state.kind === "guard") return t("stateGuard", values);
    return state.steps ? t("statePaused", values) : t("stateReady");
  }
}
