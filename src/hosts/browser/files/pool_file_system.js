// The pool as a file system of Emscripten's: the program and SQLite reach it by the calls of POSIX. Folders are what
// stands in the names of the files; one without a file lasts as long as the process.

import { PoolError } from './pool_file.js';

/** @typedef {import('./pool.js').Pool} Pool */
/** @typedef {import('./pool_file.js').PoolFile} PoolFile */

/**
 * @typedef {object} PoolNode
 * @property {number} id
 * @property {string} name
 * @property {number} mode
 * @property {PoolNode} parent itself at the mount's root
 * @property {object} mount
 * @property {PoolFile} [file] of a file
 * @property {Map<string, PoolNode>} [children] of a folder
 * @property {number} changed of a folder: milliseconds since 1970
 * @property {object} node_ops
 * @property {object} stream_ops
 */

/** @typedef {{node: PoolNode, position: number, flags: number}} Stream */

// As the C library numbers them there.
const errorNumbers = Object.freeze({
    EINVAL: 28,
    EIO: 29,
    ENAMETOOLONG: 37,
    ENOENT: 44,
    ENOSPC: 51,
    ENOTEMPTY: 55,
    EPERM: 63,
});
const folderMode = 0o40700;
const fileMode = 0o100600;
const blockSize = 4096;
const seekFromHere = 1;
const seekFromEnd = 2;

/**
 * A type of file system for `FS.mount`, to be mounted once. Names in the pool are paths from the mount on: "/a/b".
 *
 * @param {any} FS Emscripten's
 * @param {Pool} pool
 */
