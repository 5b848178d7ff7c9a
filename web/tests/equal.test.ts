/** 50 random sources: the page's core and zelvaro-check agree on messages, image, counts, output and reports. */
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { mkdirSync, mkdtempSync, readFileSync, readdirSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import path from "node:path";
import { test } from "node:test";
import type { Finding, Language, State } from "../page/protocol.js";
import { Core, ROOT } from "./engine.js";

const SOURCES = 50;
const STEPS = 200_000;
const INPUT = ["12", "hello", "", "漢字 ABC", "-5"];

/** Numbers from 0 to below `most`, the same ones in each run. */
function randomOf(seed: number): (most: number) => number {
  let state = seed;
  return (most) => {
    state = (Math.imul(state, 1664525) + 1013904223) >>> 0;
    return Math.floor((state / 0x100000000) * most);
  };
}

/** A sample in which some lines are lost, doubled, exchanged, or have a character too many or too few. */
function faulty(lines: string[], random: (most: number) => number): string {
  const out = [...lines];
  const CHARACTERS = ["", " ", ",", "'", "=", "#", "A", "9", "Ａ", "　", ";", "GR8", "\t"];
  for (let i = random(5); i > 0; --i) {
    const at = random(out.length);
    const line = out[at] ?? "";
    const cut = random(line.length + 1);
    const way = random(6);
    if (way === 0) out.splice(at, 1);
    else if (way === 1) out.splice(at, 0, line);
    else if (way === 2) out[at] = out[random(out.length)] ?? "";
    else out[at] = line.slice(0, cut) + CHARACTERS[random(CHARACTERS.length)] + line.slice(cut + random(2));
  }
  return out.join("\n") + "\n";
}

function samples(): string[][] {
  const folder = path.join(ROOT, "workspace/src");
  return (readdirSync(folder, { recursive: true }) as string[])
    .filter((f) => f.endsWith(".txt") && !f.includes("encodings"))
    .sort()
    .map((f) => readFileSync(path.join(folder, f), "utf8").replace(/^\uFEFF/, "").split(/\r?\n/));
}

const severity = { error: "error", warning: "warning", note: "note", memo: "memo", notice: "" };
const messageOf = (f: Finding, language: Language) => ({
  code: f.code, severity: severity[f.severity], line: f.line, column: f.column, length: f.length,
  secondLine: f.secondLine, quoted: f.quoted, counted: f.counted, message: f.text[language],
});
/** What zelvaro-check leaves out is 0, empty or false. */
const withAll = (m: Record<string, unknown>) => ({
  code: m.code, severity: m.severity, line: m.line ?? 0, column: m.column ?? 0, length: m.length ?? 0,
  secondLine: m.secondLine ?? 0, quoted: m.quoted ?? "", counted: m.counted, message: m.message,
});
const STOPS: Record<string, string> = {
  Stepped: "step-limit", End: "end", Pr: "pr-guard", Register: "register-guard", Load: "load-guard", Store: "store-guard",
  Stack: "stack-guard", EmptyStack: "empty-stack-guard", Return: "return-guard", Nop: "nop-guard",
  Unregistered: "unregistered-code", InputExhausted: "input-exhausted",
};
type Values = { address: number; values: number[] }[];
const spread = (runs: Values) => runs.flatMap((r) => r.values.map((v, i) => [r.address + i, v]));

async function runToStop(core: Core): Promise<State> {
  for (const line of INPUT) await core.call("giveLine", { line });
  await core.call("endInput", null);
  return core.go("step", { steps: STEPS });
}

/** A report without the line of its date. */
const dateless = (report: string) => report.split("\n").filter((l) => !l.startsWith("Src. File: ")).join("\n");

/** The first lines that differ. */
function difference(a: string, b: string): string {
  const other = b.split("\n");
  const at = a === b ? -1 : a.split("\n").findIndex((line, i) => line !== other[i]);
  return a === b ? "" : `line ${at + 1}: ${a.split("\n")[at]} / ${other[at]}`;
}

test("zelvaro-check and the page's core agree", async (t) => {
  const folder = mkdtempSync(path.join(tmpdir(), "zelvaro-equal-"));
  const core = new Core();
  t.after(async () => {
    await core.close();
    rmSync(folder, { recursive: true });
  });
  const all = samples();
  const random = randomOf(20250726);
  const sources = Array.from({ length: SOURCES }, (_, i) => faulty(all[i % all.length]!, random));
  const names = sources.map((_, i) => `s${i}.txt`);
  sources.forEach((s, i) => writeFileSync(path.join(folder, names[i]!), s));
  writeFileSync(path.join(folder, "input"), INPUT.join("\n") + "\n");
  let runs = 0;
  for (const language of ["en", "ja"] as const) {
    mkdirSync(path.join(folder, language));
    const args = ["--format", "json", "--output", `${language}.json`, "--lang", language, "--run", "--hints", "--input", "input",
                  "--max-steps", String(STEPS), "--report-dir", language, ...names];
    try {
      execFileSync(path.join(ROOT, "build/release/zelvaro-check"), args, { cwd: folder, stdio: "ignore" });
    } catch {
      // its status is that of the worst source
    }
    const { files } = JSON.parse(readFileSync(path.join(folder, `${language}.json`), "utf8"));
    for (const [i, file] of files.entries()) {
      const name = names[i]!;
      const loaded = await core.call("load", { text: readFileSync(path.join(folder, name)), name });
      const found = loaded.findings.filter((f) => f.severity !== "notice").map((f) => messageOf(f, language));
      assert.deepEqual(found, file.messages.map(withAll), name);
      assert.deepEqual(loaded.tallies, file.dialogueTallies, name);
      assert.equal(loaded.outcome === "assembled", file.assembled, name);
      if (!file.run) continue;
      ++runs;
      const report = async (which: "before" | "after") =>
        dateless(new TextDecoder().decode(await core.call("report", { which, language, hint: false, date: { year: 2025, month: 7,
          day: 26, weekday: 6, hour: 1, minute: 2, second: 3 } })));
      const before = await report("before");
      const state = await runToStop(core);
      assert.equal(STOPS[state.stop], file.run.stop, name);
      assert.equal(state.steps, file.run.steps, name);
      assert.deepEqual(state.gr, file.run.registers.gr, name);
      assert.equal(state.events.list.filter((e) => e.kind === "out").map((e) => e.text + "\n").join(""), file.run.output, name);
      const memory = await core.call("memory", { from: 0, count: 65536 });
      assert.deepEqual(memory.filter((r) => r.word).map((r) => [r.address, r.word]), spread(file.run.words), name);
      assert.deepEqual(memory.filter((r) => r.count).map((r) => [r.address, r.count]), spread(file.run.counts), name);
      const [first, second] = readdirSync(path.join(folder, language, name)).sort();
      const native = (f: string) => dateless(readFileSync(path.join(folder, language, name, f), "utf8"));
      assert.equal(difference(before, native(first!)), "", name);
      assert.equal(difference(await report("after"), native(second!)), "", name);
    }
  }
  assert.ok(runs >= 20, `${runs} of the sources were run`);
});
