#pragma once

#include <memory>
#include <string>
#include <string_view>

struct sqlite3;

/// The bytes of a data file as its last change left them, in a moment between two changes of whoever else has it open.
/// They are read through SQLite: whoever opens the file in another way and closes it again takes the locks of this
/// process's own connection away with it.
class CFileImage {
public:
    /// Empty where the file cannot be read; a lock is waited for two seconds.
    explicit CFileImage(const std::string& path);

    explicit operator bool() const { return bytes_ != nullptr; }
    std::string_view Bytes() const { return {reinterpret_cast<const char*>(bytes_.get()), size_}; }
    /// A log without a vehicle: one that was made because there was none, or in the place of a spoilt one.
    bool HasNoVehicle() const { return hasNoVehicle_; }

private:
    std::unique_ptr<unsigned char, void (*)(void*)> bytes_;
    std::size_t size_ = 0;
    bool hasNoVehicle_ = false;
};

/// Whether all pages of a data file can be read and are sound.
bool IsSoundFile(const std::string& path);
