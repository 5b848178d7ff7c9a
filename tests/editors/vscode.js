// vscode.js FAULTY EMPTY: compares the opcodes of the three editors with the table of instructions, and applies the
// problem matchers of the extension to what zelvaro-check prints about the two files.
const assert = require("assert");
const read = (name) => require("fs").readFileSync(`${__dirname}/../../${name}`, "utf8");
const sorted = (groups) => groups.map((words) => words.sort().join("|")).sort();

const classes = {};
for (const [, word, kind] of read("src/encode/Instructions.def").matchAll(/^ZELVARO_INSTRUCTION\((\w+), *(\w+),/gm))
  (classes[kind] ??= []).push(word);
for (const name of ["vim/syntax/casl2.vim", "nano/casl2.nanorc", "vscode/syntaxes/casl2.tmLanguage.json"]) {
  const groups = read(`editors/${name}`).replaceAll("\\", "").matchAll(/\(([A-Z]+(\|[A-Z]+)*)\)/g);
  assert.deepStrictEqual(sorted([...groups].map((group) => group[1].split("|"))), sorted(Object.values(classes)), name);
}

const found = process.argv.slice(2).flatMap((file) => {
  const { stderr } = require("child_process").spawnSync("zelvaro-check", ["--format", "gnu", file], { encoding: "utf8" });
  return stderr.split("\n").flatMap((text) =>
    JSON.parse(read("editors/vscode/package.json")).contributes.problemMatchers.flatMap(({ pattern }) => {
      const match = RegExp(pattern.regexp).exec(text);
      return match ? [["line", "severity"].map((part) => match[pattern[part]]).concat(match[pattern.file] === file)] : [];
    }));
});
const wanted = [["3", "note", true], ["4", "error", true], ["5", "error", true], [undefined, "error", true]];
assert.deepStrictEqual(found, wanted);
