#include "records/strange_journals.h"

#include "records/file_header.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

// The forms of journals and the bytes that are locked are those of SQLite's file format.

namespace {

constexpr const char* JournalSuffix = "-journal";
constexpr const char* WriteAheadSuffixes[] = {"-wal", "-shm"};

class Descriptor {
public:
    explicit Descriptor(int descriptor)
        : descriptor_(descriptor) { }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (descriptor_ >= 0)
            close(descriptor_);
    }
    int Get() const { return descriptor_; }

private:
    int descriptor_;
};

StoreFailure FailureOfHost(int error) {
    return error == EROFS || error == EACCES || error == EPERM ? StoreFailure::ReadOnly : StoreFailure::Other;
}

/// Links are not followed: what hangs is as taken as what leads somewhere.
bool IsTaken(const std::string& path) {
    struct stat info { };
    return lstat(path.c_str(), &info) == 0;
}

bool IsRegular(const std::string& path) {
    struct stat info { };
    return lstat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode);
}

StoreFailure PutAside(const std::string& path) {
    std::string name = path + ".bad";
    for (int number = 2; IsTaken(name); ++number)
        name = path + ".bad" + std::to_string(number);
    return std::rename(path.c_str(), name.c_str()) == 0 ? StoreFailure::None : FailureOfHost(errno);
}

/// Nobody else reads or writes the file while this is held, so that a journal beside it belongs to nobody who is alive.
/// It ends when any descriptor of this process for the file is closed.
bool Lock(int file) {
    constexpr std::chrono::seconds LongestWait{2};
    constexpr std::chrono::milliseconds Pause{10};
    struct flock range { };
    range.l_type = F_WRLCK;
    range.l_whence = SEEK_SET;
    range.l_start = 0x40000000;
    range.l_len = 512;
    const auto end = std::chrono::steady_clock::now() + LongestWait;
    while (fcntl(file, F_SETLK, &range) != 0) {
        if ((errno != EAGAIN && errno != EACCES && errno != EINTR) || std::chrono::steady_clock::now() >= end)
            return false;
        std::this_thread::sleep_for(Pause);
    }
    return true;
}

/// A rollback journal: headers, each on a sector of its own and followed by copies of pages.
class Journal {
public:
    explicit Journal(const std::string& path)
        : file_(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK))
        , size_(lseek(file_.Get(), 0, SEEK_END)) { }

    /// Whether SQLite may have it: it can only take this file back to where its transaction began, or nowhere.
    bool BelongsTo(const CFileHeader& file) const {
        if (size_ == 0)
            return true;
        const std::optional<Segment> first = SegmentAt(0);
        // One that names another journal has SQLite delete whatever bears that name.
        if (!first || EndsInMagic())
            return false;
        // Its transaction ended before the journal was on the disk, and so before it wrote to the file.
        if (!first->isComplete)
            return true;
        const off_t copy = FirstPage(*first);
        // The file may have pages of another size by now: vacuuming can change it. Without the first page, as another
        // program's journal may be, nothing tells a file from its backup of the same size.
        CFileHeader before;
        return copy != 0 && before.Read(file_.Get(), copy) == CFileHeader::Reading::Done
            && before.PageSize() == first->pageSize && file.MayFollow(before);
    }

