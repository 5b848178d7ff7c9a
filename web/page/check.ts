// Checks the text after each change, but never while an input method composes.
import type { Editor } from "./editor.js";
import type { Engine } from "./engine.js";
import { Emitter } from "./emitter.js";
import type { Check } from "./protocol.js";

export class Checker {
  /// Of the text in the editor; null until the first check has ended.
  result: Check | null = null;
  readonly changed = new Emitter<Check>();
  private busy = false;
  private again = false;

  constructor(
    private readonly engine: Engine,
    private readonly editor: Editor,
    private readonly name: () => string,
  ) {
    editor.changed.on(() => void this.request());
    editor.composed.on(() => void this.request());
  }

  /// One check at a time: changes during a check are checked together after it.
  async request(): Promise<void> {
    this.again = true;
    if (this.busy) return;
    this.busy = true;
    try {
      while (this.again && !this.editor.composing) {
        this.again = false;
        const result = await this.engine.check({ text: this.editor.text, name: this.name() });
        if (this.again || this.editor.composing) {
          this.again = true;
          continue;
        }
        this.result = result;
        this.changed.emit(result);
      }
    } finally {
      this.busy = false;
    }
  }
}
