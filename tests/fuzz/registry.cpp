#include "platform/registry.h"
#include "fuzz_device.h"
#include "platform/system/registry_file.h"

#include <fstream>
#include <map>

namespace {

using Values = std::map<std::wstring, std::pair<DWORD, std::vector<BYTE>>>;
constexpr const wchar_t* Key = L"Software\\Larkfield Software\\Odoledger";

Values ValuesIn(const std::string& path) {
    Values values;
    for (const device::NamedRegistryValue& each : device::RegistryFile{path}.List(Key)) {
        Require(values.count(each.name) == 0, "each value has one name");
        values[each.name] = {each.value.type, each.value.data};
    }
    return values;
}

} // namespace

/// The input is a registry file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static FuzzDevice device;
    const std::string given = device.Folder + "/given";
    const std::string copy = device.Folder + "/copy";
    const std::string input(data, data + size);
    std::ofstream(given, std::ios::binary) << input;
    const Values values = ValuesIn(given);
    std::vector<device::RegistryChange> changes;
    for (const auto& [name, value] : values)
        changes.push_back({Key, name, device::RegistryValue{value.first, value.second}});
    Require(device::RegistryFile::Change(copy, changes) == ERROR_SUCCESS, "what was read can be written");
    Require(ValuesIn(copy) == values, "and is the same when it is read again");

    const auto number = device::RegistryValue::OfNumber(7);
    Require(device::RegistryFile::Change(given, {{Key, L"7", number}}) == ERROR_SUCCESS, "a value can be set");
    Values changed = values;
    changed[L"7"] = {number.type, number.data};
    Require(ValuesIn(given) == changed, "and the others stay");
    for (const auto& file : std::filesystem::directory_iterator(device.Folder))
        std::filesystem::remove(file.path());
    return 0;
}