private:
    using Bytes = std::array<unsigned char, 28>;
    static constexpr unsigned char Magic[8] = {0xD9, 0xD5, 0x05, 0xF9, 0x20, 0xA1, 0x63, 0xD7};
    static constexpr off_t PageNumberSize = 4;
    static constexpr off_t ChecksumSize = 4;

    struct Segment {
        bool isComplete; ///< until then zeros stand for the Magic number and the count
        std::uint32_t count;
        std::uint32_t sectorSize;
        std::uint32_t pageSize;
        off_t begin; ///< of its first copy
    };

    bool Read(off_t offset, unsigned char* bytes, std::size_t size) const {
        return pread(file_.Get(), bytes, size, offset) == static_cast<ssize_t>(size);
    }

    bool EndsInMagic() const {
        std::array<unsigned char, sizeof Magic> end{};
        return size_ >= static_cast<off_t>(end.size())
            && Read(size_ - static_cast<off_t>(end.size()), end.data(), end.size())
            && std::equal(end.begin(), end.end(), Magic);
    }

    std::optional<Segment> SegmentAt(off_t offset) const {
        const auto isPowerWithin = [](std::uint32_t number, std::uint32_t least) {
            return number >= least && number <= 65536 && (number & (number - 1)) == 0;
        };
        Bytes header{};
        if (!Read(offset, header.data(), header.size()))
            return std::nullopt;
        const std::uint32_t sectorSize = BigEndian(&header[20]);
        const Segment segment{std::equal(std::begin(Magic), std::end(Magic), header.begin()), BigEndian(&header[8]),
            sectorSize, BigEndian(&header[24]), offset + static_cast<off_t>(sectorSize)};
        const bool isBegun
            = std::all_of(header.begin(), header.begin() + 12, [](unsigned char byte) { return byte == 0; });
        if (!segment.isComplete && !isBegun)
            return std::nullopt;
        if (!isPowerWithin(segment.sectorSize, 32) || !isPowerWithin(segment.pageSize, 512))
            return std::nullopt;
        return segment;
    }

    /// Where the copy of the first page lies; 0 where there is none.
    off_t FirstPage(Segment segment) const {
        const off_t recordSize = PageNumberSize + static_cast<off_t>(segment.pageSize) + ChecksumSize;
        while (true) {
            off_t place = segment.begin;
            // The largest number is no count: the copies go on to the end.
            for (std::uint32_t i = 0; i < segment.count && place + recordSize <= size_; ++i) {
                std::array<unsigned char, PageNumberSize> bytes{};
                const std::uint32_t number = Read(place, bytes.data(), bytes.size()) ? BigEndian(bytes.data()) : 0;
                if (number == 0) // no copy of anything: SQLite goes no further either
                    return 0;
                if (number == 1)
                    return place + PageNumberSize;
                place += recordSize;
            }
            const off_t sector = segment.sectorSize;
            const std::optional<Segment> next = SegmentAt((place + sector - 1) / sector * sector);
            if (!next || !next->isComplete || next->pageSize != segment.pageSize)
                return 0;
            segment = *next;
        }
    }

    Descriptor file_;
    off_t size_;
};

bool MayUseJournal(const std::string& journal, const CFileHeader& header) {
    return IsRegular(journal) && Journal(journal).BelongsTo(header);
}

} // namespace

StoreFailure PutStrangeJournalsAside(const std::string& path) {
    const std::string journal = path + JournalSuffix;
    if (!IsTaken(journal) && !IsTaken(path + WriteAheadSuffixes[0]) && !IsTaken(path + WriteAheadSuffixes[1]))
        return StoreFailure::None;
    const Descriptor file(open(path.c_str(), O_RDWR | O_CLOEXEC | O_NONBLOCK));
    if (file.Get() < 0)
        return FailureOfHost(errno);
    if (!Lock(file.Get()))
        return StoreFailure::Locked;
    CFileHeader header;
    if (header.Read(file.Get(), 0) != CFileHeader::Reading::Done)
        return StoreFailure::Other;
    StoreFailure failure = StoreFailure::None;
    // By now the transaction that it was of may have ended.
    if (IsTaken(journal) && !MayUseJournal(journal, header))
        failure = PutAside(journal);
    for (const char* suffix : WriteAheadSuffixes) {
        const std::string log = path + suffix;
        if (failure == StoreFailure::None && IsTaken(log) && !(header.HasWriteAheadLog() && IsRegular(log)))
            failure = PutAside(log);
    }
    return failure;
}
