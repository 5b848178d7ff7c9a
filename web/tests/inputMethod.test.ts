// An input method composes text: no check runs meanwhile, and no character is lost or doubled.
import assert from "node:assert/strict";
import { test } from "node:test";
import { Learner } from "./learner.js";

test("composed text arrives once, and is checked when it is finished", async () => {
  const learner = await Learner.come();
  await learner.write("MAIN START\n RET\n END\n");
  await learner.shows(learner.page.locator(".faults-summary"), "No faults");
  await learner.toLine(2);
  const input = await learner.page.context().newCDPSession(learner.page);
  const compose = (text: string): Promise<unknown> =>
    input.send("Input.imeSetComposition", { text, selectionStart: text.length, selectionEnd: text.length });
  for (const part of [" ；", " ；に", " ；にｈ", " ；にほ", " ；にほんご"]) await compose(part);
  await learner.page.waitForTimeout(300);
  assert.match(await learner.text(), / RET ；にほんご\n/);
  assert.equal(await learner.faults.count(), 0, "no check runs during a composition");
  await input.send("Input.insertText", { text: " ；日本語" });
  await learner.shows(learner.faults, /Error · line 2/);
  assert.equal((await learner.text()).split("日本語").length, 2);
  assert.doesNotMatch(await learner.text(), /にほんご/);
  assert.ok((await learner.page.locator(".cm-wide").count()) > 0, "full-width characters are marked");
  await learner.leave();
});

test("a composition that is given up leaves the text as it was", async () => {
  const learner = await Learner.come();
  await learner.write("MAIN START\n RET\n END\n");
  await learner.toLine(2);
  const input = await learner.page.context().newCDPSession(learner.page);
  await input.send("Input.imeSetComposition", { text: "あ", selectionStart: 1, selectionEnd: 1 });
  await input.send("Input.imeSetComposition", { text: "", selectionStart: 0, selectionEnd: 0 });
  await learner.page.keyboard.type(" ;x");
  assert.match(await learner.text(), / RET ;x\n/);
  await learner.shows(learner.page.locator(".faults-summary"), "No faults");
  await learner.leave();
});
