// What the editor colours: the parts of a statement, and full-width characters where the language knows none.
import { HighlightStyle, StreamLanguage, syntaxHighlighting, type StringStream } from "@codemirror/language";
import { RangeSetBuilder, type Extension } from "@codemirror/state";
import { Decoration, EditorView, ViewPlugin, type DecorationSet, type ViewUpdate } from "@codemirror/view";
import { tags } from "@lezer/highlight";

type Part = "label" | "opcode" | "operands";
interface LineState {
  part: Part;
}

const kBlank = /[ \t\u3000]/;

function token(stream: StringStream, state: LineState): string | null {
  if (stream.sol()) state.part = "label";
  if (stream.eatWhile(kBlank)) {
    if (state.part === "label") state.part = "opcode";
    return null;
  }
  if (stream.eat(";")) {
    stream.skipToEnd();
    return "comment";
  }
  if (state.part === "label") {
    stream.eatWhile(/[^ \t\u3000;]/);
    return "label";
  }
  if (state.part === "opcode") {
    stream.eatWhile(/[^ \t\u3000;]/);
    state.part = "operands";
    return "opcode";
  }
  if (stream.match(/^=?'(?:[^']|'')*'?/)) return "text";
  if (stream.match(/^=?(?:#[0-9A-Fa-f]*|[-+]?[0-9]+)/)) return "number";
  if (stream.match(/^GR[0-7](?![A-Z0-9])/)) return "register";
  if (stream.match(/^[A-Za-z][A-Za-z0-9]*/)) return "name";
  stream.next();
  return null;
}

const casl = StreamLanguage.define<LineState>({
  startState: () => ({ part: "label" }),
  token,
  languageData: { commentTokens: { line: ";" } },
  tokenTable: {
    label: tags.labelName,
    opcode: tags.keyword,
    register: tags.variableName,
    name: tags.name,
    number: tags.number,
    text: tags.string,
    comment: tags.comment,
  },
});

const style = HighlightStyle.define([
  { tag: tags.labelName, class: "tok-label" },
  { tag: tags.keyword, class: "tok-opcode" },
  { tag: tags.variableName, class: "tok-register" },
  { tag: tags.name, class: "tok-name" },
  { tag: tags.number, class: "tok-number" },
  { tag: tags.string, class: "tok-string" },
  { tag: tags.comment, class: "tok-comment" },
]);

// The full-width forms of ASCII, and the full-width blank.
const kFullWidth = /[\uFF01-\uFF5E\u3000]+/g;
const wide = Decoration.mark({ class: "cm-wide" });
const wideBlank = Decoration.mark({ class: "cm-wide cm-wide-blank" });

/// The part of a line that is neither a comment nor a text in apostrophes, as pairs of offsets.
export function codeParts(line: string): [number, number][] {
  const parts: [number, number][] = [];
  let from = 0;
  let inText = false;
  for (let i = 0; i <= line.length; i++) {
    if (i === line.length || (!inText && line[i] === ";")) {
      if (!inText && i > from) parts.push([from, i]);
      break;
    }
    if (line[i] !== "'") continue;
    if (!inText && i > from) parts.push([from, i]);
    inText = !inText;
    from = i + 1;
  }
  return parts;
}

function wideMarks(view: EditorView): DecorationSet {
  const builder = new RangeSetBuilder<Decoration>();
  for (const { from, to } of view.visibleRanges) {
    for (let at = from; at <= to; ) {
      const line = view.state.doc.lineAt(at);
      for (const [start, end] of codeParts(line.text)) {
        for (const match of line.text.slice(start, end).matchAll(kFullWidth)) {
          const place = line.from + start + match.index;
          const mark = match[0].includes("\u3000") ? wideBlank : wide;
          builder.add(place, place + match[0].length, mark);
        }
      }
      at = line.to + 1;
    }
  }
  return builder.finish();
}

const wideCharacters = ViewPlugin.fromClass(
  class {
    decorations: DecorationSet;
    constructor(view: EditorView) {
      this.decorations = wideMarks(view);
    }
    update(update: ViewUpdate): void {
      if (update.docChanged || update.viewportChanged) this.decorations = wideMarks(update.view);
    }
  },
  { decorations: (plugin) => plugin.decorations },
);

export const highlighting: Extension = [casl, syntaxHighlighting(style), wideCharacters];
