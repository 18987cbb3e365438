// What the device's locale asks of JavaScript. Each function only turns texts of the program's memory into JavaScript's
// and back; `Module.localeTexts` makes the object that knows. Texts that are given back are the caller's to free.

mergeInto(LibraryManager.library, {
    odoledgerLocaleOpen__deps: ['$UTF8ToString'],
    odoledgerLocaleOpen: (numbers, dates) => {
        Module.locale = Module.localeTexts(UTF8ToString(numbers), UTF8ToString(dates));
    },

    odoledgerLocaleNumber__deps: ['$UTF8ToString', '$stringToNewUTF8'],
    odoledgerLocaleNumber: (number) => stringToNewUTF8(Module.locale.numberText(UTF8ToString(number))),

    odoledgerLocaleCurrency__deps: ['$UTF8ToString', '$stringToNewUTF8'],
    odoledgerLocaleCurrency: (number) => stringToNewUTF8(Module.locale.currencyText(UTF8ToString(number))),

    odoledgerLocaleCompare__deps: ['$UTF8ToString'],
    odoledgerLocaleCompare: (first, second, ignoreCase) =>
        Module.locale.compare(UTF8ToString(first), UTF8ToString(second), ignoreCase !== 0),

    odoledgerLocaleDecimalSeparator__deps: ['$stringToNewUTF8'],
    odoledgerLocaleDecimalSeparator: () => stringToNewUTF8(Module.locale.decimalSeparator),

    odoledgerLocaleDatePattern__deps: ['$stringToNewUTF8'],
    odoledgerLocaleDatePattern: (index) => stringToNewUTF8(Module.locale.datePatterns()[index]),

    odoledgerLocaleDateDigits__deps: ['$stringToNewUTF8'],
    odoledgerLocaleDateDigits: () => stringToNewUTF8(Module.locale.dateDigits()),
});
