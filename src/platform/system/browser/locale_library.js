// What the device's locale asks of JavaScript. Each function only turns texts of the program's memory into JavaScript's
// and back; `Module.localeTexts` makes the object that knows. Texts that are given back are the caller's to free.

mergeInto(LibraryManager.library, {
    odoledgerLocaleOpen: function (numbers, dates) {
        Module.locale = Module.localeTexts(UTF8ToString(numbers), UTF8ToString(dates));
    },

    odoledgerLocaleNumber__deps: ['$stringToNewUTF8'],
    odoledgerLocaleNumber: function (number) {
        return stringToNewUTF8(Module.locale.numberText(UTF8ToString(number)));
    },

    odoledgerLocaleCurrency__deps: ['$stringToNewUTF8'],
    odoledgerLocaleCurrency: function (number) {
        return stringToNewUTF8(Module.locale.currencyText(UTF8ToString(number)));
    },

    odoledgerLocaleCompare: function (first, second, ignoreCase) {
        return Module.locale.compare(UTF8ToString(first), UTF8ToString(second), ignoreCase !== 0);
    },

    odoledgerLocaleDecimalSeparator__deps: ['$stringToNewUTF8'],
    odoledgerLocaleDecimalSeparator: function () {
        return stringToNewUTF8(Module.locale.decimalSeparator);
    },

    odoledgerLocaleDatePattern__deps: ['$stringToNewUTF8'],
    odoledgerLocaleDatePattern: function (index) {
        return stringToNewUTF8(Module.locale.datePatterns()[index]);
    },

    odoledgerLocaleDateDigits__deps: ['$stringToNewUTF8'],
    odoledgerLocaleDateDigits: function () {
        return stringToNewUTF8(Module.locale.dateDigits());
    },
});
