// Bundles tests/*.test.ts and runs them with node's own runner: node tests/run.mjs [NAME...]
import { spawnSync } from "node:child_process";
import { readdirSync, rmSync } from "node:fs";
import path from "node:path";
import { fileURLToPath } from "node:url";
import esbuild from "esbuild";

const here = path.dirname(fileURLToPath(import.meta.url));
const names = process.argv.slice(2);
const entries = readdirSync(here).filter(
  (f) => f.endsWith(".test.ts") && (names.length === 0 || names.includes(f.replace(".test.ts", ""))),
);
if (entries.length === 0) throw new Error("no such test");
// where node finds the packages
const out = path.join(here, "../node_modules/.cache/tests");
rmSync(out, { recursive: true, force: true });
await esbuild.build({
  entryPoints: entries.map((f) => path.join(here, f)),
  outdir: out,
  bundle: true,
  platform: "node",
  format: "esm",
  target: "node18",
  packages: "external",
  sourcemap: "inline",
  outExtension: { ".js": ".mjs" },
  loader: { ".txt": "text", ".toml": "text" },
  define: { __ROOT__: JSON.stringify(path.join(here, "../..")) },
  logLevel: "warning",
});
const files = entries.map((f) => path.join(out, f.replace(".ts", ".mjs")));
// one file after the other: they share two processors with chromium
const options = Number(process.versions.node.split(".")[0]) >= 20 ? ["--test-concurrency=1"] : [];
const run = spawnSync(process.execPath, ["--enable-source-maps", "--test", ...options, ...files], { stdio: "inherit" });
process.exit(run.status ?? 1);
