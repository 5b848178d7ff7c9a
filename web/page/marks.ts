// What the editor shows of the run: the line that runs next, breakpoints, and how often each line was executed.
import { EditorState, RangeSet, StateEffect, StateField, type Extension, type Range } from "@codemirror/state";
import { Decoration, EditorView, GutterMarker, gutter, type BlockInfo } from "@codemirror/view";
import { t } from "./language.js";
import type { LineCount } from "./protocol.js";

class Sign extends GutterMarker {
  constructor(
    private readonly sign: string,
    private readonly className: string,
    private readonly name: () => string,
  ) {
    super();
  }
  override eq(other: Sign): boolean {
    return other.sign === this.sign && other.className === this.className;
  }
  override toDOM(): Node {
    const node = document.createElement("span");
    node.className = this.className;
    node.textContent = this.sign;
    node.title = this.name();
    return node;
  }
}

const stopSign = new Sign("●", "cm-breakpoint", () => t("breakpoint"));
const arrow = new Sign("▶", "cm-arrow", () => t("runsNext"));
const currentLine = Decoration.line({ class: "cm-currentLine" });

const toggleStop = StateEffect.define<number>({ map: (place, changes) => changes.mapPos(place) });
const setCurrent = StateEffect.define<number>();
const setHeat = StateEffect.define<LineCount[]>();

const stops = StateField.define<RangeSet<GutterMarker>>({
  create: () => RangeSet.empty,
  update(set, transaction) {
    set = set.map(transaction.changes);
    for (const effect of transaction.effects) {
      if (!effect.is(toggleStop)) continue;
      let there = false;
      set.between(effect.value, effect.value, () => void (there = true));
      set = there
        ? set.update({ filter: (from) => from !== effect.value })
        : set.update({ add: [stopSign.range(effect.value)] });
    }
    return set;
  },
});

/// The line that runs next; 0 for none.  A change of the text clears it.
const current = StateField.define<number>({
  create: () => 0,
  update(line, transaction) {
    if (transaction.docChanged) line = 0;
    for (const effect of transaction.effects) if (effect.is(setCurrent)) line = effect.value;
    return line > transaction.state.doc.lines ? 0 : line;
  },
  provide: (field) =>
    EditorView.decorations.from(field, (line) => (view) =>
      line ? Decoration.set([currentLine.range(view.state.doc.line(line).from)]) : Decoration.none,
    ),
});

/// A line is counted by the number of digits more or less than the hottest one has.
function heatClass(count: number, most: number): string {
  const share = Math.log1p(count) / Math.log1p(most);
  return `cm-heat cm-heat-${Math.max(1, Math.ceil(share * 4))}`;
}

const heat = StateField.define<RangeSet<GutterMarker>>({
  create: () => RangeSet.empty,
  update(set, transaction) {
    if (transaction.docChanged) set = RangeSet.empty;
    for (const effect of transaction.effects) {
      if (!effect.is(setHeat)) continue;
      const most = Math.max(1, ...effect.value.map((row) => row.count));
      const marks: Range<GutterMarker>[] = [];
      for (const { line, count } of effect.value) {
        if (line < 1 || line > transaction.state.doc.lines) continue;
        const name = (): string => t("times", { n: count });
        marks.push(new Sign(shortCount(count), heatClass(count, most), name).range(transaction.state.doc.line(line).from));
      }
      set = RangeSet.of(marks, true);
    }
    return set;
  },
});

/// A count in at most five characters.
export function shortCount(count: number): string {
  if (count < 100_000) return String(count);
  if (count < 10_000_000) return `${Math.floor(count / 1000)}k`;
  return `${Math.floor(count / 1_000_000)}M`;
}

function lineNumber(state: EditorState, place: number): number {
  return state.doc.lineAt(place).number;
}

const heatGutter = gutter({ class: "cm-heatGutter", markers: (view) => view.state.field(heat) });

/// The extensions; `clicked` is called with the line whose margin was clicked.
export function runMarks(clicked: (line: number) => void): Extension {
  const stopGutter = gutter({
    class: "cm-stopGutter",
    markers: (view) => {
      const line = view.state.field(current);
      const set = view.state.field(stops);
      return line ? set.update({ add: [arrow.range(view.state.doc.line(line).from)], sort: true }) : set;
    },
    initialSpacer: () => stopSign,
    domEventHandlers: {
      mousedown(view: EditorView, block: BlockInfo) {
        clicked(lineNumber(view.state, block.from));
        return true;
      },
    },
  });
  return [stops, current, heat, stopGutter];
}
export const heatColumn: Extension = heatGutter;

/// The lines with a breakpoint.
export function breakpointLines(state: EditorState): number[] {
  const lines: number[] = [];
  for (const cursor = state.field(stops).iter(); cursor.value; cursor.next()) {
    const line = lineNumber(state, cursor.from);
    if (!lines.includes(line)) lines.push(line);
  }
  return lines;
}

/// Sets or clears the breakpoint of a line; returns whether there is one now.
export function toggleBreakpoint(view: EditorView, line: number): boolean {
  view.dispatch({ effects: toggleStop.of(view.state.doc.line(line).from) });
  return breakpointLines(view.state).includes(line);
}

export function showCurrentLine(view: EditorView, line: number): void {
  if (view.state.field(current) !== line) view.dispatch({ effects: setCurrent.of(line) });
}

export function showHeat(view: EditorView, counts: LineCount[]): void {
  view.dispatch({ effects: setHeat.of(counts) });
}
