#include "tally/result_file.h"

#include "platform/system/fresh_file.h"
#include "tally/failure.h"

#include <filesystem>
#include <sysexits.h>

namespace tally {

void WriteFile(
    const std::string& path, std::string_view bytes, const std::function<bool(const std::string& path)>& isSound) {
    device::FreshFile file(std::filesystem::absolute(path), device::FreshFile::Kind::Replacement);
    LONG error = file.Error();
    if (error != 0)
        throw Failure(EX_CANTCREAT, path + ": " + device::ReasonOf(error));
    error = device::WriteAll(file.File(), bytes);
    if (error == 0 && isSound && !isSound(file.Name()))
        throw Failure(EX_IOERR, path + ": what was written is damaged");
    if (error == 0)
        error = file.TakeName();
    if (error != 0)
        throw Failure(EX_IOERR, path + ": " + device::ReasonOf(error));
}

} // namespace tally
