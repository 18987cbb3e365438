// The other engine: what a person types in Firefox is there when the page comes again.

import assert from 'node:assert/strict';
import { existsSync } from 'node:fs';
import { test } from 'node:test';

import { withPhone } from './phone.js';

const firefox = '/usr/bin/firefox-esr';
/** @type {import('puppeteer-core').LaunchOptions} */
const launch = { browser: 'firefox', executablePath: firefox, args: [] };

test(
    'a vehicle and an entry, typed in Firefox, outlast the page',
    { skip: !existsSync(firefox) && 'no Firefox' },
    async () => {
        await withPhone(
            async (phone, { browser }) => {
                const press = async (
                    /** @type {import('puppeteer-core').KeyInput} */ key,
                    /** @type {string | RegExp} */ screen,
                ) => {
                    await phone.page.keyboard.press(key);
                    await phone.shows(screen);
                };
                await press('Enter', '[My Vehicles]');
                await press('F1', '(menu)');
                await press('1', '[Vehicle Properties]');
                await phone.type('Blue Wagon');
                await press('F1', '> Blue Wagon');
                await press('Enter', '[Blue Wagon');
                await press('F1', '(menu)');
                await press('5', '[Expense]');
                await press('ArrowDown', '> 0');
                await press('ArrowDown', /Odometer:\n {2}0/);
                await phone.type('Toll');
                await press('F1', '> Toll');
                await browser.newPage(); // a page that is hidden stores its settings
                await phone.page.bringToFront();
                await phone.page.reload();
                await phone.firstScreen();
                await phone.shows('[Blue Wagon');
                assert.match(await phone.screen(), /Toll/);
            },
            { launch, viewport: { width: 1024, height: 768 } },
        );
    },
);