export function poolFileSystem(FS, pool) {
    /** @param {keyof typeof errorNumbers} code */
    const failure = (code) => new FS.ErrnoError(errorNumbers[code]);

    /**
     * The operations, with the pool's failures as errors that the C library knows.
     *
     * @template {Record<string, (...values: any[]) => any>} Operations
     * @param {Operations} operations
     * @returns {Operations}
     */
    function translated(operations) {
        const entries = Object.entries(operations).map(([name, operation]) => {
            /** @param {any[]} values */
            const guarded = (...values) => {
                try {
                    return operation(...values);
                } catch (error) {
                    throw error instanceof PoolError ? failure(error.code) : error;
                }
            };
            return [name, guarded];
        });
        return Object.fromEntries(entries);
    }

    /**
     * @param {PoolNode} folder
     * @param {string} name
     * @returns {string}
     */
    const pathIn = (folder, name) => (FS.isRoot(folder) ? `/${name}` : `${pathIn(folder.parent, folder.name)}/${name}`);

    /** @param {PoolNode} folder */
    const childrenOf = (folder) => /** @type {Map<string, PoolNode>} */ (folder.children);
    /** @param {PoolNode} node */
    const fileOf = (node) => /** @type {PoolFile} */ (node.file);

    /**
     * @param {PoolNode} node
     * @param {PoolNode} folder
     */
    function putInto(folder, node) {
        childrenOf(folder).set(node.name, node);
        folder.changed = Date.now();
    }

    /**
     * @param {PoolNode} folder
     * @param {string} name
     */
    function takeFrom(folder, name) {
        childrenOf(folder).delete(name);
        folder.changed = Date.now();
    }

    /**
     * @param {PoolNode | null} parent null for the mount's root
     * @param {string} name
     * @param {number} mode
     * @returns {PoolNode}
     */
    function addFolder(parent, name, mode) {
        /** @type {PoolNode} */
        const node = FS.createNode(parent, name, mode, 0);
        node.node_ops = folderOperations;
        node.stream_ops = folderStreamOperations;
        node.children = new Map();
        node.changed = Date.now();
        if (parent) putInto(parent, node);
        return node;
    }

    /**
     * @param {PoolNode} parent
     * @param {string} name
     * @param {number} mode
     * @param {PoolFile} file
     * @returns {PoolNode}
     */
    function addFile(parent, name, mode, file) {
        /** @type {PoolNode} */
        const node = FS.createNode(parent, name, mode, 0);
        node.node_ops = fileOperations;
        node.stream_ops = fileStreamOperations;
        node.file = file;
        putInto(parent, node);
        return node;
    }

    /**
     * @param {PoolNode} node
     * @param {number} links
     * @param {number} size
     * @param {number} time
     */
    function attributesOf(node, links, size, time) {
        return {
            dev: 1,
            ino: node.id,
            mode: node.mode,
            nlink: links,
            uid: 0,
            gid: 0,
            rdev: 0,
            size,
            atime: new Date(time),
            mtime: new Date(time),
            ctime: new Date(time),
            blksize: blockSize,
            blocks: Math.ceil(size / blockSize),
        };
    }

    const folderOperations = translated({
        /** @param {PoolNode} node */
        getattr: (node) => attributesOf(node, 1, blockSize, node.changed),

        /**
         * @param {PoolNode} node
         * @param {{mode?: number, timestamp?: number}} attributes
         */
        setattr(node, attributes) {
            node.mode = attributes.mode ?? node.mode;
            node.changed = attributes.timestamp ?? node.changed;
        },

        // Every node is made with its file: what Emscripten does not know is not there.
        lookup() {
            throw failure('ENOENT');
        },

        /**
         * @param {PoolNode} parent
         * @param {string} name
         * @param {number} mode
         */
        mknod(parent, name, mode) {
            if (FS.isDir(mode)) return addFolder(parent, name, mode);
            if (FS.isFile(mode)) return addFile(parent, name, mode, pool.create(pathIn(parent, name)));
            throw failure('EPERM');
        },

        /**
         * Of files alone: that of a folder would be many, and a cut could come between them.
         *
         * @param {PoolNode} node
         * @param {PoolNode} folder
         * @param {string} name
         */
        rename(node, folder, name) {
            if (!node.file) throw failure('EPERM');
            const replaced = childrenOf(folder).get(name);
            pool.rename(pathIn(node.parent, node.name), pathIn(folder, name));
            // Emscripten goes on finding it otherwise once the name is gone again.
            if (replaced) FS.destroyNode(replaced);
            takeFrom(node.parent, node.name);
            node.name = name;
            node.parent = folder;
            putInto(folder, node);
        },

        /**
         * @param {PoolNode} parent
         * @param {string} name
         */
        unlink(parent, name) {
            pool.unlink(pathIn(parent, name));
            takeFrom(parent, name);
        },

        /**
         * @param {PoolNode} parent
         * @param {string} name
         */
        rmdir(parent, name) {
            if (childrenOf(FS.lookupNode(parent, name)).size > 0) throw failure('ENOTEMPTY');
            takeFrom(parent, name);
        },

        /** @param {PoolNode} node */
        readdir: (node) => ['.', '..', ...childrenOf(node).keys()],
    });

    const folderStreamOperations = translated({ llseek: (stream, offset, whence) => seek(stream, offset, whence, 0) });

    const fileOperations = translated({
        /** @param {PoolNode} node */
        getattr(node) {
            const file = fileOf(node);
            return attributesOf(node, file.name === '' ? 0 : 1, file.size, file.modified);
        },

        /**
         * @param {PoolNode} node
         * @param {{mode?: number, timestamp?: number, size?: number}} attributes
         */
        setattr(node, attributes) {
            const file = fileOf(node);
            node.mode = attributes.mode ?? node.mode;
            if (attributes.size !== undefined) file.truncate(attributes.size);
            if (attributes.timestamp !== undefined) file.modified = attributes.timestamp;
        },
    });

    const fileStreamOperations = translated({
        /** @param {Stream} stream */
        open: (stream) => fileOf(stream.node).open(),
        /** @param {Stream} stream */
        close: (stream) => fileOf(stream.node).close(),
        /** @param {Stream} stream */
        fsync: (stream) => fileOf(stream.node).flush(),

        /**
         * @param {Stream} stream
         * @param {Int8Array | Uint8Array} buffer
         * @param {number} offset
         * @param {number} length
         * @param {number} position
         */
        read: (stream, buffer, offset, length, position) =>
            fileOf(stream.node).read(bytesIn(buffer, offset, length), position),

        /**
         * @param {Stream} stream
         * @param {Int8Array | Uint8Array} buffer
         * @param {number} offset
         * @param {number} length
         * @param {number} position
         */
        write(stream, buffer, offset, length, position) {
            fileOf(stream.node).write(bytesIn(buffer, offset, length), position);
            return length;
        },

        /**
         * @param {Stream} stream
         * @param {number} offset
         * @param {number} whence
         */
        llseek: (stream, offset, whence) => seek(stream, offset, whence, fileOf(stream.node).size),
    });

    /**
     * @param {Stream} stream
     * @param {number} offset
     * @param {number} whence
     * @param {number} size
     */
    function seek(stream, offset, whence, size) {
        const begin = whence === seekFromHere ? stream.position : whence === seekFromEnd ? size : 0;
        if (begin + offset < 0) throw failure('EINVAL');
        return begin + offset;
    }

    /**
     * @param {PoolNode} root
     * @param {string} path
     */
    function addNamed(root, path) {
        const names = path.split('/').slice(1);
        const fileName = /** @type {string} */ (names.pop());
        let folder = root;
        for (const name of names) folder = childrenOf(folder).get(name) ?? addFolder(folder, name, folderMode);
        addFile(folder, fileName, fileMode, /** @type {PoolFile} */ (pool.find(path)));
    }

    return {
        /** @param {object} mount */
        mount(mount) {
            const root = addFolder(null, '/', folderMode);
            // The nodes below take theirs from here.
            root.mount = mount;
            for (const path of pool.names()) addNamed(root, path);
            return root;
        },
    };
}

/**
 * @param {Int8Array | Uint8Array} buffer
 * @param {number} offset
 * @param {number} length
 */
function bytesIn(buffer, offset, length) {
    return new Uint8Array(buffer.buffer, buffer.byteOffset + offset, length);
}
