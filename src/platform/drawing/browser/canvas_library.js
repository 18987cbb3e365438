// What the program's canvas and measurer ask of JavaScript (library.h). Each function only takes texts and numbers out of
// the program's memory and hands them to `Module.screen`, which draws and measures.

mergeInto(LibraryManager.library, {
    odoledgerFontMake: function (isCondensed, weight, isItalic, size) {
        return Module.screen.makeFont(isCondensed !== 0, weight, isItalic !== 0, size);
    },

    odoledgerFontExtent: function (isCondensed, weight, isItalic, ascent, descent) {
        const extent = Module.screen.extentOf(isCondensed !== 0, weight, isItalic !== 0);
        HEAPF64[ascent >> 3] = extent.ascent;
        HEAPF64[descent >> 3] = extent.descent;
    },

    odoledgerTextWidth: function (font, text) {
        return Module.screen.text.width(Module.screen.fonts[font], UTF8ToString(text));
    },

    odoledgerTextAdvances: function (font, text, advances) {
        HEAPF64.set(Module.screen.text.advances(Module.screen.fonts[font], UTF8ToString(text)), advances >> 3);
    },

    odoledgerTextCarets: function (font, text, carets) {
        HEAPF64.set(Module.screen.text.carets(Module.screen.fonts[font], UTF8ToString(text)), carets >> 3);
    },

    odoledgerCanvasResize: function (width, height) {
        Module.screen.resize(width, height);
    },

    odoledgerCanvasClip: function (left, top, width, height) {
        Module.screen.clip(left, top, width, height);
    },

    odoledgerCanvasUnclip: function () {
        Module.screen.unclip();
    },

    odoledgerCanvasFill: function (left, top, width, height, color, alpha) {
        Module.screen.fill(left, top, width, height, color, alpha);
    },

    odoledgerCanvasPolygon: function (points, count, color) {
        Module.screen.polygon(HEAPF64.subarray(points >> 3, (points >> 3) + 2 * count), color);
    },

    odoledgerCanvasText: function (x, baseline, zoom, font, text, color) {
        Module.screen.drawText(x, baseline, zoom, font, UTF8ToString(text), color);
    },

    odoledgerCanvasPicture: function (left, top, width, height, png, size) {
        Module.screen.picture(left, top, width, height, png, () => HEAPU8.slice(png, png + size));
    },
});
