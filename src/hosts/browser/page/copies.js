// When the last copy was taken, and whether it is time for another one.

const key = 'odoledger.copy';
const mostChanges = 30;
const mostDays = 30;
const day = 24 * 60 * 60 * 1000; // milliseconds

/**
 * @typedef {object} LastCopy
 * @property {number} changes how often the log had been changed then
 * @property {number} time milliseconds since 1970; 0: there was none, and `changes` is what was there at first
 */

/** @param {Pick<Storage, 'getItem' | 'setItem'>} storage */
export function makeCopies(storage) {
    /** @returns {LastCopy | null} */
    const read = () => {
        try {
            const kept = JSON.parse(storage.getItem(key) ?? 'null');
            return Number.isFinite(kept?.changes) && Number.isFinite(kept?.time) ? kept : null;
        } catch {
            return null;
        }
    };
    /** @param {LastCopy} copy */
    const write = (copy) => {
        try {
            storage.setItem(key, JSON.stringify(copy));
        } catch {
            // Nothing is kept in a private window: there is nothing to remind of either.
        }
    };
    return {
        /** @returns {number | null} when the last copy was taken, milliseconds since 1970 */
        time() {
            return read()?.time || null;
        },
        /**
         * A copy was taken.
         * @param {number} changes
         * @param {number} now
         */
        taken(changes, now) {
            write({ changes, time: now });
        },
        /**
         * Another log took the place of the one that was copied.
         * @param {number} changes of that one
         */
        replaced(changes) {
            write({ changes, time: read()?.time ?? 0 });
        },
        /**
         * The line that reminds, or null.
         * @param {number} changes how often the log has been changed by now
         * @param {number} now
         */
        reminder(changes, now) {
            const last = read();
            // A log that was counted anew, or that another one took the place of, is counted from there.
            if (!last || changes < last.changes) {
                write({ changes, time: last?.time ?? 0 });
                return null;
            }
            const count = changes - last.changes;
            if (count >= mostChanges) return `${count} changes since the last copy.`;
            const days = last.time ? Math.floor((now - last.time) / day) : 0;
            return count > 0 && days >= mostDays ? `The last copy was taken ${days} days ago.` : null;
        },
    };
}
