// What the page and the worker say to each other. Both keep to these types; nothing else passes between them.

/**
 * What a person did, with the fields of the device's own input events; a field that a kind does not name is left out.
 *
 * - keyDown: key, modifiers, isRepeat; character (a code point) where the key itself types one
 * - keyUp: key, modifiers
 * - text: character, modifiers, isRepeat; one event a code point
 * - paste: text, line ends as "\n"
 * - resize: x and y are the screen's width and height in device pixels, zoom what a device pixel is on the canvas
 * - mouseDown, mouseUp, doubleClick: x, y, button, modifiers
 * - mouseMove: x, y, modifiers
 * - wheel: x, y, delta (lines, up above 0)
 * - close: a person wants the program to end, and is asked where something was typed
 * - end: the program is told to end
 * - repaint: what was shown is lost
 * - tap: a finger; x, y, modifiers (control adds to what is chosen)
 * - pan: a finger that went down at x and y has moved by delta device pixels, down above 0; isRepeat: it goes on
 * - back: the gesture that leaves what is on the screen
 * - fieldText: text is all that the field says now, x and y its selection, delta a number that `fields` repeats; of no
 *   field (0) it changes nothing, and is answered
 *
 * x and y are device pixels, from the screen's upper left corner.
 *
 * @typedef {object} InputEvent
 * @property {keyof typeof eventKinds} kind
 * @property {number} [key] one of `keys`, or the code of a capital letter with Control
 * @property {number} [character]
 * @property {number} [modifiers] of `modifiers`, added up
 * @property {boolean} [isRepeat] the key was down already
 * @property {number} [x]
 * @property {number} [y]
 * @property {number} [delta]
 * @property {keyof typeof buttons} [button] left where it is left out
 * @property {string} [text]
 * @property {number} [zoom]
 * @property {number} [touchTarget] with resize: the least height of what a finger hits, in device pixels; 0: no fingers
 * @property {number} [field] the id of a field in `fields`
 */

/** The kinds of events by the number that the program knows them by. */
export const eventKinds = Object.freeze({
    none: 0,
    keyDown: 1,
    keyUp: 2,
    text: 3,
    resize: 4,
    mouseDown: 5,
    mouseMove: 6,
    mouseUp: 7,
    doubleClick: 8,
    wheel: 9,
    paste: 10,
    close: 11,
    end: 12,
    repaint: 13,
    tap: 14,
    pan: 15,
    back: 16,
    fieldText: 17,
});

export const buttons = Object.freeze({ left: 0, middle: 1, right: 2 });

export const modifiers = Object.freeze({ control: 2, shift: 4 });

/** The device's keys. */
export const keys = Object.freeze({
    backspace: 0x08,
    tab: 0x09,
    action: 0x0d,
    shift: 0x10,
    control: 0x11,
    back: 0x1b,
    pageUp: 0x21,
    pageDown: 0x22,
    end: 0x23,
    home: 0x24,
    left: 0x25,
    up: 0x26,
    right: 0x27,
    down: 0x28,
    insert: 0x2d,
    delete: 0x2e,
    menu: 0x5d,
    softLeft: 0x70,
    softRight: 0x71,
    f10: 0x79,
});

/**
 * The first message, once. The canvas is the worker's from then on; the worker sets its size in pixels (the screen times
 * the zoom, rounded), the page its size in CSS.
 *
 * The time zone is the browser's own.
 *
 * @typedef {object} StartMessage
 * @property {'start'} type
 * @property {OffscreenCanvas} canvas
 * @property {{width: number, height: number}} screen in device pixels
 * @property {number} zoom canvas pixels for a device pixel, above 0, also a fraction
 * @property {string} locale of numbers, money and dates, as "de-DE"
 * @property {number} touchTarget the least height of what a finger hits, in device pixels; 0: no fingers
 * @property {Record<string, string>} [variables] further surroundings of the device, as HANDSET_CLOCK: for tests
 */

/** @typedef {{type: 'event', event: InputEvent}} EventMessage */

/** The page is hidden, and may be gone without a further word: the settings are stored now.
 * @typedef {{type: 'hide'}} HideMessage */

/** Wants a copy of the log: answered by `copy`, or by `copyFailed`.
 * @typedef {{type: 'saveCopy'}} SaveCopyMessage */

/** Another file is to be the log. It is checked as at a start; only if it can be used does it become the log, and the
 * former one is kept aside. Answered by `opened`; then the program starts anew on the same canvas (`ready` again).
 * @typedef {{type: 'openCopy', name: string, bytes: ArrayBuffer}} OpenCopyMessage */

/** The log and the one that was kept aside change places. Answered by `opened` as well.
 * @typedef {{type: 'takeBack'}} TakeBackMessage */

/** Starts the program again after `ended`.
 * @typedef {{type: 'startAgain'}} StartAgainMessage */

