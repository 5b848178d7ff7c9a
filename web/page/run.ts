// The run of the text in the editor: when it is assembled anew, what the machine does, and what it has written.
import type { Editor } from "./editor.js";
import { Emitter } from "./emitter.js";
import type { Engine } from "./engine.js";
import type { Event, Go, LineCount, Loaded, Progress, State } from "./protocol.js";

export type Phase =
  | "empty" // nothing was assembled yet
  | "faulty"
  | "rest"
  | "running";

export class Runner {
  phase: Phase = "empty";
  /// Of the last text that was assembled; null if it had faults.
  loaded: Loaded | null = null;
  state: State | null = null;
  events: Event[] = [];
  /// During a run.
  hottest: LineCount[] = [];
  perSecond = 0;
  /// The text was changed since it was assembled.
  stale = true;
  /// Why the engine does not answer any more.
  failure = "";
  readonly changed = new Emitter<void>();
  /// The machine has come to rest after a run, a step, or a step back.
  readonly rested = new Emitter<State>();
  private stepsPerSecond = 0;
  /// Ends with the run or step that is on its way.
  private onItsWay: Promise<void> = Promise.resolve();
  private last: Go = { kind: "run" };

  constructor(
    private readonly engine: Engine,
    private readonly editor: Editor,
    private readonly name: () => string,
    private readonly breakpoints: () => number[],
  ) {
    engine.onProgress = (progress) => this.takeProgress(progress);
    engine.onGone = (error) => this.fail(error);
    editor.changed.on(() => {
      if (this.stale) return;
      this.stale = true;
      this.changed.emit();
    });
  }

  get running(): boolean {
    return this.phase === "running";
  }
  /// It can be stepped back: there is a state before the present one.
  get canGoBack(): boolean {
    return !this.stale && !this.running && (this.state?.steps ?? 0) > 0;
  }
  get waitsForInput(): boolean {
    return !this.running && !this.stale && this.state?.stop === "InputWanted";
  }
  /// It has ended, by itself or by a guard.
  get ended(): boolean {
    return this.state !== null && this.state.kind !== "pause";
  }

  /// Assembles the text and puts the machine at step 0.
  async load(): Promise<boolean> {
    await this.end();
    this.stale = false;
    const loaded = await this.engine.load({ text: this.editor.text, name: this.name() });
    this.events = [];
    this.hottest = [];
    this.loaded = loaded.state ? loaded : null;
    this.phase = loaded.state ? "rest" : "faulty";
    if (loaded.state) this.take(loaded.state);
    else this.state = null;
    await this.engine.call("breakpoints", { lines: this.breakpoints() });
    this.changed.emit();
    return this.loaded !== null;
  }

  /// Runs, steps or goes back.  Assembles before, if the text was changed or the run has ended.
  go(ask: Go): Promise<void> {
    if (this.running) return Promise.resolve();
    this.onItsWay = this.goNow(ask);
    return this.onItsWay;
  }

  /// Another text has come: nothing of the machine belongs to it.
  async forget(): Promise<void> {
    this.stale = true;
    await this.end();
    this.loaded = this.state = null;
    this.events = [];
    this.hottest = [];
    if (!this.failure) this.phase = "empty";
    this.changed.emit();
  }

  /// Ends a run.
  private async end(): Promise<void> {
    if (!this.running) return;
    await this.pause();
    await this.onItsWay;
  }

  private async goNow(ask: Go): Promise<void> {
    const isBack = ask.kind === "back" || ask.kind === "backToChange" || ask.kind === "goTo";
    if (isBack && !this.canGoBack) return;
    try {
      if ((this.stale || !this.loaded || (!isBack && this.ended)) && !(await this.load())) return;
      this.phase = "running";
      this.last = { ...ask, stepsPerSecond: this.stepsPerSecond };
      this.changed.emit();
      const state = await this.engine.go(this.last);
      this.phase = "rest";
      this.take(state);
      this.changed.emit();
      this.rested.emit(state);
    } catch (error) {
      this.fail(error as Error);
    }
  }

  async pause(): Promise<void> {
    await this.engine.pause();
  }

  async setSpeed(stepsPerSecond: number): Promise<void> {
    this.stepsPerSecond = stepsPerSecond;
    this.last = { ...this.last, stepsPerSecond };
    if (this.running) await this.engine.call("speed", { stepsPerSecond });
  }

  /// Gives a line to the IN that waits, and goes on as before it.
  async give(line: string): Promise<void> {
    await this.engine.call("giveLine", { line });
    await this.go(this.last);
  }
  async endInput(): Promise<void> {
    await this.engine.call("endInput", null);
    await this.go(this.last);
  }
  /// Lines that were typed before a step back are not read again.
  async forgetFuture(): Promise<void> {
    await this.engine.call("forgetFuture", null);
    this.take(await this.engine.call("state", null));
    this.changed.emit();
  }

  async sendBreakpoints(): Promise<number[]> {
    return this.engine.call("breakpoints", { lines: this.breakpoints() });
  }

  private takeProgress(progress: Progress): void {
    if (!this.running) return;
    this.hottest = progress.hottest;
    this.perSecond = progress.perSecond;
    this.take(progress.state);
    this.changed.emit();
  }

  private take(state: State): void {
    this.state = state;
    this.events.length = Math.min(this.events.length, state.events.from);
    for (const event of state.events.list) this.events.push(event);
  }

  private fail(error: Error): void {
    this.failure = error.message;
    this.phase = "empty";
    this.stale = true;
    this.changed.emit();
  }
}
