// Widths and carets of one-line texts, by what a canvas measures.

/** Letters of scripts that are written from right to left. */
const rightToLeft = /[\u0590-\u08ff\u200f\ufb1d-\ufdff\ufe70-\ufeff\u{10800}-\u{10fff}\u{1e800}-\u{1efff}]/u;
const letter = /\p{L}/u;
const digit = /\p{Nd}/u;
/** What joins with its neighbours or changes their shapes: such a text cannot be measured pair by pair. */
const shaped =
    /[\p{M}\u0590-\u109f\u1100-\u11ff\u1700-\u18af\u1900-\u1cff\u200b-\u200f\u2060-\u206f\ua800-\uabff\ufb1d-\ufdff\ufe70-\ufeff\u{10000}-\u{1ffff}]/u;

/**
 * @param {string} character
 * @returns {'L' | 'R' | 'N' | undefined} its direction: from the left, from the right, a number's, none of its own
 */
function directionOf(character) {
    if (digit.test(character)) return 'N';
    if (rightToLeft.test(character)) return 'R';
    return letter.test(character) ? 'L' : undefined;
}

/**
 * @param {string[]} characters
 * @returns {boolean} whether the text as a whole begins at the right: its first letter says so
 */
function beginsAtTheRight(characters) {
    return characters.map(directionOf).find((direction) => direction === 'L' || direction === 'R') === 'R';
}

/**
 * How deep each character stands in parts of the other direction; odd ones go from right to left. The common cases of
 * the Unicode rules: letters, numbers, and what stands between them.
 *
 * @param {string[]} characters
 * @param {boolean} fromRight
 * @returns {number[]}
 */
function levelsOf(characters, fromRight) {
    const base = fromRight ? 1 : 0;
    /** @type {(number | undefined)[]} */
    const levels = [];
    let last = fromRight ? 'R' : 'L';
    for (const [index, character] of characters.entries()) {
        let direction = directionOf(character);
        const isInNumber =
            /[.,:/]/.test(character) &&
            directionOf(characters[index - 1] ?? '') === 'N' &&
            directionOf(characters[index + 1] ?? '') === 'N';
        if (isInNumber) direction = 'N';
        if (direction === 'L' || direction === 'R') last = direction;
        if (direction === 'R') levels.push(1);
        else if (direction === 'L') levels.push(base * 2);
        else if (direction === 'N') levels.push(last === 'R' ? 2 : base * 2);
        else levels.push(undefined);
    }
    // What has no direction takes that of its neighbours where they agree.
    for (let start = 0; start < levels.length;) {
        let end = start;
        while (end < levels.length && levels[end] === undefined) end += 1;
        const isRight = (/** @type {number | undefined} */ level) =>
            level === undefined ? fromRight : level === 1 || (level === 2 && !fromRight);
        const before = start === 0 ? fromRight : isRight(levels[start - 1]);
        const after = end === levels.length ? fromRight : isRight(levels[end]);
        const agreed = before === after ? before : fromRight;
        levels.fill(agreed ? 1 : base * 2, start, end);
        start = Math.max(end, start) + 1;
    }
    return levels.map((level) => level ?? base);
}

/**
 * The characters as they stand on the line, from left to right: their places in the text.
 *
 * @param {number[]} levels
 * @returns {number[]}
 */
function visualOrder(levels) {
    const order = levels.map((_, index) => index);
    const highest = levels.reduce((most, level) => Math.max(most, level), 0);
    for (let level = highest; level > 0; level -= 1)
        for (let start = 0; start < order.length; start += 1) {
            let end = start;
            while (end < order.length && levels[order[end]] >= level) end += 1;
            const turned = order.slice(start, end).reverse();
            turned.forEach((index, place) => (order[start + place] = index));
            start = end;
        }
    return order;
}

export class TextLayout {
    /** @param {OffscreenCanvasRenderingContext2D} context whose font and direction are changed */
    constructor(context) {
        this.context = context;
        /** Widths of single characters and of pairs, by font. @type {Map<string, Map<string, number>>} */
        this.widths = new Map();
    }

    /**
     * Sets font and direction for measuring or drawing one text.
     *
     * @param {string} font as CSS has it
     * @param {string} text
     */
    prepare(font, text) {
        const { context } = this;
        context.font = font;
        context.direction = rightToLeft.test(text) && beginsAtTheRight(Array.from(text)) ? 'rtl' : 'ltr';
        context.textAlign = 'left';
        context.textBaseline = 'alphabetic';
        context.textRendering = 'geometricPrecision'; // no widths that fit the pixels of one size
    }

    /**
     * @param {string} font
     * @param {string} text
     * @returns {number}
     */
    width(font, text) {
        this.prepare(font, text);
        return this.context.measureText(text).width;
    }

    /**
     * @param {string} font
     * @param {string} text a character or a pair
     */
    keptWidth(font, text) {
        let kept = this.widths.get(font);
        if (kept === undefined) this.widths.set(font, (kept = new Map()));
        let width = kept.get(text);
        if (width === undefined) kept.set(text, (width = this.width(font, text)));
        return width;
    }

    /**
     * How far each character goes, in the order of the text.
     *
     * @param {string} font
     * @param {string} text
     * @returns {number[]}
     */
    advances(font, text) {
        // What stands in different words is never joined.
        const words = text.match(/\s*[^\s]+|\s+/gu) ?? [];
        return words.flatMap((word) =>
            shaped.test(word) ? this.shapedAdvances(font, word) : this.pairAdvances(font, word),
        );
    }

    /** @param {string} font @param {string} text */
    pairAdvances(font, text) {
        const characters = Array.from(text);
        return characters.map((character, index) => {
            const next = characters[index + 1];
            if (next === undefined) return this.keptWidth(font, character);
            return this.keptWidth(font, character + next) - this.keptWidth(font, next);
        });
    }

    /** @param {string} font @param {string} text */
    shapedAdvances(font, text) {
        let before = 0;
        let prefix = '';
        return Array.from(text, (character) => {
            prefix += character;
            const width = Math.max(before, this.width(font, prefix));
            const advance = width - before;
            before = width;
            return advance;
        });
    }

    /**
     * Where a caret stands before each character and at the end, from the left edge of the text. Where directions meet
     * it stands where a letter of the text's own direction would come.
     *
     * @param {string} font
     * @param {string} text
     * @returns {number[]}
     */
    carets(font, text) {
        const characters = Array.from(text);
        const advances = this.advances(font, text);
        const fromRight = beginsAtTheRight(characters);
        const levels = rightToLeft.test(text) ? levelsOf(characters, fromRight) : characters.map(() => 0);
        const base = fromRight ? 1 : 0;
        /** Where each character begins and ends for who reads it. */
        const begins = new Array(characters.length).fill(0);
        const ends = new Array(characters.length).fill(0);
        let x = 0;
        for (const index of visualOrder(levels)) {
            const next = x + advances[index];
            const isFromRight = levels[index] % 2 === 1;
            begins[index] = isFromRight ? next : x;
            ends[index] = isFromRight ? x : next;
            x = next;
        }
        const carets = begins.map((begin, index) => {
            const meets = index > 0 && levels[index] !== base && levels[index - 1] === base;
            return meets ? ends[index - 1] : begin;
        });
        return [...carets, fromRight ? 0 : x];
    }
}
