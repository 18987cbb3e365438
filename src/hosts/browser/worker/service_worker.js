// Keeps the whole site as of one version, and answers from that alone. The build puts in the version and the files.

const version = '@SITE_VERSION@';
const files = /** @type {string[]} */ (JSON.parse('@SITE_FILES@'));

const worker = /** @type {ServiceWorkerGlobalScope} */ (/** @type {unknown} */ (self));
const prefix = 'odoledger-';
const cacheName = prefix + version;

worker.addEventListener('install', (event) => {
    // All or nothing: where one file is missing, the version that is there stays. The network is asked, since a
    // browser's own store may still hold a file of the version before.
    event.waitUntil(
        caches
            .open(cacheName)
            .then((cache) => cache.addAll(files.map((file) => new Request(file, { cache: 'reload' })))),
    );
});

worker.addEventListener('activate', (event) => {
    event.waitUntil(
        caches
            .keys()
            .then((names) => names.filter((name) => name.startsWith(prefix) && name !== cacheName))
            .then((names) => Promise.all(names.map((name) => caches.delete(name)))),
    );
});

worker.addEventListener('message', (event) => {
    if (event.data === 'takeOver') void worker.skipWaiting();
});

worker.addEventListener('fetch', (event) => {
    if (event.request.method !== 'GET') return;
    const url = new URL(event.request.url);
    if (url.origin !== worker.location.origin) return;
    const keptIn = async (/** @type {Cache} */ cache) => {
        const kept = await cache.match(event.request, { ignoreSearch: true });
        // The program's page is at every address that no file has.
        return kept ?? (event.request.mode === 'navigate' ? cache.match('./') : undefined);
    };
    event.respondWith(
        caches
            .open(cacheName)
            .then(keptIn)
            .then((kept) => kept ?? fetch(event.request)),
    );
});
