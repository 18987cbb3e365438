// A disk whose power can be cut at every moment. What was flushed stays; of every write since, in any order, all, a part or nothing does.

/** Of the browser's kind, for a disk without room. */
class QuotaExceededError extends Error {
    name = 'QuotaExceededError';
}

/**
 * A sequence that a seed repeats.
 *
 * @param {number} seed
 * @returns {(below: number) => number} whole numbers from 0
 */
export function randomNumbers(seed) {
    let state = seed + 1;
    return (below) => {
        state = (state + 0x6d2b79f5) | 0;
        let mixed = Math.imul(state ^ (state >>> 15), state | 1);
        mixed ^= mixed + Math.imul(mixed ^ (mixed >>> 7), mixed | 61);
        return ((mixed ^ (mixed >>> 14)) >>> 0) % below;
    };
}

/** @typedef {import('../../../../src/hosts/browser/files/pool.js').AccessHandle} AccessHandle */
/** @typedef {import('../../../../src/hosts/browser/files/pool.js').Disk} Disk */
/** @typedef {{at: number, bytes: Uint8Array} | {size: number}} Change */

/**
 * @param {Uint8Array} contents
 * @param {Change} change
 * @returns {Uint8Array}
 */
function changed(contents, change) {
    if ('size' in change) {
        const result = new Uint8Array(change.size);
        result.set(contents.subarray(0, change.size));
        return result;
    }
    const end = change.at + change.bytes.length;
    const result = end > contents.length ? changed(contents, { size: end }) : contents.slice();
    result.set(change.bytes, change.at);
    return result;
}

/**
 * @param {Change} change
 * @param {(below: number) => number} random
 * @returns {Change}
 */
function torn(change, random) {
    if ('size' in change) return change;
    const begin = random(2) * random(change.bytes.length + 1);
    const end = begin + random(change.bytes.length - begin + 1);
    return { at: change.at + begin, bytes: change.bytes.slice(begin, end) };
}

/** @implements {AccessHandle} */
class ModelFile {
    #disk;
    /** @type {Uint8Array} */
    #durable = new Uint8Array();
    /** @type {Uint8Array} */
    #contents = new Uint8Array();
    /** @type {Change[]} */
    #unflushed = [];
    isLasting = false;
    isOpen = false;

    /** @param {DiskModel} disk */
    constructor(disk) {
        this.#disk = disk;
    }

    /** @type {AccessHandle['read']} */
    read(bytes, { at }) {
        const found = this.#contents.subarray(at, at + bytes.length);
        bytes.set(found);
        return found.length;
    }

    /** @type {AccessHandle['write']} */
    write(bytes, { at }) {
        this.#disk.step();
        const growth = Math.max(0, at + bytes.length - this.#contents.length);
        const missing = Math.max(0, growth - this.#disk.room);
        if (missing >= bytes.length && bytes.length > 0) throw new QuotaExceededError();
        const written = bytes.slice(0, bytes.length - missing);
        this.#change({ at, bytes: written });
        return written.length;
    }

    /** @type {AccessHandle['truncate']} */
    truncate(size) {
        this.#disk.step();
        if (size - this.#contents.length > this.#disk.room) throw new QuotaExceededError();
        this.#change({ size });
    }

    getSize() {
        return this.#contents.length;
    }

    flush() {
        this.#disk.step();
        ++this.#disk.flushes;
        this.#durable = this.#contents;
        this.#unflushed = [];
        this.isLasting = true;
    }

    close() {
        this.isOpen = false;
    }

    /** @param {DiskModel} disk */
    clone(disk) {
        const file = new ModelFile(disk);
        file.#durable = this.#durable;
        file.#contents = this.#contents;
        file.#unflushed = this.#unflushed.slice();
        file.isLasting = this.isLasting;
        return file;
    }

    /** @param {(below: number) => number} random */
    losePower(random) {
        for (const change of this.#unflushed) {
            const fate = random(3);
            if (fate !== 0) this.#durable = changed(this.#durable, fate === 1 ? torn(change, random) : change);
        }
        this.#contents = this.#durable;
        this.#unflushed = [];
    }

    /** @param {Change} change */
    #change(change) {
        const before = this.#contents.length;
        this.#contents = changed(this.#contents, change);
        this.#disk.room -= this.#contents.length - before;
        this.#unflushed.push(change);
    }
}

/** @implements {Disk} */
export class DiskModel {
    /** @type {Map<string, ModelFile>} */
    #files = new Map();
    /** Writes, truncations and flushes so far. */
    steps = 0;
    flushes = 0;
    /** The one step that fails. */
    failAt = Infinity;
    /** Bytes that files may still grow by. */
    room = Infinity;
    /** Called before each step. */
    beforeStep = () => {};

    list = async () => [...this.#files.keys()];

    /** @param {string} name */
    open = async (name) => {
        const file = this.#files.get(name) ?? new ModelFile(this);
        if (file.isOpen) throw new Error(`${name} is open`);
        file.isOpen = true;
        this.#files.set(name, file);
        return file;
    };

    step() {
        this.beforeStep();
        if (++this.steps === this.failAt) throw new Error('the disk fails');
    }

    /** The disk as it is at this moment, for a machine of its own. */
    clone() {
        const disk = new DiskModel();
        for (const [name, file] of this.#files) disk.#files.set(name, file.clone(disk));
        return disk;
    }

    /**
     * The disk as it comes back when the power is cut at this moment.
     *
     * @param {(below: number) => number} random
     */
    afterPowerCut(random) {
        const disk = this.clone();
        for (const [name, file] of disk.#files) {
            file.losePower(random);
            if (!file.isLasting && random(2) === 0) disk.#files.delete(name);
        }
        return disk;
    }

    /**
     * Turns over bits of a file of the disk.
     *
     * @param {string} name
     * @param {number} at
     */
    spoil(name, at) {
        const file = /** @type {ModelFile} */ (this.#files.get(name));
        const byte = new Uint8Array(1);
        file.read(byte, { at });
        file.write(new Uint8Array([byte[0] ^ 0x5a]), { at });
        file.flush();
    }
}
