// The page: gives the worker its canvas and what a person does, and shows what the program is not asked for.

import { followBack } from './back.js';
import { makeCopies } from './copies.js';
import { Fields } from './fields.js';
import { keyDownOf, keyUpOf } from './keyboard.js';
import { layOut } from './layout.js';
import { makeMenu, textSizes } from './menu.js';
import { makeNotices } from './notices.js';
import { Touch, followMouse } from './touch.js';
import { watchVersions } from './versions.js';

/** @typedef {import("../contract.js").ToWorker} ToWorker */
/** @typedef {import("../contract.js").FromWorker} FromWorker */
/** @typedef {import("../contract.js").InputEvent} InputEvent */

/** @param {string} id */
const part = (id) => /** @type {HTMLElement} */ (document.getElementById(id));
const stage = part('stage');
const canvas = /** @type {HTMLCanvasElement} */ (part('screen'));
const curtain = part('curtain');
const textSizeKey = 'odoledger.textSize';

const notices = makeNotices(part('notices'));
const copies = makeCopies(localStorageOrNone());
const state = {
    textSize: Number(localStorageOrNone().getItem(textSizeKey)) || 1,
    changes: 0,
    firstChanges: -1,
    isReplaced: false, // by another log, whose changes are not counted yet
    hasFormer: false,
    lasting: true,
    isTyped: false,
    version: document.querySelector('meta[name=version]')?.getAttribute('content') ?? 'of no release',
};
/** @type {Event & {prompt?: () => void} | null} */
let installPrompt = null;
let layout = layOut(room());

/** The program lies in there, and waits in there; none while another page has the log. @type {Worker | null} */
let worker = null;

/** @param {ToWorker} message @param {Transferable[]} [transfer] */
const post = (message, transfer = []) => worker?.postMessage(message, transfer);
/** @param {InputEvent} event */
const send = (event) => post({ type: 'event', event });

const fields = new Fields({
    place: part('fields'),
    scale: () => layout.scale,
    hasFingers,
    send,
    canvas,
});
const surface = {
    element: canvas,
    scale: () => layout.scale,
    send,
    beforeTap: (/** @type {number} */ x, /** @type {number} */ y) => fields.tapped(x, y),
};
new Touch(surface);
followMouse(surface);
const menu = makeMenu(act);

/** A private window may have none. @returns {Pick<Storage, 'getItem' | 'setItem'>} */
function localStorageOrNone() {
    try {
        return window.localStorage;
    } catch {
        return { getItem: () => null, setItem: () => {} };
    }
}

function hasFingers() {
    return matchMedia('(any-pointer: coarse)').matches;
}

// Where the screen stands

function room() {
    const insets = getComputedStyle(part('insets'));
    const [top, right, bottom, left] = [
        insets.paddingTop,
        insets.paddingRight,
        insets.paddingBottom,
        insets.paddingLeft,
    ].map(parseFloat);
    const view = window.visualViewport;
    const height = view?.height ?? window.innerHeight;
    const isKeyboardUp = height < window.innerHeight - 100;
    return {
        left,
        top: top + (view?.offsetTop ?? 0),
        width: (view?.width ?? window.innerWidth) - left - right,
        height: height - top - (isKeyboardUp ? 0 : bottom),
        shortSide: Math.min(window.screen.width, window.screen.height) - left - right,
        pixelRatio: window.devicePixelRatio || 1,
        hasFingers: hasFingers(),
        textSize: state.textSize,
    };
}

function place() {
    const there = room();
    const { isWide, place: at, touchTarget, scale } = layout;
    document.body.classList.toggle('wide', isWide);
    Object.assign(stage.style, {
        left: `${there.left + at.left}px`,
        top: `${there.top + at.top}px`,
        width: `${at.width}px`,
        height: `${at.height}px`,
    });
    Object.assign(canvas.style, { width: `${at.width}px`, height: `${at.height}px` });
    stage.style.setProperty('--soft-keys', `${Math.max(touchTarget, 24) * scale}px`);
    const button = part('menu-button').style;
    button.width = button.height = isWide ? '' : `${touchTarget * scale}px`;
    fields.lay();
}

let isStarted = false;
function resize() {
    const next = layOut(room());
    const isSame = JSON.stringify(next) === JSON.stringify(layout);
    layout = next;
    place();
    if (isSame || !isStarted) return;
    const { screen, zoom, touchTarget } = layout;
    send({ kind: 'resize', x: screen.width, y: screen.height, zoom, touchTarget });
}
window.addEventListener('resize', resize);
window.visualViewport?.addEventListener('resize', resize);
window.visualViewport?.addEventListener('scroll', resize);

// Keys that no field of the page's has

