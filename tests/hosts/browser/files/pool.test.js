import assert from 'node:assert/strict';
import test from 'node:test';

import { Pool } from '../../../../src/hosts/browser/files/pool.js';
import { PoolError } from '../../../../src/hosts/browser/files/pool_file.js';
import { longestName, slotPlaces } from '../../../../src/hosts/browser/files/pool_header.js';
import { DiskModel, randomNumbers } from './disk_model.js';

/**
 * What has to be found under a name. A byte's upper half tells which file it was written for, so that it is known when
 * it turns up in another one; zeros may be anywhere.
 *
 * @typedef {object} Expected
 * @property {number} tag
 * @property {Uint8Array} contents
 * @property {Uint8Array} flushed
 * @property {number} loose from here on what was flushed has been written over since, Infinity for nowhere
 */

/** @typedef {Map<string, Expected>} Model */

/** More than there are names: a full pool is another story. */
const spare = 8;
const names = ['/log', '/log-journal', '/copies/1', '/copies/2', '/ü'];

/**
 * @param {Expected} expected
 * @param {Uint8Array} found
 */
function isPossible({ tag, flushed, loose }, found) {
    if (loose === Infinity && found.length !== flushed.length) return false;
    if (found.length < Math.min(loose, flushed.length)) return false;
    return found.every((byte, at) => (at < loose ? byte === flushed[at] : byte === 0 || byte >> 4 === tag));
}

/** @param {Pool} pool @returns {Map<string, Uint8Array>} */
function contentsOf(pool) {
    const entries = pool.names().map((name) => {
        const file = pool.find(name);
        assert(file);
        const contents = new Uint8Array(file.size);
        assert.equal(file.read(contents, 0), contents.length);
        return /** @type {const} */ ([name, contents]);
    });
    return new Map(entries);
}

/**
 * @param {Model} model
 * @param {Map<string, Uint8Array>} found
 */
function isOneOf(model, found) {
    if (model.size !== found.size) return false;
    return [...model].every(
        ([name, expected]) => found.has(name) && isPossible(expected, found.get(name) ?? expected.flushed),
    );
}

/** A pool, and what it must hold. */
class Run {
    /** @type {Model} */
    model = new Map();
    tags = 0;
    failed = false;

    /**
     * @param {number} seed
     * @param {DiskModel} disk
     * @param {Pool} pool
     */
    constructor(seed, disk, pool) {
        this.random = randomNumbers(seed);
        this.disk = disk;
        this.pool = pool;
    }

    /** Does something at random, which the disk may refuse, and cuts the power at each of its steps. */
    async act() {
        const before = new Map(this.model);
        /** @type {DiskModel[]} */
        const cuts = [];
        this.disk.beforeStep = () => cuts.push(this.disk.afterPowerCut(this.random));
        this.disk.failAt = this.random(6) === 0 ? this.disk.steps + 1 + this.random(5) : Infinity;
        const done = await this.choose();
        this.disk.beforeStep = () => {};
        for (const disk of cuts) {
            const found = contentsOf(await Pool.open(disk, 1));
            assert(isOneOf(before, found) || isOneOf(this.model, found), `cut in ${done}`);
        }
        if (this.failed) this.model = before;
        const live = contentsOf(this.pool);
        assert.deepEqual(live, new Map([...this.model].map(([name, { contents }]) => [name, contents])), done);
        if (this.random(12) === 0) await this.losePower();
    }

    /** The power is really cut, and what is found then is what there is. */
    async losePower() {
        this.disk = this.disk.afterPowerCut(this.random);
        this.pool = await Pool.open(this.disk, spare);
        const found = contentsOf(this.pool);
        assert(isOneOf(this.model, found), 'cut at rest');
        for (const [name, expected] of this.model) {
            const contents = found.get(name) ?? expected.contents;
            this.model.set(name, { ...expected, contents, flushed: contents, loose: Infinity });
        }
    }

    /** @returns {Promise<string>} what was done */
    async choose() {
        const name = names[this.random(names.length)];
        const other = names[this.random(names.length)];
        const expected = this.model.get(name);
        const action = this.random(8);
        if (action === 0) return this.attempt(`preparing`, () => this.pool.prepare());
        if (!expected) return this.attempt(`creating ${name}`, () => this.create(name));
        if (action === 1) return this.attempt(`unlinking ${name}`, () => this.unlink(name));
        if (action <= 3) return this.attempt(`renaming ${name} to ${other}`, () => this.rename(name, other));
        if (action <= 5) return this.attempt(`flushing ${name}`, () => this.flush(name, expected));
        if (action === 6) return this.attempt(`truncating ${name}`, () => this.truncate(name, expected));
        return this.attempt(`writing ${name}`, () => this.write(name, expected));
    }

    /**
     * @param {string} words
     * @param {() => void | Promise<void>} action which changes the model first
     */
    async attempt(words, action) {
        this.failed = false;
        try {
            await action();
        } catch (error) {
            assert(error instanceof PoolError && this.disk.failAt <= this.disk.steps, `${words}: ${error}`);
            this.failed = true;
        }
        return words;
    }

    /** @param {string} name */
    create(name) {
        const nothing = new Uint8Array();
        this.tags = (this.tags % 15) + 1;
        this.model.set(name, { tag: this.tags, contents: nothing, flushed: nothing, loose: Infinity });
        this.pool.create(name);
    }

    /** @param {string} name */
    unlink(name) {
        this.model.delete(name);
        this.pool.unlink(name);
    }

    /** @param {string} name @param {string} other */
    rename(name, other) {
        const expected = this.model.get(name);
        this.model.delete(name);
        if (expected) this.model.set(other, expected);
        this.pool.rename(name, other);
    }

