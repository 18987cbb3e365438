#include "fuzz_device.h"

#include <fstream>
#include <iterator>

/// Every file of the folder that is named, for compilers without a fuzzer.
int main(int count, char** arguments) {
    int replayed = 0;
    for (const auto& file : std::filesystem::directory_iterator(count > 1 ? arguments[1] : ".")) {
        std::ifstream stream(file.path(), std::ios::binary);
        const std::string input{std::istreambuf_iterator<char>(stream), {}};
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
        ++replayed;
    }
    return replayed > 0 ? 0 : 1;
}
