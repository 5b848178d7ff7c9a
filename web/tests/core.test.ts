/** The core's calls, without a browser. */
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import path from "node:path";
import { after, test } from "node:test";
import type { Event, State } from "../page/protocol.js";
import { Core, ROOT } from "./engine.js";

const core = new Core();
after(() => core.close());

const read = (name: string) => readFileSync(path.join(ROOT, "workspace", name));
const codes = (findings: { code: string; line: number }[]) => findings.map((f) => `${f.code}@${f.line}`);
const outs = (events: Event[]) => events.filter((e) => e.kind === "out").map((e) => e.text);

const CALLS = `MAIN START
 LAD GR1,3
 CALL SUB
 ST GR1,KEPT
 OUT TEXT,LEN
 IN BUF,LEN
 RET
SUB LAD GR1,-1,GR1
 CPA GR1,ZERO
 JZE DONE
 CALL SUB
DONE RET
ZERO DC 0
KEPT DC 7
TEXT DC '<b>'
LEN DC 3
BUF DS 256
 END
`;

test("a finding names its place for the editor, past characters of two units", async () => {
  const { findings, tallies, hints } = await core.call("check", { text: "MAIN START\n LD GR1,ＡＢ\n RET ; 𠮷𠮷\n OUT '𠮷𠮷',Ｂ\n END\n" });
  const found = findings.filter((f) => f.severity === "error");
  assert.equal(tallies.errors, found.length);
  for (const f of found) assert.ok(f.text.ja !== f.text.en && f.printed.en.includes("Error"), f.code);
  const places = (list: typeof hints) => list.map((f) => [f.line, f.from, f.to]);
  assert.deepEqual(places(found), [[2, 8, 10], [4, 5, 11]]);
  assert.deepEqual(places(hints), [[2, 8, 10], [4, 12, 13]]);
});

test("a source that lacks END, RET or START is checked as it will be", async () => {
  const whole = async (text: string) => (await core.call("check", { text })).whenComplete;
  const noEnd = await whole("MAIN START\n LD GR9,A\n");
  assert.deepEqual(noEnd?.added, ["RET", "END"]);
  assert.ok(noEnd.findings.some((f) => f.line === 2 && f.severity === "error"), "the fault of line 2");
  assert.ok(noEnd.findings.every((f) => f.line <= 2), "no fault of an added line");
  const noStart = await whole(" LD GR9,A\n RET\n END\n");
  assert.deepEqual(noStart?.added, ["START"]);
  assert.ok(noStart.findings.some((f) => f.line === 1), "lines are those of the text");
  assert.deepEqual((await whole("A DC 1\n"))?.added, ["START", "RET", "END"]);
  assert.equal(await whole("MAIN START\n RET\n END\n"), null);
  assert.equal(await whole("; only a comment\n"), null);
});

test("steps go over a CALL, out of it, to a line, and back over what was written and typed", async () => {
  const loaded = await core.load(CALLS);
  assert.equal(loaded.outcome, "assembled");
  const lineAfter = async (kind: "step" | "over" | "out", times = 1) => {
    let state: State = await core.go(kind);
    for (let i = 1; i < times; ++i) state = await core.go(kind);
    return state.line;
  };
  assert.equal(await lineAfter("step", 3), 8, "START, LAD and CALL");
  assert.equal(await lineAfter("over", 3), 11);
  const deep = await core.go("step");
  assert.deepEqual(deep.stack.map((r) => [r.depth, r.callLine]), [[2, 11], [1, 3]]);
  await core.go("goTo", { steps: 3 });
  assert.equal(await lineAfter("out"), 4, "the outer one, with the inner ones");
  for (const steps of [8, 12, 16]) {
    await core.go("goTo", { steps });
    const { os } = await core.call("state", null);
    assert.equal((await core.go("out")).os, os - 1, `out of call ${os}`);
  }
  await core.go("goTo", { steps: 2 });
  assert.equal(await lineAfter("over"), 4, "a CALL as a whole");
  const stored = await core.go("step");
  const kept = await core.call("addressOf", { place: "KEPT" });
  assert.deepEqual(stored.changes.find((c) => c.place === "Memory"), { place: "Memory", index: kept, before: 7, after: 0 });

  const wrote = await core.go("over");
  assert.deepEqual(outs(wrote.events.list), ["<b>"], "text stays text");
  const asks = await core.go("run");
  assert.deepEqual([asks.stop, asks.line], ["InputWanted", 6]);
  await core.call("giveLine", { line: "xyz" });
  const end = await core.go("run");
  assert.deepEqual([end.stop, end.kind, end.linesRead], ["End", "end", 1]);
  const changed = await core.go("backToChange", { address: kept });
  assert.equal(changed.steps, stored.steps);
  assert.deepEqual(changed.events, { from: 0, list: [] }, "the output is taken back");
  const again = await core.go("run");
  assert.deepEqual([again.stop, again.steps], ["End", end.steps], "the line is read again");
  assert.deepEqual(again.events.list.map((e) => [e.kind, e.text]), [["out", "<b>"], ["in", "xyz"]]);
  await core.go("goTo", { steps: asks.steps });
  await core.call("forgetFuture", null);
  assert.equal((await core.go("run")).stop, "InputWanted", "IN asks anew");
});

