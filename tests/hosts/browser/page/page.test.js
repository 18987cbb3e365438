import assert from 'node:assert/strict';
import { test } from 'node:test';

import { makeCopies } from '../../../../src/hosts/browser/page/copies.js';
import { keyDownOf } from '../../../../src/hosts/browser/page/keyboard.js';
import { layOut } from '../../../../src/hosts/browser/page/layout.js';

const phone = { width: 390, height: 800, shortSide: 390, pixelRatio: 3, hasFingers: true, textSize: 1 };

test('the screen fills a phone, whatever its size and ratio, in pixels of its own', () => {
    for (const [width, height] of [
        [320, 480],
        [360, 640],
        [390, 844],
        [430, 932],
        [844, 390],
        [195, 700], // beside another app
    ]) {
        for (const pixelRatio of [1, 2, 2.625, 3]) {
            const shortSide = Math.min(width, height);
            const { screen, zoom, scale, touchTarget, isWide } = layOut({
                ...phone,
                width,
                height,
                shortSide,
                pixelRatio,
            });
            const name = `${width}x${height} at ${pixelRatio}`;
            assert.equal(isWide, false, name);
            assert.ok(Math.abs(screen.width * zoom - width * pixelRatio) < 0.001, `${name}: as wide as the display`);
            assert.ok(screen.height * scale <= height && (screen.height + 1) * scale > height, `${name}: as high`);
            assert.ok(screen.width >= 240, `${name}: forms have room`);
            assert.ok(width > height || (width >= 320 ? screen.width >= 320 : true) || screen.width <= 420, name);
            assert.ok(touchTarget * scale >= 44, `${name}: a thumb hits`);
        }
    }
});

test('texts keep their size when a phone is turned, and when its keyboard comes up', () => {
    const upright = layOut(phone);
    assert.ok(Math.abs(layOut({ ...phone, width: 800, height: 390 }).scale / upright.scale - 1) < 0.02);
    const typing = layOut({ ...phone, height: 420 });
    assert.equal(typing.scale, upright.scale);
    assert.ok(typing.screen.height < upright.screen.height);
    assert.ok(layOut({ ...phone, textSize: 1.3 }).scale > upright.scale);
});

test('a wide display has a phone-shaped screen in the middle', () => {
    const { isWide, place, screen, touchTarget } = layOut({
        ...phone,
        width: 1280,
        height: 800,
        shortSide: 800,
        pixelRatio: 1,
        hasFingers: false,
    });
    assert.ok(isWide && screen.width >= 320 && screen.width <= 420);
    assert.ok(place.height > 1.4 * place.width);
    assert.ok(Math.abs(place.left * 2 + place.width - 1280) <= 1);
    assert.equal(touchTarget, 0);
});

test('a copy is reminded of after thirty changes or thirty days, and not before there is anything to lose', () => {
    const day = 86_400_000;
    /** @type {Map<string, string>} */
    const kept = new Map();
    const copies = makeCopies({
        getItem: (name) => kept.get(name) ?? null,
        setItem: (name, value) => void kept.set(name, value),
    });
    const now = 1_800_000_000_000;
    assert.equal(copies.reminder(5, now), null); // what was there at first
    assert.equal(copies.time(), null);
    assert.equal(copies.reminder(34, now + 400 * day), null);
    assert.match(copies.reminder(35, now) ?? '', /30 changes/);
    copies.taken(35, now);
    assert.equal(copies.time(), now);
    assert.equal(copies.reminder(36, now + 29 * day), null);
    assert.match(copies.reminder(36, now + 30 * day) ?? '', /30 days/);
    assert.equal(copies.reminder(35, now + 90 * day), null); // nothing is new
    copies.replaced(500); // by a log of a longer life
    assert.equal(copies.reminder(500, now + 90 * day), null);
    assert.equal(copies.time(), now);
    assert.equal(copies.reminder(2, now + 90 * day), null); // another log took its place
    assert.match(copies.reminder(32, now) ?? '', /30 changes/);
    for (const damaged of ['', '{', '[]', '{"changes":"x","time":1}']) {
        kept.set('odoledger.copy', damaged);
        assert.equal(copies.time(), null);
        assert.equal(copies.reminder(1, now), null);
    }
});

test('a hardware keyboard has the keys of a desktop, and the browser keeps its own', () => {
    /** @param {Partial<KeyboardEvent>} event */
    const press = (event) => keyDownOf(/** @type {KeyboardEvent} */ ({ code: '', repeat: false, ...event }));
    assert.deepEqual(press({ key: 'F1' }), { kind: 'keyDown', key: 0x70, modifiers: 0, isRepeat: false });
    assert.equal(press({ key: '&', code: 'Digit1', altKey: true })?.key, 0x70); // wherever a layout has the digit
    assert.equal(press({ key: 'ArrowDown', shiftKey: true, repeat: true })?.modifiers, 4);
    assert.deepEqual(press({ key: '😀' }), { kind: 'text', character: 0x1f600, modifiers: 0, isRepeat: false });
    assert.equal(press({ key: 'a', ctrlKey: true })?.key, 65);
    for (const own of [{ key: 'F5' }, { key: 'Shift' }, { key: 'r', ctrlKey: true }, { key: 'v', metaKey: true }])
        assert.equal(press(own), null);
    assert.equal(press({ key: 'Dead', isComposing: true }), null);
});
