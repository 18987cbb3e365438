// What fingers and mice do on the screen.

import { modifiers } from '../contract.js';
import { modifiersOf } from './keyboard.js';

/** @typedef {import("../contract.js").InputEvent} InputEvent */

/** Closer than this a finger has not moved, in CSS pixels. */
const slop = 8;
const longPressTime = 500; // milliseconds
const swipeLength = 80; // CSS pixels
/** A glide loses all but a third of its speed in this time, in milliseconds. */
const glideTime = 325;
const slowestGlide = 0.03; // CSS pixels a millisecond

/**
 * @typedef {object} Surface
 * @property {HTMLElement} element
 * @property {() => number} scale CSS pixels for a device pixel
 * @property {(event: InputEvent) => void} send
 * @property {(x: number, y: number) => void} beforeTap in device pixels, within the handler of the tap: only there may
 *   a keyboard be opened
 */

/** Fingers on the surface: taps, long presses, swipes back, and content that follows and glides. */
export class Touch {
    /** @param {Surface} surface */
    constructor(surface) {
        this.surface = surface;
        /** @type {{id: number, x: number, y: number, time: number} | null} */
        this.down = null;
        /** caught: it stopped a glide, and may go on with the list, but taps nothing
         * @type {'resting' | 'caught' | 'panning' | 'swiping' | 'done'} */
        this.state = 'resting';
        this.start = { x: 0, y: 0 }; // of the last finger
        /** @type {{y: number, time: number}[]} */
        this.trail = [];
        this.rest = 0; // of a pan, what is no whole device pixel yet
        this.timer = 0;
        this.glide = 0;
        const { element } = surface;
        element.addEventListener('pointerdown', (event) => this.press(event));
        element.addEventListener('pointermove', (event) => this.move(event));
        element.addEventListener('pointerup', (event) => this.release(event));
        element.addEventListener('pointercancel', () => this.forget());
        element.addEventListener('contextmenu', (event) => event.preventDefault());
        // The field with the keyboard keeps the browser's focus.
        for (const type of ['mousedown', 'touchstart'])
            element.addEventListener(type, (event) => event.preventDefault(), { passive: false });
    }

    /**
     * A point of the surface, in device pixels.
     * @param {{x: number, y: number}} at
     */
    point({ x, y }) {
        const scale = this.surface.scale();
        return { x: Math.floor(x / scale), y: Math.floor(y / scale) };
    }

    /** @param {PointerEvent} event */
    press(event) {
        const wasGliding = this.stopGlide();
        if (event.pointerType === 'mouse') return;
        if (this.down) {
            this.forget(); // a second finger: none of them taps
            this.state = 'done';
            return;
        }
        this.surface.element.setPointerCapture?.(event.pointerId);
        this.down = { id: event.pointerId, x: event.offsetX, y: event.offsetY, time: event.timeStamp };
        this.state = wasGliding ? 'caught' : 'resting';
        this.trail = [{ y: event.offsetY, time: event.timeStamp }];
        this.rest = 0;
        this.timer = window.setTimeout(() => this.longPress(), longPressTime);
    }

    longPress() {
        if (!this.down || this.state !== 'resting') return;
        this.state = 'done';
        navigator.vibrate?.(10);
        this.surface.send({ kind: 'tap', ...this.point(this.down), modifiers: modifiers.control });
    }

    /** @param {PointerEvent} event */
    move(event) {
        if (event.pointerType === 'mouse' || event.pointerId !== this.down?.id) return;
        const dx = event.offsetX - this.down.x;
        const dy = event.offsetY - this.down.y;
        const isFar = Math.abs(dx) > slop || Math.abs(dy) > slop;
        const last = this.trail[this.trail.length - 1]?.y ?? this.down.y;
        if (isFar && (this.state === 'resting' || this.state === 'caught')) {
            window.clearTimeout(this.timer);
            this.state = Math.abs(dx) > 2 * Math.abs(dy) ? 'swiping' : 'panning';
            if (this.state === 'panning') this.pan(0, false);
        }
        if (this.state !== 'panning') return;
        this.trail.push({ y: event.offsetY, time: event.timeStamp });
        this.trail = this.trail.filter((each) => event.timeStamp - each.time < 100);
        this.pan(event.offsetY - last, true);
    }

