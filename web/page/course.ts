// Lessons and tasks beside the editor.
import type { TextDocument } from "./document.js";
import { el, setText } from "./dom.js";
import type { Editor } from "./editor.js";
import type { Engine } from "./engine.js";
import { labelled, language, languageChanged, t, words } from "./language.js";
import { lessons, type Lesson } from "./lessons.js";
import { announce } from "./live.js";
import type { Grade, GradeCase } from "./protocol.js";
import { keepSettings, settings } from "./settings.js";
import { tasks } from "./tasks.js";

export const allLessons: Lesson[] = [...lessons, ...tasks];

/// A paragraph; what is between backquotes becomes code.
function paragraph(text: string): HTMLElement {
  const parts = text.split("`").map((part, i) => (i % 2 ? el("code", {}, part) : part));
  return el("p", {}, ...parts);
}

export class Course {
  readonly node: HTMLElement;
  private lesson: Lesson | null = null;
  private grade: Grade | null = null;
  private answerShown = false;
  private readonly title = el("h2", { id: "lesson-title" });
  private readonly body = el("div", { class: "pane-body lesson-body", tabindex: 0, role: "group", "aria-labelledby": "lesson-title" });

  constructor(
    private readonly engine: Engine,
    private readonly editor: Editor,
    private readonly text: TextDocument,
    private readonly share: (lesson: Lesson) => void,
  ) {
    const close = el("button", { type: "button", class: "small", onclick: () => this.close() });
    labelled(close, "close");
    this.node = el("section", { class: "pane lesson-pane", id: "lesson", "aria-labelledby": "lesson-title", tabindex: -1, hidden: true });
    this.node.append(el("div", { class: "pane-head" }, this.title, close), this.body);
    languageChanged.on(() => this.show());
  }

  open(lesson: Lesson): void {
    this.lesson = lesson;
    this.grade = null;
    this.answerShown = false;
    this.node.hidden = false;
    document.body.classList.add("has-lesson");
    this.show();
    this.body.scrollTop = 0;
  }

  private close(): void {
    this.node.hidden = true;
    document.body.classList.remove("has-lesson");
    this.editor.focus();
  }

  private show(): void {
    const { lesson } = this;
    if (!lesson) return;
    const number = lessons.indexOf(lesson) + 1;
    const head = number ? `${t("lessonOf", { n: number, of: lessons.length })}: ` : `${t("task")}: `;
    setText(this.title, head + words(lesson.title));
    const load = el("button", { type: "button", onclick: () => void this.text.replace(this.fileName(lesson), lesson.program) }, t("loadProgram"));
    const check = el("button", { type: "button", class: "primary", id: "check-button", onclick: () => void this.check() }, t("check"));
    const share = el("button", { type: "button", onclick: () => this.share(lesson) }, t("shareTask"));
    const row = el("div", { class: "lesson-buttons" }, load, check, share);
    this.body.replaceChildren(...lesson.text[language()].map(paragraph), row);
    if (this.grade) this.body.append(this.result(this.grade));
    this.body.append(this.answer(lesson), this.way(lesson));
  }

  private fileName(lesson: Lesson): string {
    return lessons.includes(lesson) ? `lesson${lesson.id}.txt` : `${lesson.id.replace(/\.toml$/i, "")}.txt`;
  }

  private answer(lesson: Lesson): HTMLElement {
    if (!lesson.answer) return el("div");
    const details = el("details", { open: this.answerShown }, el("summary", {}, t("answer")), el("pre", { tabindex: 0 }, lesson.answer));
    details.addEventListener("toggle", () => (this.answerShown = details.open));
    return details;
  }

  /// The buttons to the lesson before and after; a teacher's own task is not among them.
  private way(lesson: Lesson): HTMLElement {
    const at = allLessons.indexOf(lesson);
    const row = el("div", { class: "lesson-way" });
    if (at < 0) return row;
    for (const [key, other] of [["previous", allLessons[at - 1]], ["next", allLessons[at + 1]]] as const) {
      if (other) row.append(el("button", { type: "button", onclick: () => this.open(other) }, t(key)));
    }
    const isDone = settings().lessonsDone?.includes(lesson.id);
    if (isDone) row.append(el("span", { class: "done" }, `✓ ${t("done")}`));
    return row;
  }

  private async check(): Promise<void> {
    const { lesson } = this;
    if (!lesson) return;
    const source = { text: this.editor.text, name: this.text.name };
    const ask = { task: lesson.task, source, ...(lesson.driver === undefined ? {} : { driver: lesson.driver }) };
    this.grade = await this.engine.call("grade", ask);
    const passed = this.grade.fault === null && this.grade.points === this.grade.of;
    if (passed && allLessons.includes(lesson)) keepSettings({ lessonsDone: [...new Set([...(settings().lessonsDone ?? []), lesson.id])] });
    this.show();
    document.getElementById("check-button")?.focus();
    announce(passed ? t("allPassed") : t("points", { points: this.grade.points, of: this.grade.of }));
  }

  private result(grade: Grade): HTMLElement {
    const passed = grade.fault === null && grade.points === grade.of;
    const node = el("div", { class: `grade ${passed ? "is-passed" : "is-failed"}` });
    const points = t("points", { points: grade.points, of: grade.of });
    node.append(el("p", { class: "grade-sum" }, passed ? `✓ ${t("allPassed")} ${points}` : `✕ ${points}`));
    if (grade.fault) node.append(el("p", { class: "grade-fault" }, words(grade.fault).trim()));
    const list = el("ul");
    for (const one of grade.cases) list.append(this.caseRow(one));
    node.append(list);
    return node;
  }

  private caseRow(one: GradeCase): HTMLElement {
    const name = one.hidden ? t("hiddenCase") : one.name;
    const node = el("li", {}, `${one.passed ? "✓" : "✕"} ${name}: ${t(one.passed ? "passed" : "failed")}`);
    for (const reason of one.reasons) node.append(el("p", { class: "reason" }, words(reason).trim()));
    return node;
  }
}
