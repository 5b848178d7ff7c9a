// The first hour without a mouse.
import assert from "node:assert/strict";
import { test } from "node:test";
import { Learner } from "./learner.js";

test("open a sample, find its fault, mend it, run, step, go back: by keys alone", async () => {
  const learner = await Learner.come();
  const { keyboard } = learner.page;
  const focused = (): Promise<string> => learner.page.evaluate(() => document.activeElement?.textContent ?? "");
  await keyboard.press("Tab");
  assert.equal(await focused(), "Skip to the editor");
  for (const name of ["File", "Samples"]) {
    await keyboard.press("Tab");
    assert.match(await focused(), new RegExp(name));
  }
  await keyboard.press("Enter");
  while (!(await focused()).startsWith("f02comma")) await keyboard.press("ArrowDown");
  await keyboard.press("Enter");
  await learner.shows(learner.page.locator(".faults-summary"), /[1-9] errors/);
  await keyboard.press("F8");
  await learner.shows(learner.page.locator("#live"), /Error: line \d+: /);
  const line = Number(/line (\d+)/.exec((await learner.page.locator("#live").textContent()) ?? "")?.[1]);
  const faulty = (await learner.text()).split("\n")[line - 1]!;
  const mended = faulty.replace(/(GR\d)\s+(?=[A-Z=#])/, "$1,");
  assert.notEqual(mended, faulty);
  await keyboard.press("Home");
  await keyboard.press("Shift+End");
  await keyboard.insertText(mended);
  await learner.shows(learner.page.locator(".faults-summary"), /No faults|0 errors/);
  await keyboard.press("Control+Enter");
  await learner.shows(learner.status, /Ended|Waiting/);
  await learner.shows(learner.page.locator("#live"), /Ended|Waiting/);
  await keyboard.press("Shift+F4");
  await learner.shows(learner.status, "Ready");
  for (const [key, steps] of [["F7", 1], ["F7", 2], ["Shift+F7", 1]] as const) {
    await keyboard.press(key);
    await learner.shows(learner.status, new RegExp(`after ${steps} steps`));
  }
  await learner.leave();
});

test("F6 goes round all parts, Escape and Tab leave the editor", async () => {
  const learner = await Learner.come();
  const { keyboard } = learner.page;
  const part = (): Promise<string> => learner.page.evaluate(() => document.activeElement?.closest("[id][tabindex='-1'], header, .controls")?.id ?? "");
  const parts = new Set<string>();
  for (let i = 0; i < 8; i++) {
    await keyboard.press("F6");
    parts.add(await part());
  }
  assert.deepEqual([...parts].sort(), ["console", "controls", "editor", "faults", "head", "memory", "registers", "stack"]);
  await learner.editor.focus();
  await keyboard.press("Tab");
  assert.equal(await part(), "editor");
  await keyboard.press("Escape");
  await keyboard.press("Tab");
  assert.notEqual(await part(), "editor");
  await learner.leave();
});

test("F1 lists the keys in a dialog that Escape closes", async () => {
  const learner = await Learner.come();
  await learner.page.keyboard.press("F1");
  await learner.shows(learner.page.locator("dialog"), /Ctrl\+Enter.*Run.*F7.*Step/s);
  await learner.page.keyboard.press("Escape");
  assert.equal(await learner.page.locator("dialog").count(), 0);
  await learner.leave();
});