    /** @param {string} name @param {Expected} expected */
    flush(name, expected) {
        this.model.set(name, { ...expected, flushed: expected.contents, loose: Infinity });
        this.pool.find(name)?.flush();
    }

    /** @param {string} name @param {Expected} expected */
    truncate(name, expected) {
        const size = this.random(expected.contents.length + 20);
        const contents = new Uint8Array(size);
        contents.set(expected.contents.subarray(0, size));
        const loose = Math.min(expected.loose, size, expected.contents.length);
        this.model.set(name, { ...expected, contents, loose });
        this.pool.find(name)?.truncate(size);
    }

    /** @param {string} name @param {Expected} expected */
    write(name, expected) {
        const at = this.random(expected.contents.length + 20);
        const bytes = new Uint8Array(1 + this.random(40)).map(() => (expected.tag << 4) | this.random(16));
        const contents = new Uint8Array(Math.max(expected.contents.length, at + bytes.length));
        contents.set(expected.contents);
        contents.set(bytes, at);
        const loose = Math.min(expected.loose, at, expected.contents.length);
        this.model.set(name, { ...expected, contents, loose });
        this.pool.find(name)?.write(bytes, at);
    }
}

test('whatever is done, and wherever the power is cut, each name has its contents', async () => {
    for (let seed = 0; seed < 200; ++seed) {
        const disk = new DiskModel();
        const run = new Run(seed, disk, await Pool.open(disk, spare));
        try {
            for (let count = 0; count < 60; ++count) await run.act();
        } catch (error) {
            throw new Error(`seed ${seed}: ${error}`, { cause: error });
        }
    }
});

test('a slot that is not whole does not count, and a file without a good one is free', async () => {
    const text = new TextEncoder().encode('/older');
    for (const place of [0, 15, 25, 26, 30, 100, 511]) {
        const disk = new DiskModel();
        const pool = await Pool.open(disk, 1);
        pool.create('/older').write(text, 0);
        pool.rename('/older', '/newer');
        pool.close();

        disk.spoil('0', slotPlaces[1] + place);
        const once = await Pool.open(disk, 1);
        assert.deepEqual(contentsOf(once), new Map([['/older', text]]), `byte ${place}`);
        once.close();
        disk.spoil('0', slotPlaces[0] + place);
        assert.deepEqual((await Pool.open(disk, 1)).names(), [], `byte ${place}`);
    }
});

test('a pool without a free file is a full disk, until it has grown', async () => {
    const disk = new DiskModel();
    const pool = await Pool.open(disk, 3);
    // A file that is replaced or unlinked makes room for the next one at once.
    for (let count = 0; count < 20; ++count) {
        pool.create('/new');
        pool.rename('/new', '/log');
        pool.create('/journal');
        pool.unlink('/journal');
    }
    pool.create('/1');
    pool.create('/2');
    assert.throws(() => pool.create('/3'), { code: 'ENOSPC' });
    await Promise.all([pool.prepare(), pool.prepare()]);
    pool.create('/3');
    assert.deepEqual(pool.names().sort(), ['/1', '/2', '/3', '/log']);
});

test('a full disk refuses what it has no room for, and keeps what it has', async () => {
    const disk = new DiskModel();
    const pool = await Pool.open(disk, 3);
    await pool.prepare();
    disk.room = 100;
    const file = pool.create('/log');
    file.write(new Uint8Array(70).fill(7), 0);
    assert.throws(() => file.write(new Uint8Array(70).fill(8), 70), { code: 'ENOSPC' });
    assert.throws(() => file.write(new Uint8Array(1), 100), { code: 'ENOSPC' });
    assert.throws(() => file.truncate(101), { code: 'ENOSPC' });
    assert.equal(file.size, 100);
    // Names need no room of their own, and what goes gives its room back.
    pool.rename('/log', '/copy');
    pool.create('/log');
    pool.unlink('/copy');
    pool.find('/log')?.write(new Uint8Array(100), 0);
    assert.equal(pool.find('/log')?.size, 100);
    // The page opens with what it has, though the pool cannot grow.
    disk.room = 0;
    pool.close();
    const later = await Pool.open(disk, 20);
    await later.prepare();
    assert.deepEqual(later.names(), ['/log']);
});

test('a file that is open keeps its contents without a name', async () => {
    const pool = await Pool.open(new DiskModel(), 1);
    const file = pool.create('/temporary');
    file.open();
    file.write(new Uint8Array([1, 2, 3]), 0);
    pool.unlink('/temporary');
    assert.throws(() => pool.create('/other'), { code: 'ENOSPC' });
    await pool.prepare();
    assert.equal(file.size, 3);
    file.close();
    assert.equal(file.size, 0);
    assert.equal(file.isFree, true);
});

test('a name is taken whole or refused', async () => {
    const pool = await Pool.open(new DiskModel(), 2);
    const longest = `/x${'ü'.repeat((longestName - 2) / 2)}`;
    pool.create(longest);
    assert.throws(() => pool.rename(longest, `${longest}x`), { code: 'ENAMETOOLONG' });
    assert.throws(() => pool.create(`${longest}x`), { code: 'ENAMETOOLONG' });
    assert.throws(() => pool.unlink('/none'), { code: 'ENOENT' });
    assert.deepEqual(pool.names(), [longest]);
});

test('files that another page has are not half opened', async () => {
    const disk = new DiskModel();
    const first = await Pool.open(disk, 3);
    await assert.rejects(Pool.open(disk, 3), /is open/);
    first.close();
    const second = await Pool.open(disk, 3);
    assert.equal(second.create('/log').size, 0);
});
