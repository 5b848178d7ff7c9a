// Input and output, guards, endless loops.
import assert from "node:assert/strict";
import { test } from "node:test";
import { Learner } from "./learner.js";

test("IN asks in place, a step back keeps the line that was typed and takes output back", async () => {
  const learner = await Learner.come();
  await learner.sample("ex03echo");
  await learner.run(/Waiting for a line/);
  await learner.shows(learner.console, /^Your name\?/);
  await learner.page.waitForFunction(() => document.activeElement?.id === "console-input");
  await learner.give("Hanako");
  await learner.shows(learner.status, /Ended/);
  await learner.shows(learner.console, /Your name\?.*Hanako.*Hello,.*Hanako/s);
  const output = learner.page.locator(".console-out");
  assert.equal(await output.count(), 3);
  while ((await output.count()) > 1) await learner.press("stepBack");
  while ((await learner.page.locator(".console-in").count()) > 0) await learner.press("stepBack");
  await learner.shows(learner.console, "Typed lines that IN reads again: 1");
  await learner.run(/Ended/);
  assert.equal(await output.last().textContent(), "Hanako");
  await learner.leave();
});

test("after a step back IN may ask anew", async () => {
  const learner = await Learner.come();
  await learner.sample("ex03echo");
  await learner.run(/Waiting/);
  await learner.give("one");
  await learner.shows(learner.status, /Ended/);
  await learner.press("restart");
  await learner.run(/Waiting/);
  await learner.give("two");
  await learner.shows(learner.page.locator(".console-out").last(), "two");
  while ((await learner.page.locator(".console-in").count()) > 0) await learner.press("stepBack");
  await learner.page.getByRole("button", { name: "Type anew" }).click();
  await learner.run(/Waiting/);
  await learner.give("three");
  await learner.shows(learner.page.locator(".console-out").last(), "three");
  await learner.leave();
});

test("output of markup stays text", async () => {
  const learner = await Learner.come();
  const markup = "<img src=x onerror=document.title=1><b>";
  await learner.write(`MAIN START\n OUT T,N\n RET\nT DC '${markup}'\nN DC ${markup.length}\n END\n`);
  await learner.run(/Ended/);
  assert.equal(await learner.page.locator(".console-out").textContent(), markup);
  assert.equal(await learner.page.locator(".console-out *").count(), 0);
  assert.equal(await learner.page.title(), "Zelvaro");
  await learner.leave();
});

test("a guard's words appear with the line, in both languages", async () => {
  const learner = await Learner.come();
  await learner.sample("f16pop");
  await learner.run(/Stopped at line/);
  await learner.shows(learner.page.locator(".console-stop"), "POP");
  const button = learner.page.locator(".console-stop button");
  await learner.shows(button, /^line \d+$/);
  await button.click();
  await learner.shows(learner.page.locator(".cm-currentLine"), /POP/);
  await learner.page.locator("#language").click();
  await learner.shows(learner.page.locator(".console-stop"), /スタック/);
  await learner.leave();
});

test("an endless loop never freezes the page and shows its hottest lines", async () => {
  const learner = await Learner.come();
  await learner.sample("f15loop");
  await learner.run(/Running/);
  const longest = await learner.page.evaluate(
    () =>
      new Promise<number>((resolve) => {
        let longestGap = 0;
        let last = performance.now();
        const end = last + 1500;
        const frame = (now: number): void => {
          longestGap = Math.max(longestGap, now - last);
          last = now;
          if (now < end) requestAnimationFrame(frame);
          else resolve(longestGap);
        };
        requestAnimationFrame(frame);
      }),
  );
  assert.ok(longest < 500, `a frame took ${longest} ms`);
  await learner.shows(learner.page.locator(".hottest"), /line \d+ \([\d,]{5,}\)/);
  await learner.page.locator('[data-action="run"]').click();
  await learner.shows(learner.status, /Paused after [\d,]+ steps/);
  await learner.press("stepBack");
  await learner.shows(learner.status, /Paused/);
  await learner.leave();
});

test("slow motion shows each line, and the speed can be changed during it", async () => {
  const learner = await Learner.come();
  await learner.sample("ex01loop");
  await learner.page.locator("#speed").fill("2");
  await learner.run(/Running, [2-9] steps/);
  assert.equal(await learner.page.locator(".cm-currentLine").count(), 1);
  await learner.page.locator("#speed").fill("8");
  await learner.shows(learner.status, /Ended/);
  await learner.shows(learner.console, "ABCDEFGHIJKLMNOPQRSTUVWXYZ");
  await learner.leave();
});

test("the reports have the words of the dialogue's and can be saved", async () => {
  const learner = await Learner.come();
  await learner.sample("pn100");
  await learner.run(/Ended/);
  await learner.menu("File", "Report after the run");
  const report = learner.page.locator(".report");
  await learner.shows(report, "#001A:   26:   SUM:    :#0007:    7:    +7: 0000 0000 0000 0111: 0:SUM DS 1");
  await learner.shows(report, "Src. File: pn100.txt");
  const [saved] = await Promise.all([learner.page.waitForEvent("download"), learner.page.getByRole("button", { name: "Download" }).click()]);
  assert.equal(saved.suggestedFilename(), "aaResultantRegMry.txt");
  await learner.leave();
});
