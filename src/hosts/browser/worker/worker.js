// The program's side of the page: one canvas, one pool of files, and the program on them, run after run.

import { CanvasScreen } from '../../../platform/drawing/browser/canvas_screen.js';
import { PoolError } from '../files/pool_file.js';
import { loadFonts } from './fonts.js';
import { Program } from './program.js';
import { clearStorage, contentsOf, formerName, openStorage, takeAsLog } from './storage.js';

/** @typedef {import('../contract.js').FromWorker} FromWorker */
/** @typedef {import('../contract.js').ToWorker} ToWorker */
/** @typedef {import('../contract.js').StartMessage} StartMessage */
/** @typedef {import('../contract.js').OpenedMessage} OpenedMessage */
/** @typedef {import('../contract.js').FailedMessage} FailedMessage */

const site = new URL('../../../', import.meta.url);

/** @param {Response} response */
async function compile(response) {
    if (!response.ok) throw new Error(`${response.url}: ${response.status}`);
    // Some servers do not know what it is; then it cannot be compiled while it comes.
    const isTold = response.headers.get('content-type') === 'application/wasm';
    return isTold ? WebAssembly.compileStreaming(response) : WebAssembly.compile(await response.arrayBuffer());
}

// All that can be had before the page has said anything. What fails is told when it is needed.
const codeComing = fetch(new URL('odoledger.wasm', site)).then(compile);
const moduleComing = import(new URL('odoledger.js', site).href);
const fontsComing = loadFonts();
const storageComing = openStorage();
for (const coming of [codeComing, moduleComing, storageComing]) coming.catch(() => {});

/**
 * @param {FromWorker} message
 * @param {Transferable[]} [transfer]
 */
function post(message, transfer = []) {
    self.postMessage(message, { transfer });
}

/** @param {FailedMessage['reason']} reason @param {unknown} error */
function fail(reason, error) {
    post({ type: 'failed', reason, text: error instanceof Error ? error.message : String(error) });
}

/** The program's surroundings once it was started. @type {import('./program.js').Surroundings | undefined} */
let surroundings;
/** The run that goes on. @type {Program | undefined} */
let program;

/** The size that the page gave last, which each run begins with. @type {import('../contract.js').InputEvent} */
let size = { kind: 'resize' };
/** Nothing happens for so long before the settings are stored. */
const settingsPause = 2000; // milliseconds
/** @type {ReturnType<typeof setTimeout> | undefined} */
let settingsTimer;
/** What the page was told last of how often the log was changed. */
let changes = -1;

/** @param {StartMessage} message @returns {Record<string, string>} */
const variablesOf = ({ screen, zoom, locale, variables }) => ({
    HANDSET_SCREEN: `${Math.round(screen.width)}x${Math.round(screen.height)}`,
    HANDSET_ZOOM: `${zoom}`,
    HANDSET_LOCALE: locale.replaceAll('-', '_'),
    ...variables,
});

/** @param {StartMessage} message */
async function start(message) {
    const { screen, zoom, touchTarget } = message;
    size = { kind: 'resize', x: screen.width, y: screen.height, zoom, touchTarget };
    let storage;
    try {
        storage = await storageComing;
    } catch (error) {
        const isInUse = error instanceof DOMException && error.name === 'NoModificationAllowedError';
        return fail(isInUse ? 'inUse' : 'storage', error);
    }
    post({ type: 'storage', lasting: storage.lasting });
    try {
        clearStorage(storage.pool);
    } catch (error) {
        if (!(error instanceof PoolError)) throw error; // a full or failing disk still has what lies on it
    }
    try {
        surroundings = {
            createModule: (await moduleComing).default,
            code: await codeComing,
            pool: storage.pool,
            screen: new CanvasScreen(message.canvas, () => program?.push({ kind: 'repaint' })),
            post,
            variables: variablesOf(message),
        };
        await fontsComing;
    } catch (error) {
        return fail('load', error);
    }
    await run();
}

