import assert from 'node:assert/strict';
import { existsSync } from 'node:fs';
import { mkdtemp, readFile, rm } from 'node:fs/promises';
import { createServer } from 'node:http';
import { tmpdir } from 'node:os';
import { fileURLToPath } from 'node:url';
import test from 'node:test';

import puppeteer from 'puppeteer-core';

const root = fileURLToPath(new URL('../../../../', import.meta.url));
const chromium = '/usr/lib/chromium/chromium';
const kills = 5;

/** The project's own scripts, and an empty page for all else. @returns {Promise<import('node:http').Server>} */
function serve() {
    const server = createServer(async ({ url = '' }, response) => {
        const isScript = /^[/\w]+\.js$/.test(url);
        response.setHeader('Content-Type', isScript ? 'text/javascript' : 'text/html');
        response.end(isScript ? await readFile(root + url) : '<!doctype html><title>Files</title>');
    });
    return new Promise((resolve) => server.listen(0, '127.0.0.1', () => resolve(server)));
}

/** @param {string} profile */
const launch = (profile) =>
    puppeteer.launch({
        executablePath: chromium,
        userDataDir: profile,
        timeout: 120_000,
        args: ['--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run', '--disable-background-networking'],
    });

/**
 * A page with the files, which does what it is told.
 *
 * @param {import('puppeteer-core').Browser} browser
 * @param {import('node:http').Server} server
 * @returns {Promise<(...words: string[]) => Promise<any>>}
 */
async function openPage(browser, server) {
    const page = await browser.newPage();
    await page.goto(`http://127.0.0.1:${/** @type {any} */ (server.address()).port}/`);
    const worker = await page.evaluateHandle(
        () => new Worker('/tests/hosts/browser/files/opfs_worker.js', { type: 'module' }),
    );
    return async (...words) => {
        const said = await worker.evaluate((target, message) => {
            target.postMessage(message);
            return new Promise((resolve) => (target.onmessage = ({ data }) => resolve(data)));
        }, words);
        const { answer, failure } = /** @type {{answer?: any, failure?: string}} */ (said);
        if (failure) throw new Error(failure);
        return answer;
    };
}

test('on the files of a browser that is killed', { skip: !existsSync(chromium), timeout: 600_000 }, async () => {
    const server = await serve();
    const profile = await mkdtemp(`${tmpdir()}/odoledger-profile-`);
    try {
        for (let count = 0; count < kills; ++count) {
            const browser = await launch(profile);
            const ask = await openPage(browser, server);
            await ask('open');
            assert.equal(await ask('texts'), count === 0 ? '' : `/folder/log=text ${count - 1}`);
            await assert.rejects((await openPage(browser, server))('open'), /NoModificationAllowedError/);
            await ask('replace', '/folder/log', `text ${count}`);
            await ask('replace', '/gone', 'x');
            await ask('unlink', '/gone');
            const ended = new Promise((resolve) => browser.process()?.once('exit', resolve));
            browser.process()?.kill('SIGKILL');
            await ended;
        }
    } finally {
        server.close();
        await rm(profile, { recursive: true, force: true, maxRetries: 5 });
    }
});
