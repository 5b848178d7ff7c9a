// axe-core on each view in both themes, narrow windows and zoom.
import assert from "node:assert/strict";
import { readFile } from "node:fs/promises";
import { createRequire } from "node:module";
import { test } from "node:test";
import { ROOT } from "./browser.js";
import { Learner } from "./learner.js";

interface Violation {
  id: string;
  nodes: { target: unknown[]; failureSummary?: string }[];
}
const axe = await readFile(createRequire(`${ROOT}/web/package.json`).resolve("axe-core/axe.min.js"), "utf8");

async function findsNothing(learner: Learner, view: string): Promise<void> {
  if (!(await learner.page.evaluate(() => "axe" in window))) await learner.page.evaluate(axe);
  const violations = await learner.page.evaluate(async () => {
    const run = (window as unknown as { axe: { run: () => Promise<{ violations: Violation[] }> } }).axe.run;
    return (await run()).violations;
  });
  const found = violations.map((v) => `${v.id}: ${v.nodes.map((n) => `${n.target.join(" ")} ${n.failureSummary ?? ""}`).join("; ")}`);
  assert.deepEqual(found, [], view);
}

for (const scheme of ["light", "dark"] as const) {
  test(`axe-core finds nothing in any view, ${scheme}`, async () => {
    const learner = await Learner.come({ scheme });
    await findsNothing(learner, "skeleton");
    await learner.sample("f02comma");
    await learner.shows(learner.faults, "Error");
    await findsNothing(learner, "faults");
    await learner.sample("ex03echo");
    await learner.menu("View", "Show execution counts");
    await learner.run(/Waiting/);
    await findsNothing(learner, "input");
    await learner.give("x");
    await learner.press("step");
    await findsNothing(learner, "a step");
    await learner.sample("f16pop");
    await learner.run(/Stopped/);
    await findsNothing(learner, "a guard");
    await learner.page.getByRole("button", { name: "Learn", exact: true }).click();
    await findsNothing(learner, "an open menu");
    await learner.page.getByRole("menuitem", { name: "1. Run a program" }).click();
    await learner.page.getByRole("button", { name: "Check", exact: true }).click();
    await learner.shows(learner.page.locator(".grade"), /points/);
    await findsNothing(learner, "a lesson");
    await learner.page.keyboard.press("F1");
    await findsNothing(learner, "the keys");
    await learner.page.keyboard.press("Escape");
    await learner.menu("File", "Report before the run");
    await findsNothing(learner, "a report");
    await learner.leave();
  });
}

for (const [what, width, height] of [["at 360 pixels", 360, 640], ["at a zoom of 200 %", 640, 400]] as const) {
  test(`${what} nothing scrolls sideways, and the first hour can be done`, async () => {
    for (const language of ["en-US", "ja-JP"] as const) {
      const learner = await Learner.come({ width, height, language });
      const fits = async (view: string): Promise<void> => {
        const [needed, there] = await learner.page.evaluate(() => [document.documentElement.scrollWidth, innerWidth]);
        assert.ok(needed! <= there!, `${view}: ${needed} pixels of ${there}`);
      };
      const english = language === "en-US";
      await fits("skeleton");
      await learner.menu(english ? "Samples" : "サンプル", "f02comma");
      await learner.shows(learner.faults, english ? "Error" : "エラー");
      await fits("faults");
      await learner.menu(english ? "Samples" : "サンプル", "pn100");
      await learner.run(english ? /Ended/ : /終了/);
      await learner.press("stepBack");
      await learner.shows(learner.status, english ? /Paused/ : /停止中/);
      await learner.shows(learner.console, "7");
      await fits("run");
      await learner.menu(english ? "Learn" : "学ぶ", english ? "5. A loop" : "5. 繰り返し");
      await fits("lesson");
      await learner.leave();
    }
  });
}