/** Starts the program on its surroundings. */
async function run() {
    if (!surroundings) return;
    const { pool } = surroundings;
    const started = await Program.make(surroundings);
    program = started;
    started.ended.then((status) => {
        if (program !== started) return;
        program = undefined;
        if (status !== cannotStart) post({ type: 'ended', status });
    });
    started.push(size);
    attempt(() => started.run());
    if (!started.canBeAsked) return;
    post({ type: 'ready', hasFormer: pool.find(formerName(started.logName())) !== undefined });
    void pool.prepare();
}

/** SQLite counts the changes of a file in its header, at this place. */
const changeCounterPlace = 24;

/** Tells the page when the log was changed. */
function tellChanges() {
    const log = program?.canBeAsked && surroundings?.pool.find(program.logName());
    if (!log) return;
    const bytes = new Uint8Array(4);
    log.read(bytes, changeCounterPlace);
    const counted = new DataView(bytes.buffer).getUint32(0);
    if (counted !== changes) post({ type: 'stored', changes: counted });
    changes = counted;
}

/** The program's status when it has told what keeps it from starting. */
const cannotStart = 2;

/**
 * Does something with the program; should that break, nothing is asked of it any more.
 *
 * @param {() => void} action
 */
function attempt(action) {
    try {
        action();
        tellChanges();
    } catch (error) {
        program = undefined;
        fail('program', error);
    }
}

/** Tells a running program to end, and waits for it: what stands open is left as it is told. */
async function endRun() {
    const running = program;
    if (!running) return;
    program = undefined;
    running.push({ kind: 'end' });
    await running.ended;
}

function saveCopy() {
    const log = program && surroundings?.pool.find(program.logName());
    if (!log) return post({ type: 'copyFailed', reason: 'The program is not running.' });
    try {
        const { buffer } = contentsOf(log);
        post({ type: 'copy', name: 'My Vehicles.dat', bytes: buffer }, [buffer]);
    } catch (error) {
        post({ type: 'copyFailed', reason: error instanceof Error ? error.message : String(error) });
    }
}

/**
 * Puts a file in the log's place, and starts the program with it.
 *
 * @param {(asked: Program, logName: string) => string | OpenedMessage['outcome']} find gives the file's name in the
 *   pool, which begins with a slash, or why there is none
 */
async function changeLog(find) {
    if (!surroundings) return;
    const { pool } = surroundings;
    try {
        const asked = program ?? (await Program.make(surroundings));
        const logName = asked.logName();
        const found = find(asked, logName);
        if (!found.startsWith('/')) {
            post({ type: 'opened', outcome: /** @type {OpenedMessage['outcome']} */ (found) });
            return;
        }
        await endRun();
        takeAsLog(pool, logName, found);
        post({ type: 'opened', outcome: 'opened' });
        changes = -1; // another log's
    } catch (error) {
        if (!(error instanceof PoolError)) throw error;
        post({ type: 'opened', outcome: error.code === 'ENOSPC' ? 'full' : 'failed' });
    }
    if (!program) await run();
}

/** @param {ArrayBuffer} bytes */
function openCopy(bytes) {
    return changeLog((asked, logName) => {
        const name = `${logName}.opened`;
        const verdict = asked.tryFile(name, new Uint8Array(bytes));
        return verdict === 'usable' ? name : verdict;
    });
}

/** @param {ToWorker} message */
async function obey(message) {
    switch (message.type) {
        case 'start':
            return start(message);
        case 'startAgain':
            return program ? undefined : run();
        case 'event':
            if (message.event.kind === 'resize') size = message.event;
            // Not every browser tells a page that it is closed in time for the worker to hear of it.
            clearTimeout(settingsTimer);
            settingsTimer = setTimeout(() => attempt(() => program?.storeSettings()), settingsPause);
            return attempt(() => program?.push(message.event));
        case 'hide':
            return attempt(() => program?.storeSettings());
        case 'inspect':
            return attempt(() => {
                const { what, id } = message;
                post({ type: 'inspected', what, id, lines: program?.inspect(what) ?? [] });
            });
        case 'saveCopy':
            return saveCopy();
        case 'openCopy':
            return openCopy(message.bytes);
        case 'takeBack':
            return changeLog((_, logName) =>
                surroundings?.pool.find(formerName(logName)) ? formerName(logName) : 'nothingKept',
            );
    }
}

self.onmessage = ({ data }) => {
    obey(data).catch((error) => fail('program', error));
};
