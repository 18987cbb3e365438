// What Emscripten's own calls leave out, for `--js-library`: with ASYNCIFY its fsync asks no file system to flush, its
// fdatasync never does, and its fstat looks for a file by the name that it was opened under.

mergeInto(LibraryManager.library, {
    $flushStream__deps: ['$SYSCALLS', '$FS'],
    $flushStream: function (fd) {
        const stream = SYSCALLS.getStreamFromFD(fd);
        if (stream.stream_ops.fsync) stream.stream_ops.fsync(stream);
    },

    // Failures are errors of Emscripten's file systems; anything else is none of the program's and goes on.
    $errorNumberOf__deps: ['$FS'],
    $errorNumberOf: function (operation) {
        try {
            operation();
            return 0;
        } catch (error) {
            if (!(error instanceof FS.ErrnoError)) throw error;
            return error.errno;
        }
    },

    fd_sync__sig: 'ii',
    fd_sync__deps: ['$flushStream', '$errorNumberOf'],
    fd_sync: function (fd) {
        return errorNumberOf(() => flushStream(fd));
    },

    __syscall_fdatasync__sig: 'ii',
    __syscall_fdatasync__deps: ['$flushStream', '$errorNumberOf'],
    __syscall_fdatasync: function (fd) {
        return -errorNumberOf(() => flushStream(fd));
    },

    __syscall_fstat64__sig: 'iii',
    __syscall_fstat64__deps: ['$SYSCALLS', '$errorNumberOf'],
    __syscall_fstat64: function (fd, buf) {
        return -errorNumberOf(() => {
            const stream = SYSCALLS.getStreamFromFD(fd);
            SYSCALLS.doStat(() => stream.node.node_ops.getattr(stream.node), stream.path, buf);
        });
    },
});
