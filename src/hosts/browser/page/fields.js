// The page's own fields over the device's: with them a phone brings its keyboard, dictation and selection handles.

import { keys } from '../contract.js';
import { keyDownOf, keyUpOf } from './keyboard.js';

/** @typedef {import("../contract.js").InputEvent} InputEvent */
/** @typedef {import("../contract.js").Field} Field */
/** @typedef {HTMLInputElement | HTMLTextAreaElement} Element */

/** What a device's frame takes of a field, in device pixels. */
const frame = 2;
const lineHeight = 1.3; // of several lines, as page.css has it
/** Between the edge of a device's field and its text. */
const padding = 4;

/**
 * The device counts characters, the page half of one outside the first plane.
 *
 * @param {string} text
 * @param {number} units
 */
const pointsTo = (text, units) => Array.from(text.slice(0, units)).length;

/** @param {Element} element @param {Field} field */
function select(element, field) {
    const points = Array.from(field.text);
    const start = points.slice(0, field.start).join('').length;
    const end = points.slice(0, field.end).join('').length;
    if (element.selectionStart !== start || element.selectionEnd !== end) element.setSelectionRange(start, end);
}

/**
 * @typedef {object} Surroundings
 * @property {HTMLElement} place where the elements lie
 * @property {() => number} scale CSS pixels for a device pixel
 * @property {() => boolean} hasFingers with fingers a keyboard comes only when a field is tapped
 * @property {(event: InputEvent) => void} send
 * @property {HTMLElement} canvas has the keys where no field has them
 */

/** One element of each kind, of which the one with the keyboard shows. */
export class Fields {
    /** @param {Surroundings} surroundings */
    constructor(surroundings) {
        this.surroundings = surroundings;
        /** @type {Field[]} */
        this.fields = [];
        /** @type {Field | null} */
        this.bound = null;
        /** The number of what the device was told last: it repeats that when it has heard of it. */
        this.sent = 0;
        this.isComposing = false;
        const text = this.make('input', 'text', 'text');
        this.elements = {
            text,
            note: this.make('textarea', 'text', 'note'),
            lines: this.make('textarea', 'text', 'lines'),
            whole: this.make('input', 'numeric', 'whole'),
            decimal: this.make('input', 'decimal', 'decimal'),
            date: this.make('input', 'numeric', 'date'),
        };
    }

    /**
     * @param {'input' | 'textarea'} tag
     * @param {string} inputMode
     * @param {string} name
     * @returns {Element}
     */
    make(tag, inputMode, name) {
        const element = /** @type {Element} */ (document.createElement(tag));
        element.className = name;
        element.hidden = true;
        element.inputMode = inputMode;
        element.autocomplete = 'off';
        element.setAttribute('autocorrect', 'off');
        element.spellcheck = false;
        element.enterKeyHint = name === 'lines' ? 'enter' : 'next';
        element.addEventListener('compositionstart', () => (this.isComposing = true));
        element.addEventListener('compositionend', () => {
            this.isComposing = false;
            this.tell();
        });
        element.addEventListener('input', () => this.tell());
        element.addEventListener('keydown', (event) => this.keyDown(/** @type {KeyboardEvent} */ (event)));
        element.addEventListener('keyup', (event) => this.keyUp(/** @type {KeyboardEvent} */ (event)));
        element.addEventListener('paste', (event) => this.paste(/** @type {ClipboardEvent} */ (event)));
        element.addEventListener('blur', () => {
            if (this.element === element) this.release();
        });
        this.surroundings.place.append(element);
        return element;
    }

    /** @returns {Element | null} */
    get element() {
        return this.bound ? this.elements[this.bound.kind] : null;
    }

    /** A field is being typed into with the page's own element. */
    get isActive() {
        return this.bound !== null;
    }

    /**
     * What the device shows now.
     * @param {Field[]} fields
     * @param {number} answers
     */
    show(fields, answers) {
        this.fields = fields;
        const focused = fields.find((each) => each.isFocused) ?? null;
        // The device has not heard yet of what was chosen or typed since.
        const isLate = answers !== this.sent && fields.some((each) => each.id === this.bound?.id);
        if (focused && focused.id === this.bound?.id) {
            this.bound = focused;
            this.lay();
            if (!isLate && !this.isComposing) this.take(focused);
        } else if (isLate) {
            return;
        } else if (!focused) {
            this.letGo();
        } else if (this.isActive || !this.surroundings.hasFingers()) {
            this.bind(focused);
        }
    }

    /**
     * A tap that may bring the keyboard, within its handler.
     * @param {number} x device pixels
     * @param {number} y
     */
    tapped(x, y) {
        const hit = this.fields.find(
            (each) => x >= each.x && x < each.x + each.width && y >= each.y && y < each.y + each.height,
        );
        if (hit) {
            if (hit.id === this.bound?.id) return;
            this.bind(hit);
            // A number is typed anew rather than mended. The device hears of the choice behind the tap.
            const isNumber = hit.kind === 'whole' || hit.kind === 'decimal';
            if (isNumber) this.element?.select();
            queueMicrotask(() => (isNumber ? this.tell() : this.ask()));
        } else if (this.surroundings.hasFingers() && !this.isComposing) {
            this.letGo();
        }
    }

