// The head of the page: menus, the name of the text, languages.
import type { TextDocument } from "./document.js";
import { el, setText } from "./dom.js";
import type { Files } from "./files.js";
import { labelled, language, languageChanged, setLanguage, t, words } from "./language.js";
import { lessons, type Lesson } from "./lessons.js";
import { Menu, type MenuItem } from "./menu.js";
import { samples } from "./samples.js";
import { keepSettings, settings } from "./settings.js";
import { showShortcuts } from "./shortcuts.js";
import { skeleton } from "./skeleton.js";
import { tasks } from "./tasks.js";
import { setTheme } from "./theme.js";

export interface HeadActions {
  text: TextDocument;
  files: Files;
  openSample: (name: string, text: string) => void;
  openLesson: (lesson: Lesson) => void;
  share: () => void;
  showHeat: (shown: boolean) => void;
}

function fileMenu(actions: HeadActions): Menu {
  const { files } = actions;
  return new Menu("fileMenu", [
    { key: "newText", run: () => actions.openSample("program.txt", skeleton) },
    { key: "open", run: () => files.choose() },
    { key: "saveUtf8", run: () => void files.save("utf-8") },
    { key: "saveSjis", run: () => void files.save("cp932") },
    { key: "share", run: actions.share },
    { key: "reportBefore", group: "reports", run: () => void files.showReport("before") },
    { key: "reportAfter", run: () => void files.showReport("after") },
  ]);
}

function sampleMenu(actions: HeadActions): Menu {
  const items = samples.map(({ name, text, group }): MenuItem => {
    const run = (): void => actions.openSample(`${name}.txt`, text);
    return { text: name, run, ...(group ? { group } : {}) };
  });
  return new Menu("samples", items);
}

function learnMenu(actions: HeadActions): Menu {
  const items = [...lessons, ...tasks].map((lesson, i): MenuItem => {
    const number = i < lessons.length ? `${i + 1}. ` : "";
    const item: MenuItem = { title: () => number + words(lesson.title), run: () => actions.openLesson(lesson) };
    if (i === 0) item.group = "lessons";
    if (i === lessons.length) item.group = "tasks";
    return item;
  });
  return new Menu("learn", items);
}

function viewMenu(actions: HeadActions): Menu {
  const heat = (): void => {
    const shown = !(settings().heat ?? false);
    keepSettings({ heat: shown });
    actions.showHeat(shown);
  };
  return new Menu("view", [
    { key: "heat", run: heat },
    { key: "themeSystem", group: "theme", run: () => setTheme("system") },
    { key: "themeLight", run: () => setTheme("light") },
    { key: "themeDark", run: () => setTheme("dark") },
    { key: "shortcuts", group: "help", run: () => void showShortcuts() },
  ]);
}

/// The name of the text, which saving uses, and the encoding it was read in.
function nameField(text: TextDocument): HTMLElement {
  const field = el("input", { type: "text", id: "file-name", spellcheck: "false", autocomplete: "off", maxlength: 100 });
  labelled(field, "fileName", "aria-label");
  labelled(field, "fileName", "title");
  const encoding = el("span", { class: "encoding" });
  const show = (): void => {
    field.value = text.name;
    setText(encoding, text.encodingName ? t("encodingRead", { encoding: text.encodingName }) : "");
  };
  field.addEventListener("change", () => text.rename(field.value));
  text.changed.on(show);
  languageChanged.on(show);
  return el("span", { class: "file-name" }, field, encoding);
}

function languageButton(): HTMLElement {
  const button = el("button", { type: "button", id: "language", class: "menu-button" });
  labelled(button, "switchLanguage");
  labelled(button, "switchLanguageTitle", "title");
  const other = (): "ja" | "en" => (language() === "ja" ? "en" : "ja");
  const mark = (): void => button.setAttribute("lang", other());
  languageChanged.on(mark);
  mark();
  button.addEventListener("click", () => {
    keepSettings({ language: other() });
    setLanguage(other());
  });
  return button;
}

export function head(actions: HeadActions): HTMLElement {
  const title = el("h1", {}, "Zelvaro");
  const menus = [fileMenu, sampleMenu, learnMenu, viewMenu].map((make) => make(actions).node);
  return el("header", { id: "head" }, title, ...menus, nameField(actions.text), languageButton());
}
