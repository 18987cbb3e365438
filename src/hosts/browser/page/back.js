// The browser's own Back: it goes back through the device's screens, and leaves the page from the first of them.

/** More than the device's screens, menus and messages ever lie above each other. */
const mostEntries = 8;

/** @param {{odoledger?: number} | null} state @returns {number} how many entries of the history lie below it */
const entriesOf = (state) => state?.odoledger ?? 0;

/**
 * A browser skips an entry of the history at which nothing was touched, so each touch makes one: then there are no fewer
 * of them than screens to go back from, however fast a person goes back.
 *
 * @param {() => void} goBack on the device
 * @returns {() => void} what the device asks for that cannot go back: leaves the page, if the browser's Back led there
 */
export function followBack(goBack) {
    let entries = entriesOf(history.state);
    let isOwnBack = false;
    let isLeaving = false;
    const touched = () => {
        isOwnBack = false;
        if (entries < mostEntries && !isLeaving) history.pushState({ odoledger: ++entries }, '');
    };
    for (const type of ['pointerup', 'keydown']) window.addEventListener(type, touched, true);
    window.addEventListener('popstate', ({ state }) => {
        const former = entries;
        entries = entriesOf(state);
        if (isLeaving) {
            if (entries === 0) history.back();
        } else if (entries < former) {
            isOwnBack = true;
            goBack();
        }
    });
    return () => {
        if (!isOwnBack) return;
        isLeaving = true;
        history.go(-Math.max(entries, 1));
        window.setTimeout(() => (isLeaving = false), 1000); // where the person came from nowhere
    };
}