test("breakpoints and run to a line", async () => {
  await core.load(CALLS);
  assert.deepEqual(await core.call("breakpoints", { lines: [9, 13, 99] }), [9]);
  const first = await core.go("run");
  assert.deepEqual([first.stop, first.line], ["Breakpoint", 9]);
  assert.equal((await core.go("run")).line, 9);
  await core.call("breakpoints", { lines: [] });
  const there = await core.go("to", { line: 5 });
  assert.deepEqual([there.line, there.stop], [5, "Breakpoint"]);
  await assert.rejects(core.go("to", { line: 13 }), /no instruction/);
});

test("an endless run can be paused, shows its hottest lines, and slow motion keeps its speed", async () => {
  await core.load("MAIN START\nA LAD GR1,1,GR1\n JUMP A\n RET\n END\n");
  const run = core.go("run");
  await new Promise((r) => setTimeout(r, 600));
  const asked = performance.now();
  const memory = await core.call("memory", { from: 0, count: 8 });
  assert.ok(performance.now() - asked < 200, "a question is answered between two slices");
  assert.equal(memory.length, 8);
  assert.ok(core.progress.length >= 2);
  const last = core.progress.at(-1)!;
  assert.ok(last.state.steps > 1_000_000 && last.perSecond > 1_000_000, `${last.state.steps} steps`);
  assert.deepEqual(last.hottest.map((h) => h.line).sort(), [1, 2, 3]);
  await assert.rejects(core.go("step"), /under way/);
  await core.call("pause", null);
  assert.equal((await run).stop, "Paused");

  const steps = (await core.call("state", null)).steps;
  const slow = core.go("run", { stepsPerSecond: 50 });
  await new Promise((r) => setTimeout(r, 500));
  await core.call("pause", null);
  const done = (await slow).steps - steps;
  assert.ok(done >= 10 && done <= 40, `${done} steps in half a second`);
});

test("a guard's words are there in both languages, with the line", async () => {
  await core.load("MAIN START\nA PUSH 1\n JUMP A\n RET\n END\n");
  const state = await core.go("run");
  assert.deepEqual([state.stop, state.kind, state.line], ["Stack", "guard", 2]);
  assert.ok(state.messages.length > 0 && /[ぁ-ん]/.test(state.messages[0]!.text.ja), "words in Japanese");
  assert.ok(state.stack.length === 256 && state.stackSize > 256);
});

test("files: any encoding in, UTF-8 or Shift-JIS out, nothing lost silently", async () => {
  const text = "; 漢字 ①\nMAIN START\n RET\n END\n";
  const sjis = await core.call("encode", { text, encoding: "cp932" });
  assert.deepEqual(sjis.lacking, []);
  const decoded = await core.call("decode", { bytes: sjis.bytes });
  assert.deepEqual([decoded.text, decoded.encoding, decoded.refusal], [text, "cp932", null]);
  const utf16 = Uint8Array.from(Buffer.from("\uFEFF" + text, "utf16le"));
  assert.equal((await core.call("decode", { bytes: utf16 })).text, text);
  const lacking = await core.call("encode", { text: "A\n é😀한", encoding: "cp932" });
  assert.deepEqual(lacking.lacking.map((l) => [l.character, l.line, l.from]), [["é", 2, 1], ["😀", 2, 2], ["한", 2, 4]]);
  const noText = await core.call("decode", { bytes: Uint8Array.from({ length: 4096 }, (_, i) => (i * 73) & 255) });
  assert.ok(noText.refusal && noText.text === "" && noText.refusal.ja !== noText.refusal.en);
  const large = new Uint8Array(10 << 20).fill(0x41);
  assert.ok((await core.call("decode", { bytes: large })).refusal, "10 MB are refused");
  const { outcome, findings } = await core.call("check", { text: large });
  assert.deepEqual([outcome, codes(findings).some((c) => c.startsWith("source-too-large"))], ["notLoaded", true]);
});

test("the grader marks the tasks of the workspace", async () => {
  for (const name of ["greet", "mult", "sum"]) {
    const task = read(`tasks/${name}/task.toml`).toString();
    const driver = name === "mult" ? read("tasks/mult/driver.txt").toString() : "";
    const mark = (file: string) => core.call("grade", { task, driver, source: { text: read(`tasks/${name}/${file}`).toString() } });
    const right = await mark("right.txt");
    assert.equal(right.points, right.of, name);
    const wrong = await mark("wrong.txt");
    assert.ok(wrong.points < wrong.of && wrong.cases.some((c) => c.reasons.length > 0), name);
  }
  assert.ok((await core.call("grade", { task: "title = 3", source: { text: "" } })).fault);
});

test("the instruction table has every mnemonic with its forms", async () => {
  const table = await core.call("instructions", null);
  const of = (mnemonic: string) => table.find((i) => i.mnemonic === mnemonic);
  assert.deepEqual(of("LD")?.forms, ["r,adr[,x]", "r1,r2"]);
  assert.deepEqual([of("RET")?.forms, of("IN")?.kind, of("EXIT")?.nhOnly], [[""], "macro", true]);
  assert.ok(table.every((i) => i.codes.length === i.forms.length && i.effect !== ""));
});
