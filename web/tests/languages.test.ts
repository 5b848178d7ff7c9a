// Both languages: the table of texts is whole, and a switch loses nothing.
import assert from "node:assert/strict";
import { test } from "node:test";
import { lessons } from "../page/lessons.js";
import { texts } from "../page/texts.js";
import { Learner } from "./learner.js";

const holes = (text: string): string[] => [...text.matchAll(/\{\w+\}/g)].map(String).sort();

test("every text exists in both languages, with the same holes", () => {
  for (const [key, { en, ja }] of Object.entries(texts)) {
    assert.ok(en.trim() && ja.trim(), key);
    assert.deepEqual(holes(en), holes(ja), key);
  }
  for (const { id, title, text } of lessons) {
    assert.ok(title.en && title.ja && text.en.length > 0, id);
    assert.equal(text.en.length, text.ja.length, id);
  }
});

test("the page begins in the browser's language, and has no text of the other one", async () => {
  const learner = await Learner.come({ language: "ja-JP" });
  assert.equal(await learner.page.locator("html").getAttribute("lang"), "ja");
  await learner.shows(learner.page.locator(".faults-summary"), /エラー 0|誤りは見つかりません/);
  const shown = await learner.page.locator("h2, .controls button, header button, .words th").allTextContents();
  const latin = shown.filter((text) => /^[A-Za-z ]{3,}$/.test(text.trim()));
  assert.deepEqual(latin.filter((text) => text !== "English"), []);
  await learner.leave();
});

test("a switch keeps text, faults, machine and console", async () => {
  const learner = await Learner.come();
  await learner.sample("ex03echo");
  await learner.run(/Waiting/);
  await learner.page.locator("#console-input").fill("half");
  await learner.page.locator("#language").click();
  await learner.shows(learner.status, /入力待ち、\d+ ステップ/);
  assert.equal(await learner.page.locator("#console-input").inputValue(), "half");
  await learner.shows(learner.console, "Your name?");
  await learner.page.keyboard.press("F8");
  await learner.shows(learner.page.locator("#live"), "誤りは見つかりませんでした");
  await learner.page.locator("#language").click();
  await learner.shows(learner.status, /Waiting for a line/);
  await learner.page.reload();
  await learner.shows(learner.page.locator("#language"), "日本語");
  await learner.leave();
});
