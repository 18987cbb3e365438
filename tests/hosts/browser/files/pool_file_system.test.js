import assert from 'node:assert/strict';
import test from 'node:test';

import { Pool } from '../../../../src/hosts/browser/files/pool.js';
import { compileProgram, compileSqlite } from './compiled.js';
import { DiskModel, randomNumbers } from './disk_model.js';

/** @param {DiskModel} disk all that it holds, as "path=contents;path=contents" */
async function textsOn(disk) {
    const pool = await Pool.open(disk, 1);
    const texts = pool
        .names()
        .sort()
        .map((name) => {
            const file = pool.find(name);
            const bytes = new Uint8Array(file?.size ?? 0);
            file?.read(bytes, 0);
            return `${name}=${new TextDecoder().decode(bytes)}`;
        });
    return texts.join(';');
}

test('the calls of POSIX, and what lasts after each', async () => {
    const disk = new DiskModel();
    /** @type {[string, DiskModel][]} */
    const promises = [];
    const run = compileProgram('posix_calls');
    const result = await run(await Pool.open(disk, 8), (line) => promises.push([line, disk.afterPowerCut(() => 0)]));
    assert.equal(result, 0);
    for (const [words, kept] of promises) assert.equal(await textsOn(kept), words);
    assert.equal(promises.length, 9);
    const again = await Pool.open(
        disk.afterPowerCut(() => 0),
        8,
    );
    assert.equal(await run(again, assert.fail, ['again']), 0);
});

test('SQLite loses nothing that it answered, wherever the power is cut', async () => {
    const run = compileProgram('sqlite_saves', [compileSqlite()]);
    const disk = new DiskModel();
    const pool = await Pool.open(disk, 4);
    const random = randomNumbers(1);
    let answered = 0;
    /** @type {{disk: DiskModel, answered: number}[]} */
    const cuts = [];
    disk.beforeStep = () => cuts.push({ disk: disk.afterPowerCut(random), answered });
    assert.equal(await run(pool, (line) => (answered = Number(line)), ['save', '50']), 0);
    assert.equal(answered, 50);
    for (const cut of cuts) {
        let found = '';
        await run(await Pool.open(cut.disk, 4), (line) => (found += line), ['check']);
        assert.match(found, new RegExp(`^(${cut.answered}|${cut.answered + 1})$`));
    }
    assert(cuts.length > 500);
});
