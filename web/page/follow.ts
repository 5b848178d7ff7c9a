// Lets the editor follow the machine: the line that runs next, the execution counts, and the image of a text that
// has no errors.
import type { Checker } from "./check.js";
import type { Editor } from "./editor.js";
import type { Engine } from "./engine.js";
import { showCurrentLine, showHeat } from "./marks.js";
import type { Runner } from "./run.js";

/// After so many milliseconds without a change the text is assembled, so that the memory shows its words.
const kAssembleAfter = 350;

export class Follower {
  private timer = 0;
  private busy = false;
  private again = false;

  constructor(
    private readonly engine: Engine,
    private readonly editor: Editor,
    private readonly runner: Runner,
    checker: Checker,
  ) {
    runner.changed.on(() => this.show());
    checker.changed.on((check) => {
      clearTimeout(this.timer);
      if (check.outcome === "assembled") this.timer = window.setTimeout(() => void this.assemble(), kAssembleAfter);
    });
  }

  /// Unless a run would be lost by it.
  private async assemble(): Promise<void> {
    const { runner } = this;
    if (runner.running || !runner.stale || this.editor.composing || runner.failure) return;
    if ((runner.state?.steps ?? 0) === 0) await runner.load();
  }

  private show(): void {
    const { runner } = this;
    const line = runner.stale || runner.ended ? 0 : (runner.state?.line ?? 0);
    const stopped = !runner.stale && runner.state?.kind === "guard" ? runner.state.line : line;
    showCurrentLine(this.editor.view, (runner.state?.steps ?? 0) > 0 || runner.running ? stopped : 0);
    if (stopped && !runner.stale && (runner.state?.steps ?? 0) > 0) this.editor.reveal(stopped);
    if (!runner.stale && runner.loaded) void this.showCounts();
  }

  private async showCounts(): Promise<void> {
    this.again = true;
    if (this.busy) return;
    this.busy = true;
    try {
      while (this.again) {
        this.again = false;
        const counts = await this.engine.call("counts", null);
        if (!this.runner.stale) showHeat(this.editor.view, counts);
      }
    } catch {
      // The machine was replaced; the next change asks again.
    } finally {
      this.busy = false;
    }
  }
}
