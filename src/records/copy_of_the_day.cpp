#include "records/copy_of_the_day.h"

#include "platform/files.h"
#include "records/file_image.h"

#include <exception>

namespace {

void Copy(const std::string& path, const device::DailyCopy& copy) {
    const CFileImage image(path);
    // An empty log must not take the place of a copy of the same day that has records.
    if (image.HasNoVehicle() && copy.HasFormer())
        return;
    if (!image)
        copy.Fail("the log cannot be read");
    else if (!copy.IsNewest(image.Bytes()))
        copy.Keep(image.Bytes(), IsSoundFile);
}

} // namespace

CCopyOfTheDay::CCopyOfTheDay(const wchar_t* path)
    : job_([path = HostPathOf(path), copy = device::DailyCopy()] {
        try {
            if (path)
                Copy(*path, copy);
        } catch (const std::exception& failure) {
            copy.Fail(failure.what());
        }
    }) {
}
