// The pool in which the log lies, and the logs beside it.

import { openOpfsDisk } from '../files/opfs_disk.js';
import { Pool } from '../files/pool.js';

/** @typedef {import('../files/pool.js').Disk} Disk */
/** @typedef {import('../files/pool_file.js').AccessHandle} AccessHandle */
/** @typedef {import('../files/pool_file.js').PoolFile} PoolFile */

/** A page that was just left lets go of its files a little later. */
const attempts = 30;
const pause = 100; // milliseconds

/** @param {number} milliseconds */
const sleep = (milliseconds) => new Promise((resolve) => setTimeout(resolve, milliseconds));

/** @returns {AccessHandle} a file that goes with the page */
function memoryHandle() {
    let room = new Uint8Array(4096);
    let size = 0;
    const resize = (/** @type {number} */ wanted) => {
        if (wanted > room.length) {
            const former = room;
            room = new Uint8Array(Math.max(wanted, 2 * former.length));
            room.set(former.subarray(0, size));
        }
        room.fill(0, Math.min(size, wanted), Math.max(size, wanted));
        size = wanted;
    };
    return {
        read(bytes, { at }) {
            const part = room.subarray(Math.min(at, size), Math.min(at + bytes.length, size));
            bytes.set(part);
            return part.length;
        },
        write(bytes, { at }) {
            resize(Math.max(size, at + bytes.length));
            room.set(bytes, at);
            return bytes.length;
        },
        truncate: resize,
        getSize: () => size,
        flush: () => {},
        close: () => {},
    };
}

/** @returns {Disk} */
function memoryDisk() {
    return { list: async () => [], open: async () => memoryHandle() };
}

/**
 * @returns {Promise<{pool: Pool, lasting: boolean}>} not lasting where the browser stores nothing. Rejected with the
 *   browser's exception: NoModificationAllowedError where another page has the files.
 */
export async function openStorage() {
    let disk;
    try {
        disk = await openOpfsDisk();
    } catch {
        return { pool: await Pool.open(memoryDisk()), lasting: false };
    }
    for (let attempt = 1; ; ++attempt) {
        try {
            return { pool: await Pool.open(disk), lasting: true };
        } catch (error) {
            const isInUse = error instanceof DOMException && error.name === 'NoModificationAllowedError';
            if (!isInUse || attempt === attempts) throw error;
            await sleep(pause);
        }
    }
}

/**
 * @param {PoolFile} file
 * @returns {Uint8Array<ArrayBuffer>}
 */
export function contentsOf(file) {
    const bytes = new Uint8Array(file.size);
    file.read(bytes, 0);
    return bytes;
}

/**
 * Makes or replaces a file; the name leads to the old contents or to the new ones, whatever happens meanwhile.
 *
 * @param {Pool} pool
 * @param {string} name
 * @param {Uint8Array} bytes
 */
export function putFile(pool, name, bytes) {
    const fresh = `${name}.fresh`;
    if (pool.find(fresh)) pool.unlink(fresh);
    const file = pool.create(fresh);
    try {
        file.write(bytes, 0);
        file.flush();
        pool.rename(fresh, name);
    } catch (error) {
        pool.unlink(fresh);
        throw error;
    }
}

/** @param {string} logName the log that was put aside for another one */
export const formerName = (logName) => `${logName}.former`;

/**
 * Another file becomes the log, which is put aside as the former one; in the program's absence. At every moment the log
 * is one of the two.
 *
 * @param {Pool} pool
 * @param {string} logName
 * @param {string} name of the other file
 */
export function takeAsLog(pool, logName, name) {
    const log = pool.find(logName);
    const bytes = log && contentsOf(log);
    pool.find(name)?.flush();
    if (name !== formerName(logName)) {
        if (bytes) putFile(pool, formerName(logName), bytes);
        pool.rename(name, logName);
        return;
    }
    // The two change places: for a moment the log is there twice, never none.
    const waiting = `${logName}.waiting`;
    if (bytes) putFile(pool, waiting, bytes);
    pool.rename(name, logName);
    if (bytes) pool.rename(waiting, name);
}

/**
 * Clears up behind a page that was killed in the midst of it.
 *
 * @param {Pool} pool
 */
export function clearStorage(pool) {
    for (const name of pool.names()) {
        const former = name.replace(/\.waiting$/, '.former');
        if (former !== name && !pool.find(former)) pool.rename(name, former);
        else if (former !== name || /\.(fresh|opened)$/.test(name)) pool.unlink(name);
    }
}
