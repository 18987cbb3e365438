#include "platform/system/named_mutex.h"

#include "platform/system/environment.h"

#include <algorithm>
#include <memory>
#include <set>

namespace device {

namespace {

/// Of this process, which is the only one: the page sees to it that there is one for a log.
std::multiset<std::wstring>& OpenNames() {
    static auto* const names = new std::multiset<std::wstring>;
    return *names;
}

} // namespace

struct NamedMutex::Shares {
    std::multiset<std::wstring>::iterator place;
};

NamedMutex::NamedMutex() = default;

NamedMutex::~NamedMutex() {
    OpenNames().erase(shares_->place);
}

NamedMutex::Opened NamedMutex::Open(const std::wstring& name) {
    Opened result{std::unique_ptr<NamedMutex>{new NamedMutex}};
    const auto& preset = TheEnvironment().presetMutexes;
    result.existed = OpenNames().count(name) != 0 || std::find(preset.begin(), preset.end(), name) != preset.end();
    result.mutex->shares_ = std::make_unique<Shares>(Shares{OpenNames().insert(name)});
    return result;
}

} // namespace device
