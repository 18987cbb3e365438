// The program in its worker: what it keeps, gives out and takes in.

import assert from 'node:assert/strict';
import { after, afterEach, before, beforeEach, test } from 'node:test';
import { serve } from '../../../tools/serve_site.js';
import { Device } from './device.js';
import { Browsers } from './site/phone.js';

/** @typedef {import('../../../src/hosts/browser/contract.js').InputEvent} InputEvent */

const vehicleForm = ['key action', 'key soft1', 'key 1'];
const noLog = [...new TextEncoder().encode('these are my notes')];

/** @type {Awaited<ReturnType<typeof serve>>} */
let site;
/** @type {Browsers} */
let browsers;
/** @type {import('puppeteer-core').Browser} */
let chromium;
before(async () => (site = await serve('build/browser/site')));
after(() => site.stop());
beforeEach(async () => {
    browsers = new Browsers();
    chromium = await browsers.start({ env: { ...process.env, TZ: 'UTC' } });
});
afterEach(() => browsers.remove());

/** @param {import('./device.js').Options} [options] */
async function open(options) {
    const device = await Device.open(chromium, site.address, options);
    await device.hear('ready');
    return device;
}

/** @param {Device} device @param {string} name */
async function addVehicle(device, name) {
    await device.do(...vehicleForm, `type ${name}`, 'key soft1');
}

/** @param {Device} device */
const firstLine = async (device) => (await device.ask('screen'))[1];

/** @param {Device} device @param {number[]} bytes */
async function openCopy(device, bytes) {
    await device.tell({ type: 'openCopy', name: 'My Vehicles.dat', bytes: /** @type {any} */ (bytes) });
    return (await device.hear('opened')).outcome;
}

/** @param {Device} device */
async function saveCopy(device) {
    await device.tell({ type: 'saveCopy' });
    return /** @type {number[]} */ (/** @type {unknown} */ ((await device.hear('copy')).bytes));
}

test('a stored record and the settings are there after the page was left', async () => {
    const device = await Device.open(chromium, site.address);
    assert.equal((await device.hear('storage')).lasting, true);
    await device.hear('firstScreen');
    await device.hear('ready');
    await device.tell({ type: 'event', event: { kind: 'keyDown', key: 0x0d } });
    await device.tell({ type: 'event', event: { kind: 'keyUp', key: 0x0d } });
    await device.do('key soft1', 'key 1');
    for (const character of 'Ä1')
        await device.tell({ type: 'event', event: { kind: 'text', character: character.codePointAt(0) } });
    await device.tell({ type: 'event', event: { kind: 'paste', text: '→🚗' } });
    await device.do('key soft1');
    await device.tell({ type: 'hide' });
    await device.reload();
    await device.hear('ready');
    assert.deepEqual(await device.ask('screen'), ['[My Vehicles]', '  Ä1→🚗 (0)', '{New|Menu}']);
});

test('a copy is taken, another log opened in its place, and the former one taken back', async () => {
    const device = await open();
    await addVehicle(device, 'First');
    const copy = await saveCopy(device);
    assert.equal(String.fromCharCode(...copy.slice(0, 15)), 'SQLite format 3');
    await addVehicle(device, 'Second');
    const newer = [...copy];
    newer[63] += 1;

    assert.equal(await openCopy(device, noLog), 'notALog');
    assert.equal(await openCopy(device, newer), 'newer');
    assert.equal((await device.ask('screen')).length, 4, 'what was refused changes nothing');

    await device.do('key soft1', 'key 1', 'type half a form');
    assert.equal(await openCopy(device, copy), 'opened');
    assert.equal((await device.hear('ready')).hasFormer, true);
    assert.deepEqual((await device.ask('screen')).slice(1, -1), ['  First (0)']);

    await device.tell({ type: 'takeBack' });
    assert.equal((await device.hear('opened')).outcome, 'opened');
    await device.hear('ready');
    assert.deepEqual((await device.ask('screen')).slice(1, -1), ['  First (0)', '  Second (0)']);
    await device.reload();
    await device.hear('ready');
    assert.equal((await device.ask('screen')).length, 4);
});

test('the program ends by its own Exit, stores its settings, and starts again', async () => {
    const device = await open();
    await device.do('key action', 'post close');
    assert.equal((await device.hear('ended')).status, 1);
    assert.equal(await openCopy(device, noLog), 'notALog');
    await device.tell({ type: 'startAgain' });
    await device.hear('ready');
    assert.equal(await firstLine(device), '  There are no items in this list.', 'no message on units this time');
});

test('without storage all goes with the page, and a copy can be taken', async () => {
    const device = await open();
    await addVehicle(device, 'Lasting');
    const second = await Device.open(chromium, site.address);
    await assert.rejects(second.hear('ready'), /inUse/);
    await second.close();
    await device.close();

    const page = await open({ withoutStorage: true });
    await addVehicle(page, 'Passing');
    assert.match(await firstLine(page), /Passing/);
    const copy = await saveCopy(page);
    assert.equal(await openCopy(page, copy), 'opened');
    await page.hear('ready');
    assert.match(await firstLine(page), /Passing/);
});

test('the canvas follows a new size and zoom, and is drawn on', async () => {
    const device = await open({ zoom: 1.5 });
    await device.showsAt(480, 720);
    await device.tell({ type: 'event', event: { kind: 'resize', x: 400, y: 300, zoom: 2 } });
    assert.match((await device.do('key action', 'controls'))[1], /at=0,0,400,252/);
    await device.showsAt(800, 600);
});

test('a screen reader hears which of equal rows has the focus, and which part of a date', async () => {
    const device = await open({ variables: { HANDSET_CLOCK: '2026-03-01T09:00:00Z', HANDSET_LOCALE: 'en_US' } });
    const heard = async (/** @type {string[]} */ ...commands) => {
        const { length } = await device.all('spoken');
        await device.do(...commands);
        return (await device.all('spoken')).slice(length).map(({ text }) => text);
    };
    await addVehicle(device, 'Wagon');
    const expense = ['key soft1', 'key 5', 'key down 2', 'type Toll', 'key soft1'];
    await device.do('key action', ...expense, ...expense);
    const row = '3/1/2026 0 Toll $0.00, selected';
    assert.deepEqual(await heard('key up'), [`${row}. row 1 of 2`]);
    assert.deepEqual(await heard('key down'), [`${row}. row 2 of 2`]);
    const opened = await heard('key action');
    assert.deepEqual([opened.at(-1), await heard('key right')], ['Expense. Date. 3/1/2026. month 3', ['day 1']]);
    assert.deepEqual(await heard('key +'), ['day 2']);
    assert.deepEqual((await heard('key soft2', 'key back')).at(-1), 'Date. 3/2/2026. day 2');
});
