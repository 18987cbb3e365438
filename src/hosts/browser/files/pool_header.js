// The header of a file of the pool: two slots, written in turn, so that one that was cut off in the middle leaves the
// other. They stand in pages of their own: a disk that spoils a page while it writes it spoils one slot.
//
// A slot is 512 bytes, numbers little-endian: 8 bytes of magic, a sequence and a time (milliseconds since 1970) as 64-bit
// floats, the length of the name (16 bits), the name in UTF-8, zeros, and a CRC-32 of all of it before in the last four.

export const slotSize = 512;
export const slotPlaces = Object.freeze([0, 4096]);
/** Where the contents begin. */
export const headerSize = 8192;

const magic = new TextEncoder().encode('ODOPOOL1');
const sequencePlace = 8;
const modifiedPlace = 16;
const lengthPlace = 24;
const namePlace = 26;
const checksumPlace = slotSize - 4;

/** How long a name may be, in bytes of UTF-8. */
export const longestName = checksumPlace - namePlace;

/**
 * @typedef {object} Header
 * @property {string} name the path in the pool, "" for a file that is free
 * @property {number} sequence greater than that of any header written before, in any file of the pool
 * @property {number} modified milliseconds since 1970
 */

/** @param {Uint8Array} bytes */
function checksumOf(bytes) {
    let checksum = -1;
    for (const byte of bytes) {
        checksum ^= byte;
        for (let bit = 0; bit < 8; ++bit) checksum = (checksum >>> 1) ^ (checksum & 1 ? 0xedb88320 : 0);
    }
    return ~checksum >>> 0;
}

/**
 * @param {Header} header
 * @returns {Uint8Array | null} the slot's bytes, null where the name is too long
 */
export function encodeHeader(header) {
    const name = new TextEncoder().encode(header.name);
    if (name.length > longestName) return null;
    const slot = new Uint8Array(slotSize);
    const view = new DataView(slot.buffer);
    slot.set(magic);
    view.setFloat64(sequencePlace, header.sequence, true);
    view.setFloat64(modifiedPlace, header.modified, true);
    view.setUint16(lengthPlace, name.length, true);
    slot.set(name, namePlace);
    view.setUint32(checksumPlace, checksumOf(slot.subarray(0, checksumPlace)), true);
    return slot;
}

/**
 * @param {Uint8Array} slot `slotSize` bytes
 * @returns {Header | null} null for a slot that was never written, or not wholly
 */
export function decodeHeader(slot) {
    const view = new DataView(slot.buffer, slot.byteOffset, slot.byteLength);
    const isOurs = magic.every((byte, place) => slot[place] === byte);
    if (!isOurs || view.getUint32(checksumPlace, true) !== checksumOf(slot.subarray(0, checksumPlace))) return null;
    const name = slot.subarray(namePlace, namePlace + view.getUint16(lengthPlace, true));
    return {
        name: new TextDecoder().decode(name),
        sequence: view.getFloat64(sequencePlace, true),
        modified: view.getFloat64(modifiedPlace, true),
    };
}
