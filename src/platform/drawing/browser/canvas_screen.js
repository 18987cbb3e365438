// The device's screen on a canvas: draws what the program's canvas says, in canvas pixels.

import { TextLayout } from './text_layout.js';

const families = Object.freeze({
    plain: '"DejaVu Sans", sans-serif',
    condensed: '"DejaVu Sans Condensed", "DejaVu Sans", sans-serif',
});
/** At which a face's ascent and descent are measured. */
const extentSize = 1000;

/**
 * @param {boolean} isCondensed
 * @param {number} weight
 * @param {boolean} isItalic
 * @param {number} size in pixels
 */
function cssFont(isCondensed, weight, isItalic, size) {
    return `${isItalic ? 'italic ' : ''}${weight} ${size}px ${isCondensed ? families.condensed : families.plain}`;
}

export class CanvasScreen {
    /**
     * @param {OffscreenCanvas} canvas
     * @param {() => void} pictureCame called when a picture that was drawn too early can be drawn now
     */
    constructor(canvas, pictureCame) {
        const context = canvas.getContext('2d', { alpha: false });
        if (context === null) throw new Error('The canvas cannot be drawn on.');
        this.canvas = canvas;
        this.context = context;
        this.pictureCame = pictureCame;
        this.text = new TextLayout(context);
        /** @type {string[]} */
        this.fonts = [];
        /** @type {Map<number, string>} */
        this.colors = new Map();
        /** By the place of their bytes; undefined while they are decoded, null where they cannot be.
         * @type {Map<number, ImageBitmap | undefined | null>} */
        this.pictures = new Map();
    }

    /** @param {number} width @param {number} height */
    resize(width, height) {
        this.canvas.width = width;
        this.canvas.height = height;
    }

    /**
     * @param {boolean} isCondensed
     * @param {number} weight
     * @param {boolean} isItalic
     * @param {number} size
     * @returns {number} by which the font is known from now on
     */
    makeFont(isCondensed, weight, isItalic, size) {
        return this.fonts.push(cssFont(isCondensed, weight, isItalic, size)) - 1;
    }

    /** @param {boolean} isCondensed @param {number} weight @param {boolean} isItalic */
    extentOf(isCondensed, weight, isItalic) {
        this.text.prepare(cssFont(isCondensed, weight, isItalic, extentSize), 'x');
        const { fontBoundingBoxAscent, fontBoundingBoxDescent } = this.context.measureText('x');
        return { ascent: fontBoundingBoxAscent / extentSize, descent: fontBoundingBoxDescent / extentSize };
    }

    /**
     * @param {number} color 0x00BBGGRR
     * @param {number} [alpha] 0 to 255
     */
    css(color, alpha = 255) {
        const key = alpha * 0x1000000 + color;
        let css = this.colors.get(key);
        if (css === undefined) {
            css = `rgba(${color & 0xff}, ${(color >> 8) & 0xff}, ${(color >> 16) & 0xff}, ${alpha / 255})`;
            this.colors.set(key, css);
        }
        return css;
    }

    /** @param {number} left @param {number} top @param {number} width @param {number} height */
    clip(left, top, width, height) {
        this.context.save();
        this.context.beginPath();
        this.context.rect(left, top, width, height);
        this.context.clip();
    }

    unclip() {
        this.context.restore();
    }

    /**
     * @param {number} left
     * @param {number} top
     * @param {number} width
     * @param {number} height
     * @param {number} color
     * @param {number} alpha
     */
    fill(left, top, width, height, color, alpha) {
        this.context.fillStyle = this.css(color, alpha);
        this.context.fillRect(left, top, width, height);
    }

    /**
     * @param {ArrayLike<number>} places x and y of each point in turn
     * @param {number} color
     */
    polygon(places, color) {
        this.context.fillStyle = this.css(color);
        this.context.beginPath();
        for (let index = 0; index < places.length; index += 2) this.context.lineTo(places[index], places[index + 1]);
        this.context.fill();
    }

    /**
     * @param {number} x
     * @param {number} baseline
     * @param {number} zoom canvas pixels for a pixel of the font's size
     * @param {number} font
     * @param {string} text
     * @param {number} color
     */
    drawText(x, baseline, zoom, font, text, color) {
        // Laid out at the size that was measured, then scaled: a text is as wide as it was measured at every zoom.
        this.context.setTransform(zoom, 0, 0, zoom, x, baseline);
        this.text.prepare(this.fonts[font], text);
        this.context.fillStyle = this.css(color);
        this.context.fillText(text, 0, 0);
        this.context.setTransform(1, 0, 0, 1, 0, 0);
    }

    /**
     * @param {number} left
     * @param {number} top
     * @param {number} width
     * @param {number} height
     * @param {number} place of the bytes in the program's memory: pictures are constant data
     * @param {() => Uint8Array<ArrayBuffer>} png gives a copy of the bytes
     */
    picture(left, top, width, height, place, png) {
        if (!this.pictures.has(place)) this.decode(place, png());
        const image = this.pictures.get(place);
        if (image) this.context.drawImage(image, left, top, width, height);
    }

    /** @param {number} place @param {Uint8Array<ArrayBuffer>} png */
    decode(place, png) {
        this.pictures.set(place, undefined);
        createImageBitmap(new Blob([png], { type: 'image/png' })).then(
            (image) => {
                this.pictures.set(place, image);
                this.pictureCame();
            },
            () => this.pictures.set(place, null),
        );
    }
}
