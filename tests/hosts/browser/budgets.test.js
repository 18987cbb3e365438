// What the site may weigh, and how long things may take: beyond that a person notices.

import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { mkdtemp, readdir, readFile, rm, writeFile } from 'node:fs/promises';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { test } from 'node:test';
import { brotliCompressSync } from 'node:zlib';
import { Device } from './device.js';
import { serve, startBrowser } from './site.js';

const folder = 'build/browser/site';
/** Bytes, compressed. */
const mostOfModule = 700_000;
const mostOfSite = 1_200_000;
/** Milliseconds. The machine has other things to do as well: the best of several counts. */
const mostOfStart = 1000;
const mostOfRepaint = 5;
const mostOfSave = 20;
const mostOfLongLog = 1000;

const manyEntries = `
import sqlite3, sys
log = sqlite3.connect(sys.argv[1])
vehicle, = log.execute('SELECT ref FROM vehicles').fetchone()
log.execute('DELETE FROM entries')
log.executemany('INSERT INTO entries VALUES (?, ?, ?, ?, ?, ?, 30.5, 33.3, 1.5, ?, "", "Corner")',
    ((i, 2000 + i, vehicle, 30000 + i / 7, (1, 1, 2, 4)[i % 4], 37 * i, f'Oil {i % 9}') for i in range(1, 100001)))
log.execute('UPDATE sequence SET next_ref = 200000')
log.commit()
`;

/** A log of 100,000 entries. @param {number[]} log with one vehicle */
async function lengthened(log) {
    const place = await mkdtemp(join(tmpdir(), 'odoledger-long-'));
    const file = join(place, 'long.dat');
    await writeFile(file, Uint8Array.from(log));
    execFileSync('python3', ['-c', manyEntries, file]);
    const bytes = await readFile(file);
    await rm(place, { recursive: true });
    return [...bytes];
}

test('sizes', async () => {
    let whole = 0;
    for (const entry of await readdir(folder, { recursive: true, withFileTypes: true })) {
        if (!entry.isFile()) continue;
        const { length } = brotliCompressSync(await readFile(join(entry.parentPath, entry.name)));
        if (entry.name === 'odoledger.wasm') assert.ok(length <= mostOfModule, `the module has ${length} bytes`);
        whole += length;
    }
    assert.ok(whole <= mostOfSite, `the site has ${whole} bytes`);
});

test('times', async (context) => {
    const site = await serve(folder);
    const chromium = await startBrowser({ TZ: 'UTC' });
    context.after(() => Promise.all([chromium.close(), site.close()]));
    const device = await Device.open(chromium.browser, site.address, { zoom: 3 });
    await device.hear('ready');

    const starts = [];
    for (let run = 0; run < 3; ++run) {
        const begin = performance.now();
        await device.reload({ zoom: 3 });
        await device.hear('firstScreen');
        starts.push(performance.now() - begin);
        await device.hear('ready');
    }
    assert.ok(Math.min(...starts) <= mostOfStart, `first screen after ${starts} ms`);

    const saves = [];
    await device.do('key action', 'key soft1', 'key 1', 'type Car', 'key soft1', 'key action');
    for (let odometer = 100; odometer < 800; odometer += 100) {
        await device.do('key soft1', 'key 2', 'key down', `type ${odometer}`);
        saves.push(await device.time({ type: 'inspect', what: 'key soft1' }));
        await device.hear('inspected');
    }
    assert.ok(Math.min(...saves) <= mostOfSave, `saved after ${saves} ms`);
    assert.ok((await device.ask('screen')).length > saves.length, 'they were saved indeed');

    const repaints = [];
    for (let run = 0; run < 20; ++run) repaints.push(await device.time({ type: 'event', event: { kind: 'repaint' } }));
    assert.ok(Math.min(...repaints) <= mostOfRepaint, `painted after ${repaints} ms`);

    await device.tell({ type: 'saveCopy' });
    const bytes = await lengthened(/** @type {any} */ ((await device.hear('copy')).bytes));
    await device.tell({ type: 'openCopy', name: 'long.dat', bytes: /** @type {any} */ (bytes) });
    assert.equal((await device.hear('opened')).outcome, 'opened');
    await device.hear('ready');
    const openings = [];
    for (let run = 0; run < 3; ++run) {
        await device.do('key back', 'key down');
        openings.push(await device.time({ type: 'inspect', what: 'key action' }));
        await device.hear('inspected');
    }
    assert.match((await device.ask('screen'))[0], /^\[Car/);
    assert.ok(Math.min(...openings) <= mostOfLongLog, `100,000 entries after ${openings} ms`);
    const told = Object.entries({ starts, saves, repaints, openings }).map(
        ([name, times]) => `${name} ${times.map((time) => time.toFixed(1)).join(' ')}`,
    );
    context.diagnostic(told.join('; '));
});
