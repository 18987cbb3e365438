// Works without a network, one whole version at a time: a new one waits until it is asked for.

/**
 * @param {ReturnType<typeof import("./notices.js").makeNotices>} notices
 * @param {() => void} beforeChange
 */
export function watchVersions(notices, beforeChange) {
    const container = navigator.serviceWorker;
    if (!container) return; // a page that came without encryption
    let isWanted = false;
    container.addEventListener('controllerchange', () => {
        if (isWanted) window.location.reload();
    });
    /** @param {ServiceWorker} waiting */
    const offer = (waiting) =>
        notices.show('version', 'A new version is ready.', {
            'Use it now': () => {
                isWanted = true;
                beforeChange();
                waiting.postMessage('takeOver');
            },
        });
    container
        .register('service-worker.js')
        .then((registration) => {
            // With no page under a version yet, there is none that the new one could take the place of.
            if (registration.waiting && container.controller) offer(registration.waiting);
            registration.addEventListener('updatefound', () => {
                const installing = registration.installing;
                installing?.addEventListener('statechange', () => {
                    if (installing.state === 'installed' && container.controller) offer(installing);
                });
            });
        })
        .catch(() => notices.show('version', 'This browser does not keep the program: it needs a network to start.'));
}
