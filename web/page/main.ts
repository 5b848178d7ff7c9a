// Puts the parts of the page together.
import { Checker } from "./check.js";
import { Instructions } from "./completion.js";
import { Console } from "./console.js";
import { Controls } from "./controls.js";
import { Course, allLessons } from "./course.js";
import { showDialog } from "./dialogs.js";
import { TextDocument } from "./document.js";
import { el } from "./dom.js";
import { Editor } from "./editor.js";
import { Engine } from "./engine.js";
import { Faults } from "./faults.js";
import { Files } from "./files.js";
import { Follower } from "./follow.js";
import { head } from "./head.js";
import { browserLanguage, labelled, setLanguage, t } from "./language.js";
import type { Lesson } from "./lessons.js";
import { announce, liveRegion } from "./live.js";
import { breakpointLines, toggleBreakpoint } from "./marks.js";
import { Memory } from "./memory.js";
import { noticeBar, prepareNotice, showNotice } from "./notice.js";
import { movePane } from "./panes.js";
import { Registers } from "./registers.js";
import { Runner } from "./run.js";
import { settings } from "./settings.js";
import { fragmentOf, readFragment } from "./share.js";
import { listenForKeys, showShortcuts, type Action } from "./shortcuts.js";
import { Stack } from "./stack.js";
import { lessonOfTask } from "./tasks.js";
import { applyTheme } from "./theme.js";

class Page {
  private readonly engine = new Engine();
  private readonly table = new Instructions();
  private readonly editorHost = el("div", { class: "editor-host" });
  private readonly editor = new Editor(this.editorHost, this.table);
  private readonly text = new TextDocument(this.editor);
  private readonly name = (): string => this.text.name;
  private readonly runner = new Runner(this.engine, this.editor, this.name, () => breakpointLines(this.editor.view.state));
  private readonly checker = new Checker(this.engine, this.editor, this.name);
  private readonly files = new Files(this.engine, this.editor, this.text, this.runner, (task) => this.openLesson(lessonOfTask(task)));
  private readonly faults = new Faults(this.checker, this.editor);
  private readonly course = new Course(this.engine, this.editor, this.text, (lesson) => void this.shareLesson(lesson));

  async begin(): Promise<void> {
    this.layOut();
    new Follower(this.engine, this.editor, this.runner, this.checker);
    this.text.replaced.on(() => void this.runner.forget());
    this.editor.marginClicked.on((line) => void this.toggleBreakpoint(line));
    listenForKeys((action) => this.act(action));
    window.addEventListener("hashchange", () => void this.openLink());
    this.text.begin();
    this.table.rows = await this.engine.call("instructions", null);
    await this.openLink();
  }

  private layOut(): void {
    const act = (action: Action): void => this.act(action);
    const editorPane = el("section", { class: "pane editor-pane", id: "editor", tabindex: -1 }, this.editorHost);
    labelled(editorPane, "editor", "aria-label");
    const controls = new Controls(this.runner, this.editor, act);
    const work = el("div", { class: "work" }, controls.node, this.course.node, editorPane, this.faults.node);
    const machine = el("div", { class: "machine" });
    labelled(machine, "machine", "aria-label");
    machine.setAttribute("role", "group");
    const top = el("div", { class: "machine-top" }, new Registers(this.runner).node, new Stack(this.runner).node);
    machine.append(top, new Memory(this.engine, this.runner).node, new Console(this.runner, this.editor).node);
    const skip = el("a", { class: "skip", href: "#editor", onclick: (event) => (event.preventDefault(), this.editor.focus()) });
    prepareNotice();
    const header = head({
      text: this.text,
      files: this.files,
      openSample: (name, text) => void this.text.replace(name, text),
      openLesson: (lesson) => this.openLesson(lesson),
      share: () => void this.shareText(),
      showHeat: (shown) => this.editor.showHeatColumn(shown),
    });
    document.body.append(labelled(skip, "skip"), header, noticeBar, el("main", {}, work, machine), liveRegion);
    this.editor.showHeatColumn(settings().heat ?? false);
  }

