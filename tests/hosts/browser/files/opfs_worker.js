// Does on the browser's own files what the test asks for, and answers with what came of it.

import { openOpfsDisk } from '../../../../src/hosts/browser/files/opfs_disk.js';
import { Pool } from '../../../../src/hosts/browser/files/pool.js';

/** @type {Pool} */
let pool;

/** @param {string} name */
function textOf(name) {
    const file = pool.find(name);
    const bytes = new Uint8Array(file?.size ?? 0);
    file?.read(bytes, 0);
    return `${name}=${new TextDecoder().decode(bytes)}`;
}

/** @type {Record<string, (name: string, text: string) => unknown>} */
const actions = {
    open: async () => {
        pool = await Pool.open(await openOpfsDisk());
        await pool.prepare();
    },
    texts: () => pool.names().sort().map(textOf).join(';'),
    // As a file is replaced: a new one, flushed, takes the name of the former.
    replace: (name, text) => {
        const file = pool.create('/fresh');
        // Beyond the end first: what lies between must be zeros, and goes again.
        file.write(new Uint8Array([1]), 10000);
        file.truncate(5000);
        const gap = new Uint8Array(5000);
        if (file.read(gap, 0) !== 5000 || gap.some((byte) => byte !== 0)) throw new Error('the gap is not empty');
        file.truncate(0);
        file.write(new TextEncoder().encode(text), 0);
        file.flush();
        pool.rename('/fresh', name);
    },
    unlink: (name) => pool.unlink(name),
};

self.onmessage = async ({ data: [action, name, text] }) => {
    try {
        self.postMessage({ answer: await actions[action](name, text) });
    } catch (error) {
        self.postMessage({ failure: `${error}` });
    }
};
