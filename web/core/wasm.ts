/** The core as WebAssembly: texts in, JSON or bytes out. */

interface Exports {
  memory: WebAssembly.Memory;
  _initialize(): void;
  zInput(slot: number, size: number): number;
  zAnswer(): number;
  zAnswerSize(): number;
  [name: string]: unknown;
}

/** What the core imports. It has no environment and calls nothing of it after its start. */
const imports = {
  env: { emscripten_notify_memory_growth: () => {} },
  wasi_snapshot_preview1: {
    proc_exit: (status: number) => {
      throw new Error(`the core has ended with status ${status}`);
    },
    environ_sizes_get: () => 0, // both sizes are 0 already
    environ_get: () => 0,
  },
};

export class Core {
  private readonly decoder = new TextDecoder("utf-8", { ignoreBOM: true });
  private readonly encoder = new TextEncoder();
  private constructor(private readonly exports: Exports) {}

  static async start(bytes: BufferSource): Promise<Core> {
    const { instance } = await WebAssembly.instantiate(bytes, imports);
    const exports = instance.exports as unknown as Exports;
    exports._initialize();
    return new Core(exports);
  }

  /** Puts a text, or bytes, where the next call expects them. */
  give(slot: number, value: string | Uint8Array): void {
    const bytes = typeof value === "string" ? this.encoder.encode(value) : value;
    const at = this.exports.zInput(slot, bytes.length);
    if (at === 0) throw new Error("out of memory");
    new Uint8Array(this.exports.memory.buffer, at, bytes.length).set(bytes);
  }

  /** Calls a function that leaves no answer. */
  run(name: string, ...args: (number | boolean)[]): void {
    this.bytes(name, ...args);
  }
  /** Calls a function that answers in JSON. */
  json<T>(name: string, ...args: (number | boolean)[]): T {
    return JSON.parse(this.decoder.decode(this.bytes(name, ...args))) as T;
  }
  /** Calls a function that answers in bytes; they are a copy. */
  bytes(name: string, ...args: (number | boolean)[]): Uint8Array {
    const failed = (this.exports[name] as (...a: unknown[]) => number | undefined)(...args);
    const at = this.exports.zAnswer();
    const answer = new Uint8Array(this.exports.memory.buffer, at, this.exports.zAnswerSize()).slice();
    if (failed) throw new Error(this.decoder.decode(answer));
    return answer;
  }
}
