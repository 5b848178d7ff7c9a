/** The worker's part without a browser: node has WebAssembly, and a thread that looks like a worker. */
import { readFileSync } from "node:fs";
import path from "node:path";
import { Worker } from "node:worker_threads";
import { buildSync } from "esbuild";
import type { Answer, Ask, Call, Go, Progress, Reply, State } from "../page/protocol.js";

declare const __ROOT__: string;
export const ROOT = __ROOT__;

const SHIM = `const { parentPort } = require("node:worker_threads");
globalThis.self = { postMessage: (m) => parentPort.postMessage(m), onmessage: null };
// a port of node takes up to a thousand messages before it looks at another one
globalThis.MessageChannel = class {
  port1 = {};
  port2 = { postMessage: () => setImmediate(() => this.port1.onmessage()) };
};
parentPort.on("message", (data) => self.onmessage({ data }));
`;

/** The calls of protocol.ts, answered by the same worker that the page has. */
export class Core {
  readonly progress: Progress[] = [];
  private readonly worker: Worker;
  private readonly waiting = new Map<number, (reply: Reply) => void>();
  private lastId = 0;

  constructor() {
    const built = buildSync({ entryPoints: [path.join(ROOT, "web/core/worker.ts")], bundle: true, format: "iife",
                              target: "es2022", write: false, minify: true });
    this.worker = new Worker(SHIM + built.outputFiles[0]!.text, { eval: true });
    this.worker.on("message", (reply: Reply) => {
      if ("progress" in reply) this.progress.push(reply.progress);
      else this.waiting.get(reply.id)?.(reply);
    });
    this.worker.postMessage({ core: readFileSync(path.join(ROOT, "build/web/core.wasm")) });
  }

  call<C extends Call>(call: C, ask: Ask<C>): Promise<Answer<C>> {
    return new Promise((resolve, reject) => {
      const id = ++this.lastId;
      this.waiting.set(id, (reply) => {
        this.waiting.delete(id);
        if ("value" in reply) resolve(reply.value as Answer<C>);
        else reject(new Error("error" in reply ? reply.error : "progress"));
      });
      this.worker.postMessage({ id, call, ask });
    });
  }
  load(text: string | Uint8Array): Promise<Answer<"load">> {
    return this.call("load", { text });
  }
  go(kind: Go["kind"], more: Omit<Go, "kind"> = {}): Promise<State> {
    return this.call("go", { kind, ...more });
  }
  close(): Promise<number> {
    return this.worker.terminate();
  }
}
