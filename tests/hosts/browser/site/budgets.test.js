// How large the site may be and how long it may take, with the figures. The limits are those of one quiet machine: what
// the same piece of work takes in the same minute tells how many times slower another one is, or a busy one.

import assert from 'node:assert/strict';
import { execFileSync, spawnSync } from 'node:child_process';
import { existsSync, mkdtempSync, readFileSync, readdirSync, rmSync, statSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join, resolve } from 'node:path';
import { after, before, test } from 'node:test';
import { brotliCompressSync } from 'node:zlib';

import { serve } from '../../../../tools/serve_site.js';
import { Browsers, Phone } from './phone.js';

/** @typedef {import('node:test').TestContext} TestContext */
/** @typedef {import('puppeteer-core').Page} Page */

const siteFolder = resolve('build/browser/site');
const tally = resolve('build/default/bin/odoledger-tally');

/** @type {Awaited<ReturnType<typeof serve>>} */
let site;
const browsers = new Browsers();
/** @type {import('puppeteer-core').Browser} */
let browser;
before(async () => {
    site = await serve(siteFolder);
    browser = await browsers.start();
});
after(async () => {
    await browsers.remove();
    await site.stop();
});

/** What these two take on the machine of the limits, in milliseconds; a page that was just loaded is not yet warm. */
const usual = { workOfNewPage: 12, work: 9.3, store: 9 };

/**
 * In a page or its worker: work of which nothing is the program's. It has to take about as long as what is measured: a
 * busy machine lets a short piece pass.
 *
 * @param {number} rounds
 * @returns {number} milliseconds for a round
 */
function work(rounds) {
    const begin = performance.now();
    const numbers = new Int32Array(1 << 22);
    for (let step = 0; step < rounds * 3_000_000; ++step) {
        const place = Math.imul(step, 0x9e3779b1) >>> 10;
        numbers[place] = (numbers[place ^ 0xffff] ?? 0) + step;
    }
    return (performance.now() - begin) / rounds;
}

/** In a worker: as much as a save takes of the processor and of the disk. @returns {Promise<number>} milliseconds */
async function store() {
    const folder = await (await navigator.storage.getDirectory()).getDirectoryHandle('beside', { create: true });
    // A handle of which only workers know.
    const handle = /** @type {any} */ (await folder.getFileHandle('stored', { create: true }));
    const file = await handle.createSyncAccessHandle();
    const numbers = new Int32Array(1024);
    const begin = performance.now();
    for (let count = 0; count < 5; ++count) {
        for (let step = 0; step < 600_000; ++step)
            numbers[step & 1023] = Math.imul((numbers[(step * 7919) & 1023] ?? 0) + step, 0x9e3779b1);
        file.write(new Uint8Array(numbers.buffer), { at: numbers.byteLength * count });
        file.flush();
    }
    const time = performance.now() - begin;
    file.close();
    return time;
}

/** @param {number[]} times what `work` or `store` took beside something @param {number} usualTime */
const slownessOf = (times, usualTime) => Math.max(1, medianOf(times) / usualTime);

/** @param {number[]} times */
const medianOf = (times) => [...times].sort((first, second) => first - second)[Math.floor(times.length / 2)] ?? NaN;

/**
 * @param {TestContext} context
 * @param {string} what
 * @param {number[]} times milliseconds
 * @param {number} limit
 * @param {number} slowness how many times slower this machine is than that of the limits
 */
function keepsWithin(context, what, times, limit, slowness) {
    const median = medianOf(times) / slowness;
    const told = `${what}: median ${median.toFixed(1)} ms on a machine ${slowness.toFixed(2)} times as fast, limit ${limit} ms`;
    context.diagnostic(told);
    assert.ok(median <= limit, `${told}; here ${times.map((time) => time.toFixed(1)).join(' ')} ms`);
}

/** @param {string} folder @returns {string[]} */
const filesBelow = (folder) =>
    readdirSync(folder, { recursive: true, encoding: 'utf8' })
        .map((name) => join(folder, name))
        .filter((name) => statSync(name).isFile());

test('size of the program and of a first visit', (context) => {
    /** What a server that compresses sends. @param {string} file */
    const sent = (file) => {
        const bytes = readFileSync(file);
        return Math.min(bytes.length, brotliCompressSync(bytes).length);
    };
    const program = sent(join(siteFolder, 'odoledger.wasm'));
    const visit = filesBelow(siteFolder).reduce((sum, file) => sum + sent(file), 0);
    context.diagnostic(`the program ${program} bytes, a first visit ${visit} bytes`);
    assert.ok(program <= 700_000 && visit <= 1_200_000);
});

/** In the page: when the first screen stood there. */
function noteFirstScreen() {
    window.Worker = class extends Worker {
        /** @param {string | URL} address @param {WorkerOptions} [options] */
        constructor(address, options) {
            super(address, options);
            this.addEventListener('message', ({ data }) => {
                if (data.type === 'firstScreen') Object.assign(window, { firstScreen: performance.now() });
            });
        }
    };
}

/**
 * Lets the whole browser run for a quarter of the time: what it slows itself are pages, not their workers.
 *
 * @template Result
 * @param {import('puppeteer-core').Browser} slow
 * @param {() => Promise<Result>} action
 */
async function slowed(slow, action) {
    const group = -(slow.process()?.pid ?? NaN);
    const pause = (/** @type {number} */ milliseconds) => new Promise((go) => setTimeout(go, milliseconds));
    let isOver = false;
    const slowing = (async () => {
        while (!isOver) {
            process.kill(group, 'SIGSTOP');
            await pause(12);
            process.kill(group, 'SIGCONT');
            await pause(4);
        }
    })();
    try {
        return await action();
    } finally {
        isOver = true;
        await slowing;
    }
}

