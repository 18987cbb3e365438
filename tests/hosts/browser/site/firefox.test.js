// The other engine: what a person types in Firefox is there when the page comes again.

import assert from 'node:assert/strict';
import { existsSync } from 'node:fs';
import { resolve } from 'node:path';
import { test } from 'node:test';

import { serve } from '../../../../tools/serve_site.js';
import { Browsers, Phone } from './phone.js';

const firefox = '/usr/bin/firefox-esr';

test(
    'a vehicle and an entry, typed in Firefox, outlast the page',
    { skip: !existsSync(firefox) && 'no Firefox' },
    async () => {
        const site = await serve(resolve('build/browser/site'));
        const browsers = new Browsers();
        try {
            const browser = await browsers.start({ browser: 'firefox', executablePath: firefox, args: [] });
            const phone = await Phone.open(browser, site.address, { viewport: { width: 1024, height: 768 } });
            const { keyboard } = phone.page;
            for (const key of /** @type {const} */ (['Enter', 'F1', '1'])) await keyboard.press(key);
            await phone.shows('[Vehicle Properties]');
            await keyboard.type('Blue Wagon');
            for (const key of /** @type {const} */ (['F1', 'Enter', 'F1', '5', 'ArrowDown', 'ArrowDown']))
                await keyboard.press(key);
            await keyboard.type('Toll');
            await keyboard.press('F1');
            await phone.shows('> Toll');
            await browser.newPage(); // a page that is hidden stores its settings
            await phone.page.bringToFront();
            await phone.page.reload();
            await phone.firstScreen();
            await phone.shows('[Blue Wagon');
            assert.match(await phone.screen(), /Toll/);
            assert.deepEqual(phone.faults, []);
        } finally {
            await browsers.remove();
            await site.stop();
        }
    },
);
