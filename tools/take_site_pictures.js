// Takes pictures of ten screens of the site, on a phone and on a desktop, into build/site-pictures: to be looked at.
// `node tools/take_site_pictures.js`, once the site is built. Three of them stand in docs, at half their size:
// `convert build/site-pictures/phone-log.png -resize 50% -strip docs/browser-log.png`.

import { mkdirSync } from 'node:fs';
import { resolve } from 'node:path';

import { Browsers, Phone, upright } from '../tests/hosts/browser/site/phone.js';
import { serve } from './serve_site.js';

const folder = resolve('build/site-pictures');
const wide = { width: 1280, height: 800 };

/** @param {string} name @param {string} year @param {string} odometer */
const vehicle = (name, year, odometer) => [
    'key soft1',
    'key 1',
    `type ${name}`,
    'key down',
    `type ${year}`,
    'key down',
    `type ${odometer}`,
    'key soft1',
];

/** With the total worked out. @param {string} day @param {string} odometer @param {string} volume @param {string} price @param {string} vendor */
const fill = (day, odometer, volume, price, vendor) => [
    ...['key soft1', 'key 2', `type ${day}`, 'key down', `type ${odometer}`, 'key down', `type ${volume}`],
    ...['key down', `type ${price}`, 'key soft2', 'key 2', 'key down', `type ${vendor}`, 'key soft1'],
];

const entries = ['key action', ...vehicle('Camper', '1987', '84000'), ...vehicle('Blue Wagon', '2019', '41200')];

const log = [
    'key action',
    ...fill('01042026', '41200', '10', '3.05', 'North'),
    ...fill('01172026', '41512', '11.2', '3.10', 'Harbour'),
    ...['key soft1', 'key 3', 'type 01302026', 'key down', 'type 41600', 'key down', 'type Brake pads', 'key down'],
    ...['type Garage', 'key down', 'type 249.5', 'key soft1'],
    ...fill('02082026', '41790', '10.4', '2.99', 'North'),
    ...['key soft1', 'key 5', 'type 02142026', 'key down 2', 'type Car wash', 'key down 2', 'type 18', 'key soft1'],
    ...fill('02272026', '42105', '11.1', '3.15', 'Harbour'),
];

/** Name, and what leads there from the screen before: commands of the scripted device, "tap TEXT", "page SELECTOR". */
const screens = /** @type {[string, string[]][]} */ ([
    ['units', []],
    ['vehicles', entries],
    ['log', log],
    ['new', ['key soft1']],
    [
        'fuel',
        [
            ...['key 2', 'tap Odometer:', 'key ctrl+a', 'type 42390', 'tap Num gallons:', 'key ctrl+a', 'type 10.8'],
            ...['tap Cost per gallon:', 'key ctrl+a', 'type 3.09'],
        ],
    ],
    ['notes', ['tap Notes:', 'type Two bottles of oil, receipt in the glove box']],
    ['stats', ['key soft2', 'key 3', 'key soft2', 'key 3']],
    [
        'due',
        ['key soft2', 'key soft1', 'key 6', 'type Change the oil', 'key down', 'type 42100', 'key soft1', 'key soft1'],
    ],
    ['options', ['key soft2', 'key soft2', 'key 8']],
    ['page-menu', ['key soft2', 'page #menu-button']],
]);

/** @param {Phone} phone @param {string} command @param {boolean} hasFingers */
async function act(phone, command, hasFingers) {
    const [verb, rest = ''] = command.split(/ (.*)/);
    if (verb === 'page') await phone.page.click(rest);
    else if (verb !== 'tap') await phone.inspect(command);
    else if (hasFingers) await phone.tap(rest, 25);
    else {
        const label = (await phone.texts()).find(({ text }) => text === rest);
        const { x, y } = await phone.at((label?.x ?? 0) + 20, (label?.y ?? 0) + 25);
        await phone.page.mouse.click(x, y);
    }
}

const site = await serve(resolve('build/browser/site'));
const browsers = new Browsers();
mkdirSync(folder, { recursive: true });
try {
    const browser = await browsers.start();
    for (const [display, viewport] of /** @type {const} */ ([
        ['phone', upright],
        ['wide', wide],
    ])) {
        const context = await browser.createBrowserContext();
        const phone = await Phone.open(context, site.address, { viewport });
        for (const [name, commands] of screens) {
            for (const command of commands) await act(phone, command, display === 'phone');
            await phone.page.waitForNetworkIdle({ idleTime: 300 });
            await phone.page.screenshot({ path: `${folder}/${display}-${name}.png` });
            console.log(`${display}-${name}: ${(await phone.screen()).split('\n')[0]}`);
        }
        await context.close();
    }
} finally {
    await browsers.remove();
    await site.stop();
}