/** @param {Phone} phone */
async function timeOfStart(phone) {
    await phone.page.reload();
    await phone.firstScreen();
    return phone.page.evaluate(() => Number(/** @type {any} */ (window).firstScreen));
}

test('time to the first screen of a site that was visited before', async (context) => {
    const phone = await Phone.open(browser, site.address, {
        prepare: (page) => page.evaluateOnNewDocument(noteFirstScreen),
    });
    try {
        await phone.page.evaluate(() => navigator.serviceWorker.ready);
        const starts = async () => {
            /** @type {number[]} */
            const times = [];
            /** @type {number[]} */
            const rounds = [];
            for (let run = 0; run < 7; ++run) {
                rounds.push(await phone.page.evaluate(work, 14));
                times.push(await timeOfStart(phone));
            }
            return { times, rounds };
        };
        const { times, rounds } = await starts();
        keepsWithin(context, 'first screen', times, 1000, slownessOf(rounds, usual.workOfNewPage));
        const quarter = await slowed(browser, starts);
        const slowness = slownessOf(quarter.rounds, 4 * usual.workOfNewPage);
        keepsWithin(context, 'first screen at a quarter of the time', quarter.times, 1500, slowness);
    } finally {
        await phone.page.close();
    }
});

/**
 * Gives the program commands in its worker, where nobody else's time counts.
 *
 * @param {Page} page
 * @param {string[]} commands of which the last is timed; "repaint" is an event
 * @returns {Promise<number>} milliseconds until the program waits again
 */
async function timeIn(page, commands) {
    const [worker] = page.workers();
    assert.ok(worker);
    return worker.evaluate((each) => {
        let start = 0;
        for (const what of each) {
            const message =
                what === 'repaint' ? { type: 'event', event: { kind: 'repaint' } } : { type: 'inspect', what };
            start = performance.now();
            self.onmessage?.(new MessageEvent('message', { data: message }));
        }
        return performance.now() - start;
    }, commands);
}

/** A log of so many fills, with a vehicle. @param {string} folder @param {number} count */
function makeLog(folder, count) {
    const table = join(folder, 'fills.csv');
    const first = Date.UTC(1960, 0, 1);
    const rows = Array.from({ length: count }, (_, row) => {
        const day = new Date(first + row * 14_400_000).toISOString().slice(0, 10);
        return `${day},${1000 + 20 * row},${8 + (row % 70) / 10},3.1,${(24.8 + (row % 70) * 0.31).toFixed(2)}`;
    });
    writeFileSync(table, ['day,mi,gal,price,paid', ...rows, ''].join('\n'));
    const file = join(folder, 'My Documents', 'My Vehicles.dat');
    const env = { ...process.env, HANDSET_STORAGE: folder, HANDSET_LOCALE: 'en_US' };
    spawnSync(resolve('build/default/bin/odoledger-console'), { input: 'boot\n', env });
    const map = ['--map', 'date=day,odometer=mi,volume=gal,price=price,total=paid'];
    const units = ['--distance', 'mi', '--volume', 'usgal', '--vehicle', 'Wagon'];
    execFileSync(tally, ['import', ...units, ...map, table], { env, stdio: 'pipe' });
    return file;
}

test(
    'a save, a log of 100,000 entries, a repaint',
    { skip: existsSync(tally) ? false : 'no desktop build' },
    async (context) => {
        const folder = mkdtempSync(join(tmpdir(), 'odoledger-budgets-'));
        const phone = await Phone.open(browser, site.address);
        const { page } = phone;
        try {
            for (const command of ['key action', 'key soft1', 'key 1', 'type Car', 'key soft1', 'key action'])
                await phone.inspect(command);
            const expense = ['key soft1', 'key 5', 'key down 2'];
            const [worker] = page.workers();
            assert.ok(worker);
            const saved = [];
            const stores = [];
            for (let run = 0; run < 20; ++run) {
                stores.push(await worker.evaluate(store));
                saved.push(await timeIn(page, [...expense, `type Toll ${run}`, 'key soft1']));
            }
            assert.match(await phone.screen(), /Toll 19/);
            keepsWithin(context, 'a save', saved, 20, slownessOf(stores, usual.store));
            await phone.inspect('key back');

            await page.click('#menu-button');
            const [chooser] = await Promise.all([page.waitForFileChooser(), page.click('[data-action=openCopy]')]);
            await chooser.accept([makeLog(folder, 100_000)]);
            await phone.shows('Wagon');
            await phone.inspect('key down');

            const opened = [];
            const rounds = [];
            for (let run = 0; run < 5; ++run) {
                rounds.push(await worker.evaluate(work, 14));
                opened.push(await timeIn(page, ['key action']));
                assert.match(await phone.screen(), /^\[Wagon/);
                await phone.inspect('key back');
            }
            keepsWithin(context, 'a log of 100,000 entries opened', opened, 1000, slownessOf(rounds, usual.work));

            await phone.inspect('key action');
            const painted = [];
            for (let run = 0; run < 50; ++run) painted.push(await timeIn(page, ['repaint']));
            const slowness = slownessOf(rounds, usual.work);
            keepsWithin(context, 'a repaint of the log', painted, 5, slowness);

            const among = [];
            for (let run = 0; run < 5; ++run)
                among.push(await timeIn(page, [...expense, `type Toll ${run}`, 'key soft1']));
            assert.match(await phone.screen(), /Toll 4/);
            keepsWithin(context, 'a save in the log of 100,000 entries', among, 100, slowness);
        } finally {
            await page.close();
            rmSync(folder, { recursive: true, force: true });
        }
    },
);
