#include "platform/resources.h"

#include <algorithm>
#include <cwchar>

namespace {
HINSTANCE runningModule = nullptr;
}

HINSTANCE GetModuleHandleW(const wchar_t* /*name*/) {
    return runningModule;
}

void device::SetModule(HINSTANCE module) {
    runningModule = module;
}

int LoadStringW(HINSTANCE module, UINT id, wchar_t* buffer, int size) {
    const Module* source = module != nullptr ? module : runningModule;
    if (source == nullptr || buffer == nullptr || size <= 0)
        return 0;
    buffer[0] = L'\0';
    const auto found = std::lower_bound(source->strings.begin(), source->strings.end(), id,
        [](const StringResource& resource, UINT wanted) { return resource.id < wanted; });
    if (found == source->strings.end() || found->id != id || found->text == nullptr)
        return 0;
    const std::size_t length = std::min(std::wcslen(found->text), static_cast<std::size_t>(size) - 1);
    std::wmemcpy(buffer, found->text, length);
    buffer[length] = L'\0';
    return static_cast<int>(length);
}
