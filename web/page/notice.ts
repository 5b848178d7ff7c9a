// A line below the head that says what has become of a file or a link, until it is closed.
import { el, setText } from "./dom.js";
import { labelled } from "./language.js";
import { announce } from "./live.js";

const text = el("span");
const close = el("button", { type: "button", class: "small", onclick: () => void (noticeBar.hidden = true) });
export const noticeBar = el("div", { class: "notice", hidden: true }, text, close);

export function prepareNotice(): void {
  labelled(close, "close");
}

export function showNotice(words: string, isFault = false): void {
  setText(text, words);
  noticeBar.classList.toggle("is-fault", isFault);
  noticeBar.hidden = false;
  announce(words);
}
