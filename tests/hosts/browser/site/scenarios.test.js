// What people do with the page on a phone, from the first touch to a killed browser, each with a profile of its own.

import assert from 'node:assert/strict';
import { execFileSync, spawnSync } from 'node:child_process';
import { cpSync, existsSync, mkdirSync, mkdtempSync, readFileSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join, resolve } from 'node:path';
import { test } from 'node:test';

import { Phone, siteFolder, until, upright, withPhone } from './phone.js';

const desktop = resolve('build/default/bin/odoledger-console');
const needsDesktop = { skip: existsSync(desktop) ? false : 'the desktop program is not built here' };

/** For what must not come: nothing tells when that is certain. @param {number} milliseconds */
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

/** A folder that is gone again afterwards. @param {(folder: string) => Promise<void>} use */
async function withFolder(use) {
    const folder = mkdtempSync(join(tmpdir(), 'odoledger-site-'));
    try {
        await use(folder);
    } finally {
        rmSync(folder, { recursive: true, force: true });
    }
}

/**
 * What the scripted desktop program prints for some commands, on a device in a folder.
 *
 * @param {string} folder
 * @param {string[]} commands
 */
const runDesktop = (folder, commands) =>
    spawnSync(desktop, {
        input: `${['boot', ...commands].join('\n')}\n`,
        env: {
            ...process.env,
            HANDSET_STORAGE: folder,
            HANDSET_LOCALE: 'en_US',
            HANDSET_CLOCK: '2026-03-01T09:00:00Z',
        },
        encoding: 'utf8',
    }).stdout;
const logOf = (/** @type {string} */ folder) => join(folder, 'My Documents', 'My Vehicles.dat');

/** The keys for an expense in the log that is open. @param {string} name */
const expense = (name) => ['key soft1', 'type 5', 'key down', 'key down', `type ${name}`, 'key soft1'];

/** A desktop's log: one vehicle with so many expenses. @param {string} folder @param {number} count */
function makeDesktopLog(folder, count) {
    runDesktop(folder, [
        ...['key soft1', 'key soft1', 'type 1', 'type Wagon', 'key soft1', 'key action'],
        ...Array.from({ length: count }, () => expense('Toll')).flat(),
    ]);
    return logOf(folder);
}

