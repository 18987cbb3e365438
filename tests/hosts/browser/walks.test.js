// The walks of the scripted device, played in a browser: the same lines, the same answers. What only a person at the
// device's files or at a device that is off, or another process, could do is left out, and a walk that is about that alone.

import assert from 'node:assert/strict';
import { readdir, readFile } from 'node:fs/promises';
import { after, before, test } from 'node:test';
import { Device } from './device.js';
import { serve, startBrowser } from './site.js';

const folder = new URL('../../walks/', import.meta.url);
const aboutFiles = 'startup_failures.walk';
/** The walks' time zones as browsers call them. @type {Record<string, string>} */
const zones = { EST5: 'Etc/GMT+5' };

/** @type {Awaited<ReturnType<typeof serve>>} */
let site;
before(async () => (site = await serve('build/browser/site')));
after(() => site.close());

/**
 * @param {string[]} wanted in which "..." stands for any lines
 * @param {string[]} got
 * @returns {boolean}
 */
function matches([want, ...wanted], got) {
    if (want === undefined) return got.length === 0;
    if (want === '...') return matches(wanted, got) || (got.length > 0 && matches([want, ...wanted], got.slice(1)));
    return got.length > 0 && want === got[0] && matches(wanted, got.slice(1));
}

class Walk {
    /** @type {Device | undefined} */
    #device;
    #isOn = false;
    /** What comes next asks what another process did here. */
    #isAboutOthers = false;
    /** @type {Record<string, string>} */
    #variables = { HANDSET_CLOCK: '2026-03-01T10:00:00.789Z' };
    #locale = 'en_US';
    #screen = { width: 320, height: 480 };
    #browser;

    /** @param {Awaited<ReturnType<typeof startBrowser>>} browser */
    constructor(browser) {
        this.#browser = browser;
    }

    async close() {
        await this.#browser.close();
    }

    /** @param {string} name */
    async play(name) {
        const text = await readFile(new URL(name, folder), 'utf8');
        // A line that a person gives, and what must come back up to the next one.
        for (const part of text.split(/^(?=[$%#] )/m)) {
            const [line, ...wanted] = part.trimEnd().split('\n');
            if (line.startsWith('% ')) await this.#direct(line.slice(2));
            if (!line.startsWith('$ ')) continue;
            const commands = line.slice(2).split('; ');
            if (!this.#isOn && commands[0] !== 'boot') continue;
            if (this.#isAboutOthers) {
                this.#isAboutOthers = false;
                continue;
            }
            const got = await this.#give(commands);
            if (!matches(wanted, got)) assert.deepEqual(got, wanted, `${name}: ${line}`);
        }
    }

    /** @param {string[]} commands */
    async #give(commands) {
        /** @type {string[]} */
        let got = [];
        for (const command of commands) {
            assert.deepEqual(got, [], `answered too early: ${commands.join('; ')}`);
            got = await this.#ask(command);
        }
        return got;
    }

    /** @param {string} command */
    async #ask(command) {
        if (command === 'boot') {
            await this.#boot();
            return [];
        }
        const device = /** @type {Device} */ (this.#device);
        const got = await device.ask(command);
        if (got.at(-1)?.startsWith('exit ')) this.#isOn = false;
        return got;
    }

    async #boot() {
        assert.ok(!this.#isOn);
        const options = { screen: this.#screen, locale: this.#locale, variables: this.#variables };
        if (this.#device) await this.#device.reload(options);
        else this.#device = await Device.open(this.#browser.browser, site.address, options);
        await this.#device.hear('ready');
        this.#isOn = true;
    }

    /** @param {string} directive */
    async #direct(directive) {
        const [verb, ...rest] = directive.split(' ');
        const [name, value] = rest.join(' ').split('=');
        if (verb === 'play') await this.play(name);
        else if (verb === 'end') this.#isOn = false;
        else if (name === 'HANDSET_LOCALE') this.#locale = value;
        else if (name === 'HANDSET_SCREEN') {
            const [width, height] = value.split('x').map(Number);
            this.#screen = { width, height };
        } else if (name === 'TZ') {
            await this.#browser.restart({ TZ: zones[value] });
            this.#device = undefined;
        } else if (verb === 'env') this.#variables = { ...this.#variables, [name]: value };
        else {
            assert.equal(verb, 'second', directive);
            this.#isAboutOthers = true;
        }
    }
}

for (const name of (await readdir(folder)).filter((file) => file.endsWith('.walk') && file !== aboutFiles))
    test(name, async () => {
        const walk = new Walk(await startBrowser({ TZ: 'UTC' }));
        try {
            await walk.play(name);
        } finally {
            await walk.close();
        }
    });
