// A phone with the program's page open: what a person sees on it, and does.

import assert from 'node:assert/strict';
import { existsSync, mkdtempSync, rmSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join, resolve } from 'node:path';
import puppeteer from 'puppeteer-core';

import { serve } from '../../../../tools/serve_site.js';

/** @typedef {import('puppeteer-core').Browser} Browser */
/** @typedef {import('puppeteer-core').Page} Page */
/** @typedef {{x: number, y: number, width: number, height: number, marks: string, text: string}} PaintedText */

export const siteFolder = resolve('build/browser/site');
/** The program itself, not the script that starts it: it is to be killed. */
const chromium = '/usr/lib/chromium/chromium';
const flags = [
    '--no-sandbox',
    '--disable-gpu',
    '--disable-quic',
    '--no-first-run',
    '--disable-background-networking',
    '--disable-component-update',
    '--disable-sync',
];
/** For a page that answers at all, however slow the machine is: only a hang takes longer. In milliseconds. */
export const patience = 120_000;
/** How many times slower than this machine the pages are to be. */
const slowness = Number(process.env.ODOLEDGER_TEST_SLOWNESS ?? 1);
export const upright = { width: 390, height: 844, deviceScaleFactor: 3, isMobile: true, hasTouch: true };

/** A browser with a profile of its own, which lasts until `remove`. */
export class Browsers {
    constructor() {
        this.profile = mkdtempSync(join(tmpdir(), 'odoledger-browser-'));
        /** @type {Browser[]} */
        this.started = [];
    }

    /** @param {import('puppeteer-core').LaunchOptions} [options] @returns {Promise<Browser>} */
    async start(options = {}) {
        const browser = await puppeteer.launch({
            executablePath: chromium,
            args: flags,
            userDataDir: this.profile,
            headless: true,
            timeout: patience,
            ...options,
        });
        this.started.push(browser);
        return browser;
    }

    async remove() {
        for (const browser of this.started) await browser.close().catch(() => {});
        rmSync(this.profile, { recursive: true, force: true, maxRetries: 5 });
    }
}

/** Waits until it is true. @param {() => Promise<boolean> | boolean} isSo @param {string} what */
export async function until(isSo, what) {
    const end = Date.now() + patience;
    while (!(await isSo())) {
        if (Date.now() > end) throw new Error(`not within ${patience} ms: ${what}`);
        await new Promise((again) => setTimeout(again, 20));
    }
}

export class Phone {
    /** @param {Page} page */
    constructor(page) {
        this.page = page;
        /** What went wrong in the page. @type {string[]} */
        this.faults = [];
    }

    /**
     * Opens the page and waits for its first screen.
     *
     * @param {Browser | import('puppeteer-core').BrowserContext} browser
     * @param {string} address
     * @param {{viewport?: import('puppeteer-core').Viewport, variables?: Record<string, string>, waits?: boolean,
     *   prepare?: (page: Page) => Promise<unknown>}} [how] prepare: what is done with the page before it opens
     */
    static async open(browser, address, how = {}) {
        const page = await browser.newPage();
        const phone = new Phone(page);
        page.on('pageerror', (error) => phone.faults.push(String(error)));
        page.on('console', (line) => {
            if (line.type() === 'error') phone.faults.push(line.text());
        });
        page.setDefaultTimeout(patience);
        if (slowness > 1) await page.emulateCPUThrottling(slowness).catch(() => {}); // Firefox cannot
        await page.setViewport(how.viewport ?? upright);
        await page.evaluateOnNewDocument(
            (variables) => Object.assign(window, { odoledgerVariables: variables }),
            how.variables ?? { HANDSET_CLOCK: '2026-03-01T09:00:00Z', HANDSET_LOCALE: 'en_US' },
        );
        await how.prepare?.(page);
        await page.goto(address);
        if (how.waits !== false) await phone.firstScreen();
        return phone;
    }

    async firstScreen() {
        await this.page.waitForSelector('#curtain[hidden]');
    }

    /** @param {string} what @returns {Promise<string[]>} */
    inspect(what) {
        return this.page.evaluate((words) => /** @type {any} */ (window).odoledger.inspect(words), what);
    }

    async screen() {
        return (await this.inspect('screen')).join('\n');
    }

    /** @param {string | RegExp} text */
    async shows(text) {
        let last = '';
        await until(async () => {
            last = await this.screen();
            return typeof text === 'string' ? last.includes(text) : text.test(last);
        }, `${text} on the screen`).catch((error) => {
            throw new Error(`${error.message}; instead:\n${last}`);
        });
    }

