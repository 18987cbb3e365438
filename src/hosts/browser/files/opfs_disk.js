// The pool's files, where the browser keeps those that belong to a site alone.

/** A pool of another layout gets a folder of its own: what it cannot read it would take for free. */
const folderName = 'files-1';

/**
 * @returns {Promise<import('./pool.js').Disk>} rejected where the browser stores nothing, as in some private windows
 */
export async function openOpfsDisk() {
    const root = await navigator.storage.getDirectory();
    const folder = await root.getDirectoryHandle(folderName, { create: true });
    return {
        list: async () => {
            const names = [];
            for await (const name of folder.keys()) names.push(name);
            return names;
        },
        open: async (name) => (await folder.getFileHandle(name, { create: true })).createSyncAccessHandle(),
    };
}
