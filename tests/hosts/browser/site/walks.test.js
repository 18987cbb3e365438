// The walks of tests/walks, which the scripted device answers on a desktop, played in a page. A line that has no meaning
// there is named below with its reason; all others must be answered as they stand.

import assert from 'node:assert/strict';
import { readFileSync, readdirSync } from 'node:fs';
import { basename, join, resolve } from 'node:path';
import { after, before, test } from 'node:test';

import { serve } from '../../../../tools/serve_site.js';
import { Browsers, Phone } from './phone.js';

/** @typedef {import('puppeteer-core').BrowserContext} BrowserContext */
/** @typedef {import('puppeteer-core').Page} Page */

const folder = resolve('tests/walks');

/**
 * What does not apply: the lines from one on, up to another one or that line alone, with their answers.
 *
 * @type {{walk: string, from: string, upTo?: string, why: string}[]}
 */
const elsewhere = [
    { walk: 'first_run', from: '$ screen', why: 'nothing is heard of a device that is off' },
    { walk: 'first_run', from: '$ key soft2; screen', why: 'the manual is in the page' },
    { walk: 'first_run', from: '% second', upTo: '$ post close', why: 'a second page waits: a scenario tells of that' },
    {
        walk: 'startup_failures',
        from: '% remove My?Documents/My?Vehicles.dat',
        upTo: '% write My?Documents/My?Vehicles.dat',
        why: 'folders are but a part of the names of files',
    },
    {
        walk: 'startup_failures',
        from: '% mode My?Documents/My?Vehicles.dat 444',
        upTo: '% remove My?Documents/My?Vehicles.dat',
        why: 'no file is read-only, and nobody but the program reaches its settings',
    },
];

/** What the page's own fields do otherwise, so that the handset's keys are pressed instead. */
const handsetsOwn = [
    'type x2007', // they beep at what they refuse
    'type 0,4', // they take a comma for the locale's sign
];

/** As the browser calls the zones of the walks. @type {Record<string, string>} */
const zones = { UTC: 'UTC', EST5: 'Etc/GMT+5' };

/** The handset's keys on the page's keyboard. @type {Record<string, string>} */
const keys = {
    ...{ soft1: 'F1', soft2: 'F2', up: 'ArrowUp', down: 'ArrowDown', left: 'ArrowLeft', right: 'ArrowRight' },
    ...{ delete: 'Delete', home: 'Home', end: 'End' },
};
/** In a field of the page's, Enter goes on to the next one and Escape leaves. @type {Record<string, string>} */
const keysOutside = { action: 'Enter', back: 'Escape' };

/** @param {string[]} wanted @param {string[]} got @returns {boolean} "..." stands for any lines */
function matches(wanted, got) {
    const [first, ...rest] = wanted;
    if (first === undefined) return got.length === 0;
    if (first === '...') return matches(rest, got) || (got.length > 0 && matches(wanted, got.slice(1)));
    return got[0] === first && matches(rest, got.slice(1));
}

/** The lines of a walk: what is given, and what must come back. @param {string} name */
function readWalk(name) {
    /** @type {{line: string, wanted: string[]}[]} */
    const steps = [];
    for (const line of readFileSync(join(folder, name), 'utf8').split('\n')) {
        if (line.startsWith('$ ') || line.startsWith('% ')) steps.push({ line, wanted: [] });
        else if (line !== '' && !line.startsWith('#')) steps.at(-1)?.wanted.push(line);
    }
    for (const { from, upTo } of elsewhere.filter((each) => `${each.walk}.walk` === name)) {
        const start = steps.findIndex((step) => step.line === from);
        const end = upTo ? steps.findIndex((step, index) => index > start && step.line === upTo) : start + 1;
        assert.ok(start >= 0 && end > start, `${name} has ${from}, and ${upTo} below it`);
        steps.splice(start, end - start);
    }
    return steps;
}

/** One device: its storage is the context's, a page is a process on it. */
class Device {
    /** @param {BrowserContext} context @param {string} address */
    constructor(context, address) {
        this.context = context;
        this.address = address;
        /** @type {Record<string, string>} */
        this.variables = { HANDSET_LOCALE: 'en_US', TZ: 'UTC', HANDSET_CLOCK: '2026-03-01T10:00:00.789Z' };
        /** @type {Phone | null} */
        this.phone = null;
        /** What the files must hold: nobody else may look at them before the program lets go of them. @type {string[]} */
        this.wantedFiles = [];
    }

    /** @param {string} name */
    async play(name) {
        for (const { line, wanted } of readWalk(name)) {
            if (line.startsWith('% ')) {
                await this.direct(line.slice(2));
                continue;
            }
            /** @type {string[]} */
            let got = [];
            for (const command of line.slice(2).split('; ')) {
                assert.deepEqual(got, [], `${name}, before "${command}" of ${line}`);
                got = await this.ask(command);
            }
            if (!matches(wanted, got)) assert.deepEqual(got, wanted, `${name}: ${line}`);
        }
    }

