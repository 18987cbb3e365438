// The program in a page of its own, asked and told by the messages between page and worker.

import { patience } from './site/phone.js';

/** @typedef {import('../../../src/hosts/browser/contract.js').ToWorker} ToWorker */
/** @typedef {import('../../../src/hosts/browser/contract.js').FromWorker} FromWorker */

/**
 * @typedef {object} Options
 * @property {{width: number, height: number}} [screen]
 * @property {number} [zoom]
 * @property {string} [locale]
 * @property {Record<string, string>} [variables]
 * @property {boolean} [withoutStorage] as in a browser that gives none
 */

export class Device {
    #page;

    /** @param {import('puppeteer-core').Page} page */
    constructor(page) {
        this.#page = page;
    }

    /**
     * Starts the program on what its storage holds.
     *
     * @param {import('puppeteer-core').Browser} browser
     * @param {string} address of the site
     * @param {Options} [options]
     */
    static async open(browser, address, options = {}) {
        const page = await browser.newPage();
        page.setDefaultTimeout(patience);
        // A document of the site's own that starts nothing by itself.
        await page.goto(`${address}hosts/browser/contract.js`);
        const device = new Device(page);
        await device.#start(options);
        return device;
    }

    /** The same as if the page were left and opened again. @param {Options} [options] */
    async reload(options = {}) {
        await this.#page.reload();
        await this.#start(options);
    }

    /** @param {Options} options */
    async #start({ screen = { width: 320, height: 480 }, zoom = 1, locale = 'en-US', variables = {}, withoutStorage }) {
        await this.#page.evaluate(
            ({ without, ...settings }) => {
                const canvas = document.createElement('canvas');
                canvas.style.cssText = `position: fixed; inset: 0; width: ${settings.screen.width}px`;
                document.body.replaceChildren(canvas);
                const offscreen = canvas.transferControlToOffscreen();
                const code = new URL('/hosts/browser/worker/worker.js', location.href).href;
                const refusing = `const early = [];
                    onmessage = (event) => early.push(event);
                    navigator.storage.getDirectory = () => Promise.reject(new DOMException('', 'SecurityError'));
                    await import('${code}');
                    early.forEach((event) => onmessage(event));`;
                const blob = new Blob([refusing], { type: 'text/javascript' });
                const worker = new Worker(without ? URL.createObjectURL(blob) : code, { type: 'module' });
                /** @type {object[]} */
                const heard = [];
                worker.onmessage = ({ data }) => heard.push(data);
                worker.onerror = (event) => heard.push({ type: 'failed', reason: 'load', text: event.message });
                worker.postMessage({ type: 'start', canvas: offscreen, touch: false, ...settings }, [offscreen]);
                Object.assign(globalThis, { worker, heard });
            },
            { screen, zoom, locale, variables, without: withoutStorage },
        );
    }

    /** @param {ToWorker} message without anything that cannot be copied; bytes as an array of numbers */
    async tell(message) {
        await this.#page.evaluate((told) => {
            const { worker } = /** @type {any} */ (globalThis);
            worker.postMessage('bytes' in told ? { ...told, bytes: new Uint8Array(told.bytes).buffer } : told);
        }, message);
    }

    /**
     * The next message of a type, taken out of those that came.
     *
     * @template {FromWorker['type']} Type
     * @param {Type} type
     * @returns {Promise<Extract<FromWorker, {type: Type}>>} bytes as an array of numbers; rejected on another failure
     */
    async hear(type) {
        const handle = await this.#page.waitForFunction(
            (wanted) => {
                const { heard } = /** @type {any} */ (globalThis);
                const index = heard.findIndex((/** @type {any} */ message) =>
                    [wanted, 'failed'].includes(message.type),
                );
                if (index < 0) return undefined;
                const [message] = heard.splice(index, 1);
                return 'bytes' in message ? { ...message, bytes: [...new Uint8Array(message.bytes)] } : message;
            },
            { polling: 5, timeout: patience },
            type,
        );
        const message = await handle.jsonValue();
        if (message.type !== type) throw new Error(`${message.reason}: ${message.text}`);
        return message;
    }

    /**
     * The messages of a type that came and were not taken out.
     *
     * @template {FromWorker['type']} Type
     * @param {Type} type
     * @returns {Promise<Extract<FromWorker, {type: Type}>[]>}
     */
    all(type) {
        return this.#page.evaluate(
            (wanted) => /** @type {any} */ (globalThis).heard.filter((/** @type {any} */ each) => each.type === wanted),
            type,
        );
    }

    /**
     * @param {string} what a command of the scripted device
     * @returns {Promise<string[]>} also what it tells of the program's end, as the scripted device would
     */
    async ask(what) {
        await this.tell({ type: 'inspect', what });
        const { lines, ...answer } = await this.hear('inspected');
        if (answer.what !== what) throw new Error(`"${what}" was asked, "${answer.what}" answered`);
        const end = await this.#page.evaluate(() => {
            const { heard } = /** @type {any} */ (globalThis);
            return heard.find((/** @type {any} */ { type }) => type === 'ended');
        });
        return end ? [...lines, `exit ${end.status} (status ${end.status})`] : lines;
    }

    /** Does one after the other, and gives the lines of the last. @param {string[]} commands */
    async do(...commands) {
        /** @type {string[]} */
        let lines = [];
        for (const command of commands) lines = await this.ask(command);
        return lines;
    }

    /**
     * How long the program takes for what a message has it do, in milliseconds.
     *
     * @param {ToWorker} message
     */
    async time(message) {
        const [worker] = this.#page.workers();
        return worker.evaluate((data) => {
            const begin = performance.now();
            /** @type {any} */ (self).onmessage({ data });
            return performance.now() - begin;
        }, message);
    }

    /**
     * Waits until the canvas shows more than one colour at this size: what the worker draws comes some frames later.
     *
     * @param {number} width
     * @param {number} height
     */
    async showsAt(width, height) {
        await this.#page.waitForFunction(
            async (wantedWidth, wantedHeight) => {
                const canvas = /** @type {HTMLCanvasElement} */ (document.querySelector('canvas'));
                const shown = await createImageBitmap(canvas);
                if (shown.width !== wantedWidth || shown.height !== wantedHeight) return false;
                const context = /** @type {OffscreenCanvasRenderingContext2D} */ (
                    new OffscreenCanvas(wantedWidth, wantedHeight).getContext('2d')
                );
                context.drawImage(shown, 0, 0);
                const { data } = context.getImageData(0, 0, wantedWidth, wantedHeight);
                return new Set(new Uint32Array(data.buffer)).size > 1;
            },
            { timeout: patience },
            width,
            height,
        );
    }

    /** @param {string} file */
    async shoot(file) {
        await this.#page.screenshot({ path: /** @type {`${string}.png`} */ (file) });
    }

    async close() {
        await this.#page.close();
    }
}
