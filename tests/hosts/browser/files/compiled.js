// Programs in C of the tests, compiled as the program itself is: one that waits inside a call, on the pool's file system.

import { execFileSync } from 'node:child_process';
import { mkdirSync, readFileSync, statSync, writeFileSync } from 'node:fs';
import { createRequire } from 'node:module';
import { fileURLToPath } from 'node:url';

import { poolFileSystem } from '../../../../src/hosts/browser/files/pool_file_system.js';

const root = fileURLToPath(new URL('../../../../', import.meta.url));
const sources = `${root}tests/hosts/browser/files/`;
const target = `${root}build/javascript-tests/`;
const library = `${root}src/hosts/browser/files/sync_library.js`;
export const sqlite = `${root}node_modules/better-sqlite3/deps/sqlite3/`;

/** @param {string} path */
const timeOf = (path) => statSync(path, { throwIfNoEntry: false })?.mtimeMs ?? 0;

/**
 * @param {string} output
 * @param {string[]} inputs
 * @param {string[]} flags
 */
function compile(output, inputs, flags) {
    if (timeOf(output) > Math.max(timeOf(fileURLToPath(import.meta.url)), ...inputs.map(timeOf))) return;
    mkdirSync(target, { recursive: true });
    // What Emscripten writes is no module, whatever the project's own scripts are.
    writeFileSync(`${target}package.json`, '{}');
    const environment = { ...process.env, NODE_PATH: '/usr/share/nodejs' };
    const files = inputs.filter((input) => !input.endsWith('.js'));
    execFileSync('emcc', [...flags, '-o', output, ...files], {
        env: environment,
        stdio: ['ignore', 'ignore', 'inherit'],
    });
}

/** @returns {string} SQLite as an object file */
export function compileSqlite() {
    const output = `${target}sqlite3.o`;
    const definitions = ['THREADSAFE=0', 'OMIT_WAL', 'OMIT_LOAD_EXTENSION', 'DQS=0'].map((word) => `-DSQLITE_${word}`);
    compile(output, [`${sqlite}sqlite3.c`], ['-c', '-O2', '-w', ...definitions]);
    return output;
}

/**
 * @param {string} name of the source without ".c"
 * @param {string[]} [objects]
 * @returns {(pool: import('../../../../src/hosts/browser/files/pool.js').Pool, print: (line: string) => void,
 *   words?: string[]) => Promise<number>} runs the program on a pool that is mounted at /device, and gives its exit code
 */
export function compileProgram(name, objects = []) {
    const output = `${target}${name}.js`;
    const settings = ['ASYNCIFY', 'ALLOW_MEMORY_GROWTH', 'FORCE_FILESYSTEM', 'EXIT_RUNTIME', 'MODULARIZE'];
    const more = ['ENVIRONMENT=worker,node', 'EXPORTED_RUNTIME_METHODS=FS', 'ASYNCIFY_IGNORE_INDIRECT'];
    const own = ['NODEJS_CATCH_EXIT=0', 'NODEJS_CATCH_REJECTION=0'];
    const flags = [...settings, ...more, ...own].map((setting) => `-s${setting}`);
    compile(
        output,
        [`${sources}${name}.c`, ...objects, library],
        ['-O2', '-Wall', `-I${sqlite}`, '--js-library', library, ...flags],
    );
    const start = createRequire(import.meta.url)(output);
    const compiled = new WebAssembly.Module(readFileSync(output.replace(/js$/, 'wasm')));
    return (pool, print, words = []) =>
        new Promise((resolve, reject) => {
            /** @param {{FS: any}} module */
            const preRun = ({ FS }) => {
                FS.mkdir('/device');
                FS.mount(poolFileSystem(FS, pool), {}, '/device');
            };
            /**
             * @param {WebAssembly.Imports} imports
             * @param {(instance: WebAssembly.Instance) => void} take
             */
            const instantiateWasm = (imports, take) => {
                const instance = new WebAssembly.Instance(compiled, imports);
                take(instance);
                return instance.exports;
            };
            start({
                instantiateWasm,
                print,
                arguments: words,
                preRun: [preRun],
                onExit: resolve,
                quit: () => {},
                onAbort: reject,
            }).catch(reject);
        });
}
