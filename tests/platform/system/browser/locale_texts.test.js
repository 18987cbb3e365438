import assert from 'node:assert/strict';
import { test } from 'node:test';
import { LocaleTexts } from '../../../../src/platform/system/browser/locale_texts.js';

/** Blanks of every kind as plain ones: which of them a locale has changes with the year. @param {string} text */
const plain = (text) => text.replace(/\s/g, ' ');

test('numbers, money and dates are those of the locale, with its region or without', () => {
    const cases = [
        ['en_US', '1,234,567.50', '$1,234.50', "M'/'d'/'y"],
        ['de_DE', '1.234.567,50', '1.234,50 €', "dd'.'MM'.'y"],
        ['de', '1.234.567,50', '1.234,50 €', "dd'.'MM'.'y"],
        ['de_DE@collation=phonebook', '1.234.567,50', '1.234,50 €', "dd'.'MM'.'y"],
        ['en_IN', '12,34,567.50', '₹1,234.50', "dd'/'MM'/'y"],
        ['sv_SE', '1 234 567,50', '1 234,50 kr', "y'-'MM'-'dd"],
        ['xx_YY', '1,234,567.50', '$1,234.50', "M'/'d'/'y"],
    ];
    for (const [name, number, money, date] of cases) {
        const locale = new LocaleTexts(name, name);
        assert.equal(plain(locale.numberText('1234567.5')), number, name);
        assert.equal(plain(locale.currencyText('1234.5')), money, name);
        assert.equal(locale.datePatterns()[0], date, name);
    }
});

test('digits are exact and rounded away from zero; dates have the digits and the calendar of the log', () => {
    const american = new LocaleTexts('en_US', 'fa_IR');
    assert.equal(american.numberText('-0.005'), '-0.01');
    assert.equal(american.numberText('123456789012345678901.12'), '123,456,789,012,345,678,901.12');
    assert.equal(american.dateDigits(), '۰۱۲۳۴۵۶۷۸۹');
    assert.match(american.datePatterns()[0], /^y.*M.*d$/);
    assert.match(new LocaleTexts('bg', 'th_TH').datePatterns()[0], /^[^0-9]*$/);
    assert.ok(american.compare('a', 'B', true) < 0 && american.compare('A', 'a', true) === 0);
    assert.notEqual(american.compare('A', 'a', false), 0);
});
