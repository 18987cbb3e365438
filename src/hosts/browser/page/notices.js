// Quiet lines above the soft keys, each until it is answered or no longer true.

/**
 * @param {HTMLElement} place
 */
export function makeNotices(place) {
    /** @type {Map<string, HTMLElement>} */
    const shown = new Map();
    const notices = {
        /**
         * @param {string} name only one notice of a name shows
         * @param {string} text
         * @param {Record<string, () => void>} [answers] what its buttons say, and do
         */
        show(name, text, answers = {}) {
            notices.hide(name);
            const line = document.createElement('div');
            line.className = 'notice';
            line.append(Object.assign(document.createElement('span'), { textContent: text }));
            for (const [label, act] of Object.entries({ ...answers, Hide: () => {} })) {
                const button = Object.assign(document.createElement('button'), { type: 'button', textContent: label });
                button.addEventListener('click', () => {
                    notices.hide(name);
                    act();
                });
                line.append(button);
            }
            shown.set(name, line);
            place.append(line);
        },
        /** @param {string} name */
        hide(name) {
            shown.get(name)?.remove();
            shown.delete(name);
        },
    };
    return notices;
}
