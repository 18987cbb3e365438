// How large the handset's screen is, and where it stands.

/** What a text of the device's is enlarged by on a phone, so that it reads as an app's. */
const phoneScale = 1.2;
/** On which the device's screens are made to stand, in device pixels. */
const narrowest = 320;
const widest = 420;
/** The least that a person hits with a finger, in CSS pixels. */
const fingerSize = 44;

/**
 * @typedef {object} Room in CSS pixels
 * @property {number} width what there is
 * @property {number} height
 * @property {number} shortSide the shorter side of the display: it does not change when the display is turned or a
 *   keyboard comes up
 * @property {number} pixelRatio pixels of the display for a CSS pixel
 * @property {boolean} hasFingers whether the display is touched
 * @property {number} textSize what a person wants texts enlarged by, 1 as they are
 */

/**
 * @typedef {object} Layout
 * @property {boolean} isWide a phone-shaped screen in the middle; else the screen fills the room
 * @property {{width: number, height: number}} screen in device pixels
 * @property {number} zoom pixels of the display for a device pixel
 * @property {number} scale CSS pixels for a device pixel
 * @property {number} touchTarget device pixels
 * @property {{left: number, top: number, width: number, height: number}} place of the screen within the room, CSS pixels
 */

/**
 * @param {Room} room
 * @returns {Layout}
 */
export function layOut(room) {
    const isWide = room.width >= 600 && room.height >= 560;
    const height = isWide ? Math.min(room.height - 32, 860) : room.height;
    const width = isWide ? Math.round(Math.min(height * 0.6, 480)) : room.width;
    const side = isWide ? width : Math.min(room.shortSide, room.width);
    const across = clamp(Math.round(side / phoneScale), narrowest, widest);
    // Larger text is the zoom of a narrower screen, as far as the forms stand that.
    const wanted = (side / across) * room.textSize;
    const columns = Math.max(240, Math.floor(width / wanted));
    const zoom = (width * room.pixelRatio) / columns;
    const scale = width / columns;
    const rows = Math.max(100, Math.floor(height / scale));
    return {
        isWide,
        screen: { width: columns, height: rows },
        zoom,
        scale,
        touchTarget: room.hasFingers || !isWide ? Math.ceil(fingerSize / scale) : 0,
        place: {
            left: isWide ? Math.floor((room.width - width) / 2) : 0,
            top: isWide ? Math.floor((room.height - rows * scale) / 2) : 0,
            width,
            height: rows * scale,
        },
    };
}

/**
 * @param {number} value
 * @param {number} least
 * @param {number} most
 */
function clamp(value, least, most) {
    return Math.min(Math.max(value, least), most);
}
