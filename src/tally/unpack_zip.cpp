#include "tally/unpack_zip.h"

#include "tally/failure.h"

#include <memory>
#include <sysexits.h>
#include <zip.h>

namespace tally {
namespace {

constexpr zip_int64_t MostMembers = 1000;
constexpr std::size_t MostBytes = 200'000'000; ///< of all members

using Archive = std::unique_ptr<zip_t, decltype(&zip_discard)>;
using File = std::unique_ptr<zip_file_t, decltype(&zip_fclose)>;

Archive Open(const std::string& bytes, const std::string& path) {
    constexpr int IsNotFreed = 0;
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t* source = zip_source_buffer_create(bytes.data(), bytes.size(), IsNotFreed, &error);
    zip_t* archive = source ? zip_open_from_source(source, ZIP_RDONLY, &error) : nullptr;
    zip_error_fini(&error);
    if (!archive) {
        zip_source_free(source);
        throw Failure(EX_DATAERR, path + ": the archive is damaged");
    }
    return {archive, zip_discard};
}

bool IsText(const std::string& name) {
    const std::size_t dot = name.rfind('.');
    std::string end = dot == std::string::npos ? "" : name.substr(dot);
    for (char& character : end)
        character = static_cast<char>(character | 0x20); // letters become small ones
    return end == ".csv" || end == ".txt" || end == ".tsv" || end == ".json";
}

/// No more than `room` is unpacked, whatever the archive says of it.
std::string Unpack(zip_t* archive, zip_uint64_t index, std::size_t room, const std::string& name) {
    const File file(zip_fopen_index(archive, index, 0), zip_fclose);
    if (!file && zip_error_code_zip(zip_get_error(archive)) == ZIP_ER_NOPASSWD)
        throw Failure(EX_DATAERR, name + ": this is locked with a password");
    std::string contents;
    char part[65536];
    zip_int64_t size = file ? 0 : -1;
    while (file && (size = zip_fread(file.get(), part, sizeof part)) > 0) {
        contents.append(part, static_cast<std::size_t>(size));
        if (contents.size() > room)
            throw Failure(EX_DATAERR, name + ": the archive unpacks to more than 200 MB");
    }
    if (size < 0)
        throw Failure(EX_DATAERR, name + ": this part of the archive is damaged");
    return contents;
}

} // namespace

bool IsZip(const std::string& bytes) {
    return bytes.compare(0, 4, "PK\x03\x04") == 0;
}

void ForEachMember(const std::string& bytes, const std::string& path,
    const std::function<void(const std::string& name, const std::string& contents)>& work,
    const std::function<void(const std::string& name)>& leaveOut) {
    const Archive archive = Open(bytes, path);
    const zip_int64_t count = zip_get_num_entries(archive.get(), 0);
    if (count > MostMembers)
        throw Failure(EX_DATAERR, path + ": the archive holds more files than any log has");
    std::size_t room = MostBytes;
    for (zip_int64_t index = 0; index < count; ++index) {
        const auto place = static_cast<zip_uint64_t>(index);
        const char* given = zip_get_name(archive.get(), place, 0);
        const std::string name = given ? given : "";
        if (name.empty() || name.back() == '/')
            continue;
        if (!IsText(name)) {
            leaveOut(name);
            continue;
        }
        const std::string contents = Unpack(archive.get(), place, room, std::string(path).append("/").append(name));
        room -= contents.size();
        work(name, contents);
    }
}

} // namespace tally
