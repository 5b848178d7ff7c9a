// How the editor looks.  The colours are the page's custom properties, which reach into the shadow root.
import { EditorView } from "@codemirror/view";

export const editorTheme = EditorView.theme({
  "&": { height: "100%", color: "var(--ink)", backgroundColor: "var(--paper)", fontSize: "var(--code-size)" },
  "&.cm-focused": { outline: "2px solid var(--focus)", outlineOffset: "-2px" },
  ".cm-scroller": { fontFamily: "var(--mono)", lineHeight: "1.55", overflow: "auto" },
  ".cm-content": { caretColor: "var(--ink)", padding: "6px 0" },
  ".cm-cursor": { borderLeftColor: "var(--ink)", borderLeftWidth: "2px" },
  "&.cm-focused > .cm-scroller > .cm-selectionLayer .cm-selectionBackground, .cm-selectionBackground, ::selection": {
    backgroundColor: "var(--selection) !important",
  },
  ".cm-gutters": { backgroundColor: "var(--pane)", color: "var(--soft)", border: "none" },
  ".cm-lineNumbers .cm-gutterElement": { padding: "0 8px 0 6px", minWidth: "2.2em" },
  ".cm-activeLine": { backgroundColor: "transparent" },
  ".cm-activeLineGutter": { backgroundColor: "transparent", color: "var(--ink)" },
  ".cm-gutter-lint": { width: "1.3em" },

  ".tok-label": { color: "var(--code-label)", fontWeight: "600" },
  ".tok-opcode": { color: "var(--code-opcode)", fontWeight: "600" },
  ".tok-register": { color: "var(--code-register)" },
  ".tok-number": { color: "var(--code-number)" },
  ".tok-string": { color: "var(--code-string)" },
  ".tok-comment": { color: "var(--code-comment)" },

  ".cm-wide": {
    backgroundColor: "var(--wide)",
    outline: "1px dashed var(--warning)",
    outlineOffset: "-1px",
    borderRadius: "2px",
  },

  ".cm-currentLine": { backgroundColor: "var(--current)", boxShadow: "inset 3px 0 0 var(--accent)" },
  ".cm-stopGutter": { width: "1.5em", cursor: "pointer" },
  ".cm-stopGutter .cm-gutterElement": { textAlign: "center", padding: "0" },
  ".cm-breakpoint": { color: "var(--error)" },
  ".cm-arrow": { color: "var(--accent)", fontWeight: "700" },
  ".cm-heatGutter": { minWidth: "3.2em", borderRight: "1px solid var(--line)" },
  ".cm-heatGutter .cm-gutterElement": { textAlign: "right", padding: "0 6px" },
  ".cm-heat": { color: "var(--ink)", borderRadius: "2px", padding: "0 3px" },
  ".cm-heat-1": { backgroundColor: "var(--heat-1)" },
  ".cm-heat-2": { backgroundColor: "var(--heat-2)" },
  ".cm-heat-3": { backgroundColor: "var(--heat-3)" },
  ".cm-heat-4": { backgroundColor: "var(--heat-4)", fontWeight: "700" },

  ".cm-tooltip": {
    backgroundColor: "var(--raised)",
    color: "var(--ink)",
    border: "1px solid var(--line-strong)",
    borderRadius: "6px",
    boxShadow: "var(--shadow)",
    maxWidth: "min(34rem, 90vw)",
  },
  ".cm-tooltip.cm-tooltip-autocomplete > ul": { fontFamily: "var(--mono)", maxHeight: "14em" },
  ".cm-tooltip.cm-tooltip-autocomplete > ul > li": { padding: "2px 8px" },
  ".cm-tooltip-autocomplete ul li[aria-selected]": { backgroundColor: "var(--accent)", color: "var(--on-accent)" },
  ".cm-completionDetail": { fontStyle: "normal", color: "inherit", opacity: "0.8", marginLeft: "1em" },
  ".cm-diagnostic": { fontFamily: "var(--sans)", whiteSpace: "pre-wrap", padding: "6px 10px" },
  ".cm-instruction": { fontFamily: "var(--sans)", padding: "8px 12px", lineHeight: "1.5" },
  ".cm-instruction-name": { fontWeight: "600" },
  ".cm-instruction code": { fontFamily: "var(--mono)", display: "block" },
  ".cm-instruction small": { color: "var(--soft)" },
});