/** A fill in the log that is open. @param {Phone} phone @param {string} odometer @param {string} volume @param {string} price */
async function addFill(phone, odometer, volume, price) {
    await phone.tap('New');
    await phone.tap('Fuel Entry');
    await phone.shows('[Fuel Entry]');
    await phone.tap('Odometer:', 25);
    await phone.typeOver(odometer);
    await phone.page.keyboard.press('Enter'); // on to the volume
    await phone.type(volume);
    await phone.page.keyboard.press('Enter');
    await phone.type(price);
    await phone.tap('Done');
    await phone.shows(/^\[(?!Fuel Entry)/m);
}

/** Chooses the vehicle, and opens what is chosen. @param {Phone} phone @param {string} [vehicle] */
async function openLog(phone, vehicle = 'Blue Wagon') {
    // A tap is done before the screen is told: a third one would act on what the log shows.
    for (let tap = 0; tap < 2 && !(await phone.screen()).startsWith(`[${vehicle}`); ++tap) await phone.tap(vehicle);
    await phone.shows(`[${vehicle}`);
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

test(
    'a list follows the finger by the pixel, glides, and a long press chooses further rows',
    needsDesktop,
    async () => {
        await withFolder(async (folder) => {
            const file = makeDesktopLog(folder, 60);
            await withPhone(async (phone) => {
                await phone.tap('OK');
                await phone.openCopy(file);
                await phone.shows('[My Vehicles]');
                await openLog(phone, 'Wagon');
                const tops = async () =>
                    (await phone.texts()).filter((each) => each.text === 'Toll').map((each) => each.y);
                const motion = (/** @type {string} */ value) =>
                    phone.page.emulateMediaFeatures([{ name: 'prefers-reduced-motion', value }]);
                await motion('reduce');
                const frame = async () => (await phone.inspect('frame')).join('\n');
                const first = (await tops())[0] ?? 0;
                await phone.drag([100, 400], [100, 377], 4);
                await pause(300); // it does not go on
                assert.ok(Math.abs(first - ((await tops())[0] ?? 0) - 23) < 2, `from ${first} to ${await tops()}`);
                await motion('no-preference');
                // A finger that leaves in full run lets the list go on.
                let atLeaving = '';
                await phone.drag([100, 450], [100, 150], 5, async () => {
                    await pause(300); // it stays where the finger does
                    atLeaving = await frame();
                });
                await until(async () => (await frame()) !== atLeaving, 'the list to glide');
                await motion('reduce');
                await phone.drag([100, 300], [100, 270]); // catches it
                const chosen = async () =>
                    (await phone.screen()).split('\n').filter((line) => line.startsWith('>')).length;
                await phone.touchRow('Toll', 2);
                const one = await chosen();
                await phone.touchRow('Toll', 4, () => until(async () => (await chosen()) !== one, 'a choice'));
                assert.equal(await chosen(), 2 * one, 'a further row is chosen');
            });
        });
    },
);

test('an input method composes in the field itself, and a comma is what the locale has', async () => {
    const variables = { HANDSET_LOCALE: 'de_DE', HANDSET_CLOCK: '2026-03-01T09:00:00Z' };
    await withPhone(
        async (phone) => {
            await phone.tap('OK');
            await phone.tap('New');
            await phone.tap('Vehicle');
            await phone.shows('[Vehicle Properties]');
            await phone.tap('Name:', 25);
            const devtools = await phone.page.createCDPSession();
            const compose = (/** @type {string} */ text) =>
                devtools.send('Input.imeSetComposition', {
                    text,
                    selectionStart: text.length,
                    selectionEnd: text.length,
                });
            await compose('に');
            await compose('にほ');
            await devtools.send('Input.insertText', { text: '日本😀' });
            await phone.type(' 1');
            await phone.shows('日本😀 1');
            assert.equal(
                await phone.page.$eval('#fields .text', (field) => /** @type {any} */ (field).value),
                '日本😀 1',
            );
            const mode = (/** @type {string} */ kind) =>
                phone.page.$eval(`#fields .${kind}`, (field) => /** @type {HTMLElement} */ (field).inputMode);
            assert.deepEqual(
                [await mode('text'), await mode('whole'), await mode('decimal')],
                ['text', 'numeric', 'decimal'],
            );
            await phone.tap('Done');
            await phone.tap('日本😀 1');
            await phone.tap('New');
            await phone.tap('Fuel Entry');
            await phone.tap('Cost per gallon:', 25);
            await phone.typeOver('1.549');
            await phone.shows('1,549');
        },
        { variables },
    );
});

test('who taps and types faster than the program answers writes where was tapped last', async () => {
    const delay = (/** @type {import('puppeteer-core').Page} */ page) =>
        page.evaluateOnNewDocument(() => {
            const listen = Worker.prototype.addEventListener;
            Worker.prototype.addEventListener = function (/** @type {string} */ type, /** @type {any} */ hear) {
                listen.call(this, type, (/** @type {any} */ event) => {
                    const isFields = event.data?.type === 'fields';
                    window.setTimeout(
                        () => {
                            hear(event);
                            if (isFields) Object.assign(window, { heardFields: event.data.fields });
                        },
                        isFields ? 300 : 0,
                    );
                });
            };
        });
    await withPhone(
        async (phone) => {
            await addVehicle(phone);
            await openLog(phone);
            await phone.tap('New');
            await phone.tap('Expense');
            const hears = (/** @type {(field: any) => boolean} */ isSo) =>
                until(
                    async () =>
                        (await phone.page.evaluate(() => /** @type {any} */ (window).heardFields ?? [])).some(isSo),
                    'the answer',
                );
            await hears((field) => field.label.startsWith('Vendor'));
            await phone.tap('Vendor:', 25);
            await hears((field) => field.label.startsWith('Vendor') && field.isFocused);
            await phone.tap('Description:', 25);
            await phone.tap('Vendor:', 25);
            for (const letter of 'Harbour bridge') {
                await phone.type(letter);
                await pause(30);
            }
            const texts = async () => (await phone.inspect('controls')).filter((line) => /^(1015|1061) /.test(line));
            await until(async () => (await texts()).join().includes('bridge'), 'the text');
            assert.match((await texts())[1] ?? '', /"Harbour bridge"$/, (await texts()).join('\n'));
        },
        { prepare: delay },
    );
});

test('a screen reader hears which of equal rows has the focus, and which part of a date', async () => {
    await withPhone(async (phone) => {
        await addVehicle(phone);
        await openLog(phone);
        await phone.give(...expense('Toll'), ...expense('Toll'));
        const row = '3/1/2026 0 Toll $0.00, selected';
        for (const [key, words] of [
            ['up', `${row}. row 1 of 2`],
            ['down', `${row}. row 2 of 2`],
            ['action', 'Expense. Date. 3/1/2026. month 3'],
            ['right', 'day 1'],
            ['+', 'day 2'],
            ['soft2', '1 Select Description'],
            ['back', 'Date. 3/2/2026. day 2'],
        ]) {
            await phone.give(`key ${key}`);
            assert.equal(await phone.page.$eval('#spoken', (element) => element.textContent), words);
        }
    });
});

test('the program ends by its own Exit, stores its settings, and starts again', async () => {
    await withFolder(async (folder) => {
        const noLog = join(folder, 'no log.dat');
        writeFileSync(noLog, 'no log at all');
        await withPhone(async (phone) => {
            await phone.give('key action', 'post close');
            const chosen = /** @type {import('puppeteer-core').ElementHandle<HTMLInputElement>} */ (
                await phone.page.$('#file')
            );
            await chosen.uploadFile(noLog);
            await phone.tells('is no log');
            await phone.page.click('#curtain');
            await phone.firstScreen();
            await phone.shows('There are no items in this list.'); // and no message on units this time
        });
    });
});

test('a pasted text for which the memory has to grow arrives', async () => {
    await withPhone(async (phone) => {
        await addVehicle(phone);
        await openLog(phone);
        await phone.tap('New');
        await phone.tap('Expense');
        await phone.tap('Notes:', 25);
        await phone.type('a');
        await phone.page.$eval('#fields .note', (field) => {
            /** @type {HTMLTextAreaElement} */ (field).value = 'z'.repeat(20_000_000);
            field.dispatchEvent(new Event('input'));
        });
        const isThere = async () => (await phone.inspect('controls')).some((line) => line.includes('zzz'));
        await until(isThere, 'as much of it as the field takes');
    });
});

test('a phone that is turned, or whose keyboard comes up, keeps the form and the field', async () => {
    await withPhone(async (phone) => {
        await phone.tap('OK');
        await phone.tap('New');
        await phone.tap('Vehicle');
        await phone.tap('Policy number:', 25);
        await phone.type('555');
        /** The colours of the canvas, which is drawn some frames later. @param {number} wide in its own pixels */
        const colours = (wide) =>
            phone.page.$eval(
                '#screen',
                async (canvas, wanted) => {
                    const shown = await createImageBitmap(/** @type {HTMLCanvasElement} */ (canvas));
                    const context = new OffscreenCanvas(shown.width, shown.height).getContext('2d');
                    context?.drawImage(shown, 0, 0);
                    const pixels = context?.getImageData(0, 0, shown.width, shown.height).data.buffer;
                    return shown.width === wanted ? new Set(new Uint32Array(pixels ?? [])).size : 0;
                },
                wide,
            );
        for (const [width, height] of [
            [844, 390],
            [390, 420],
            [390, 844],
        ]) {
            await phone.page.setViewport({ ...upright, width, height });
            await until(async () => {
                const place = await phone.place();
                return Math.abs(place.width - width) < 2 && place.height <= height;
            }, `${width}x${height}`);
            await until(async () => (await colours(3 * width)) > 1, `something drawn at ${width}x${height}`);
            await phone.shows('> 555');
            await until(async () => {
                const field = await phone.page.$eval('#fields .text', (element) => {
                    const { top, bottom } = element.getBoundingClientRect();
                    return { top, bottom };
                });
                const keys = (await phone.texts()).find((each) => each.text === 'Done');
                return field.top > 44 && field.bottom < (await phone.at(0, keys?.y ?? 0)).y;
            }, `the field between title and soft keys at ${width}x${height}`);
        }
        await phone.type('7');
        await phone.shows('> 5557');
    });
});

test("the browser's Back closes a menu, asks before what was typed is left, as a reload does, and leaves from the first screen", async () => {
    await withPhone(async (phone) => {
        await addVehicle(phone);
        await phone.tap('Menu');
        await phone.shows('(menu)');
        await phone.page.goBack();
        await until(async () => !(await phone.screen()).includes('(menu)'), 'the menu to be closed');
        await phone.tap('New');
        await phone.tap('Vehicle');
        await phone.tap('Name:', 25);
        await phone.type('x');
        await phone.page.goBack();
        await phone.shows('Close without storing what was typed?');
        const isAsked = new Promise((answer) =>
            phone.page.once('dialog', (dialog) => {
                void dialog.dismiss().then(() => answer(dialog.type()));
            }),
        );
        void phone.page.evaluate(() => location.reload()); // would leave the page and the form in it
        assert.equal(await isAsked, 'beforeunload');
        await phone.page.goBack(); // No
        await phone.shows('[Vehicle Properties]');
        await phone.drag([40, 300], [250, 310]); // a swipe is Back as well
        await phone.shows('Close without storing');
        await phone.tap('Yes');
        await phone.shows('[My Vehicles]');
        await phone.page.goBack();
        await until(() => phone.page.url() === 'about:blank', 'the page to be left');
        await phone.page.goForward();
        await phone.firstScreen();
        await phone.shows('Blue Wagon');
    });
});

test('however fast a person goes back, it is through the screens, and out from the first one alone', async () => {
    await withPhone(async (phone) => {
        await addVehicle(phone);
        await openLog(phone);
        await phone.tap('New');
        await phone.tap('Expense');
        await phone.tap('Vendor:', 25);
        await phone.tap('Menu');
        await phone.shows('(menu)');
        const back = () => phone.page.evaluate(() => history.back());
        for (let screen = 0; screen < 3; ++screen) await back(); // the menu, the form, the log
        await phone.shows('[My Vehicles]');
        await phone.drag([40, 300], [250, 310]); // a swipe leaves nothing but screens of the device
        await pause(300);
        await phone.shows('[My Vehicles]');
        await back().catch(() => {}); // out
        await until(() => phone.page.url() === 'about:blank', 'the page to be left');
    });
});

test('a second tab waits for the first one', async () => {
    await withPhone(async (phone, { browser, site }) => {
        const curtain = (/** @type {Phone} */ tab, /** @type {string} */ words) =>
            tab.page.waitForFunction((text) => document.body.innerText.includes(text), {}, words);
        // Where a browser has no locks for that, the files have.
        const prepare = (/** @type {import('puppeteer-core').Page} */ page) =>
            page.evaluateOnNewDocument(() => Object.defineProperty(Navigator.prototype, 'locks', { value: null }));
        const other = await Phone.open(browser, site.address, { waits: false, prepare });
        await curtain(other, 'Load the page again');
        await other.page.close();
        const second = await Phone.open(browser, site.address, { waits: false });
        await curtain(second, 'open in another tab');
        await phone.page.bringToFront();
        await phone.tap('OK');
        await phone.page.close();
        await second.page.bringToFront();
        await second.firstScreen();
        await second.shows('[');
    });
});

test('a copy goes to the desktop and comes back, bit for bit', needsDesktop, async () => {
    await withFolder(async (folder) => {
        await withPhone(async (phone) => {
            await addVehicle(phone);
            await openLog(phone);
            await addFill(phone, '12000', '41.25', '1.5');
            const copy = await phone.saveCopy(folder);
            const toTheLog = ['key soft1', 'key down', 'key action'];
            mkdirSync(join(folder, 'device', 'My Documents'), { recursive: true });
            cpSync(copy, logOf(join(folder, 'device')));
            const before_ = readFileSync(copy);
            assert.match(runDesktop(join(folder, 'device'), [...toTheLog, 'screen']), /12,000/);
            assert.deepEqual(readFileSync(logOf(join(folder, 'device'))), before_, 'the desktop changes nothing');
            // The desktop goes on with it, and the phone takes that.
            runDesktop(join(folder, 'device'), [...toTheLog, ...expense('From the desktop')]);
            await phone.openCopy(logOf(join(folder, 'device')));
            await phone.tells('The copy is the log now');
            await openLog(phone);
            await phone.shows('From the desktop');
            await phone.choose('takeBack');
            await until(async () => !(await phone.screen()).includes('From the desktop'), 'the former log');
            await phone.page.reload();
            await phone.firstScreen();
            await openLog(phone);
            // What is no log, and what a later version made, changes nothing.
            writeFileSync(join(folder, 'no log.dat'), 'no log at all');
            await phone.openCopy(join(folder, 'no log.dat'));
            await phone.tells('is no log');
            before_.writeUInt32BE(before_.readUInt32BE(60) + 1, 60); // the version of the file's form
            writeFileSync(join(folder, 'newer.dat'), before_);
            await phone.openCopy(join(folder, 'newer.dat'));
            await phone.tells('newer version');
            await phone.shows('12,000');
            // Under a form in which something was typed a person is asked first.
            await phone.tap('New');
            await phone.tap('Other Expense');
            await phone.tap('Description:', 25);
            await phone.type('half');
            for (const answer of /** @type {const} */ (['dismiss', 'accept'])) {
                await phone.shows('half');
                const isAsked = new Promise((asked) =>
                    phone.page.once('dialog', (dialog) => void dialog[answer]().then(asked)),
                );
                await phone.openCopy(copy);
                await isAsked;
            }
            await phone.tells('The copy is the log now');
            await phone.shows('12,000');
        });
    });
});

/** @param {Phone} phone */
const keepsItself = (phone) =>
    phone.page.evaluate(async () => {
        await navigator.serviceWorker.ready;
        return (await caches.keys()).length === 1;
    });

test('without a network the program starts as ever, and its manual opens', async () => {
    await withPhone(async (phone, { site }) => {
        await until(() => keepsItself(phone), 'the site to be kept');
        await addVehicle(phone);
        await site.stop();
        await phone.page.reload();
        await phone.firstScreen();
        await phone.tap('Menu');
        await phone.tap('About');
        await phone.tap('Support');
        await phone.shows('Manual');
        await phone.page.click('#menu-button');
        const [manual] = await Promise.all([
            new Promise((/** @type {(page: import('puppeteer-core').Page) => void} */ isOpen) =>
                phone.page.once('popup', (page) => page && isOpen(page)),
            ),
            phone.page.click('#menu a'),
        ]);
        await manual.waitForSelector('#on-a-phone');
        await phone.page.bringToFront();
        await phone.shows('Manual');
    });
});

test('a new version waits until it is asked for, and comes as a whole', async () => {
    await withFolder(async (folder) => {
        cpSync(siteFolder, folder, { recursive: true });
        const story = async (/** @type {Phone} */ phone) => {
            /** @returns {Promise<string>} */
            const shown = () => phone.page.evaluate(() => /** @type {any} */ (window).odoledger.version);
            await until(() => keepsItself(phone), 'the site to be kept');
            const former = await shown();
            writeFileSync(join(folder, 'page.css'), `${readFileSync(join(folder, 'page.css'))}\n`);
            const sources = resolve('src/hosts/browser');
            execFileSync(resolve('tools/seal-site'), [
                folder,
                '9.9.9.9',
                join(sources, 'page/index.html'),
                join(sources, 'worker/service_worker.js'),
            ]);
            // One whose file is missing never comes.
            rmSync(join(folder, 'manifest.webmanifest'));
            await phone.page.reload();
            await phone.firstScreen();
            await pause(500);
            assert.equal(await phone.notices(), '');
            cpSync(join(siteFolder, 'manifest.webmanifest'), join(folder, 'manifest.webmanifest'));
            await phone.page.reload();
            await phone.firstScreen();
            await phone.tells('A new version is ready');
            assert.equal(await shown(), former);
            await phone.page.reload();
            await phone.firstScreen();
            assert.equal(await shown(), former, 'and waits on');
            await phone.tells('A new version is ready');
            const isLoaded = new Promise((loaded) => phone.page.once('load', loaded));
            await phone.page.click('.notice button');
            await isLoaded;
            await phone.firstScreen();
            assert.match(await shown(), /^9\.9\.9\.9/);
            phone.faults.length = 0; // the file that was missing
        };
        await withPhone(story, { folder });
    });
});

test('where nothing is kept a person is told before typing, and a copy can be taken', async () => {
    await withFolder(async (folder) => {
        cpSync(siteFolder, folder, { recursive: true });
        // As in a private window of a browser that gives those no storage.
        writeFileSync(
            join(folder, 'hosts/browser/files/opfs_disk.js'),
            "export const openOpfsDisk = async () => { throw new DOMException('', 'SecurityError'); };",
        );
        const story = async (/** @type {Phone} */ phone) => {
            assert.match(await phone.notices(), /keeps nothing/);
            await addVehicle(phone);
            await phone.openCopy(await phone.saveCopy(folder));
            await phone.tells('The copy is the log now');
            await phone.shows('Blue Wagon');
        };
        await withPhone(story, { folder });
    });
});

test('a full storage is told, loses nothing, and goes on when there is room again', async () => {
    await withFolder(async (folder) => {
        // More than a file of the browser's has room for without asking.
        writeFileSync(join(folder, 'large.dat'), Buffer.alloc(8_000_000));
        await withPhone(async (phone, { site }) => {
            await addVehicle(phone);
            await openLog(phone);
            const devtools = await phone.page.createCDPSession();
            const origin = new URL(site.address).origin;
            await devtools.send('Storage.overrideQuotaForOrigin', { origin, quotaSize: 1 });
            await phone.openCopy(join(folder, 'large.dat'));
            await phone.tells('no room');
            await addFill(phone, '12000', '41.25', '1.5');
            await devtools.send('Storage.overrideQuotaForOrigin', { origin });
            await phone.openCopy(join(folder, 'large.dat'));
            await phone.tells('is no log');
            await phone.shows('12,000');
        });
    });
});

test('after a save nothing is lost, whenever the browser is killed', async () => {
    const kills = Number(process.env.ODOLEDGER_KILLS ?? 20);
    await withPhone(async (first, { browsers, site }) => {
        let phone = first;
        await addVehicle(phone);
        await openLog(phone);
        for (let kill = 1; kill <= kills; ++kill) {
            const toll = `Toll ${99_999 - kill}`; // the newest on top: the others go on below the screen
            await phone.give(...expense(toll));
            await phone.shows(toll);
            const killed = browsers.started.pop();
            await new Promise((gone) => {
                killed?.process()?.once('exit', gone);
                killed?.process()?.kill('SIGKILL');
            });
            phone = await Phone.open(await browsers.start(), site.address);
            // The settings are stored when the page is hidden, and so the question comes again.
            if ((await phone.screen()).includes('{OK|')) await phone.tap('OK');
            await openLog(phone);
            await phone.shows(toll);
        }
    });
});
