// Any static host: files as they are, no headers of its own. `node tools/serve_site.js FOLDER PORT`.

import { readFile } from 'node:fs/promises';
import { createServer } from 'node:http';
import { extname, join, normalize } from 'node:path';
import { fileURLToPath } from 'node:url';

/** @type {Record<string, string>} */
const types = {
    '.html': 'text/html',
    '.js': 'text/javascript',
    '.css': 'text/css',
    '.wasm': 'application/wasm',
    '.png': 'image/png',
    '.woff2': 'font/woff2',
    '.webmanifest': 'application/manifest+json',
};

/**
 * Serves a folder on a port of this machine alone.
 *
 * @param {string} folder
 * @param {number} [port] 0: any that is free
 * @returns {Promise<{address: string, port: number, stop: () => Promise<void>, bytes: () => number, folder: string}>}
 */
export async function serve(folder, port = 0) {
    let bytes = 0;
    const site = { folder };
    const server = createServer(async (request, response) => {
        const path = normalize(decodeURIComponent(new URL(request.url ?? '/', 'http://host').pathname));
        const name = path.endsWith('/') ? `${path}index.html` : path;
        try {
            const contents = await readFile(join(site.folder, name));
            bytes += contents.length;
            response.writeHead(200, { 'Content-Type': types[extname(name)] ?? 'application/octet-stream' });
            response.end(contents);
        } catch {
            response.writeHead(404).end();
        }
    });
    await new Promise((ready) => server.listen(port, '127.0.0.1', () => ready(undefined)));
    const address = server.address();
    const own = typeof address === 'object' && address ? address.port : 0;
    return Object.assign(site, {
        address: `http://127.0.0.1:${own}/`,
        port: own,
        bytes: () => bytes,
        stop: () =>
            new Promise((/** @type {(nothing: void) => void} */ done) => {
                server.closeAllConnections();
                server.close(() => done());
            }),
    });
}

if (process.argv[1] === fileURLToPath(import.meta.url)) {
    const [folder = 'build/browser/site', port = '8080'] = process.argv.slice(2);
    const site = await serve(folder, Number(port)).catch(() => serve(folder)); // another one may have the port
    console.log(`Odoledger is at ${site.address} (Ctrl+C ends this server; the page works on without it)`);
}
