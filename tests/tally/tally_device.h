#pragma once

#include "../records/log_file.h"
#include "../records/test_device.h"
#include "console_process.h"
#include "resources/module.h"
#include "settings/app_settings.h"
#include "tally/commands.h"

#include <sstream>
#include <sysexits.h>

struct Outcome {
    int status;
    std::string out;
    std::string err;
};

/// A device with an empty log, on which the companion is run.
class TallyDevice : public TestDevice {
protected:
    TallyDevice() {
        device::SetModule(OdoledgerModule());
        theSettings.DBPath[0] = L'\0';
        theSettings.UnitDistance = theSettings.UnitVolume = theSettings.UnitFuelEconomy = 0;
        CDataFile::Create(HostPath());
    }
    ~TallyDevice() override { device::SetModule(nullptr); }

    Outcome Run(const Lines& arguments) {
        std::ostringstream out;
        std::ostringstream err;
        tally::Surroundings surroundings{
            out, err, false, [this](const std::string& words) { Progress = words; }, [this] { ++Told; }};
        const int status = tally::Run(arguments, surroundings);
        return {status, out.str(), err.str()};
    }
    Outcome Import(const std::string& contents, Lines options = {}) {
        const std::string path = folder_ / "in";
        Write(path, contents);
        options.insert(options.begin(), "import");
        options.push_back(path);
        return Run(options);
    }
    static void Empty() {
        std::filesystem::remove(HostPath());
        CDataFile::Create(HostPath());
    }
    /// For other processes on this device.
    ConsoleProcess::Surroundings Surroundings() const {
        return {{"HANDSET_STORAGE", Storage()}, {"HANDSET_LOCALE", "en_US"}, {"TZ", "UTC"},
            {"XDG_RUNTIME_DIR", folder_ / "run"}};
    }
    static std::string Sql(const std::string& sql) { return LogFile(HostPath()).Run(sql); }

    std::string Progress; ///< the line that stands at the end
    int Told = 0; ///< how often the running program was told of a change
};
