// The editor.  It lives in a shadow root, where CodeMirror uses constructable style sheets: the page's policy
// allows no style elements but its own.
import { autocompletion } from "@codemirror/autocomplete";
import { defaultKeymap, history, historyKeymap, toggleComment } from "@codemirror/commands";
import { lintGutter, setDiagnostics, type Diagnostic } from "@codemirror/lint";
import { Compartment, EditorState, type Extension } from "@codemirror/state";
import { EditorView, drawSelection, highlightSpecialChars, keymap, lineNumbers } from "@codemirror/view";
import { completionSource, instructionHover, type Instructions } from "./completion.js";
import { editorTheme } from "./editorTheme.js";
import { Emitter } from "./emitter.js";
import { highlighting } from "./highlight.js";
import { languageChanged, t } from "./language.js";
import * as marks from "./marks.js";

/// The columns at which opcodes, operands and comments begin, from 0.
const kColumns = [9, 15, 29];

/// Blanks up to the next column.
function toNextColumn(view: EditorView): boolean {
  const { state } = view;
  const { head, empty } = state.selection.main;
  if (!empty) return false;
  const column = head - state.doc.lineAt(head).from;
  const next = kColumns.find((c) => c > column) ?? column + 2 - (column % 2);
  view.dispatch(state.replaceSelection(" ".repeat(next - column)), { userEvent: "input", scrollIntoView: true });
  return true;
}

/// A new line begins at the column of the opcode, unless the line before it is empty or a comment.
function newLine(view: EditorView): boolean {
  const { state } = view;
  const { head, empty } = state.selection.main;
  const line = state.doc.lineAt(head);
  const isStatement = line.text.trim() !== "" && !line.text.startsWith(";") && head === line.to;
  if (!empty || !isStatement) return false;
  const indent = /^\S*\s+/.exec(line.text)?.[0].length ?? kColumns[0] ?? 0;
  view.dispatch(state.replaceSelection(state.lineBreak + " ".repeat(Math.min(indent, 16))), {
    userEvent: "input",
    scrollIntoView: true,
  });
  return true;
}

/// Typing over several selected lines.  Left to the browser, it would put style attributes into the text for a moment,
/// which the page's policy refuses.
function replaceLines(event: InputEvent, view: EditorView): boolean {
  const { state } = view;
  const { from, to } = state.selection.main;
  const isOneLine = to <= state.doc.lineAt(from).to;
  if (event.inputType !== "insertText" || event.data === null || event.isComposing || isOneLine) return false;
  view.dispatch(state.replaceSelection(event.data), { userEvent: "input.type", scrollIntoView: true });
  return true;
}

export class Editor {
  readonly view: EditorView;
  /// The text has changed, by the learner or by the page.
  readonly changed = new Emitter<void>();
  /// An input method has finished.
  readonly composed = new Emitter<void>();
  /// The margin of a line was clicked.
  readonly marginClicked = new Emitter<number>();
  private readonly phrases = new Compartment();
  private readonly heat = new Compartment();
  private heatShown = false;

  constructor(
    parent: HTMLElement,
    private readonly table: Instructions,
  ) {
    const root = parent.attachShadow({ mode: "open" });
    this.view = new EditorView({ state: this.newState(""), parent: root, root });
    languageChanged.on(() => this.view.dispatch({ effects: this.phrases.reconfigure(this.words()) }));
  }

  get text(): string {
    return this.view.state.doc.toString();
  }
  /// Another text takes the place of the present one, which cannot be undone.
  set text(text: string) {
    this.view.setState(this.newState(text));
    this.changed.emit();
  }

  get composing(): boolean {
    return this.view.composing || this.view.compositionStarted;
  }
  get cursorLine(): number {
    return this.view.state.doc.lineAt(this.view.state.selection.main.head).number;
  }

  focus(): void {
    this.view.focus();
  }

  /// Selects a part of a line, offsets in UTF-16 units, and moves the focus there.
  goTo(line: number, from = 0, to = from): void {
    const { doc } = this.view.state;
    const at = doc.line(Math.min(Math.max(1, line), doc.lines));
    this.view.dispatch({
      selection: { anchor: Math.min(at.from + from, at.to), head: Math.min(at.from + to, at.to) },
      effects: EditorView.scrollIntoView(at.from, { y: "center" }),
    });
    this.view.focus();
  }

  reveal(line: number): void {
    const { doc } = this.view.state;
    if (line < 1 || line > doc.lines) return;
    this.view.dispatch({ effects: EditorView.scrollIntoView(doc.line(line).from, { y: "nearest", yMargin: 40 }) });
  }

  showDiagnostics(diagnostics: Diagnostic[]): void {
    this.view.dispatch(setDiagnostics(this.view.state, diagnostics));
  }

  showHeatColumn(shown: boolean): void {
    this.heatShown = shown;
    this.view.dispatch({ effects: this.heat.reconfigure(shown ? marks.heatColumn : []) });
  }

  private newState(doc: string): EditorState {
    return EditorState.create({ doc, extensions: this.extensions() });
  }

  private words(): Extension {
    return [
      EditorState.phrases.of({
        "Control character": t("cmControl"),
        Completions: t("cmCompletions"),
        "Diagnostics": t("faults"),
      }),
      EditorView.contentAttributes.of({ "aria-label": t("editor"), tabindex: "0", spellcheck: "false", autocapitalize: "off" }),
    ];
  }

  private extensions(): Extension {
    return [
      marks.runMarks((line) => this.marginClicked.emit(line)),
      lineNumbers(),
      this.heat.of(this.heatShown ? marks.heatColumn : []),
      lintGutter(),
      history(),
      drawSelection(),
      highlightSpecialChars(),
      highlighting,
      autocompletion({ override: [completionSource(this.table)], icons: false }),
      instructionHover(this.table),
      keymap.of([
        { key: "Enter", run: newLine },
        { key: "Tab", run: toNextColumn },
        { key: "Mod-/", run: toggleComment },
      ]),
      keymap.of([...historyKeymap, ...defaultKeymap.filter((binding) => binding.key !== "Mod-Enter")]),
      EditorView.updateListener.of((update) => {
        if (update.docChanged) this.changed.emit();
      }),
      EditorView.domEventHandlers({
        beforeinput: replaceLines,
        compositionend: () => {
          // The change of the text that ends a composition comes with or after this event.
          setTimeout(() => this.composed.emit(), 0);
        },
      }),
      this.phrases.of(this.words()),
      editorTheme,
    ];
  }
}
