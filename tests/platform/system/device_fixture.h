#pragma once

#include "platform/system/environment.h"
#include "platform/system/troubles.h"

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <sys/resource.h>

/// A device of its own for each test, in a folder that goes away with it.
class DeviceTest : public testing::Test {
protected:
    DeviceTest() {
        std::string name = "/tmp/device-test-XXXXXX";
        folder_ = mkdtemp(name.data());
        std::filesystem::create_directory(folder_ / "run");
        variables_ = {{"HANDSET_STORAGE", folder_ / "storage"}, {"XDG_RUNTIME_DIR", folder_ / "run"}};
        device::ReplaceEnvironment(variables_);
    }
    ~DeviceTest() override {
        device::TellTroubles(); // no other test's
        device::ReplaceEnvironment({});
        std::filesystem::remove_all(folder_);
    }

    void Set(const char* name, const std::string& value) {
        variables_[name] = value;
        device::ReplaceEnvironment(variables_);
        ASSERT_EQ(device::EnvironmentError(), std::nullopt);
    }

    std::filesystem::path Storage() const { return folder_ / "storage"; }
    std::filesystem::path Documents() const { return folder_ / "storage" / "My Documents"; }

    static void Write(const std::filesystem::path& file, const std::string& contents) {
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << contents;
    }
    static std::string Read(const std::filesystem::path& file) {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    static std::size_t CountFiles(const std::filesystem::path& folder) {
        const std::filesystem::directory_iterator all{folder};
        return static_cast<std::size_t>(std::distance(begin(all), end(all)));
    }

    /// What `work` gives while no file can grow beyond `size`.
    template <typename Work> static auto WithoutRoom(rlim_t size, Work work) {
        rlimit before{};
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit full{size, before.rlim_max};
        const auto handler = std::signal(SIGXFSZ, SIG_IGN);
        setrlimit(RLIMIT_FSIZE, &full);
        const auto result = work();
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
        return result;
    }

    std::filesystem::path folder_;
    device::Variables variables_;
};
