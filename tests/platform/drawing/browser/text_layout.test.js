import assert from 'node:assert/strict';
import { test } from 'node:test';
import { TextLayout } from '../../../../src/platform/drawing/browser/text_layout.js';

/** Each character 10 wide, "AV" two less, marks without a width; Arabic letters that join lose one each. */
function measured(/** @type {string} */ text) {
    const characters = [...text].filter((character) => !/\p{M}/u.test(character)).length;
    const joined = text.match(/(?<=\p{Script=Arabic})\p{Script=Arabic}/gu)?.length ?? 0;
    return 10 * characters - 2 * (text.match(/AV/g)?.length ?? 0) - joined;
}

const context = { measureText: (/** @type {string} */ text) => ({ width: measured(text) }) };
const layout = new TextLayout(/** @type {any} */ (context));

test('advances go pair by pair, and within a word where letters join', () => {
    for (const text of ['AVA b', 'e\u0301t\u00e9 AV', 'بيت AV', '', '🚗 12', 'one  two ']) {
        const advances = layout.advances('', text);
        assert.equal(advances.length, [...text].length);
        assert.equal(
            advances.reduce((sum, advance) => sum + advance, 0),
            measured(text),
            text,
        );
    }
    assert.deepEqual(layout.advances('', 'AVA'), [8, 10, 10]);
    assert.deepEqual(layout.advances('', 'بيت'), [10, 9, 9]);
});

test('carets stand where the next letter would come, whatever the direction', () => {
    /** @type {[string, number[]][]} */
    const cases = [
        ['abc', [0, 10, 20, 30]],
        ['אבג', [30, 20, 10, 0]],
        // The letters of the other direction turn round in their place; what is between them goes with both sides.
        ['aאבb', [0, 10, 20, 30, 40]],
        ['אב גד', [50, 40, 30, 20, 10, 0]],
        // Numbers go from the left within a text from the right, separators and all.
        ['אב 1.5', [60, 50, 40, 30, 10, 20, 0]],
        ['אabב', [40, 30, 20, 10, 0]],
    ];
    for (const [text, carets] of cases) assert.deepEqual(layout.carets('', text), carets, text);
    // A whole book in one field, more than what a function takes as arguments.
    assert.equal(layout.carets('', 'a'.repeat(300_000)).length, 300_001);
});
