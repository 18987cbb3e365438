// What the program's canvas and measurer ask of JavaScript (library.h). Each function only takes texts and numbers out of
// the program's memory and hands them to `Module.screen`, which draws and measures.

mergeInto(LibraryManager.library, {
    odoledgerFontMake: (isCondensed, weight, isItalic, size) =>
        Module.screen.makeFont(isCondensed !== 0, weight, isItalic !== 0, size),

    odoledgerFontExtent: (isCondensed, weight, isItalic, ascent, descent) => {
        const extent = Module.screen.extentOf(isCondensed !== 0, weight, isItalic !== 0);
        HEAPF64[ascent >> 3] = extent.ascent;
        HEAPF64[descent >> 3] = extent.descent;
    },

    odoledgerTextWidth__deps: ['$UTF8ToString'],
    odoledgerTextWidth: (font, text) => Module.screen.text.width(Module.screen.fonts[font], UTF8ToString(text)),

    odoledgerTextAdvances__deps: ['$UTF8ToString'],
    odoledgerTextAdvances: (font, text, advances) => {
        HEAPF64.set(Module.screen.text.advances(Module.screen.fonts[font], UTF8ToString(text)), advances >> 3);
    },

    odoledgerTextCarets__deps: ['$UTF8ToString'],
    odoledgerTextCarets: (font, text, carets) => {
        HEAPF64.set(Module.screen.text.carets(Module.screen.fonts[font], UTF8ToString(text)), carets >> 3);
    },

    odoledgerCanvasResize: (width, height) => Module.screen.resize(width, height),

    odoledgerCanvasClip: (left, top, width, height) => Module.screen.clip(left, top, width, height),

    odoledgerCanvasUnclip: () => Module.screen.unclip(),

    odoledgerCanvasFill: (left, top, width, height, color, alpha) =>
        Module.screen.fill(left, top, width, height, color, alpha),

    odoledgerCanvasLine: (fromX, fromY, toX, toY, thickness, color) =>
        Module.screen.line({ x: fromX, y: fromY }, { x: toX, y: toY }, thickness, color),

    odoledgerCanvasPolygon: (points, count, color) =>
        Module.screen.polygon(HEAPF64.subarray(points >> 3, (points >> 3) + 2 * count), color),

    odoledgerCanvasText__deps: ['$UTF8ToString'],
    odoledgerCanvasText: (x, baseline, zoom, font, text, color) =>
        Module.screen.drawText(x, baseline, zoom, font, UTF8ToString(text), color),

    odoledgerCanvasPicture: (left, top, width, height, png, size) =>
        Module.screen.picture(left, top, width, height, png, () => HEAPU8.slice(png, png + size)),
});
