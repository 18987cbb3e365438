// The site served from this machine, and a browser that looks at it.

import { createServer } from 'node:http';
import { mkdtemp, readFile, rm } from 'node:fs/promises';
import { tmpdir } from 'node:os';
import { extname, join, normalize } from 'node:path';
import puppeteer from 'puppeteer-core';

const types = Object.freeze({
    '.css': 'text/css',
    '.html': 'text/html',
    '.js': 'text/javascript',
    '.svg': 'image/svg+xml',
    '.wasm': 'application/wasm',
    '.webmanifest': 'application/manifest+json',
    '.woff2': 'font/woff2',
});

/**
 * @param {string} folder
 * @returns {Promise<{address: string, close: () => Promise<void>}>}
 */
export async function serve(folder) {
    const server = createServer((request, response) => {
        const path = normalize(decodeURIComponent(new URL(request.url ?? '/', 'http://site').pathname));
        const file = join(folder, path.endsWith('/') ? `${path}index.html` : path);
        readFile(file).then(
            (bytes) => {
                const type = types[/** @type {keyof typeof types} */ (extname(file))] ?? 'application/octet-stream';
                response.writeHead(200, { 'content-type': type, 'cache-control': 'no-cache' }).end(bytes);
            },
            () => response.writeHead(404).end(),
        );
    });
    await new Promise((resolve) => server.listen(0, '127.0.0.1', () => resolve(undefined)));
    const { port } = /** @type {import('node:net').AddressInfo} */ (server.address());
    return {
        address: `http://127.0.0.1:${port}/`,
        close: () => new Promise((resolve) => server.close(() => resolve())),
    };
}

/**
 * Chromium with a profile of its own, which lasts from one start to the next.
 *
 * @param {Record<string, string>} [environment]
 */
export async function startBrowser(environment = {}) {
    const profile = await mkdtemp(join(tmpdir(), 'odoledger-browser-'));
    const started = {
        browser: await launch(profile, environment),
        /** @param {Record<string, string>} changed */
        async restart(changed) {
            await started.browser.close();
            started.browser = await launch(profile, changed);
        },
        async close() {
            await started.browser.close();
            await rm(profile, { recursive: true, force: true });
        },
    };
    return started;
}

/** @param {string} profile @param {Record<string, string>} environment */
function launch(profile, environment) {
    return puppeteer.launch({
        executablePath: process.env.CHROMIUM ?? '/usr/lib/chromium/chromium',
        headless: true,
        userDataDir: profile,
        env: { ...process.env, ...environment },
        args: [
            '--no-sandbox',
            '--disable-gpu',
            '--disable-quic',
            '--no-first-run',
            '--disable-background-networking',
            '--disable-component-update',
            '--disable-sync',
        ],
    });
}
