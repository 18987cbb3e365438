// One run of the program, from its module's start to its end.

import { LocaleTexts } from '../../../platform/system/browser/locale_texts.js';
import { poolFileSystem } from '../files/pool_file_system.js';
import { ProgramHost } from './program_host.js';

/** @typedef {import('../../../platform/drawing/browser/canvas_screen.js').CanvasScreen} CanvasScreen */
/** @typedef {import('../files/pool.js').Pool} Pool */
/** @typedef {import('../contract.js').FromWorker} FromWorker */

const storagePlace = '/device';
const programFile = '/program/odoledger';

const verdicts = Object.freeze(/** @type {const} */ (['usable', 'notALog', 'newer']));
/** As Emscripten numbers it. */
const diskFull = 51;

/**
 * What a run stands on.
 *
 * @typedef {object} Surroundings
 * @property {(settings: object) => Promise<any>} createModule
 * @property {WebAssembly.Module} code
 * @property {Pool} pool mounted at the storage place
 * @property {CanvasScreen} screen
 * @property {(message: FromWorker) => void} post
 * @property {Record<string, string>} variables of the environment
 */

export class Program {
    #module;
    #host;

    /**
     * @param {any} module
     * @param {ProgramHost} host
     * @param {Promise<number>} ended
     */
    constructor(module, host, ended) {
        this.#module = module;
        this.#host = host;
        /** Comes when the program has ended, with its status. */
        this.ended = ended;
    }

    /**
     * Makes the program ready to run.
     *
     * @param {Surroundings} surroundings
     * @returns {Promise<Program>}
     */
    static async make({ createModule, code, pool, screen, post, variables }) {
        const host = new ProgramHost(post);
        /** @type {(status: number) => void} */
        let noteEnd = () => {};
        /** @type {Promise<number>} */
        const ended = new Promise((resolve) => (noteEnd = resolve));
        /** @type {(error: unknown) => void} */
        let giveUp = () => {};
        const failure = new Promise((_, reject) => (giveUp = reject));
        const making = createModule({
            screen,
            host,
            localeTexts: (/** @type {string} */ numbers, /** @type {string} */ dates) =>
                new LocaleTexts(numbers, dates),
            instantiateWasm(
                /** @type {WebAssembly.Imports} */ imports,
                /** @type {(instance: WebAssembly.Instance) => void} */ success,
            ) {
                WebAssembly.instantiate(code, imports).then(success, giveUp);
                return {};
            },
            // Before the program's static objects, which read the environment.
            preRun(/** @type {any} */ { FS, ENV }) {
                Object.assign(ENV, { HANDSET_STORAGE: storagePlace }, variables);
                FS.mkdir('/program');
                FS.symlink(programFile, '/proc/self/exe');
                FS.mkdir(storagePlace);
                FS.mount(poolFileSystem(FS, pool), {}, storagePlace);
            },
            onExit: noteEnd,
            // What is told at the end, to whoever looks after the program.
            printErr: (/** @type {string} */ line) => console.warn(line),
        });
        return new Program(await Promise.race([making, failure]), host, ended);
    }

    /** Runs it until it waits for the first time, or ends. */
    run() {
        this.#guarded(() => this.#module._odoledgerRun());
    }

    /** @param {import('../contract.js').InputEvent} event */
    push(event) {
        this.#guarded(() => this.#host.push(event));
    }

    /**
     * @param {string} command
     * @returns {string[]} the lines that answer it; the program has done what it says
     */
    inspect(command) {
        if (!this.canBeAsked) return [];
        const lines = this.#withText(command, (place) => this.#taken(this.#module._odoledgerInspect(place)));
        this.#guarded(() => this.#host.wake());
        return lines.split('\n').slice(0, -1);
    }

    storeSettings() {
        if (this.canBeAsked) this.#module._odoledgerStoreSettings();
    }

    /** @returns {string} the log's name in the pool */
    logName() {
        return this.#taken(this.#module._odoledgerLogFile()).slice(storagePlace.length);
    }

    /**
     * Puts a file into the pool and looks whether it can be the log; one that cannot be is gone again.
     *
     * @param {string} name
     * @param {Uint8Array} bytes
     * @returns {'usable' | 'notALog' | 'newer' | 'full' | 'failed'}
     */
    tryFile(name, bytes) {
        const { FS } = this.#module;
        const path = storagePlace + name;
        try {
            FS.writeFile(path, bytes);
            const verdict = verdicts[this.#withText(path, (place) => this.#module._odoledgerVerdictOn(place))];
            if (verdict !== 'usable') FS.unlink(path);
            return verdict;
        } catch (error) {
            if (!(error instanceof FS.ErrnoError)) throw error;
            if (FS.analyzePath(path).exists) FS.unlink(path);
            return /** @type {{errno: number}} */ (error).errno === diskFull ? 'full' : 'failed';
        }
    }

    /** Whether it runs, and waits. */
    get canBeAsked() {
        return this.#host.isWaiting;
    }

    /**
     * An end of the program is thrown through whoever woke it.
     *
     * @param {() => void} action
     */
    #guarded(action) {
        try {
            action();
        } catch (error) {
            if (/** @type {{name?: string} | null} */ (error)?.name !== 'ExitStatus') throw error;
        }
    }

    /**
     * @template Result
     * @param {string} text
     * @param {(place: number) => Result} use
     * @returns {Result}
     */
    #withText(text, use) {
        const place = this.#module.stringToNewUTF8(text);
        try {
            return use(place);
        } finally {
            this.#module._free(place);
        }
    }

    /** @param {number} place @returns {string} */
    #taken(place) {
        const text = this.#module.UTF8ToString(place);
        this.#module._free(place);
        return text;
    }
}