document.addEventListener('keydown', (event) => {
    if (menu.dialog.open || event.target instanceof HTMLButtonElement) return;
    const key = keyDownOf(event);
    if (!key) return;
    event.preventDefault();
    send(key);
});
document.addEventListener('keyup', (event) => {
    const key = keyUpOf(event);
    if (key) send(key);
});
document.addEventListener('paste', (event) => {
    if (fields.isActive || menu.dialog.open) return;
    const text = event.clipboardData?.getData('text/plain').replace(/\r\n?/g, '\n') ?? '';
    if (text) send({ kind: 'paste', text });
});

const leave = followBack(() => {
    if (menu.dialog.open) menu.dialog.close();
    else send({ kind: 'back' });
});

// Storage and copies

function rememberChanges(/** @type {number} */ changes) {
    state.changes = changes;
    if (state.isReplaced) copies.replaced(changes);
    state.isReplaced = false;
    if (state.firstChanges < 0) state.firstChanges = changes;
    // The first entry of a person's own: from then on there is something to be lost.
    else if (changes > state.firstChanges) navigator.storage?.persist?.().catch(() => false);
    remindOfCopy();
}

/** Another log ends the program under a form. */
const mayLeaveForm = () => !state.isTyped || window.confirm('Leave the form without storing what was typed?');

function remindOfCopy() {
    const line = state.lasting ? copies.reminder(state.changes, Date.now()) : null;
    if (line) notices.show('copy', line, { 'Save a copy': () => act('saveCopy') });
    else notices.hide('copy');
}

/** @param {string} name @param {ArrayBuffer} bytes */
async function handOut(name, bytes) {
    const file = new File([bytes], name, { type: 'application/octet-stream' });
    const isTaken = () => {
        copies.taken(state.changes, Date.now());
        notices.hide('copy');
    };
    if (hasFingers() && navigator.canShare?.({ files: [file] })) {
        try {
            await navigator.share({ files: [file], title: name });
            isTaken();
            return;
        } catch (error) {
            if (error instanceof DOMException && error.name === 'AbortError') return; // the person's own choice
        }
    }
    const link = Object.assign(document.createElement('a'), { href: URL.createObjectURL(file), download: name });
    link.click();
    window.setTimeout(() => URL.revokeObjectURL(link.href), 60_000);
    isTaken();
}

menu.file.addEventListener('change', async () => {
    const file = menu.file.files?.[0];
    menu.file.value = '';
    if (!file) return;
    try {
        const bytes = await file.arrayBuffer();
        if (mayLeaveForm()) post({ type: 'openCopy', name: file.name, bytes }, [bytes]);
    } catch {
        notices.show('opened', `${file.name} cannot be read.`);
    }
});

const outcomes = {
    opened: 'The copy is the log now. What was there before is kept aside: Take back brings it here again.',
    notALog: 'That file is no log of Odoledger, or it is damaged. Nothing was changed.',
    newer: 'That file was written by a newer version of Odoledger. Nothing was changed.',
    full: 'There is no room for that file. Nothing was changed.',
    nothingKept: 'Nothing is kept aside.',
    failed: "The browser's storage refused. Nothing was changed.",
};

/** @param {import("./menu.js").Action} action */
function act(action) {
    switch (action) {
        case 'saveCopy':
            post({ type: 'saveCopy' });
            break;
        case 'openCopy':
            menu.file.click();
            break;
        case 'takeBack':
            if (mayLeaveForm()) post({ type: 'takeBack' });
            break;
        case 'install':
            installPrompt?.prompt?.();
            installPrompt = null;
            break;
        default: {
            const step = action === 'larger' ? 1 : -1;
            const now = textSizes.indexOf(state.textSize);
            state.textSize = textSizes[Math.min(Math.max(now + step, 0), textSizes.length - 1)] ?? 1;
            try {
                localStorageOrNone().setItem(textSizeKey, String(state.textSize));
            } catch {
                // It holds until the page is closed.
            }
            resize();
            showMenu();
        }
    }
}

function showMenu() {
    const isApple = /iP(hone|ad|od)/.test(navigator.userAgent);
    const isInstalled = matchMedia('(display-mode: standalone)').matches;
    menu.show({
        copyTime: copies.time(),
        hasFormer: state.hasFormer,
        textSize: state.textSize,
        canInstall: installPrompt !== null,
        needsHint: isApple && !isInstalled,
        version: state.version,
    });
}
part('menu-button').addEventListener('click', () => {
    fields.letGo();
    showMenu();
});
window.addEventListener('beforeinstallprompt', (event) => {
    event.preventDefault();
    installPrompt = event;
});

// A phone kills a hidden page without a word.
document.addEventListener('visibilitychange', () => {
    if (document.visibilityState === 'hidden') post({ type: 'hide' });
});
window.addEventListener('pagehide', () => post({ type: 'hide' }));
// A reload and a new version leave at once: the browser asks where a form would be lost.
window.addEventListener('beforeunload', (event) => {
    if (state.isTyped) event.preventDefault();
});

