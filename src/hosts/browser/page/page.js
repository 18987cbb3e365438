// Starts the program on the page's canvas.

const canvas = /** @type {HTMLCanvasElement} */ (document.getElementById('screen'));
const screen = { width: 320, height: 480 };
canvas.style.width = `${screen.width}px`;
canvas.style.height = `${screen.height}px`;

const worker = new Worker(new URL('../worker/worker.js', import.meta.url), { type: 'module' });
const offscreen = canvas.transferControlToOffscreen();
/** @type {import('../contract.js').StartMessage} */
const start = {
    type: 'start',
    canvas: offscreen,
    screen,
    zoom: devicePixelRatio,
    locale: navigator.language,
    touch: navigator.maxTouchPoints > 0,
};
worker.postMessage(start, [offscreen]);
Object.assign(window, { worker });
