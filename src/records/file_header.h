#pragma once

#include <array>
#include <cstdint>
#include <sys/types.h>

/// The big-endian number of four bytes.
std::uint32_t BigEndian(const unsigned char* bytes);

/// The header that SQLite keeps in the first hundred bytes of a database, and a journal in its copy of the first page.
/// The places are those of SQLite's file format.
class CFileHeader {
public:
    enum class Reading { Done, TooShort, Failed };

    /// Reads the bytes that lie at `offset` of an open file.
    Reading Read(int descriptor, off_t offset);

    /// Whether this is a data file of ours, of this version.
    bool IsOurs() const;
    /// Whether this is a data file of ours that a later version of the program made.
    bool IsOfLaterVersion() const;
    /// Between two connections the file may be in the mode that keeps changes in a -wal beside it.
    bool HasWriteAheadLog() const;
    std::uint32_t PageSize() const;
    /// Whether the file with this header can be in the middle of the transaction that began with `before`: not yet
    /// written, or counted one change further.
    bool MayFollow(const CFileHeader& before) const;

private:
    std::uint32_t Number(std::size_t place) const { return BigEndian(bytes_.data() + place); }

    std::array<unsigned char, 100> bytes_{};
};