/** @param {string} text */
function drawCurtain(text) {
    fields.letGo();
    state.isTyped = false;
    curtain.textContent = text;
    curtain.hidden = false;
}

const flash = [{ filter: 'invert(1)' }, { filter: 'none' }];

/** @param {FromWorker} message */
function hear(message) {
    switch (message.type) {
        case 'storage':
            state.lasting = message.lasting;
            if (!message.lasting)
                notices.show(
                    'storage',
                    'This window keeps nothing: what you type goes when it is closed. A copy can be taken.',
                );
            break;
        case 'ready':
            state.hasFormer = message.hasFormer;
            fields.sent = 0; // a new run has heard of nothing yet
            state.isTyped = false;
            break;
        case 'firstScreen':
            curtain.hidden = true;
            if (!menu.dialog.open && !fields.isActive) canvas.focus({ preventScroll: true });
            break;
        case 'title':
            document.title = `${message.text} - Odoledger`;
            break;
        case 'beep':
            navigator.vibrate?.(40);
            if (!matchMedia('(prefers-reduced-motion: reduce)').matches) canvas.animate(flash, 120);
            break;
        case 'notify':
            notices.show('program', message.line);
            break;
        case 'goBack':
            leave();
            break;
        case 'typed':
            state.isTyped = message.isTyped;
            break;
        case 'pointer':
            canvas.style.cursor = { arrow: 'default', hand: 'pointer', text: 'text' }[message.shape];
            break;
        case 'waitCursor':
            canvas.style.cursor = message.shown ? 'progress' : 'default';
            break;
        case 'storeText':
            navigator.clipboard?.writeText(message.text).catch(() => {});
            break;
        case 'fields':
            fields.show(message.fields, message.answers);
            break;
        case 'spoken':
            part('spoken').textContent = message.text;
            break;
        case 'inspected':
            inspections.get(message.id ?? 0)?.(message.lines);
            break;
        case 'stored':
            rememberChanges(message.changes);
            break;
        case 'copy':
            void handOut(message.name, message.bytes);
            break;
        case 'copyFailed':
            notices.show('copy', `No copy was taken: ${message.reason}`);
            break;
        case 'opened':
            notices.show('opened', outcomes[message.outcome]);
            if (message.outcome !== 'opened') break;
            state.firstChanges = -1;
            state.isReplaced = true;
            break;
        case 'ended':
            drawCurtain('Odoledger has ended. Everything is stored.\nTouch here to start it again.');
            curtain.onclick = () => {
                curtain.onclick = null;
                drawCurtain('One moment');
                post({ type: 'startAgain' });
            };
            break;
        case 'failed':
            drawCurtain(`${message.text}\nWhat was stored is still there. Load the page again to go on.`);
            break;
    }
}

function start() {
    worker = new Worker(new URL('../worker/worker.js', import.meta.url), { type: 'module' });
    worker.addEventListener('message', (event) => hear(event.data));
    worker.addEventListener('error', () => drawCurtain('A part of Odoledger could not be loaded.'));
    isStarted = true;
    layout = layOut(room());
    place();
    const offscreen = canvas.transferControlToOffscreen();
    const { screen, zoom, touchTarget } = layout;
    const variables = /** @type {{odoledgerVariables?: Record<string, string>}} */ (window).odoledgerVariables;
    post({ type: 'start', canvas: offscreen, screen, zoom, locale: navigator.language, touchTarget, variables }, [
        offscreen,
    ]);
}

/** The log is open once: the second page waits for the first one to be closed. */
async function startAlone() {
    if (!navigator.locks) {
        start();
        return;
    }
    /** @param {Lock | null} lock */
    const hold = (lock) => {
        if (!lock) return false;
        start();
        return new Promise(() => {}); // for as long as the page is there
    };
    const isHeld = await navigator.locks.request('odoledger', { ifAvailable: true }, hold);
    if (isHeld !== false) return;
    drawCurtain('The log is open in another tab or window.\nClose it there, and it opens here.');
    await navigator.locks.request('odoledger', hold);
}

// What stands on the screen, for tests and for whoever looks into a fault: `await odoledger.inspect("screen")`.

/** @type {Map<number, (lines: string[]) => void>} */
const inspections = new Map();
const odoledger = {
    scale: () => layout.scale,
    version: state.version,
    /** @param {string} what @returns {Promise<string[]>} */
    inspect(what) {
        return new Promise((answer) => {
            const id = inspections.size + 1;
            inspections.set(id, answer);
            post({ type: 'inspect', what, id });
        });
    },
};
Object.assign(window, { odoledger });

place();
watchVersions(notices, () => post({ type: 'hide' }));
void startAlone();
