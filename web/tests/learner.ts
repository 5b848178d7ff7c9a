// What a learner does with the page, for the tests.
import assert from "node:assert/strict";
import { after } from "node:test";
import type { Locator, Page } from "playwright-core";
import { openPage, type OpenOptions, type Opened } from "./browser.js";

// A test that fails leaves its browser open.
const open = new Set<Opened>();
after(() => Promise.all([...open].map((one) => one.close())));

export class Learner {
  readonly page: Page;
  constructor(readonly opened: Opened) {
    this.page = opened.page;
    open.add(opened);
    this.page.setDefaultTimeout(6000);
  }

  /// Opens the page; it has checked its first text when this returns.
  static async come(options: OpenOptions = {}): Promise<Learner> {
    const learner = new Learner(await openPage(options));
    await learner.page.waitForFunction(() => !/Checking|調べて/.test(document.querySelector(".faults-summary")?.textContent ?? "C"));
    return learner;
  }
  /// Closes the page, which must have asked nothing of a network and reported no error.
  async leave(): Promise<void> {
    const { requests, errors } = this.opened;
    open.delete(this.opened);
    await this.opened.close();
    assert.deepEqual(errors, []);
    assert.deepEqual(requests, []);
  }

  get editor(): Locator {
    return this.page.locator(".cm-content");
  }
  get console(): Locator {
    return this.page.locator(".console-body");
  }
  get status(): Locator {
    return this.page.locator("#run-status");
  }
  get faults(): Locator {
    return this.page.locator(".faults li");
  }

  async menu(menu: string, item: string): Promise<void> {
    await this.page.getByRole("button", { name: menu, exact: true }).click();
    await this.page.getByRole("menuitem", { name: item, exact: true }).click();
  }
  async sample(name: string): Promise<void> {
    await this.menu("Samples", name);
  }
  /// The text of the editor, as far as it is drawn.
  async text(): Promise<string> {
    const lines = await this.page.locator(".cm-line").allTextContents();
    return lines.join("\n");
  }
  /// Another text in place of the present one, typed at once as a paste is.
  async write(text: string): Promise<void> {
    await this.editor.click();
    await this.page.keyboard.press("Control+A");
    await this.page.keyboard.insertText(text);
  }
  /// The cursor to the end of a line, counted from 1.
  async toLine(line: number): Promise<void> {
    await this.editor.click();
    await this.page.keyboard.press("Control+Home");
    for (let i = 1; i < line; i++) await this.page.keyboard.press("ArrowDown");
    await this.page.keyboard.press("End");
  }
  async press(action: string, times = 1): Promise<void> {
    for (let i = 0; i < times; i++) {
      const button = this.page.locator(`[data-action="${action}"]`);
      await button.click();
      await this.page.locator(".controls:not(.is-running)").waitFor();
    }
  }
  /// Presses Run and waits until the status has the words.
  async run(until: RegExp): Promise<void> {
    await this.page.locator('[data-action="run"]').click();
    await this.shows(this.status, until);
  }
  async give(line: string): Promise<void> {
    await this.page.locator("#console-input").fill(line);
    await this.page.keyboard.press("Enter");
  }
  /// The hexadecimal view of a register, "#0007".
  async register(name: string): Promise<string> {
    const row = this.page.locator(".words tbody tr").filter({ has: this.page.locator("th", { hasText: new RegExp(`^${name}( \\*)?$`) }) });
    return (await row.locator(".word-hex").textContent()) ?? "";
  }

  /// Waits until a part of the page has the words.
  async shows(part: Locator, words: RegExp | string): Promise<void> {
    const deadline = Date.now() + 8000;
    for (;;) {
      const text = (await part.allTextContents()).join("\n");
      if (typeof words === "string" ? text.includes(words) : words.test(text)) return;
      if (Date.now() > deadline) assert.match(text, typeof words === "string" ? new RegExp(words.replace(/[^\w ]/g, ".")) : words);
      await this.page.waitForTimeout(20);
    }
  }
}
