// Files: opened and saved in any encoding.
import assert from "node:assert/strict";
import { readFile } from "node:fs/promises";
import { test } from "node:test";
import { ROOT } from "./browser.js";
import { Learner } from "./learner.js";

const folder = `${ROOT}/workspace/src/example/encodings`;

async function open(learner: Learner, name: string, bytes: Buffer): Promise<void> {
  const [chooser] = await Promise.all([learner.page.waitForEvent("filechooser"), learner.menu("File", "Open a file…")]);
  await chooser.setFiles({ name, mimeType: "text/plain", buffer: bytes });
}

async function drop(learner: Learner, name: string, bytes: Buffer): Promise<void> {
  await learner.page.evaluate(
    ([fileName, data]) => {
      const transfer = new DataTransfer();
      transfer.items.add(new File([Uint8Array.from(data)], fileName));
      document.body.dispatchEvent(new DragEvent("drop", { dataTransfer: transfer, bubbles: true, cancelable: true }));
    },
    [name, [...bytes]] as const,
  );
}

async function savedBytes(learner: Learner, item: string): Promise<Buffer> {
  const [saved] = await Promise.all([learner.page.waitForEvent("download"), learner.menu("File", item)]);
  return readFile(await saved.path());
}

test("files in six encodings open with the same program, and the page says which it is", async () => {
  const learner = await Learner.come();
  const names = ["enc1utf8", "enc2bom", "enc3u16l", "enc4u16b", "enc5sjis", "enc6asci"];
  const said = [/utf-8/i, /utf-8 with bom/i, /utf-?16/i, /utf-?16/i, /sjis|shift/i, /sjis|ascii/i];
  for (const [i, name] of names.entries()) {
    await open(learner, `${name}.txt`, await readFile(`${folder}/${name}.txt`));
    await learner.shows(learner.page.locator(".encoding"), said[i]!);
    assert.match(await learner.text(), /START/);
    if (name !== "enc6asci") assert.match(await learner.text(), /[ぁ-ん]/);
  }
  await learner.leave();
});

test("a text is saved in both encodings, and opens again as it was", async () => {
  const learner = await Learner.come();
  const text = "; 日本語の注釈\nMAIN START\n RET\n END\n";
  await learner.write(text);
  assert.equal((await savedBytes(learner, "Save as UTF-8")).toString("utf8"), text);
  const sjis = await savedBytes(learner, "Save as Shift-JIS");
  assert.deepEqual([...sjis.subarray(0, 6)], [0x3b, 0x20, 0x93, 0xfa, 0x96, 0x7b]);
  await drop(learner, "again.txt", sjis);
  await learner.shows(learner.editor, "日本語の注釈");
  await learner.shows(learner.page.locator(".encoding"), /sjis|shift/i);
  await learner.leave();
});

test("characters that Shift-JIS lacks are named, and nothing is saved", async () => {
  const learner = await Learner.come();
  await learner.write("; 😀\n; é\nMAIN START\n RET\n END\n");
  await learner.menu("File", "Save as Shift-JIS");
  await learner.shows(learner.page.locator("dialog"), /line 1: 😀 \(U\+1F600\).*line 2: é/s);
  await learner.page.keyboard.press("Escape");
  await learner.leave();
});

test("a file of 10 MB and bytes that are no text are refused with a message", async () => {
  const learner = await Learner.come();
  const before = await learner.text();
  await open(learner, "large.txt", Buffer.alloc(10 * 1024 * 1024, 0x41));
  await learner.shows(learner.page.locator(".notice"), "large.txt has more than 8 MB");
  await open(learner, "noise.txt", Buffer.from([0, 1, 2, 0xff, 0xfe, 0, 0x81, 0, 0, 3, 0x90, 0xff]));
  await learner.shows(learner.page.locator(".notice"), "noise.txt is no text");
  assert.equal(await learner.text(), before);
  await learner.leave();
});

test("the browser keeps the text, and another one does not replace changes without a question", async () => {
  const learner = await Learner.come();
  await learner.write("; mine\nMAIN START\n RET\n END\n");
  await learner.page.waitForTimeout(600);
  await learner.page.reload();
  await learner.shows(learner.editor, "; mine");
  await learner.sample("pn100");
  await learner.page.getByRole("button", { name: "Keep my text" }).click();
  await learner.shows(learner.editor, "; mine");
  await learner.sample("pn100");
  await learner.page.getByRole("button", { name: "Replace" }).click();
  await learner.shows(learner.editor, "PN100");
  await learner.leave();
});
