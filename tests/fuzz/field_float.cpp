#include "fuzz_device.h"
#include "platform/utf8.h"
#include "units/field_text.h"

#include <cmath>

/// The first byte chooses the locale.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static int current = -1;
    const int wanted = size > 0 ? data[0] % 3 : 0;
    if (wanted != current) {
        const char* const locales[] = {"en_US", "de_DE", "fa_IR"};
        device::ReplaceEnvironment({{"HANDSET_LOCALE", locales[current = wanted]}});
    }
    const std::wstring text = device::FromUtf8(std::string(data, data + size).substr(size > 0 ? 1 : 0));
    double value = -7;
    if (!ParseFieldFloat(text.c_str(), &value)) {
        Require(value == -7, "a refused text leaves the result alone");
        return 0;
    }
    const auto field = static_cast<float>(value) + 0.0F;
    Require(std::isfinite(value) && std::isfinite(field), "a number that was read is finite");
    double again = 0;
    constexpr int allDigits = 9;
    Require(ParseFieldFloat(PrintFieldFloat(field, allDigits).c_str(), &again), "what is printed can be read");
    Require(static_cast<float>(again) == field, "what is printed reads as the same number");
    return 0;
}
