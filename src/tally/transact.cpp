#include "tally/transact.h"

#include "records/data_layer.h"
#include "tally/failure.h"

#include <exception>
#include <sysexits.h>

namespace tally {

void Transact(const std::function<bool()>& work) {
    bool isWanted = true;
    std::exception_ptr thrown;
    const int succeeded = theDataLayer.InOneTransaction([&] {
        try {
            isWanted = work();
            return isWanted;
        } catch (...) {
            thrown = std::current_exception();
            return false;
        }
    });
    if (thrown)
        std::rethrow_exception(thrown);
    if (isWanted)
        RequireStored(succeeded);
}

void RequireStored(int succeeded) {
    if (succeeded)
        return;
    switch (theDataLayer.LastFailure()) {
    case StoreFailure::Locked:
        throw Failure(EX_TEMPFAIL, "another program keeps the log locked; nothing was changed");
    case StoreFailure::NoSpace:
        throw Failure(EX_IOERR, "there is no room on the disk; nothing was changed");
    case StoreFailure::ReadOnly:
        throw Failure(EX_CANTCREAT, "the log may only be read; nothing was changed");
    default:
        throw Failure(EX_IOERR, "the log cannot be written; nothing was changed");
    }
}

} // namespace tally
