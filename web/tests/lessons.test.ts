// The course: each program has something to do, and each answer passes.
import assert from "node:assert/strict";
import { test } from "node:test";
import { lessons } from "../page/lessons.js";
import { Learner } from "./learner.js";

test("each lesson's program does not pass, its answer does", async () => {
  const learner = await Learner.come();
  await learner.page.evaluate(() => (location.hash = "#lesson=1"));
  for (const { id, program, answer } of lessons) {
    await learner.shows(learner.page.locator("#lesson-title"), `Lesson ${id} of 10`);
    for (const [text, passes] of [[program, false], [answer, true]] as const) {
      assert.ok(text);
      await learner.write(text);
      await learner.page.getByRole("button", { name: "Check", exact: true }).click();
      await learner.shows(learner.page.locator(".grade"), passes ? /Everything passed/ : /0 of|[1-9] of/);
      assert.equal(await learner.page.locator(".grade.is-passed").count(), passes ? 1 : 0, `lesson ${id}`);
      assert.equal(await learner.page.locator(".grade-fault").count(), 0, `lesson ${id} is assembled`);
    }
    await learner.page.getByRole("button", { name: "Next", exact: true }).click();
  }
  await learner.shows(learner.page.locator("#lesson-title"), /Task: A greeting/);
  await learner.leave();
});

test("a task with a driver marks a subroutine, and a hidden case shows no values", async () => {
  const learner = await Learner.come();
  await learner.page.evaluate(() => (location.hash = "#lesson=mult"));
  await learner.write("MULT START\n LAD GR0,42\n RET\n END\n");
  await learner.page.getByRole("button", { name: "Check", exact: true }).click();
  await learner.shows(learner.page.locator(".grade"), /✓ 6 times 7.*✕ 7 times 0/s);
  await learner.page.evaluate(() => (location.hash = "#lesson=sum"));
  await learner.shows(learner.page.locator("#lesson-title"), "Sum of a table");
  await learner.write("M START\n ADDA GR1,TAB\n RET\nTAB DS 9\nN DC 0\nSUM DC 42\n END\n");
  await learner.page.getByRole("button", { name: "Check", exact: true }).click();
  await learner.shows(learner.page.locator(".grade"), /✕ a hidden case/);
  await learner.leave();
});
