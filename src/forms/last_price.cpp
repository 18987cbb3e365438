#include "forms/last_price.h"

#include "settings/settings_key.h"

#include <cmath>

namespace {

constexpr const wchar_t* ValueName = L"LastPrice";

}

void LoadLastPrice(float* price) {
    { const CSettingsKey makesTheKey(CSettingsKey::Access::Write); }
    float stored = *price;
    CSettingsKey(CSettingsKey::Access::Read).Read(ValueName, &stored);
    // Four bytes of another hand may be no number at all, which the form could not take back.
    if (std::isfinite(stored))
        *price = stored;
}

void StoreLastPrice(float price) {
    CSettingsKey(CSettingsKey::Access::Write).Write(ValueName, price);
}
