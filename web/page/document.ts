// The text that the learner works on: its name, whether it has changes that no file has, and what the browser keeps.
import { mayReplace } from "./dialogs.js";
import type { Editor } from "./editor.js";
import { Emitter } from "./emitter.js";
import { t } from "./language.js";
import { showNotice } from "./notice.js";
import { keepText, keptText } from "./settings.js";
import { skeleton } from "./skeleton.js";

const kKeepAfter = 400;

export class TextDocument {
  name = "program.txt";
  /// The encoding that the file was read in, as the core names it; empty for a text that was no file.
  encodingName = "";
  readonly changed = new Emitter<void>();
  /// Another text has taken the place of the one before.
  readonly replaced = new Emitter<void>();
  /// How the file ends its lines; the editor has line feeds only.
  private lineEnd = "\n";
  /// As it was opened or saved last.
  private saved = skeleton;
  private timer = 0;
  private warned = false;

  constructor(private readonly editor: Editor) {
    editor.changed.on(() => {
      clearTimeout(this.timer);
      this.timer = window.setTimeout(() => this.keep(), kKeepAfter);
    });
    window.addEventListener("pagehide", () => this.keep());
  }

  /// Takes up the text of the last visit, or the skeleton.
  begin(): void {
    const kept = keptText();
    if (kept) this.name = kept.name;
    this.editor.text = kept?.text ?? skeleton;
    if (kept?.isSaved) this.saved = this.editor.text;
    this.changed.emit();
  }

  get hasChanges(): boolean {
    return this.editor.text !== this.saved;
  }

  /// Puts another text in the editor, unless the learner wants to keep the present one.
  async replace(name: string, text: string, encodingName = ""): Promise<boolean> {
    if (this.hasChanges && this.editor.text !== text && !(await mayReplace(name))) return false;
    this.name = name;
    this.encodingName = encodingName;
    this.lineEnd = text.includes("\r\n") ? "\r\n" : "\n";
    this.replaced.emit();
    this.editor.text = text;
    this.markSaved();
    this.editor.focus();
    return true;
  }

  /// The text with the line ends of its file.
  get fileText(): string {
    return this.editor.text.replace(/\n/g, this.lineEnd);
  }

  markSaved(): void {
    this.saved = this.editor.text;
    this.changed.emit();
  }

  rename(name: string): void {
    this.name = name.trim() || "program.txt";
    this.changed.emit();
    this.keep();
  }

  private keep(): void {
    const isKept = keepText({ name: this.name, text: this.editor.text, isSaved: !this.hasChanges });
    if (!isKept && !this.warned) showNotice(t("notKept"), true);
    this.warned = !isKept;
  }
}
