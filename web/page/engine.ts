/** The core, for the page: calls with promises, answered by one worker. */
import type { Answer, Ask, Call, Go, Progress, Reply, Request, Source, State } from "./protocol.js";

/** What the build has put into the file: the worker's text, and the WebAssembly as base64. */
interface Inlined {
  worker: string;
  core: string;
}

/** Reads the elements `zelvaro-worker` and `zelvaro-core` of the file. */
function inlined(): Inlined {
  const text = (id: string) => document.getElementById(id)?.textContent ?? "";
  return { worker: text("zelvaro-worker"), core: text("zelvaro-core") };
}

function bytesOf(base64: string): Uint8Array {
  const binary = atob(base64.trim());
  const bytes = new Uint8Array(binary.length);
  for (let i = 0; i < binary.length; ++i) bytes[i] = binary.charCodeAt(i);
  return bytes;
}

interface Waiting {
  resolve: (value: never) => void;
  reject: (error: Error) => void;
}

export class Engine {
  /** Called while a run lasts. */
  onProgress: (progress: Progress) => void = () => {};
  /** Called if the worker has ended by itself; all waiting calls are rejected. */
  onGone: (error: Error) => void = () => {};

  private readonly worker: Worker;
  private readonly waiting = new Map<number, Waiting>();
  private lastId = 0;

  constructor(parts: Inlined = inlined()) {
    const url = URL.createObjectURL(new Blob([parts.worker], { type: "text/javascript" }));
    this.worker = new Worker(url);
    URL.revokeObjectURL(url);
    this.worker.onmessage = (e: MessageEvent<Reply>) => this.take(e.data);
    this.worker.onerror = (e) => this.end(new Error(e.message || "the worker has ended"));
    const core = bytesOf(parts.core);
    this.worker.postMessage({ core }, [core.buffer]);
  }

  /** Asks the worker. Rejects with what it reports as an error. */
  call<C extends Call>(call: C, ask: Ask<C>): Promise<Answer<C>> {
    return new Promise((resolve, reject) => {
      const id = ++this.lastId;
      this.waiting.set(id, { resolve: resolve as (value: never) => void, reject });
      const request: Request<C> = { id, call, ask };
      this.worker.postMessage(request);
    });
  }

  check(source: Source): Promise<Answer<"check">> {
    return this.call("check", source);
  }
  load(source: Source): Promise<Answer<"load">> {
    return this.call("load", source);
  }
  go(go: Go): Promise<State> {
    return this.call("go", go);
  }
  pause(): Promise<null> {
    return this.call("pause", null);
  }
  memory(from: number, count: number): Promise<Answer<"memory">> {
    return this.call("memory", { from, count });
  }

  /** Ends the worker. */
  close(): void {
    this.worker.terminate();
    this.end(new Error("closed"));
  }

  private take(reply: Reply): void {
    if ("progress" in reply) return this.onProgress(reply.progress);
    const waiting = this.waiting.get(reply.id);
    this.waiting.delete(reply.id);
    if ("error" in reply) waiting?.reject(new Error(reply.error));
    else waiting?.resolve(reply.value as never);
  }

  private end(error: Error): void {
    for (const w of this.waiting.values()) w.reject(error);
    this.waiting.clear();
    this.onGone(error);
  }
}
