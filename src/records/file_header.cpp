#include "records/file_header.h"

#include "records/statements.h"

#include <cerrno>
#include <cstring>
#include <unistd.h>

namespace {

constexpr char Magic[16] = "SQLite format 3"; // with its NUL
constexpr std::size_t PageSizePlace = 16;
constexpr std::size_t WriteVersionPlace = 18;
constexpr std::size_t ChangeCounterPlace = 24;
constexpr std::size_t UserVersionPlace = 60;
constexpr std::size_t ApplicationIdPlace = 68;
constexpr unsigned char RollbackVersion = 1;
constexpr unsigned char WriteAheadVersion = 2;

} // namespace

std::uint32_t BigEndian(const unsigned char* bytes) {
    return std::uint32_t{bytes[0]} << 24U | std::uint32_t{bytes[1]} << 16U | std::uint32_t{bytes[2]} << 8U | bytes[3];
}

CFileHeader::Reading CFileHeader::Read(int descriptor, off_t offset) {
    for (std::size_t done = 0; done < bytes_.size();) {
        const ssize_t count
            = pread(descriptor, bytes_.data() + done, bytes_.size() - done, offset + static_cast<off_t>(done));
        if (count == 0)
            return Reading::TooShort;
        if (count < 0 && errno != EINTR)
            return Reading::Failed;
        done += count > 0 ? static_cast<std::size_t>(count) : 0;
    }
    return Reading::Done;
}

bool CFileHeader::IsOurs() const {
    // A later version of the format may only be read.
    return std::memcmp(bytes_.data(), Magic, sizeof Magic) == 0
        && (bytes_[WriteVersionPlace] == RollbackVersion || HasWriteAheadLog())
        && Number(ApplicationIdPlace) == DataFileApplicationId && Number(UserVersionPlace) == DataFileVersion;
}

bool CFileHeader::IsOfLaterVersion() const {
    return std::memcmp(bytes_.data(), Magic, sizeof Magic) == 0 && Number(ApplicationIdPlace) == DataFileApplicationId
        && Number(UserVersionPlace) > DataFileVersion;
}

bool CFileHeader::HasWriteAheadLog() const {
    return bytes_[WriteVersionPlace] == WriteAheadVersion;
}

std::uint32_t CFileHeader::PageSize() const {
    constexpr std::uint32_t Largest = 65536;
    const std::uint32_t size = Number(PageSizePlace) >> 16U;
    return size == 1 ? Largest : size;
}

bool CFileHeader::MayFollow(const CFileHeader& before) const {
    const std::uint32_t changes = Number(ChangeCounterPlace) - before.Number(ChangeCounterPlace);
    return changes == 1 || (changes == 0 && bytes_ == before.bytes_);
}
