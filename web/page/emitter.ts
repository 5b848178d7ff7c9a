/// Those who want to know of something.
export class Emitter<T> {
  private readonly listeners = new Set<(value: T) => void>();

  on(listener: (value: T) => void): void {
    this.listeners.add(listener);
  }
  emit(value: T): void {
    for (const listener of this.listeners) listener(value);
  }
}
