// The device's faces, for the canvas: without them texts would be as wide as the browser's own face makes them.

const folder = new URL('../../../fonts/', import.meta.url);

const faces = Object.freeze([
    { family: 'DejaVu Sans Condensed', weight: '400', file: 'DejaVuSansCondensed.woff2' },
    { family: 'DejaVu Sans Condensed', weight: '700', file: 'DejaVuSansCondensed-Bold.woff2' },
    { family: 'DejaVu Sans', weight: '400', file: 'DejaVuSans.woff2' },
]);

/** Loads them all; one that cannot be had is done without. */
export async function loadFonts() {
    const fonts = faces.map(({ family, weight, file }) => {
        const face = new FontFace(family, `url(${new URL(file, folder)})`, { weight });
        /** @type {any} */ (self.fonts).add(face); // which the checker's library does not know
        return face.load();
    });
    await Promise.allSettled(fonts);
}
