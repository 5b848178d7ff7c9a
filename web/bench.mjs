// Measures the built page in chromium: node bench.mjs. Medians of nine. build/web and build/release must be there.
import { execFileSync } from "node:child_process";
import { mkdtempSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import path from "node:path";
import { fileURLToPath, pathToFileURL } from "node:url";
import { deflateRawSync, gzipSync } from "node:zlib";
import { chromium } from "playwright-core";

const ROOT = path.join(path.dirname(fileURLToPath(import.meta.url)), "..");
const FILE = path.join(ROOT, "build/web/zelvaro.html");
const TIMES = 9;
const median = (list) => [...list].sort((a, b) => a - b)[Math.floor(list.length / 2)];
const scratch = mkdtempSync(path.join(tmpdir(), "zelvaro-bench-"));

const LOOPS = {
  "registers": "MAIN START\nA ADDA GR1,GR2\n SUBA GR3,GR1\n LAD GR2,1,GR2\n CPA GR1,GR3\n JUMP A\n RET\n END\n",
  "table": "MAIN START\nA LAD GR1,63\nB LD GR2,T,GR1\n ADDA GR2,ONE\n ST GR2,T,GR1\n SUBA GR1,ONE\n JPL B\n JUMP A\n RET\nONE DC 1\nT DS 64\n END\n",
  "calls": "MAIN START\nA PUSH 1,GR1\n CALL SUB\n POP GR1\n JUMP A\n RET\nSUB XOR GR1,GR2\n SLL GR2,1\n RET\n END\n",
};
const STEPS = 1_000_000_000;
const long = (lines) =>
  "MAIN START\n" + Array.from({ length: lines - 4 }, (_, i) => `L${i} LD GR1,N ; line ${i}\n`).join("") + " RET\nN DC 1\n END\n";

/** Opens the file in a new browser and calls `use` with its page. `before` runs in the page before its own script. */
async function opened(fragment, before, use) {
  const profile = mkdtempSync(path.join(scratch, "p"));
  const context = await chromium.launchPersistentContext(profile, {
    executablePath: "/usr/bin/chromium",
    args: ["--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
           "--disable-background-networking", "--disable-component-update", "--disable-sync"],
    offline: true,
  });
  try {
    await context.addInitScript(before);
    const page = context.pages()[0];
    await page.goto(pathToFileURL(FILE).href + fragment);
    return await use(page);
  } finally {
    await context.close();
  }
}

/** In the page: keeps when the first check was answered. */
function watchChecks() {
  const Plain = window.Worker;
  window.Worker = class extends Plain {
    constructor(...args) {
      super(...args);
      this.addEventListener("message", (e) => {
        if (e.data.value?.outcome && !window.firstCheck) window.firstCheck = performance.now();
      });
    }
  };
}

/** In the page: a worker of our own, as the page makes it, with calls. */
function ownWorker() {
  const text = (id) => document.getElementById(id).textContent;
  const worker = new Worker(URL.createObjectURL(new Blob([text("zelvaro-worker")])));
  const waiting = new Map();
  worker.onmessage = (e) => waiting.get(e.data.id)?.(e.data);
  worker.postMessage({ core: Uint8Array.from(atob(text("zelvaro-core")), (c) => c.charCodeAt(0)) });
  let id = 0;
  window.ask = (call, ask) =>
    new Promise((resolve, reject) => {
      waiting.set(++id, (m) => ("error" in m ? reject(new Error(m.error)) : resolve(m.value)));
      worker.postMessage({ id, call, ask });
    });
  window.timed = async (call, ask) => {
    const from = performance.now();
    await window.ask(call, ask);
    return performance.now() - from;
  };
}

function nativeSeconds(source, steps) {
  writeFileSync(path.join(scratch, "s.txt"), source);
  const from = process.hrtime.bigint();
  try {
    execFileSync(path.join(ROOT, "build/release/zelvaro-check"), ["--run", "--quiet", "--max-steps", String(steps), "s.txt"],
                 { cwd: scratch, stdio: "ignore" });
  } catch {
    // the limit of steps is a status
  }
  return Number(process.hrtime.bigint() - from) / 1e9;
}

const html = readFileSync(FILE);
console.log(`size: ${(html.length / 1e6).toFixed(2)} MB, ${Math.round(gzipSync(html, { level: 9 }).length / 1e3)} kB compressed`);

const sample = readFileSync(path.join(ROOT, "workspace/src/pn100.txt"), "utf8");
const fragment = "#text=" + deflateRawSync(Buffer.from(JSON.stringify({ name: "pn100.txt", text: sample }))).toString("base64url");
const first = [];
for (let i = 0; i < TIMES; ++i)
  first.push(await opened(fragment, watchChecks, async (page) => {
    await page.waitForFunction(() => window.firstCheck);
    return page.evaluate(() => window.firstCheck);
  }));
console.log(`from opening to the first check: ${Math.round(median(first))} ms`);

await opened("", () => {}, async (page) => {
  await page.evaluate(ownWorker);
  const times = (call, ask) =>
    page.evaluate(async ([call, ask, times]) => {
      const out = [];
      for (let i = 0; i < times; ++i) out.push(await window.timed(call, ask));
      return out;
    }, [call, ask, TIMES]);
  console.log(`check of 300 lines: ${median(await times("check", { text: long(300) })).toFixed(1)} ms`);

  for (const [name, text] of Object.entries(LOOPS)) {
    const ratios = [];
    let speed = 0;
    for (let i = 0; i < TIMES; ++i) {
      const native = nativeSeconds(text, 2 * STEPS) - nativeSeconds(text, STEPS);
      await page.evaluate((text) => window.ask("load", { text }), text);
      await page.evaluate((steps) => window.ask("go", { kind: "step", steps }), STEPS / 5);
      const took = await page.evaluate((steps) => window.timed("go", { kind: "step", steps }), STEPS);
      ratios.push(native / (took / 1000));
      speed = STEPS / took / 1000;
    }
    console.log(`run loop, ${name}: ${median(ratios).toFixed(2)} of the native one, ${Math.round(speed)} million steps a second`);
  }

  const back = [];
  for (let i = 0; i < TIMES; ++i) {
    await page.evaluate((text) => window.ask("load", { text }), LOOPS.table);
    await page.evaluate(() => window.ask("go", { kind: "step", steps: 10_000_000 }));
    back.push(await page.evaluate(() => window.timed("go", { kind: "back" })));
  }
  console.log(`step back after 10 million steps: ${median(back).toFixed(1)} ms`);
});

await opened("", () => {}, async (page) => {
  await page.locator(".cm-content").click();
  await page.keyboard.press("Control+A");
  await page.keyboard.insertText(LOOPS.table);
  await page.waitForTimeout(1000);
  await page.evaluate(() => {
    window.long = [];
    new PerformanceObserver((l) => l.getEntries().forEach((e) => window.long.push(e.duration))).observe({ entryTypes: ["longtask"] });
  });
  await page.keyboard.press("Control+Enter");
  await page.waitForTimeout(5000);
  const tasks = await page.evaluate(() => window.long);
  console.log(`tasks over 50 ms on the page's thread in 5 s of a run: ${tasks.length}${tasks.length ? `, ${Math.round(Math.max(...tasks))} ms` : ""}`);
});
rmSync(scratch, { recursive: true, force: true });
