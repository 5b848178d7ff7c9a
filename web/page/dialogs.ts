// Dialogs: the browser's own, which keep the focus and close with Escape.
import { el } from "./dom.js";
import { t } from "./language.js";

interface Button {
  text: string;
  value: string;
  primary?: boolean;
}

/// Shows a dialog and answers the value of the button that closed it, "" for Escape.
export function showDialog(title: string, content: (Node | string)[], buttons: Button[], wide = false): Promise<string> {
  const heading = el("h2", { id: "dialog-title" }, title);
  const body = el("div", { class: "dialog-body", tabindex: wide ? 0 : undefined }, ...content);
  if (wide) body.setAttribute("role", "group");
  if (wide) body.setAttribute("aria-labelledby", "dialog-title");
  const row = el("div", { class: "dialog-buttons" });
  const dialog = el("dialog", { class: wide ? "wide" : "", "aria-labelledby": "dialog-title" }, heading, body, row);
  for (const { text, value, primary } of buttons) {
    row.append(el("button", { type: "button", class: primary ? "primary" : "", onclick: () => dialog.close(value) }, text));
  }
  document.body.append(dialog);
  dialog.showModal();
  return new Promise((resolve) => {
    dialog.addEventListener("close", () => {
      dialog.remove();
      resolve(dialog.returnValue);
    });
  });
}

export async function tell(title: string, ...content: (Node | string)[]): Promise<void> {
  await showDialog(title, content.map(paragraph), [{ text: t("close"), value: "", primary: true }]);
}

/// Asks whether the text in the editor may go.
export async function mayReplace(name: string): Promise<boolean> {
  const buttons = [
    { text: t("replace"), value: "yes" },
    { text: t("keep"), value: "", primary: true },
  ];
  return (await showDialog(t("replaceTitle"), [paragraph(t("replaceText", { name }))], buttons)) === "yes";
}

function paragraph(content: Node | string): Node {
  return typeof content === "string" ? el("p", {}, content) : content;
}
