// Completion of opcodes, registers and labels, and what an opcode does when the mouse rests on it.
import type { Completion, CompletionContext, CompletionResult } from "@codemirror/autocomplete";
import { hoverTooltip, type EditorView, type Tooltip } from "@codemirror/view";
import { el } from "./dom.js";
import { t, words } from "./language.js";
import type { Instruction } from "./protocol.js";

/// The table of instructions; empty until the core has answered.
export class Instructions {
  rows: Instruction[] = [];

  find(mnemonic: string): Instruction | undefined {
    return this.rows.find((row) => row.mnemonic === mnemonic.toUpperCase());
  }
}

type Field = "label" | "opcode" | "operands" | "comment";

/// Which field of a statement the text before the cursor ends in.
export function fieldAt(before: string): Field {
  if (/^[^']*(?:'[^']*'[^']*)*;/.test(before)) return "comment";
  if (!/\s/.test(before)) return "label";
  return /^\S*\s+\S*$/.test(before) ? "opcode" : "operands";
}

/// The labels of a text, in their order.
export function labelsOf(text: string): string[] {
  return [...new Set([...text.matchAll(/^[A-Z][A-Z0-9]{0,7}(?=\s)/gm)].map((match) => match[0]))];
}

function opcodeOptions(table: Instructions): Completion[] {
  return table.rows
    .filter((row) => !row.nhOnly)
    .map((row) => ({ label: row.mnemonic, type: "keyword", detail: row.forms.filter(Boolean).join(" / ") }));
}

function operandOptions(text: string): Completion[] {
  const registers = Array.from({ length: 8 }, (_, i) => ({ label: `GR${i}`, type: "variable", detail: t("register") }));
  return [...registers, ...labelsOf(text).map((label) => ({ label, type: "constant", detail: t("label") }))];
}

export function completionSource(table: Instructions) {
  return (context: CompletionContext): CompletionResult | null => {
    const line = context.state.doc.lineAt(context.pos);
    const field = fieldAt(line.text.slice(0, context.pos - line.from));
    const word = context.matchBefore(/[A-Za-z][A-Za-z0-9]*/);
    if (field === "label" || field === "comment" || (!word && !context.explicit)) return null;
    return {
      from: word?.from ?? context.pos,
      options: field === "opcode" ? opcodeOptions(table) : operandOptions(context.state.doc.toString()),
      validFor: /^[A-Za-z0-9]*$/,
    };
  };
}

function description(row: Instruction): HTMLElement {
  const node = el("div", { class: "cm-instruction" });
  const name = words(row.name);
  node.append(el("div", { class: "cm-instruction-name" }, name ? `${row.mnemonic}  ${name}` : row.mnemonic));
  for (const form of row.forms) node.append(el("code", {}, `${row.mnemonic} ${form}`.trim()));
  node.append(el("code", {}, row.effect));
  if (row.kind === "machine") node.append(el("small", {}, t("effectLegend")));
  return node;
}

export function instructionHover(table: Instructions) {
  return hoverTooltip((view: EditorView, place: number): Tooltip | null => {
    const line = view.state.doc.lineAt(place);
    const match = /^(\S*\s+)([A-Za-z]+)/.exec(line.text);
    if (!match?.[1] || !match[2]) return null;
    const from = line.from + match[1].length;
    const row = table.find(match[2]);
    if (!row || place < from || place > from + match[2].length) return null;
    return { pos: from, end: from + match[2].length, above: true, create: () => ({ dom: description(row) }) };
  });
}
