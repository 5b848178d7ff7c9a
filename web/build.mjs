// Makes zelvaro.html of the page, the worker and the core: `node build.mjs CORE.wasm OUT.html`. Everything is in the one file, and
// its policy lets nothing else in.
import { createHash } from "node:crypto";
import { mkdir, readFile, writeFile } from "node:fs/promises";
import path from "node:path";
import { fileURLToPath } from "node:url";
import esbuild from "esbuild";

const here = path.dirname(fileURLToPath(import.meta.url));
const [core = path.join(here, "../build/web/core.wasm"), out = path.join(here, "../build/web/zelvaro.html")] =
  process.argv.slice(2);

const licenses = new Map();
/** Keeps the licenses of the packages that a bundle contains. */
async function keepLicenses(inputs) {
  for (const input of Object.keys(inputs)) {
    const [, name] = /node_modules\/((?:@[^/]+\/)?[^/]+)\//.exec(input) ?? [];
    if (name === undefined || licenses.has(name)) continue;
    licenses.set(name, await readFile(path.join(here, "node_modules", name, "LICENSE"), "utf8"));
  }
}

/** The bundle of an entry as one script. */
async function bundled(entry) {
  const result = await esbuild.build({
    entryPoints: [path.join(here, entry)],
    bundle: true,
    format: "iife",
    target: "es2022",
    minify: true,
    charset: "utf8",
    legalComments: "none",
    write: false,
    metafile: true,
    logLevel: "warning",
    loader: { ".txt": "text", ".toml": "text", ".svg": "text" },
  });
  await keepLicenses(result.metafile.inputs);
  return result.outputFiles[0].text;
}

const hash = (text) => `'sha256-${createHash("sha256").update(text).digest("base64")}'`;
/** The text of a script, in which nothing ends the element. */
const safe = (script) => script.replaceAll("</script", "<\\/script").replaceAll("<!--", "<\\!--");

const [script, worker, style, page, wasm] = await Promise.all([
  bundled("page/main.ts").then(safe),
  bundled("core/worker.ts").then(safe),
  esbuild
    .transform(await readFile(path.join(here, "page/style.css"), "utf8"), { loader: "css", minify: true, charset: "utf8" })
    .then((r) => r.code.trim()),
  readFile(path.join(here, "page/index.html"), "utf8"),
  readFile(core),
]);

const policy = [
  "default-src 'none'",
  `script-src ${hash(script)} 'wasm-unsafe-eval'`,
  `style-src ${hash(style)}`,
  "worker-src blob:",
  "img-src data:",
  "base-uri 'none'",
  "form-action 'none'",
].join("; ");
/** Each license with the packages that it is of. */
function licenseText() {
  const texts = new Map();
  for (const [name, text] of [...licenses].sort()) texts.set(text, [...(texts.get(text) ?? []), name]);
  return [...texts].map(([text, names]) => `${names.join(", ")}\n\n${text}`).join("\n");
}
const data = (id, text) => `<script type="text/plain" id="${id}">${text}</script>\n`;
const parts = {
  "<!--policy-->": `<meta http-equiv="Content-Security-Policy" content="${policy}">`,
  "<!--style-->": `<style>${style}</style>`,
  // the data is before the script, which reads it when it starts
  "<!--script-->":
    data("zelvaro-licenses", safe(licenseText())) +
    data("zelvaro-worker", worker) + data("zelvaro-core", wasm.toString("base64")) + `<script>${script}</script>`,
};

let html = page;
for (const [mark, text] of Object.entries(parts)) {
  if (html.split(mark).length !== 2) throw new Error(`page/index.html must have ${mark} once`);
  html = html.replace(mark, () => text);
}
await mkdir(path.dirname(out), { recursive: true });
await writeFile(out, html);
console.log(`${out}: ${(html.length / 1e6).toFixed(2)} MB`);
