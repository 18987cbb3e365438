// One file of the pool: its header, and its contents behind that.

import { decodeHeader, encodeHeader, headerSize, slotPlaces, slotSize } from './pool_header.js';

/**
 * What the pool needs of a handle that the browser opened.
 *
 * @typedef {object} AccessHandle
 * @property {(bytes: Uint8Array, options: {at: number}) => number} read
 * @property {(bytes: Uint8Array, options: {at: number}) => number} write
 * @property {(size: number) => void} truncate
 * @property {() => number} getSize
 * @property {() => void} flush
 * @property {() => void} close
 */

/** What cannot be done, by the name that POSIX has for it. */
export class PoolError extends Error {
    /** @param {'EIO' | 'ENAMETOOLONG' | 'ENOENT' | 'ENOSPC'} code */
    constructor(code) {
        super(code);
        this.code = code;
    }
}

/**
 * Does what may throw an exception of the browser's.
 *
 * @template Result
 * @param {() => Result} operation
 * @returns {Result}
 */
function attempt(operation) {
    try {
        return operation();
    } catch (error) {
        if (error instanceof PoolError) throw error;
        const isFull = error instanceof Error && error.name === 'QuotaExceededError';
        throw new PoolError(isFull ? 'ENOSPC' : 'EIO');
    }
}

/** Places and sizes are bytes of the contents. Whatever fails throws a PoolError. */
export class PoolFile {
    #handle;
    /** The slot that counts; the next header goes into the other one. */
    #slot = 1;
    #name = '';
    #sequence = 0;
    #modified = 0;
    #holders = 0;
    #isEmpty = false;

    /** @param {AccessHandle} handle the file's own from now on */
    constructor(handle) {
        this.#handle = handle;
        slotPlaces.forEach((place, slot) => {
            const bytes = new Uint8Array(slotSize);
            const header = handle.read(bytes, { at: place }) === slotSize ? decodeHeader(bytes) : null;
            if (!header || header.sequence <= this.#sequence) return;
            this.#slot = slot;
            this.#name = header.name;
            this.#sequence = header.sequence;
            this.#modified = header.modified;
        });
    }

    /** The path in the pool, "" once it has none. */
    get name() {
        return this.#name;
    }

    /** Of two files of one name the one of the greater sequence counts. */
    get sequence() {
        return this.#sequence;
    }

    /** Milliseconds since 1970: the last change of the contents in this session, or of the name before it. */
    get modified() {
        return this.#modified;
    }

    set modified(time) {
        this.#modified = time;
    }

    /** Nobody has it open, and it has no name. */
    get isFree() {
        return this.#name === '' && this.#holders === 0;
    }

    /** Nothing is left of former contents, not even after a power cut. */
    get isEmpty() {
        return this.#isEmpty;
    }

    get size() {
        return attempt(() => Math.max(0, this.#handle.getSize() - headerSize));
    }

    /** The contents stay as long as somebody has the file open, with a name or without. */
    open() {
        ++this.#holders;
    }

    close() {
        --this.#holders;
        this.#clearIfFree();
    }

    /**
     * @param {Uint8Array} bytes to be filled
     * @param {number} at
     * @returns {number} how many there were, fewer than asked for at the end of the file
     */
    read(bytes, at) {
        return attempt(() => this.#handle.read(bytes, { at: headerSize + at }));
    }

    /**
     * @param {Uint8Array} bytes
     * @param {number} at also beyond the end: what lies between is zeros
     */
    write(bytes, at) {
        this.#writeWhole(bytes, headerSize + at);
        this.#modified = Date.now();
    }

    /** @param {number} size */
    truncate(size) {
        attempt(() => this.#handle.truncate(headerSize + size));
        this.#modified = Date.now();
    }

    /** All that was written is on the disk when this returns. */
    flush() {
        attempt(() => this.#handle.flush());
    }

    /** Takes away former contents for good, so that a new name cannot come to them. */
    empty() {
        this.truncate(0);
        this.flush();
        this.#isEmpty = true;
    }

    /**
     * Gives the file another name, on the disk as well. When that fails it keeps its former one.
     *
     * @param {string} name "" takes the name away
     * @param {number} sequence greater than any before
     */
    rename(name, sequence) {
        const modified = name === '' ? this.#modified : Date.now();
        const bytes = encodeHeader({ name, sequence, modified });
        if (!bytes) throw new PoolError('ENAMETOOLONG');
        const slot = 1 - this.#slot;
        try {
            this.#writeWhole(bytes, slotPlaces[slot]);
            this.flush();
        } catch (error) {
            this.#takeBackSlot(slot);
            throw error;
        }
        this.#slot = slot;
        this.#name = name;
        this.#sequence = sequence;
        this.#modified = modified;
        this.#isEmpty = false;
        this.#clearIfFree();
    }

    /** The browser may give the file to others. */
    letGo() {
        this.#handle.close();
    }

    /**
     * A part that was written before the room ran out stays.
     *
     * @param {Uint8Array} bytes
     * @param {number} place in the browser's file
     */
    #writeWhole(bytes, place) {
        const count = attempt(() => this.#handle.write(bytes, { at: place }));
        if (count !== bytes.length) throw new PoolError('ENOSPC');
    }

    /** What was answered with a failure should not have happened after the next start. A disk that refuses this as well
     * leaves it open.
     * @param {number} slot */
    #takeBackSlot(slot) {
        try {
            this.#writeWhole(new Uint8Array(slotSize), slotPlaces[slot]);
            this.flush();
        } catch {
            return;
        }
    }

    /** Gives back the room; `empty` does so for good. */
    #clearIfFree() {
        if (!this.isFree) return;
        try {
            this.truncate(0);
        } catch {
            return;
        }
    }
}
