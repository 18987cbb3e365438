// What a library for Emscripten finds around it.
declare const LibraryManager: { library: object };
declare function mergeInto(library: object, additions: object): void;

interface EmscriptenStream {
    node: { node_ops: { getattr(node: object): object } };
    path: string;
    stream_ops: { fsync?(stream: EmscriptenStream): void };
}
declare const FS: { ErrnoError: new (errno: number) => Error & { errno: number } };
declare const SYSCALLS: {
    getStreamFromFD(fd: number): EmscriptenStream;
    doStat(find: () => object, path: string, buffer: number): number;
};
declare function flushStream(fd: number): void;
declare function errorNumberOf(operation: () => void): number;
