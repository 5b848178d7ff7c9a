// Files: open by button and by drop, a task with its driver, save in two encodings, the reports.
import { showDialog } from "./dialogs.js";
import type { TextDocument } from "./document.js";
import { download, el } from "./dom.js";
import type { Editor } from "./editor.js";
import type { Engine } from "./engine.js";
import { language, t, words } from "./language.js";
import { showNotice } from "./notice.js";
import { MOST_BYTES, type Lacking, type ReportDate } from "./protocol.js";
import type { Runner } from "./run.js";
import type { TaskFile } from "./tasks.js";

const kNamed = 100;

export class Files {
  constructor(
    private readonly engine: Engine,
    private readonly editor: Editor,
    private readonly text: TextDocument,
    private readonly runner: Runner,
    private readonly openTask: (task: TaskFile) => void,
  ) {
    this.acceptDrops();
  }

  /// Asks for a file, or for a task and its driver.
  choose(): void {
    const input = el("input", { type: "file", multiple: true, accept: ".txt,.asl,.asm,.cas,.casl,.toml,text/plain" });
    input.addEventListener("change", () => void this.open([...(input.files ?? [])]));
    input.click();
  }

  /// Opens the first file in the editor; of a task (.toml) and one more file, the other one is the task's driver.
  async open(files: File[]): Promise<void> {
    const task = files.find(({ name }) => /\.toml$/i.test(name));
    const first = await this.read(task ?? files[0]);
    if (!first) return;
    if (!task) {
      if (await this.text.replace(first.name, first.text, first.encodingName)) {
        showNotice(t("fileOpened", { name: first.name, encoding: first.encodingName || "UTF-8" }));
      }
      return;
    }
    const other = files.find((file) => file !== task);
    const driver = await this.read(other);
    if (other && !driver) return;
    this.openTask({ name: first.name, toml: first.text, ...(driver ? { driver: driver.text } : {}) });
  }

  /// The text of a file in the encoding that the core finds, or null after a notice.
  private async read(file?: File): Promise<{ name: string; text: string; encodingName: string } | null> {
    if (!file) return null;
    const { name } = file;
    if (file.size > MOST_BYTES) {
      showNotice(t("fileTooLarge", { name, limit: MOST_BYTES / 1024 / 1024 }), true);
      return null;
    }
    let bytes: Uint8Array;
    try {
      bytes = new Uint8Array(await file.arrayBuffer());
    } catch {
      showNotice(t("fileUnreadable", { name }), true);
      return null;
    }
    const { text, encodingName, refusal } = await this.engine.call("decode", { bytes, name });
    if (!refusal) return { name, text, encodingName };
    showNotice(`${t("fileNotText", { name })} ${words(refusal)}`.trim(), true);
    return null;
  }

  async save(encoding: "utf-8" | "cp932"): Promise<void> {
    const { bytes, lacking } = await this.engine.call("encode", { text: this.text.fileText, encoding });
    if (lacking.length > 0) return this.showLacking(lacking);
    const { name } = this.text;
    download(name, [bytes as BlobPart], "text/plain");
    this.text.markSaved();
    showNotice(t("fileSaved", { name, encoding: encoding === "utf-8" ? "UTF-8" : "Shift-JIS" }));
  }

  /// Shows a report, the bytes of the dialogue's file, and offers them as a file.
  async showReport(which: "before" | "after"): Promise<void> {
    if (this.runner.running) await this.runner.pause();
    if ((this.runner.stale || !this.runner.loaded) && !(await this.runner.load())) {
      return showNotice(t("stateFaulty"), true);
    }
    const bytes = await this.engine.call("report", { which, language: language(), date: now() });
    const title = t(which === "before" ? "reportBefore" : "reportAfter");
    const text = el("pre", { class: "report" }, new TextDecoder().decode(bytes));
    const buttons = [
      { text: t("download"), value: "save" },
      { text: t("close"), value: "", primary: true },
    ];
    if ((await showDialog(title, [text], buttons, true)) !== "save") return;
    const name = which === "before" ? "aaAssembledRegMry.txt" : "aaResultantRegMry.txt";
    download(name, [bytes as BlobPart], "text/plain");
  }

  private async showLacking(lacking: Lacking[]): Promise<void> {
    const list = el("ul", { class: "lacking" });
    for (const { character, line } of lacking) {
      const code = (character.codePointAt(0) ?? 0).toString(16).toUpperCase().padStart(4, "0");
      list.append(el("li", {}, `${t("lineNumber", { line })}: ${character} (U+${code})`));
    }
    if (lacking.length >= kNamed) list.append(el("li", {}, "…"));
    const button = { text: t("close"), value: "", primary: true };
    await showDialog(t("notInSjis"), [list, el("p", {}, t("notInSjisMore"))], [button]);
    const first = lacking[0];
    if (first) this.editor.goTo(first.line, first.from, first.from + first.character.length);
  }

  private acceptDrops(): void {
    const isFile = (event: DragEvent): boolean => event.dataTransfer?.types.includes("Files") ?? false;
    const show = (shown: boolean): void => void document.body.classList.toggle("is-drop", shown);
    const dropped = (event: DragEvent): void => {
      if (!isFile(event)) return;
      event.preventDefault();
      event.stopPropagation();
      show(false);
      void this.open([...(event.dataTransfer?.files ?? [])]);
    };
    document.addEventListener("dragover", (event) => {
      if (!isFile(event)) return;
      event.preventDefault();
      show(true);
    });
    document.addEventListener("dragleave", (event) => {
      if (event.relatedTarget === null) show(false);
    });
    // In the capture phase: the editor would insert the file's text by itself.
    document.addEventListener("drop", dropped, true);
  }
}

function now(): ReportDate {
  const date = new Date();
  return {
    year: date.getFullYear(),
    month: date.getMonth() + 1,
    day: date.getDate(),
    weekday: date.getDay(),
    hour: date.getHours(),
    minute: date.getMinutes(),
    second: date.getSeconds(),
  };
}
