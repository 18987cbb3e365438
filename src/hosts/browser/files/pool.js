// A file system for a program that cannot wait: files of the browser's are opened beforehand, since only that takes
// waiting, and get their names by what stands in their headers. A name is on the disk as soon as it is answered, contents
// are when the file is flushed.

import { PoolError, PoolFile } from './pool_file.js';

/** @typedef {import('./pool_file.js').AccessHandle} AccessHandle */

/**
 * Where the pool's files lie. It has no others.
 *
 * @typedef {object} Disk
 * @property {() => Promise<string[]>} list the files that there are, as `open` called them
 * @property {(name: string) => Promise<AccessHandle>} open makes the file where it is missing
 */

/** What a start, its copy of the day and a few saves take without a pause in between. */
const usualSpare = 16;

/** Whatever fails throws a PoolError. */
export class Pool {
    #disk;
    #spare;
    /** @type {PoolFile[]} */
    #files = [];
    #nextFile = 0;
    #sequence = 0;
    /** @type {Promise<void> | null} */
    #growth = null;

    /**
     * @param {Disk} disk
     * @param {number} spare
     */
    constructor(disk, spare) {
        this.#disk = disk;
        this.#spare = spare;
    }

    /**
     * Opens all files of the disk.
     *
     * @param {Disk} disk
     * @param {number} [spare] how many free files there are to be: a pool without one is a full disk
     * @returns {Promise<Pool>} rejected as the disk rejects, as when another page has the files
     */
    static async open(disk, spare = usualSpare) {
        const pool = new Pool(disk, spare);
        const results = await Promise.allSettled((await disk.list()).map((name) => pool.#add(name)));
        const failure = results.find((result) => result.status === 'rejected');
        if (failure) {
            pool.close();
            throw failure.reason;
        }
        await pool.#grow().catch((error) => {
            // A disk without room still has what lies on it.
            if (pool.#files.length === 0) throw error;
        });
        return pool;
    }

    /** What takes time or waiting and is not to be left to a save: to be called when the program waits. What the disk
     * refuses now it is asked for again the next time. */
    async prepare() {
        try {
            for (const name of this.names()) this.#releaseAll(this.#filesOf(name).slice(0, -1));
            for (const file of this.#files) if (file.isFree && !file.isEmpty) file.empty();
            this.#growth ??= this.#grow();
            await this.#growth;
        } catch {
            return;
        } finally {
            this.#growth = null;
        }
    }

    /** Lets go of the files, which the browser gives to one page only. */
    close() {
        for (const file of this.#files.splice(0)) file.letGo();
    }

    /** @returns {string[]} */
    names() {
        return [...new Set(this.#files.map((file) => file.name).filter((name) => name !== ''))];
    }

    /**
     * @param {string} name
     * @returns {PoolFile | undefined}
     */
    find(name) {
        return this.#filesOf(name).at(-1);
    }

    /**
     * @param {string} name that no file has
     * @returns {PoolFile} empty
     */
    create(name) {
        const free = this.#files.filter((file) => file.isFree);
        const file = free.find((one) => one.isEmpty) ?? free[0];
        if (!file) throw new PoolError('ENOSPC');
        if (!file.isEmpty) file.empty();
        file.rename(name, ++this.#sequence);
        return file;
    }

    /**
     * Takes the place of a file that has the name already. One header is all that is written until it is done.
     *
     * @param {string} from
     * @param {string} to
     */
    rename(from, to) {
        const files = this.#filesOf(from);
        const file = files.pop();
        if (!file) throw new PoolError('ENOENT');
        if (from === to) return;
        this.#releaseAll(files);
        const replaced = this.#filesOf(to);
        file.rename(to, ++this.#sequence);
        try {
            this.#releaseAll(replaced);
        } catch {
            // It does not count any more, and is asked again before the name goes elsewhere.
            return;
        }
    }

    /** @param {string} name */
    unlink(name) {
        const files = this.#filesOf(name);
        if (files.length === 0) throw new PoolError('ENOENT');
        this.#releaseAll(files);
    }

    /**
     * Usually one. Of several, which a cut or a failing disk has left, the last one counts.
     *
     * @param {string} name
     * @returns {PoolFile[]} by age
     */
    #filesOf(name) {
        return this.#files.filter((file) => file.name === name).sort((one, other) => one.sequence - other.sequence);
    }

    /** @param {PoolFile[]} files the oldest first, so that none comes to count when a younger one has gone */
    #releaseAll(files) {
        for (const file of files) file.rename('', ++this.#sequence);
    }

    /** @param {string} name of the disk's */
    async #add(name) {
        this.#nextFile = Math.max(this.#nextFile, Number(name) + 1);
        const file = new PoolFile(await this.#disk.open(name));
        this.#files.push(file);
        this.#sequence = Math.max(this.#sequence, file.sequence);
    }

    async #grow() {
        while (this.#files.filter((file) => file.isFree).length < this.#spare) await this.#add(`${this.#nextFile}`);
    }
}