    /** @param {string} directive */
    async direct(directive) {
        const [verb, rest = ''] = directive.split(/ (.*)/);
        if (verb === 'play') {
            await this.play(rest);
        } else if (verb === 'env') {
            const [variable = '', value = ''] = rest.split('=');
            this.variables[variable] = value;
        } else if (verb === 'write' || verb === 'remove') {
            await this.files(verb, rest);
        } else if (verb === 'same') {
            this.wantedFiles.push(rest);
        } else {
            assert.equal(verb, 'end');
            await this.switchOff();
        }
    }

    /** @param {string} command @returns {Promise<string[]>} */
    async ask(command) {
        const phone = this.phone ?? (await this.switchOn());
        const lines = command === 'boot' || (await this.isTyped(command)) ? [] : await phone.inspect(command);
        const status = await this.status();
        if (status === null) return lines;
        await this.switchOff();
        return [...lines, `exit ${status} (status ${status})`];
    }

    /** Does by the page's own keyboard what that can do, as a person with one would. @param {string} command */
    async isTyped(command) {
        const page = this.phone?.page;
        const [verb, rest = ''] = command.split(/ (.*)/);
        if (!page || handsetsOwn.includes(command)) return false;
        if (verb === 'type') {
            await page.keyboard.type(rest);
            return true;
        }
        const [name = '', times = '1'] = rest.split(' ');
        const isInField = await page.evaluate(() => document.activeElement?.matches('#fields *'));
        const key = keys[name] ?? (isInField ? undefined : keysOutside[name]) ?? (/^\d$/.test(name) ? name : undefined);
        if (verb !== 'key' || !key) return false;
        for (let time = 0; time < Number(times); ++time) {
            await page.keyboard.press(/** @type {import('puppeteer-core').KeyInput} */ (key));
            await this.status(); // what it does to the page's fields is done
        }
        return true;
    }

    async switchOn() {
        const { HANDSET_SCREEN = '320x480', TZ = 'UTC', ...variables } = this.variables;
        this.phone = await Phone.open(this.context, this.address, {
            viewport: { width: 1024, height: 768 }, // no fingers: controls have a desktop's sizes
            variables,
            async prepare(page) {
                await page.emulateTimezone(zones[TZ]);
                await page.evaluateOnNewDocument(listenForEnds);
            },
        });
        assert.deepEqual(await this.phone.inspect(`resize ${HANDSET_SCREEN}`), []);
        return this.phone;
    }

    async switchOff() {
        assert.deepEqual(this.phone?.faults, []);
        await this.phone?.page.close();
        this.phone = null;
        for (const wanted of this.wantedFiles.splice(0)) await this.files('same', wanted);
    }

    /** Reaches the device's files while it is off. @param {'write' | 'remove' | 'same'} verb @param {string} rest */
    async files(verb, rest) {
        const [name = '', text = ''] = rest.split(/ (.*)/);
        const path = JSON.stringify(`/${name.replaceAll('?', ' ')}`);
        const actions = {
            write: `putFile(pool, ${path}, new TextEncoder().encode(${JSON.stringify(text)}));`,
            remove: `pool.unlink(${path});`,
            same: '',
        };
        const page = await this.context.newPage();
        await page.setBypassServiceWorker(true); // which has the program at every address
        await page.goto(`${this.address}icons/icon-192.png`);
        const contents = await page.evaluate(
            (code) => {
                const address = URL.createObjectURL(new Blob([code], { type: 'text/javascript' }));
                const worker = new Worker(address, { type: 'module' });
                return new Promise((done, fail) => {
                    worker.onmessage = ({ data }) => done(data);
                    worker.onerror = (event) => fail(new Error(event.message ?? 'no worker'));
                });
            },
            `import { contentsOf, openStorage, putFile } from '${this.address}hosts/browser/worker/storage.js';
            const { pool } = await openStorage();
            ${actions[verb]}
            const file = pool.find(${path});
            postMessage(file ? new TextDecoder().decode(contentsOf(file)) : null);
            pool.close();`,
        );
        await page.close();
        assert.equal(contents, verb === 'remove' ? null : text, rest);
    }

    /** @returns {Promise<number | null>} with which the program has ended; it has done all that was asked before */
    async status() {
        const status = await this.phone?.page.evaluate(async () => {
            const { odoledger } = /** @type {any} */ (window);
            await odoledger.inspect('now'); // an end is told before this is answered
            return /** @type {any} */ (window).endStatus;
        });
        return status ?? null;
    }
}

/** In the page: keeps the program's status. */
function listenForEnds() {
    window.Worker = class extends Worker {
        /** @param {string | URL} address @param {WorkerOptions} [options] */
        constructor(address, options) {
            super(address, options);
            this.addEventListener('message', ({ data }) => {
                if (data.type === 'ended') Object.assign(window, { endStatus: data.status });
            });
        }
    };
}

/** @type {Awaited<ReturnType<typeof serve>>} */
let site;
const browsers = new Browsers();
/** @type {import('puppeteer-core').Browser} */
let browser;
before(async () => {
    site = await serve(resolve('build/browser/site'));
    browser = await browsers.start();
});
after(async () => {
    await browsers.remove();
    await site.stop();
});

for (const walk of readdirSync(folder).filter((name) => name.endsWith('.walk')))
    test(`walk ${basename(walk, '.walk')}`, async () => {
        const context = await browser.createBrowserContext();
        try {
            await new Device(context, site.address).play(walk);
        } finally {
            await context.close();
        }
    });
