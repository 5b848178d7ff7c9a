/** Opens the built file in chromium, from file: and without a network. */
import { mkdtemp, rm } from "node:fs/promises";
import { tmpdir } from "node:os";
import path from "node:path";
import { pathToFileURL } from "node:url";
import { chromium, type BrowserContext, type Page } from "playwright-core";

declare const __ROOT__: string;
export const ROOT = __ROOT__;
export const FILE = path.join(ROOT, "build/web/zelvaro.html");

export interface OpenOptions {
  language?: "ja-JP" | "en-US";
  width?: number;
  height?: number;
  scheme?: "light" | "dark";
  /** Of the address, with its #. */
  fragment?: string;
  /** The page may use the clipboard without being asked. */
  clipboard?: boolean;
}

export interface Opened {
  page: Page;
  context: BrowserContext;
  /** Addresses that were asked for, but the file itself and blob: and data: ones. */
  requests: string[];
  /** Errors of the console, violations of the policy among them, and uncaught ones. */
  errors: string[];
  close(): Promise<void>;
}

const ARGS = ["--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
              "--disable-background-networking", "--disable-component-update", "--disable-sync"];

/** Each call has a browser of its own, with a new profile. */
export async function openPage(options: OpenOptions = {}): Promise<Opened> {
  const profile = await mkdtemp(path.join(tmpdir(), "zelvaro-web-"));
  const context = await chromium.launchPersistentContext(profile, {
    executablePath: "/usr/bin/chromium",
    args: ARGS,
    locale: options.language ?? "en-US",
    colorScheme: options.scheme ?? "light",
    viewport: { width: options.width ?? 1280, height: options.height ?? 900 },
    offline: true,
    permissions: options.clipboard ? ["clipboard-read", "clipboard-write"] : [],
    acceptDownloads: true,
  });
  const page = context.pages()[0] ?? (await context.newPage());
  const address = pathToFileURL(FILE).href;
  const requests: string[] = [];
  const errors: string[] = [];
  context.on("request", (r) => {
    if (!/^(blob|data):/.test(r.url()) && !r.url().startsWith(address)) requests.push(r.url());
  });
  page.on("console", (m) => {
    if (m.type() === "error") errors.push(m.text());
  });
  page.on("pageerror", (e) => errors.push(String(e)));
  await page.goto(address + (options.fragment ?? ""));
  return {
    page,
    context,
    requests,
    errors,
    close: async () => {
      await context.close();
      await rm(profile, { recursive: true, force: true });
    },
  };
}
