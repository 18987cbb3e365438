#pragma once

/// Why the data file did not take or give something.
enum class StoreFailure {
    None,
    NoMemory,
    NoSpace, ///< on the disk, or beyond what the user may write
    ReadOnly, ///< the file, its folder or its disk lets nobody write
    Locked, ///< by another program, for longer than we wait
    Replaced, ///< the file was moved away, or another one has its name
    Gone, ///< the record was deleted by another program
    Other, ///< an error of the disk, or damage
};
