// A keyboard with keys of its own, as on a desktop: what it does in the device.

import { keys, modifiers } from '../contract.js';

/** @typedef {import("../contract.js").InputEvent} InputEvent */

/** @type {Record<string, number>} */
const namedKeys = {
    Backspace: keys.backspace,
    Tab: keys.tab,
    Enter: keys.action,
    Escape: keys.back,
    PageUp: keys.pageUp,
    PageDown: keys.pageDown,
    End: keys.end,
    Home: keys.home,
    ArrowLeft: keys.left,
    ArrowUp: keys.up,
    ArrowRight: keys.right,
    ArrowDown: keys.down,
    Insert: keys.insert,
    Delete: keys.delete,
    ContextMenu: keys.menu,
    F1: keys.softLeft,
    F2: keys.softRight,
    F10: keys.f10,
};

/**
 * @param {KeyboardEvent | MouseEvent} event
 * @returns {number}
 */
export function modifiersOf(event) {
    return (event.ctrlKey || event.metaKey ? modifiers.control : 0) + (event.shiftKey ? modifiers.shift : 0);
}

/**
 * The device's event for a key that goes down, or null for one that is the browser's.
 *
 * @param {KeyboardEvent} event
 * @returns {InputEvent | null}
 */
export function keyDownOf(event) {
    if (event.isComposing || event.key === 'Process') return null;
    // Alt and a digit are the soft keys where a browser has the function keys for itself.
    if (event.altKey) {
        const key = { Digit1: keys.softLeft, Digit2: keys.softRight }[event.code];
        return key ? { kind: 'keyDown', key, modifiers: 0, isRepeat: event.repeat } : null;
    }
    const held = modifiersOf(event);
    const key = namedKeys[event.key];
    if (key) return { kind: 'keyDown', key, modifiers: held, isRepeat: event.repeat };
    const letter = event.key.toUpperCase();
    if (held & modifiers.control)
        return letter === 'A' || letter === 'C' || letter === 'X'
            ? { kind: 'keyDown', key: letter.charCodeAt(0), modifiers: held, isRepeat: event.repeat }
            : null; // a paste comes as an event of its own
    const character = event.key.codePointAt(0) ?? 0;
    if (event.key.length !== String.fromCodePoint(character).length) return null; // a key with another name
    return { kind: 'text', character, modifiers: held, isRepeat: event.repeat };
}

/**
 * @param {KeyboardEvent} event
 * @returns {InputEvent | null}
 */
export function keyUpOf(event) {
    const key =
        namedKeys[event.key] ?? { Digit1: keys.softLeft, Digit2: keys.softRight }[event.altKey ? event.code : ''];
    return key ? { kind: 'keyUp', key, modifiers: modifiersOf(event) } : null;
}
