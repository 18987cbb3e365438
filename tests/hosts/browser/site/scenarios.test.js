// What people do with the page on a phone, from the first touch to a killed browser, each with a profile of its own.

import assert from 'node:assert/strict';
import { execFileSync } from 'node:child_process';
import { cpSync, mkdirSync, mkdtempSync, readFileSync, readdirSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join, resolve } from 'node:path';
import { after, before, test } from 'node:test';

import { serve } from '../../../../tools/serve_site.js';
import { Browsers, Phone, until, upright } from './phone.js';

const siteFolder = resolve('build/browser/site');
const console_ = resolve('build/default/bin/odoledger-console');

/** @type {Awaited<ReturnType<typeof serve>>} */
let site;
before(async () => {
    site = await serve(siteFolder);
});
after(() => site.stop());

/**
 * @param {(phone: Phone, browsers: Browsers) => Promise<void>} story
 * @param {Parameters<typeof Phone.open>[2]} [how]
 */
async function withPhone(story, how) {
    const browsers = new Browsers();
    try {
        const browser = await browsers.start();
        const phone = await Phone.open(browser, site.address, how);
        await story(phone, browsers);
        assert.deepEqual(phone.faults, []);
    } finally {
        await browsers.remove();
    }
}

/** @param {number} milliseconds */
const pause = (milliseconds) => new Promise((go) => setTimeout(go, milliseconds));

/** Past the question for units, and a vehicle. @param {Phone} phone */
async function addVehicle(phone) {
    await phone.tap('OK');
    await phone.tap('New');
    await phone.tap('Vehicle');
    await phone.shows('[Vehicle Properties]');
    await phone.tap('Name:', 25);
    await phone.type('Blue Wagon');
    await phone.tap('Done');
    await phone.shows('Blue Wagon');
}

/** A fill in the log that is open. @param {Phone} phone @param {string} odometer @param {string} volume @param {string} price */
async function addFill(phone, odometer, volume, price) {
    await phone.tap('New');
    await phone.tap('Fuel Entry');
    await phone.shows('[Fuel Entry]');
    await phone.tap('Odometer:', 25);
    await phone.page.keyboard.down('Control');
    await phone.page.keyboard.press('a');
    await phone.page.keyboard.up('Control');
    await phone.type(odometer);
    await phone.page.keyboard.press('Enter'); // on to the volume
    await phone.type(volume);
    await phone.page.keyboard.press('Enter');
    await phone.type(price);
    await phone.tap('Done');
    await phone.shows(/^\[(?!Fuel Entry)/m);
}

/** @param {Phone} phone */
async function openLog(phone) {
    await phone.tap('Blue Wagon');
    await until(
        async () => {
            if (/\{New\|/.test(await phone.screen()) && (await phone.screen()).startsWith('[Blue Wagon')) return true;
            await phone.tap('Blue Wagon'); // chosen, and acts when it is tapped again
            await pause(150);
            return (await phone.screen()).startsWith('[Blue Wagon');
        },
        'the log of the vehicle',
    );
}

test('from the first touch to a stored fill by taps alone, and again after the page was left', async () => {
    await withPhone(async (phone) => {
        await addVehicle(phone);
        await openLog(phone);
        await addFill(phone, '12000', '41.25', '1.5');
        await phone.shows('12,000');
        await phone.shows('41.25');
        await phone.page.reload();
        await phone.firstScreen();
        await openLog(phone);
        await phone.shows('12,000');
    });
});