    /** @param {Field} field */
    bind(field) {
        const former = this.element;
        this.bound = field;
        this.isComposing = false;
        const element = this.elements[field.kind];
        element.hidden = false;
        element.setAttribute('aria-label', field.label);
        element.autocapitalize = field.isCapital ? 'characters' : field.kind === 'text' ? 'words' : 'sentences';
        element.value = field.kind === 'date' ? '' : field.text;
        this.lay();
        element.focus({ preventScroll: true });
        if (field.kind !== 'date') select(element, field);
        if (former && former !== element) former.hidden = true;
    }

    /** Puts the element where the device has its field. */
    lay() {
        if (!this.bound || !this.element) return;
        const scale = this.surroundings.scale();
        const { x, y, width, height } = this.bound;
        // As large as the device's own; under 16 px an iPhone enlarges the page.
        const isTouched = this.surroundings.hasFingers();
        const size = isTouched ? Math.max(16, (40 / 3) * scale) : (32 / 3) * scale;
        const room = Math.max(0, (height - 2 * frame) * scale - size * lineHeight) / 2;
        Object.assign(this.element.style, {
            left: `${(x + frame) * scale}px`,
            top: `${(y + frame) * scale}px`,
            width: `${Math.max(1, width - 2 * frame) * scale}px`,
            height: `${Math.max(1, height - 2 * frame) * scale}px`,
            paddingInline: `${(padding - frame) * scale}px`,
            paddingBlock: this.bound.kind === 'note' ? `${room}px` : '',
            fontSize: `${size}px`,
        });
    }

    /**
     * What the device made of what was typed.
     * @param {Field} field
     */
    take(field) {
        const element = this.element;
        if (!element || field.kind === 'date') return;
        if (element.value !== field.text) element.value = field.text;
        select(element, field);
    }

    /** The keys go back to the canvas. */
    letGo() {
        if (!this.bound) return;
        const element = this.element;
        this.release();
        element?.blur();
        this.surroundings.canvas.focus({ preventScroll: true });
    }

    release() {
        if (this.element) this.element.hidden = true;
        this.bound = null;
        this.isComposing = false;
    }

    /** Has the device answer when it has heard of all that was sent. */
    ask() {
        this.surroundings.send({ kind: 'fieldText', field: 0, delta: ++this.sent });
    }

    /** Tells the device what its field says now. */
    tell() {
        const element = this.element;
        if (!element || !this.bound) return;
        if (this.bound.kind === 'date') {
            if (this.isComposing) return;
            for (const character of element.value)
                this.surroundings.send({ kind: 'text', character: character.codePointAt(0) ?? 0 });
            element.value = '';
            return;
        }
        this.surroundings.send({
            kind: 'fieldText',
            field: this.bound.id,
            text: element.value,
            x: pointsTo(element.value, element.selectionStart ?? 0),
            y: pointsTo(element.value, element.selectionEnd ?? 0),
            delta: ++this.sent,
        });
    }

    /** @param {KeyboardEvent} event */
    keyDown(event) {
        if (event.isComposing || !this.bound) return;
        const isText = this.bound.kind !== 'date';
        if (event.key === 'Enter' && this.bound.kind !== 'lines') {
            event.preventDefault();
            if (!event.repeat) this.goOn();
            return;
        }
        const goes = ['Tab', 'Escape', 'F1', 'F2', 'F10', 'ContextMenu', 'PageUp', 'PageDown'].includes(event.key);
        const walks = (event.key === 'ArrowUp' || event.key === 'ArrowDown') && this.bound.kind !== 'lines';
        const softKey = event.altKey && (event.code === 'Digit1' || event.code === 'Digit2');
        const inDate = !isText && event.key.length > 1;
        const device = goes || walks || softKey || inDate ? keyDownOf(event) : null;
        event.stopPropagation();
        if (!device) return;
        event.preventDefault();
        // Back deletes in a field of the handset's; here the key that deletes does, and Escape leaves.
        this.surroundings.send(event.key === 'Escape' ? { kind: 'back' } : device);
    }

    /** @param {KeyboardEvent} event */
    keyUp(event) {
        event.stopPropagation();
        const device = keyUpOf(event);
        if (device && event.key !== 'Escape') this.surroundings.send(device);
    }

    /** @param {ClipboardEvent} event */
    paste(event) {
        if (this.bound?.kind !== 'date') return;
        event.preventDefault();
        this.surroundings.send({ kind: 'paste', text: event.clipboardData?.getData('text/plain') ?? '' });
    }

    /** To the next field, and from the last one away from the keyboard. */
    goOn() {
        const next = this.fields[this.fields.findIndex((each) => each.id === this.bound?.id) + 1];
        this.surroundings.send({ kind: 'keyDown', key: keys.tab, modifiers: 0 });
        this.surroundings.send({ kind: 'keyUp', key: keys.tab, modifiers: 0 });
        if (!next) {
            if (this.surroundings.hasFingers()) this.letGo();
            return;
        }
        // A keyboard goes from one field to the next only within the handler of its key.
        this.bind(next);
        this.element?.select(); // as the device does with a field that is walked into
        this.ask();
    }
}