/** What stands on the screen, for tests and screen readers; answered by `inspected` when the program has done what was
 * asked of it before. Words of the scripted device: "screen", "controls", "files", "now", "events", "beeps",
 * "registry ...", "clock ...", and also "key ...", "type ...", "mouse ...", "paste ...", "post ...", "resize ...". Beyond
 * these "frame": a line for each painted text with its place in device pixels, what it means, and the text in quotes.
 * @typedef {{type: 'inspect', what: string, id?: number}} InspectMessage */

/** @typedef {StartMessage | EventMessage | HideMessage | SaveCopyMessage | OpenCopyMessage | TakeBackMessage
 *   | StartAgainMessage | InspectMessage} ToWorker */

/** Whether what is typed will last. Comes before `ready`.
 * @typedef {{type: 'storage', lasting: boolean}} StorageMessage lasting: false where the browser gives no storage, as in a
 *   private window: all goes with the page, but a copy can be taken */

/** The program has started and waits for events.
 * @typedef {{type: 'ready', hasFormer: boolean}} ReadyMessage hasFormer: there is a log that was kept aside */

/** The first screen has been drawn, once after each start.
 * @typedef {{type: 'firstScreen'}} FirstScreenMessage */

/** @typedef {{type: 'title', text: string}} TitleMessage */
/** @typedef {{type: 'beep'}} BeepMessage */
/** A message box came up.
 * @typedef {{type: 'attention'}} AttentionMessage */
/** A line about what the user may have to do outside the program.
 * @typedef {{type: 'notify', line: string}} NotifyMessage */
/** Go back from the first screen: there is nothing before it.
 * @typedef {{type: 'goBack'}} GoBackMessage */
/** Whether a form stands open in which something was typed, whenever that has changed.
 * @typedef {{type: 'typed', isTyped: boolean}} TypedMessage */
/** @typedef {{type: 'waitCursor', shown: boolean}} WaitCursorMessage */
/** @typedef {{type: 'pointer', shape: 'arrow' | 'hand' | 'text'}} PointerMessage */
/** For the clipboard.
 * @typedef {{type: 'storeText', text: string}} StoreTextMessage */

/**
 * A field in which a person types, with the device's focus or without.
 *
 * - text: one line
 * - note: several lines, of which the form shows the first
 * - lines: several lines with the screen to themselves
 * - whole, decimal: a number
 * - date: takes digits one by one
 *
 * @typedef {object} Field
 * @property {number} id
 * @property {number} x on the screen, in device pixels, as much of it as shows
 * @property {number} y
 * @property {number} width
 * @property {number} height
 * @property {'text' | 'note' | 'lines' | 'whole' | 'decimal' | 'date'} kind
 * @property {boolean} isCapital
 * @property {boolean} isFocused
 * @property {number} limit the most characters; 0: none
 * @property {number} start the selection
 * @property {number} end
 * @property {string} label
 * @property {string} text
 */

/** The fields on the screen, whenever one of them has changed and after each `fieldText`, whose number is repeated.
 * @typedef {{type: 'fields', fields: Field[], answers: number}} FieldsMessage */

/** What has the focus, in words for a screen reader, whenever it has changed.
 * @typedef {{type: 'spoken', text: string}} SpokenMessage */

/** The log was changed and is stored: how often it was since it was made.
 * @typedef {{type: 'stored', changes: number}} StoredMessage */

/** @typedef {{type: 'copy', name: string, bytes: ArrayBuffer}} CopyMessage */
/** @typedef {{type: 'copyFailed', reason: string}} CopyFailedMessage */
/**
 * - opened: it is the log now; what was there before is kept aside
 * - notALog: it is no log, or damaged
 * - newer: it was written by a newer version of the program
 * - full: there is no room for it
 * - nothingKept: there is no log that was kept aside
 * - failed: the storage refused
 *
 * All but the first change nothing.
 *
 * @typedef {{type: 'opened', outcome: 'opened' | 'notALog' | 'newer' | 'full' | 'nothingKept' | 'failed'}} OpenedMessage
 */

/** The program has ended, by its own Exit or by `end`.
 * @typedef {{type: 'ended', status: number}} EndedMessage */

/**
 * The program cannot start, or cannot go on.
 *
 * - inUse: another page has the log open
 * - storage: the storage is there but cannot be opened
 * - load: a file of the site is missing or cannot be read
 * - newer: the log was written by a newer version of the program, and is left alone
 * - program: the program itself stopped; the log is as after the last change
 *
 * @typedef {{type: 'failed', reason: 'inUse' | 'storage' | 'load' | 'newer' | 'program', text: string}} FailedMessage
 */

/** @typedef {{type: 'inspected', what: string, id?: number, lines: string[]}} InspectedMessage */

/** @typedef {StorageMessage | ReadyMessage | FirstScreenMessage | TitleMessage | BeepMessage | AttentionMessage
 *   | NotifyMessage | GoBackMessage | TypedMessage | WaitCursorMessage | PointerMessage | StoreTextMessage | FieldsMessage | SpokenMessage | StoredMessage | CopyMessage
 *   | CopyFailedMessage | OpenedMessage | EndedMessage | FailedMessage | InspectedMessage} FromWorker */