    /**
     * @param {number} distance CSS pixels
     * @param {boolean} isOn the finger has moved before
     */
    pan(distance, isOn) {
        const exact = this.rest + distance / this.surface.scale();
        const delta = Math.trunc(exact);
        this.rest = exact - delta;
        if (this.down) this.start = this.point(this.down);
        if (delta !== 0 || !isOn) this.surface.send({ kind: 'pan', ...this.start, delta, isRepeat: isOn });
    }

    /** @param {PointerEvent} event */
    release(event) {
        if (event.pointerType === 'mouse' || event.pointerId !== this.down?.id) return;
        const { down, state } = this;
        const speed = this.speedAt(event.timeStamp);
        this.forget();
        if (state === 'resting') {
            const at = this.point(down);
            this.surface.beforeTap(at.x, at.y);
            this.surface.send({ kind: 'tap', ...at, modifiers: modifiersOf(event) });
        } else if (state === 'swiping' && event.offsetX - down.x > swipeLength) {
            this.surface.send({ kind: 'back' });
        } else if (state === 'panning' && !matchMedia('(prefers-reduced-motion: reduce)').matches) {
            this.startGlide(speed);
        }
    }

    forget() {
        window.clearTimeout(this.timer);
        this.down = null;
        this.state = 'resting';
    }

    /**
     * CSS pixels a millisecond, of a finger that leaves the surface now.
     * @param {number} time
     */
    speedAt(time) {
        const first = this.trail.find((each) => time - each.time < 100);
        const last = this.trail[this.trail.length - 1];
        if (!first || !last || last.time - first.time < 10) return 0;
        return (last.y - first.y) / (last.time - first.time);
    }

    /** @param {number} speed */
    startGlide(speed) {
        let before = performance.now();
        const step = (/** @type {number} */ now) => {
            const passed = Math.max(0, now - before);
            before = now;
            speed *= Math.exp(-passed / glideTime);
            this.pan(speed * passed, true);
            this.glide = Math.abs(speed) > slowestGlide ? requestAnimationFrame(step) : 0;
        };
        if (Math.abs(speed) > slowestGlide) this.glide = requestAnimationFrame(step);
    }

    /** Whether there was one. */
    stopGlide() {
        const was = this.glide !== 0;
        cancelAnimationFrame(this.glide);
        this.glide = 0;
        return was;
    }
}

/**
 * A mouse on the surface, as on a desktop.
 * @param {Surface} surface
 */
export function followMouse(surface) {
    const { element } = surface;
    const buttons = /** @type {const} */ (['left', 'middle', 'right']);
    /** @param {PointerEvent | MouseEvent} event */
    const placeOf = (event) => ({
        x: Math.floor(event.offsetX / surface.scale()),
        y: Math.floor(event.offsetY / surface.scale()),
        modifiers: modifiersOf(event),
    });
    let clickTime = 0;
    /** @param {'pointerdown' | 'pointerup' | 'pointermove'} type @param {(event: PointerEvent) => void} hear */
    const onMouse = (type, hear) =>
        element.addEventListener(type, (event) => {
            if (event.pointerType === 'mouse') hear(event);
        });
    onMouse('pointerdown', (event) => {
        element.setPointerCapture?.(event.pointerId);
        const button = buttons[event.button];
        if (!button) return;
        const isSecond = button === 'left' && event.timeStamp - clickTime < 500;
        clickTime = button === 'left' && !isSecond ? event.timeStamp : 0;
        const at = placeOf(event);
        surface.beforeTap(at.x, at.y);
        surface.send({ kind: isSecond ? 'doubleClick' : 'mouseDown', button, ...at });
    });
    onMouse('pointerup', (event) => {
        const button = buttons[event.button];
        if (button) surface.send({ kind: 'mouseUp', button, ...placeOf(event) });
    });
    onMouse('pointermove', (event) => surface.send({ kind: 'mouseMove', ...placeOf(event) }));
    let rest = 0;
    element.addEventListener(
        'wheel',
        (event) => {
            event.preventDefault();
            if (event.ctrlKey) return;
            rest -= event.deltaMode === WheelEvent.DOM_DELTA_PIXEL ? event.deltaY / 40 : event.deltaY;
            const delta = Math.trunc(rest);
            rest -= delta;
            if (delta !== 0) surface.send({ kind: 'wheel', delta, ...placeOf(event) });
        },
        { passive: false },
    );
}
