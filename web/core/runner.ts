/** Runs the machine in slices, so that the worker hears the page between two of them. */
import type { LineCount, Progress, State } from "../page/protocol.js";

export interface Machine {
  /** Goes on by that many steps at most; returns whether there is more to do. */
  slice(steps: number): boolean;
  pause(): void;
  state(): State;
  hottest(most: number): LineCount[];
  progress(progress: Progress): void;
}

const SLICE = 12; // milliseconds
const FIRST_STEPS = 20_000;
const MOST_STEPS = 50_000_000;
const MOST_LINES = 5;
const PROGRESS = 125; // milliseconds between two at full speed
const SLOW_PROGRESS = 16;

export class Runner {
  private resolve: ((state: State) => void) | null = null;
  private reject: (error: Error) => void = () => {};
  private speed = 0;
  private steps = FIRST_STEPS;
  private startedAt = 0;
  private startedWith = 0;
  private reportedAt = 0; // when the last progress was sent
  private owed = 0; // steps of slow motion that are due, with a fraction
  private lastSlice = 0;
  private timer: ReturnType<typeof setTimeout> | undefined;
  /** A timer of 0 waits 4 ms when it is nested; a message to oneself does not. */
  private readonly channel = new MessageChannel();

  constructor(private readonly machine: Machine) {
    this.channel.port1.onmessage = () => this.go();
  }

  get isRunning(): boolean {
    return this.resolve !== null;
  }

  /** Goes on with what was begun; resolves when it has come to its end. */
  start(stepsPerSecond: number): Promise<State> {
    return new Promise((resolve, reject) => {
      this.resolve = resolve;
      this.reject = reject;
      this.startedAt = this.reportedAt = this.lastSlice = performance.now();
      this.startedWith = -1;
      this.owed = 1; // the first step is not waited for
      this.speed = stepsPerSecond;
      this.go();
    });
  }

  setSpeed(stepsPerSecond: number): void {
    this.speed = stepsPerSecond;
    this.lastSlice = performance.now();
    this.owed = 0;
    if (!this.isRunning) return;
    clearTimeout(this.timer);
    this.next();
  }

  /** Ends a run before it has come to its end. */
  end(): void {
    if (!this.isRunning) return;
    this.machine.pause();
    this.finish();
  }

  private finish(): void {
    clearTimeout(this.timer);
    const resolve = this.resolve;
    this.resolve = null;
    resolve?.(this.machine.state());
  }

  private go(): void {
    if (!this.isRunning) return;
    try {
      const more = this.speed > 0 ? this.slowSlice() : this.fastSlice();
      if (!more) return this.finish();
      this.tell();
      this.next();
    } catch (e) {
      this.resolve = null;
      this.reject(e instanceof Error ? e : new Error(String(e)));
    }
  }

  private next(): void {
    if (this.speed > 0) {
      this.timer = setTimeout(() => this.go(), Math.max(1000 / this.speed, SLOW_PROGRESS));
    } else {
      this.channel.port2.postMessage(null);
    }
  }

  private fastSlice(): boolean {
    const before = performance.now();
    const more = this.machine.slice(this.steps);
    const took = performance.now() - before;
    const factor = Math.min(Math.max(SLICE / Math.max(took, 0.1), 0.25), 4);
    this.steps = Math.min(Math.max(Math.round(this.steps * factor), 1000), MOST_STEPS);
    return more;
  }

  private slowSlice(): boolean {
    const now = performance.now();
    this.owed += ((now - this.lastSlice) / 1000) * this.speed;
    this.lastSlice = now;
    const due = Math.min(Math.floor(this.owed), this.steps);
    this.owed = Math.min(this.owed - due, 1);
    if (due < 1) return true;
    // a slice of one step knows its changes
    return (due === 1 || this.machine.slice(due - 1)) && this.machine.slice(1);
  }

  private tell(): void {
    const now = performance.now();
    if (now - this.reportedAt < (this.speed > 0 ? SLOW_PROGRESS : PROGRESS)) return;
    this.reportedAt = now;
    const state = this.machine.state();
    if (this.startedWith < 0) {
      this.startedWith = state.steps;
      this.startedAt = now;
    }
    const seconds = (now - this.startedAt) / 1000;
    this.machine.progress({
      state,
      perSecond: seconds > 0 ? (state.steps - this.startedWith) / seconds : 0,
      hottest: this.machine.hottest(MOST_LINES),
    });
  }
}
