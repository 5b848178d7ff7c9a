// Links that carry a text or a task.
import assert from "node:assert/strict";
import { deflateRawSync } from "node:zlib";
import { test } from "node:test";
import { Learner } from "./learner.js";

function fragment(value: string, kind = "text"): string {
  return `#${kind}=` + deflateRawSync(Buffer.from(value)).toString("base64url");
}
const program = "; shared 共有\nMAIN START\n RET\n END\n";

test("a link is made and opened: not run, and the kept text is asked for", async () => {
  const learner = await Learner.come();
  await learner.page.context().grantPermissions(["clipboard-read", "clipboard-write"]);
  await learner.write(program);
  await learner.menu("File", "Copy a link to this text");
  await learner.shows(learner.page.locator(".notice"), "The link is copied");
  const link = await learner.page.evaluate(() => navigator.clipboard.readText());
  assert.match(link, /#text=[\w-]+$/);
  await learner.write("; mine\nMAIN START\n RET\n END\n");
  await learner.page.waitForTimeout(600);
  await learner.page.evaluate((hash) => (location.hash = hash), link.slice(link.indexOf("#")));
  await learner.page.getByRole("button", { name: "Keep my text" }).click();
  await learner.shows(learner.editor, "; mine");
  await learner.page.evaluate((hash) => (location.hash = hash), link.slice(link.indexOf("#")));
  await learner.page.getByRole("button", { name: "Replace" }).click();
  await learner.shows(learner.editor, "; shared 共有");
  await learner.page.waitForTimeout(500);
  await learner.shows(learner.status, /Ready to run|Not assembled/);
  assert.equal(new URL(learner.page.url()).hash, "");
  await learner.leave();
});

test("a link opens in a new page, and a lesson has a link", async () => {
  const learner = await Learner.come({ fragment: fragment(JSON.stringify({ name: "a.txt", text: program })) });
  await learner.shows(learner.editor, "; shared 共有");
  assert.equal(await learner.page.locator("#file-name").inputValue(), "a.txt");
  await learner.page.evaluate(() => (location.hash = "#lesson=3"));
  await learner.shows(learner.page.locator("#lesson-title"), "Lesson 3 of 10");
  await learner.leave();
});

test("a teacher's own task opens with its driver, has a link, and marks", async () => {
  const learner = await Learner.come();
  await learner.page.context().grantPermissions(["clipboard-read", "clipboard-write"]);
  const [chooser] = await Promise.all([learner.page.waitForEvent("filechooser"), learner.menu("File", "Open a file…")]);
  await chooser.setFiles(["task.toml", "driver.txt"].map((name) => `../workspace/tasks/mult/${name}`));
  await learner.shows(learner.page.locator("#lesson-title"), "Task: A subroutine that multiplies");
  await learner.page.getByRole("button", { name: "Copy a link" }).click();
  await learner.shows(learner.page.locator(".notice"), "The link is copied");
  const link = await learner.page.evaluate(() => navigator.clipboard.readText());
  await learner.leave();

  const other = await Learner.come({ fragment: link.slice(link.indexOf("#task=")) });
  await other.shows(other.page.locator("#lesson-title"), "Task: A subroutine that multiplies");
  await other.shows(other.page.locator("#lesson"), "The submission is the subroutine MULT");
  await other.write("MULT START\n LAD GR0,42\n RET\n END\n");
  await other.page.getByRole("button", { name: "Check", exact: true }).click();
  await other.shows(other.page.locator(".grade"), /✓ 6 times 7.*✕ 7 times 0/s);
  const endless = 'title = "<b>x"\npoints = 1\nsteps = 100000000000\n[[case]]\nname = "a"\npoints = 1\n';
  await other.page.evaluate((hash) => (location.hash = hash), fragment(JSON.stringify({ name: "t", toml: endless }), "task"));
  await other.shows(other.page.locator("#lesson-title"), "Task: <b>x");
  await other.write("M START\nL JUMP L\n END\n");
  await other.page.getByRole("button", { name: "Check", exact: true }).click();
  await other.shows(other.page.locator(".grade"), /0 of 1/);
  await other.page.evaluate((hash) => (location.hash = hash), fragment('{"toml":"title ="}', "task"));
  await other.page.getByRole("button", { name: "Check", exact: true }).click();
  await other.shows(other.page.locator(".grade-fault"), /task.toml/);
  await other.leave();
});

test("damaged and oversized links are refused with a message", async () => {
  const learner = await Learner.come();
  const bad = ["#text=%%%", "#text=AAAA", fragment("no json"), fragment('{"text":5}'), fragment('{"toml":5}', "task"), "#lesson=99"];
  for (const hash of bad) {
    await learner.page.evaluate(() => void document.querySelector<HTMLElement>(".notice button")?.click());
    await learner.page.evaluate((value) => (location.hash = value), hash);
    await learner.shows(learner.page.locator(".notice:not([hidden])"), "The link is damaged");
  }
  const bomb = fragment(JSON.stringify({ name: "b", text: "A".repeat(10_000_000) }));
  assert.ok(bomb.length < 20_000);
  await learner.page.evaluate((value) => (location.hash = value), bomb);
  await learner.shows(learner.page.locator(".notice"), "The link carries too much");
  await learner.shows(learner.editor, "MAIN");
  await learner.leave();
});
