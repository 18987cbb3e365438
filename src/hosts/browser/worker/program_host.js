// Between the program and the page: keeps the events until the program asks for them, and turns what it tells into
// messages.

import { buttons, eventKinds } from '../contract.js';

/** @typedef {import('../contract.js').InputEvent} InputEvent */
/** @typedef {import('../contract.js').FromWorker} FromWorker */
/** @typedef {import('../contract.js').Field} Field */

/**
 * What the program tells, by type; its text means what the type says.
 *
 * @type {Record<string, (text: string) => FromWorker>}
 */
const messages = {
    attention: () => ({ type: 'attention' }),
    beep: () => ({ type: 'beep' }),
    firstScreen: () => ({ type: 'firstScreen' }),
    goBack: () => ({ type: 'goBack' }),
    newer: () => ({ type: 'failed', reason: 'newer', text: 'The log was written by a newer version.' }),
    notify: (line) => ({ type: 'notify', line }),
    pointer: (shape) => ({ type: 'pointer', shape: /** @type {'arrow' | 'hand' | 'text'} */ (shape) }),
    refused: (text) => ({ type: 'failed', reason: 'program', text }),
    spoken: (text) => ({ type: 'spoken', text }),
    storeText: (text) => ({ type: 'storeText', text }),
    title: (text) => ({ type: 'title', text }),
    typed: (text) => ({ type: 'typed', isTyped: text !== '' }),
    waitCursor: (text) => ({ type: 'waitCursor', shown: text !== '' }),
};

export class ProgramHost {
    /** @type {InputEvent[]} */
    #events = [];
    /** @type {Field[]} */
    #fields = [];
    /** @type {(() => void) | undefined} */
    #wakeUp;
    #post;

    /** @param {(message: FromWorker) => void} post */
    constructor(post) {
        this.#post = post;
    }

    /** Whether the program waits: only then may it be called. */
    get isWaiting() {
        return this.#wakeUp !== undefined;
    }

    /**
     * Lets the program handle an event; it has when this returns, unless it has not begun to wait yet.
     *
     * @param {InputEvent} event
     */
    push(event) {
        const last = this.#events.at(-1);
        // Only the last of several moves, or sizes, in a row counts.
        if (last?.kind === event.kind && (event.kind === 'mouseMove' || event.kind === 'resize')) this.#events.pop();
        this.#events.push(event);
        this.wake();
    }

    /** Lets the program go on until it waits again. */
    wake() {
        const wakeUp = this.#wakeUp;
        this.#wakeUp = undefined;
        wakeUp?.();
    }

    /** The program's, as are the two below. @param {() => void} wakeUp */
    waitWith(wakeUp) {
        this.#wakeUp = wakeUp;
    }

    /** @returns {{numbers: number[], text: string, zoom: number} | undefined} as the program reads them */
    takeEvent() {
        const event = this.#events.shift();
        if (event === undefined) return undefined;
        const { key, character, modifiers, x, y, delta } = event;
        return {
            numbers: [
                eventKinds[event.kind],
                ...[key, character, modifiers, Number(event.isRepeat ?? false), x, y, delta].map((value) => value ?? 0),
                buttons[event.button ?? 'left'],
                event.field ?? 0,
                event.touchTarget ?? 0,
            ],
            text: event.text ?? '',
            zoom: event.zoom ?? 0,
        };
    }

    /** @param {string} type @param {string} text */
    tell(type, text) {
        if (type === 'fields') this.#post({ type, fields: this.#fields.splice(0), answers: Number(text) });
        else this.#post(messages[type](text));
    }

    /** One of the fields that are told of next. @param {number[]} numbers @param {string} kind @param {string} label @param {string} text */
    addField(numbers, kind, label, text) {
        const [id = 0, x = 0, y = 0, width = 0, height = 0, isCapital, isFocused, limit = 0, start = 0, end = 0] =
            numbers;
        this.#fields.push({
            ...{ id, x, y, width, height, limit, start, end, label, text },
            kind: /** @type {Field['kind']} */ (kind),
            isCapital: isCapital !== 0,
            isFocused: isFocused !== 0,
        });
    }
}