  private act(action: Action): void {
    const { runner } = this;
    const actions: Record<Action, () => unknown> = {
      run: () => (runner.running ? runner.pause() : this.go({ kind: "run" })),
      pause: () => runner.pause(),
      step: () => this.go({ kind: "step" }),
      stepBack: () => runner.go({ kind: "back" }),
      stepOver: () => this.go({ kind: "over" }),
      stepOut: () => this.go({ kind: "out" }),
      runToCursor: () => this.go({ kind: "to", line: this.editor.cursorLine }),
      restart: () => runner.load(),
      breakpoint: () => this.toggleBreakpoint(this.editor.cursorLine),
      keyNextFault: () => this.faults.visit(1),
      keyPreviousFault: () => this.faults.visit(-1),
      keyPanes: () => movePane(1, this.editor),
      keyPanesBack: () => movePane(-1, this.editor),
      saveUtf8: () => this.files.save("utf-8"),
      open: () => this.files.choose(),
      keyHelp: () => showShortcuts(),
    };
    void actions[action]();
  }

  /// Runs, unless the text has errors: then goes to the first one.
  private async go(ask: Parameters<Runner["go"]>[0]): Promise<void> {
    await this.runner.go(ask);
    if (this.runner.phase !== "faulty") return;
    announce(t("stateFaulty"));
    this.faults.visit(1);
  }

  private async toggleBreakpoint(line: number): Promise<void> {
    const isSet = toggleBreakpoint(this.editor.view, line);
    announce(t(isSet ? "breakpointSet" : "breakpointCleared", { line }));
    const lines = await this.runner.sendBreakpoints();
    const hasMachine = this.runner.loaded !== null && !this.runner.stale;
    if (isSet && hasMachine && !lines.includes(line)) showNotice(t("breakpointNowhere", { line }));
  }

  private openLesson(lesson: Lesson): void {
    this.course.open(lesson);
    document.getElementById("lesson")?.focus();
  }

  private async shareText(): Promise<void> {
    await this.share(await fragmentOf("text", { name: this.text.name, text: this.editor.text }));
  }

  /// A link to a lesson of the page has its number only; one to a teacher's own task has the whole task.
  private async shareLesson(lesson: Lesson): Promise<void> {
    const { id: name, task: toml, driver } = lesson;
    const file = driver === undefined ? { name, toml } : { name, toml, driver };
    await this.share(allLessons.includes(lesson) ? `#lesson=${name}` : await fragmentOf("task", file));
  }

  /// Copies a link, and shows it where the browser does not let the page copy.
  private async share(fragment: string | null): Promise<void> {
    if (!fragment) return showNotice(t("linkTooLarge"), true);
    const link = location.href.replace(/#.*$/s, "") + fragment;
    const field = el("textarea", { readonly: true, rows: 5, class: "link-field" }, link);
    field.setAttribute("aria-label", t("linkTitle"));
    try {
      await navigator.clipboard.writeText(link);
      showNotice(t("linkCopied"));
    } catch {
      setTimeout(() => field.select(), 0);
      await showDialog(t("linkTitle"), [el("p", {}, t("linkMore")), field], [{ text: t("close"), value: "", primary: true }]);
    }
  }

  /// Opens what the address carries, and takes it out of the address, so that a reload keeps the learner's text.
  private async openLink(): Promise<void> {
    const shared = await readFragment(location.hash);
    if (shared.kind === "none") return;
    history.replaceState(null, "", location.href.replace(/#.*$/s, ""));
    if (shared.kind === "broken") return showNotice(t("linkBroken"), true);
    if (shared.kind === "tooLarge") return showNotice(t("linkTooLarge"), true);
    if (shared.kind === "text") {
      if (await this.text.replace(shared.name, shared.text)) showNotice(`${t("linkFrom")}: ${shared.name}`);
      return;
    }
    const lesson = shared.kind === "task" ? lessonOfTask(shared.file) : allLessons.find(({ id }) => id === shared.id);
    if (lesson) this.openLesson(lesson);
    else showNotice(t("linkBroken"), true);
  }
}

function begin(): void {
  applyTheme();
  setLanguage(settings().language ?? browserLanguage());
  void new Page().begin();
}

// The worker and the core are elements after this script.
if (document.readyState === "loading") document.addEventListener("DOMContentLoaded", begin);
else begin();
