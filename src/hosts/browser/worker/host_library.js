// What the program's host asks of JavaScript (library.h): `Module.host` keeps the events and talks to the page.

mergeInto(LibraryManager.library, {
    odoledgerHostTakeEvent__deps: ['$stringToNewUTF8'],
    odoledgerHostTakeEvent: function (record) {
        const event = Module.host.takeEvent();
        if (event === undefined) return 0;
        const text = event.text === '' ? 0 : stringToNewUTF8(event.text); // may move the memory: before all else
        HEAP32.set(event.numbers, record >> 2);
        HEAPU32[(record >> 2) + event.numbers.length] = text;
        HEAPF64[(record >> 3) + 6] = event.zoom;
        return 1;
    },

    odoledgerHostWait: function () {
        return Asyncify.handleSleep((wakeUp) => Module.host.waitWith(wakeUp));
    },

    odoledgerHostAddField: function (numbers, kind, label, text) {
        const values = Array.from(HEAP32.subarray(numbers >> 2, (numbers >> 2) + 10));
        Module.host.addField(values, UTF8ToString(kind), UTF8ToString(label), UTF8ToString(text));
    },

    odoledgerHostTell: function (type, text) {
        Module.host.tell(UTF8ToString(type), UTF8ToString(text));
    },
});

// Only the program's own run is ever left and entered again. To keep count of all other calls, those of functions that
// may throw among them, would take a third of the program's time.
LibraryManager.library.$Asyncify.instrumentWasmExports = function (exports) {
    const run = exports.odoledgerRun;
    const counted = function () {
        Asyncify.exportCallStack.push('odoledgerRun');
        try {
            return run();
        } finally {
            if (!ABORT) {
                Asyncify.exportCallStack.pop();
                Asyncify.maybeStopUnwind();
            }
        }
    };
    return Object.assign({}, exports, { odoledgerRun: counted });
};
