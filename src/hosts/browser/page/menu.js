// The page's own menu: copies of the log, text size, installing. The handset's menus are the program's.

/** @typedef {'saveCopy' | 'openCopy' | 'takeBack' | 'smaller' | 'larger' | 'install'} Action */

/** What a person can enlarge texts by. */
export const textSizes = [0.85, 1, 1.15, 1.3, 1.5];

/**
 * @param {(action: Action) => void} act
 */
export function makeMenu(act) {
    const dialog = /** @type {HTMLDialogElement} */ (document.getElementById('menu'));
    /** @param {string} name */
    const part = (name) => /** @type {HTMLElement} */ (dialog.querySelector(name));
    dialog.addEventListener('click', (event) => {
        if (event.target === dialog || event.target instanceof HTMLAnchorElement) dialog.close(); // beside it, or the manual
        const action = event.target instanceof HTMLElement ? event.target.dataset.action : undefined;
        if (!action) return;
        if (action !== 'smaller' && action !== 'larger') dialog.close();
        if (action !== 'dismiss') act(/** @type {Action} */ (action));
    });
    return {
        dialog,
        file: /** @type {HTMLInputElement} */ (part('#file')),
        /**
         * @param {object} facts
         * @param {number | null} facts.copyTime milliseconds since 1970
         * @param {boolean} facts.hasFormer a log is kept aside
         * @param {number} facts.textSize
         * @param {boolean} facts.canInstall
         * @param {boolean} facts.needsHint it can be installed, but only by the browser's own menu
         * @param {string} facts.version
         */
        show(facts) {
            part('#last-copy').textContent = facts.copyTime
                ? `Last copy: ${new Date(facts.copyTime).toLocaleString()}`
                : 'No copy was taken yet. The log lies on this device alone.';
            part('[data-action=takeBack]').hidden = !facts.hasFormer;
            part('[data-action=install]').hidden = !facts.canInstall;
            part('#install-hint').hidden = !facts.needsHint;
            part('#text-size').textContent = `${Math.round(facts.textSize * 100)} %`;
            part('#about').textContent = `Version ${facts.version}. Works without a network; sends nothing anywhere.`;
            if (!dialog.open) dialog.showModal();
        },
    };
}