    /** The texts on the screen. @returns {Promise<PaintedText[]>} */
    async texts() {
        const lines = await this.inspect('frame');
        return lines.flatMap((line) => {
            const parts = /^(-?\d+),(-?\d+),(\d+),(\d+) ([^"]*) "(.*)"$/.exec(line);
            if (!parts) return [];
            const [x = 0, y = 0, width = 0, height = 0] = parts.slice(1, 5).map(Number);
            return [{ x, y, width, height, marks: parts[5] ?? '', text: parts[6] ?? '' }];
        });
    }

    /** CSS pixels for a device pixel, and where the screen begins. */
    async place() {
        return this.page.evaluate(() => {
            const box = document.getElementById('screen')?.getBoundingClientRect();
            return { left: box?.left ?? 0, top: box?.top ?? 0, width: box?.width ?? 0, height: box?.height ?? 0 };
        });
    }

    async scale() {
        return this.page.evaluate(() => /** @type {any} */ (window).odoledger.scale());
    }

    /** A place of the device in the page. @param {number} x @param {number} y */
    async at(x, y) {
        const place = await this.place();
        const scale = await this.scale();
        return { x: place.left + x * scale, y: place.top + y * scale };
    }

    /** Taps where a text stands. @param {string} text @param {number} [below] device pixels further down */
    async tap(text, below = 0) {
        /** @type {PaintedText | undefined} */
        let hit;
        await until(async () => {
            const texts = await this.texts();
            const isHit = [
                (/** @type {PaintedText} */ each) => each.text === text,
                (/** @type {PaintedText} */ each) => each.marks.startsWith('menu') && each.text.endsWith(text),
                (/** @type {PaintedText} */ each) => each.text.includes(text),
            ];
            hit = isHit.map((test) => texts.find(test)).find((each) => each !== undefined);
            return hit !== undefined;
        }, `"${text}" to be tapped`).catch(async (error) => {
            throw new Error(`${error.message}; instead:\n${await this.screen()}`);
        });
        if (!hit) return;
        await this.touch(await this.at(hit.x + Math.min(hit.width / 2, 60), hit.y + hit.height / 2 + below));
    }

    /**
     * Touches the row that is so many rows with that text down the screen.
     *
     * @param {string} text
     * @param {number} row
     * @param {() => Promise<void>} [whileHeld] until that is over the finger stays
     */
    async touchRow(text, row, whileHeld) {
        const hit = (await this.texts()).filter((each) => each.text.includes(text))[row];
        if (!hit) throw new Error(`no row ${row} with "${text}"`);
        await this.touch(await this.at(hit.x + 10, hit.y + hit.height / 2), whileHeld);
    }

    /**
     * A tap leaves before anything is answered: waiting for that would make a long press of it where the page is slow.
     *
     * @param {{x: number, y: number}} place in the page
     * @param {() => Promise<void>} [whileHeld]
     */
    async touch(place, whileHeld) {
        const devtools = await this.page.createCDPSession();
        const isDown = devtools.send('Input.dispatchTouchEvent', { type: 'touchStart', touchPoints: [place] });
        await whileHeld?.();
        await Promise.all([isDown, devtools.send('Input.dispatchTouchEvent', { type: 'touchEnd', touchPoints: [] })]);
        await devtools.detach();
    }

    /** Types into the field that has the keyboard. @param {string} text */
    async type(text) {
        await this.page.keyboard.type(text);
    }

    /** Types over what stands in the field. @param {string} text */
    async typeOver(text) {
        await this.page.keyboard.down('Control');
        await this.page.keyboard.press('a');
        await this.page.keyboard.up('Control');
        await this.type(text);
    }

    /** Gives the device commands without a finger. @param {string[]} commands */
    async give(...commands) {
        for (const command of commands) await this.inspect(command);
    }

    /** Chooses in the page's own menu. @param {string} action */
    async choose(action) {
        await this.page.click('#menu-button');
        await this.page.click(`[data-action=${action}]`);
    }

    /** @param {string} file */
    async openCopy(file) {
        const [chooser] = await Promise.all([this.page.waitForFileChooser(), this.choose('openCopy')]);
        await chooser.accept([file]);
    }

    /** Takes a copy of the log. @param {string} folder @returns {Promise<string>} the file */
    async saveCopy(folder) {
        const devtools = await this.page.createCDPSession();
        await devtools.send('Browser.setDownloadBehavior', { behavior: 'allow', downloadPath: folder });
        await this.page.evaluate(() => Object.assign(navigator, { canShare: undefined }));
        await this.choose('saveCopy');
        const copy = join(folder, 'My Vehicles.dat');
        await until(() => existsSync(copy), 'the download');
        return copy;
    }

    notices() {
        return this.page.$eval('#notices', (element) => element.textContent ?? '');
    }

    /** @param {string} words */
    async tells(words) {
        await until(async () => (await this.notices()).includes(words), words);
    }

    /**
     * A finger from one place of the device to another, a step each 16 ms by the clock of its own events: how fast it
     * leaves must not hang on how busy this machine is.
     *
     * @param {number[]} from
     * @param {number[]} to
     * @param {number} [steps]
     * @param {() => Promise<void>} [beforeLeaving] takes none of that time
     */
    async drag(from, to, steps = 8, beforeLeaving) {
        const start = await this.at(from[0] ?? 0, from[1] ?? 0);
        const end = await this.at(to[0] ?? 0, to[1] ?? 0);
        const devtools = await this.page.createCDPSession();
        const first = Date.now() / 1000;
        for (let step = 0; step <= steps; ++step) {
            const part = step / steps;
            const place = { x: start.x + (end.x - start.x) * part, y: start.y + (end.y - start.y) * part };
            const type = step === 0 ? 'touchStart' : 'touchMove';
            const timestamp = first + step * 0.016;
            await devtools.send('Input.dispatchTouchEvent', { type, touchPoints: [place], timestamp });
        }
        await beforeLeaving?.();
        const timestamp = first + (steps + 1) * 0.016;
        await devtools.send('Input.dispatchTouchEvent', { type: 'touchEnd', touchPoints: [], timestamp });
        await devtools.detach();
    }
}

/**
 * Serves a site and opens it in a browser with a profile of its own.
 *
 * @param {(phone: Phone, around: {browser: Browser, browsers: Browsers, site: Awaited<ReturnType<typeof serve>>}) =>
 *   Promise<void>} story
 * @param {Parameters<typeof Phone.open>[2] & {folder?: string,
 *   launch?: import('puppeteer-core').LaunchOptions}} [how]
 */
export async function withPhone(story, { folder = siteFolder, launch, ...how } = {}) {
    const site = await serve(folder);
    const browsers = new Browsers();
    try {
        const browser = await browsers.start(launch);
        const phone = await Phone.open(browser, site.address, how);
        await story(phone, { browser, browsers, site });
        assert.deepEqual(phone.faults, []);
    } finally {
        await browsers.remove();
        await site.stop();
    }
}
