#include "records/file_image.h"
#include "tally/commands.h"
#include "tally/failure.h"
#include "tally/open_log.h"
#include "tally/result_file.h"

#include <filesystem>
#include <sysexits.h>

namespace tally {
namespace {

/// A backup may take the place of an older one, and of nothing else.
void RequirePlace(const std::string& target, const std::string& log) {
    std::error_code error;
    if (!std::filesystem::exists(target, error))
        return;
    if (std::filesystem::equivalent(target, log, error))
        throw Failure(EX_CANTCREAT, target + ": this is the log itself");
    if (!std::filesystem::is_regular_file(target, error) || !CFileImage(target))
        throw Failure(EX_CANTCREAT, target + ": this is something else than a backup, and stays as it is");
}

} // namespace

int Backup(const Request& request, Surroundings& /*surroundings*/) {
    const std::string path = PathOfLog(request.file);
    // Opened as the program does it: a change that was cut off does not go into the copy.
    const OpenLog log(path);
    RequirePlace(request.target, path);
    const CFileImage image(path);
    if (!image)
        throw Failure(EX_TEMPFAIL, path + ": the log cannot be read, or another program keeps it locked");
    WriteFile(request.target, image.Bytes(), IsSoundFile);
    return EX_OK;
}

} // namespace tally
