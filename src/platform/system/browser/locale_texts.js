// Texts of numbers, money and dates, and the order of texts, as the browser knows them for a locale.

import { currencyOf } from './currencies.js';

const fractionDigits = 2;
const unknownLocale = 'en-US';
/** A day whose year, month and day are told apart, the last two by one digit in each. */
const sampleDate = new Date(Date.UTC(2003, 3, 5));

/**
 * @param {string} name as the device has it: "de_DE", perhaps with keywords behind an "@"
 * @returns {string} the tag of a locale that the browser knows
 */
function knownTag(name) {
    const tag = name.replace(/@.*/, '').replaceAll('_', '-');
    try {
        return Intl.NumberFormat.supportedLocalesOf(tag).length > 0 ? tag : unknownLocale;
    } catch {
        return unknownLocale;
    }
}

/**
 * The short date as a pattern of "d", "M", "y" and quoted text; years are told with all their digits elsewhere.
 *
 * @param {string} tag
 * @param {Intl.DateTimeFormatOptions} options
 */
function datePattern(tag, options) {
    const format = new Intl.DateTimeFormat(tag, {
        ...options,
        calendar: 'gregory', // the log counts in the calendar that its dates are stored in
        numberingSystem: 'latn',
        timeZone: 'UTC',
    });
    return format
        .formatToParts(sampleDate)
        .map(({ type, value }) => {
            if (type === 'era') return '';
            if (type === 'year') return 'y';
            const letter = { day: 'd', month: 'M' }[/** @type {string} */ (type)];
            if (letter === undefined) return `'${value.replaceAll("'", "''")}'`;
            // A month that is spelt is longer than any pattern of numbers.
            return letter.repeat(/^\d+$/.test(value) ? value.length : 3);
        })
        .join('');
}

export class LocaleTexts {
    /**
     * Names that the browser does not know are en_US.
     *
     * @param {string} numbers the locale of numbers, money and collation
     * @param {string} dates the locale of dates
     */
    constructor(numbers, dates) {
        const tag = knownTag(numbers);
        this.dateTag = knownTag(dates);
        this.plain = new Intl.NumberFormat(tag, {
            minimumFractionDigits: fractionDigits,
            maximumFractionDigits: fractionDigits,
        });
        const currency = currencyOf(new Intl.Locale(tag).maximize().region);
        this.money = new Intl.NumberFormat(tag, { style: 'currency', currency });
        this.exact = new Intl.Collator(tag, { sensitivity: 'variant' });
        this.caseless = new Intl.Collator(tag, { sensitivity: 'accent' });
        this.decimalSeparator = this.plain.formatToParts(0.5).find(({ type }) => type === 'decimal')?.value ?? '.';
    }

    /**
     * @param {string} number plain decimal text
     * @returns {string}
     */
    numberText(number) {
        // A text is taken digit for digit.
        return this.plain.format(/** @type {any} */ (number));
    }

    /**
     * @param {string} number plain decimal text
     * @returns {string}
     */
    currencyText(number) {
        return this.money.format(/** @type {any} */ (number));
    }

    /**
     * @param {string} first
     * @param {string} second
     * @param {boolean} ignoreCase
     * @returns {number} below, equal to or above 0
     */
    compare(first, second, ignoreCase) {
        return (ignoreCase ? this.caseless : this.exact).compare(first, second);
    }

    /** The short date, and the same in numbers alone, for locales that spell its month. */
    datePatterns() {
        const inNumbers = datePattern(this.dateTag, { year: 'numeric', month: 'numeric', day: 'numeric' });
        return [datePattern(this.dateTag, { dateStyle: 'short' }), inNumbers];
    }

    /** The ten digits of dates, 0 first. */
    dateDigits() {
        const format = new Intl.NumberFormat(this.dateTag, { useGrouping: false });
        return Array.from({ length: 10 }, (_, digit) => format.format(digit)).join('');
    }
}
