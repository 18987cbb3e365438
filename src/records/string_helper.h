#pragma once

/// Turns text between the program's wide form and the data file's 8-bit form. Results belong to the helper and live
/// as long as it does; null gives null.
class CStringHelper {
public:
    virtual ~CStringHelper() = default;
    virtual const char* Encode(const wchar_t* text) = 0;
    virtual const wchar_t* Decode(const char* text) = 0;
    /// Text that is wide already passes through.
    const wchar_t* Decode(const wchar_t* text) { return text; }
};
