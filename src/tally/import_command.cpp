#include "exchange/own_files.h"
#include "exchange/plain_text.h"
#include "exchange/read_file.h"
#include "platform/system/environment.h"
#include "platform/system/fresh_file.h"
#include "platform/time.h"
#include "platform/utf8.h"
#include "records/file_image.h"
#include "tally/commands.h"
#include "tally/failure.h"
#include "tally/log_batch.h"
#include "tally/result_file.h"
#include "tally/store_batch.h"
#include "tally/table.h"
#include "tally/transact.h"

#include <cstdio>
#include <sysexits.h>

namespace tally {
namespace {

struct Input {
    std::string path;
    std::wstring hash;
    exchange::FileFacts facts;
    exchange::Batch batch;
    std::size_t faultCount = 0;
};

std::string ReadBytes(const std::string& path) {
    constexpr std::size_t MostBytes = 1'000'000'000;
    device::FileDescriptor file;
    std::string bytes;
    LONG error = device::OpenToRead(path, file);
    if (error == 0)
        error = device::ReadWhole(file, MostBytes, bytes);
    if (error != 0)
        throw Failure(EX_NOINPUT, path + ": " + device::ReasonOf(error));
    return bytes;
}

/// Into the units of the log. What neither the file nor an option says is not guessed.
void UseUnitsOfLog(Input* input, const Request& request) {
    exchange::Batch& batch = input->batch;
    if (!batch.distance)
        batch.distance = request.distance;
    if (!batch.volume)
        batch.volume = request.volume;
    if (!batch.distance && DistanceSetting())
        throw Failure(EX_USAGE, input->path + ": are its readings miles or kilometres? Say --distance mi or km");
    if (!batch.volume && VolumeSetting())
        throw Failure(EX_USAGE, input->path + ": are its volumes litres or gallons? Say --volume l, usgal or ukgal");
    exchange::ConvertUnits(&batch, DistanceSetting().value_or(batch.distance.value_or(DistanceMiles)),
        VolumeSetting().value_or(batch.volume.value_or(VolumeLitres)));
}

Input ReadInput(const std::string& path, const Request& request, Surroundings& surroundings) {
    Input input;
    input.path = path;
    const std::string bytes = ReadBytes(path);
    char hash[32];
    std::snprintf(hash, sizeof hash, "%016llx", static_cast<unsigned long long>(HashOf(bytes)));
    input.hash = device::FromUtf8(hash);
    input.facts = exchange::ReadFile(bytes, &input.batch);
    if (input.facts.format.empty())
        throw Failure(EX_DATAERR, path + ": this is no file of a kind that can be read");
    for (const exchange::Fault& fault : input.batch.faults)
        surroundings.err << path << ':' << fault.line << ':' << fault.cell << ": " << fault.reason << '\n';
    input.faultCount = input.batch.faults.size();
    if (!request.vehicle.empty() && input.batch.vehicles.size() > 1)
        throw Failure(EX_USAGE, path + ": the file has several vehicles, which cannot all be the one of --vehicle");
    if (input.faultCount == 0 || request.skipsFaulty || request.isDryRun)
        UseUnitsOfLog(&input, request);
    return input;
}

std::wstring Now() {
    SYSTEMTIME time;
    double now = 0;
    GetLocalTime(&time);
    SystemTimeToVariantTime(&time, &now);
    return device::FromUtf8(exchange::PlainDate(now));
}

/// The log as it was before the transaction that is under way, beside the daily copies. The ten newest stay.
void KeepFormerLog(const std::string& path, LONGLONG number) {
    constexpr LONGLONG MostCopies = 10;
    const std::string folder = device::TheEnvironment().copiesFolder;
    const auto nameOf = [&](LONGLONG of) { return folder + "/before-import-" + std::to_string(of) + ".dat"; };
    if (const LONG error = device::MakeFolders(folder))
        throw Failure(EX_CANTCREAT, folder + ": " + device::ReasonOf(error) + "; nothing was changed");
    const CFileImage image(path);
    if (!image)
        throw Failure(EX_IOERR, path + ": the log cannot be copied; nothing was changed");
    WriteFile(nameOf(number), image.Bytes(), IsSoundFile);
    std::remove(nameOf(number - MostCopies).c_str());
}

class Importing {
public:
    Importing(const Request& request, std::string path)
        : request_(request)
        , path_(std::move(path)) { }

    /// True when everything is to stay.
    bool Store(std::vector<Input> inputs) {
        for (Input& input : inputs)
            Store(std::move(input));
        return !request_.isDryRun && added_ > 0;
    }

    LONGLONG Added() const { return added_; }
    const std::string& Listing() const { return listing_; }
    const std::string& Words() const { return words_; }

private:
    void Store(Input input) {
        Stored stored = StoreBatch(std::move(input.batch), request_.vehicle);
        const auto count = static_cast<LONGLONG>(
            stored.added.entries.size() + stored.added.reminders.size() + stored.added.keywords.size());
        CImportBatch batch{0, Now(), device::FromUtf8(input.path), device::FromUtf8(input.facts.format), input.hash,
            count, stored.alreadyThere, static_cast<LONGLONG>(input.faultCount)};
        const bool isAny = !stored.records.empty();
        if (isAny && !request_.isDryRun) {
            RequireStored(CCompanionTables::Add(&batch, stored.records));
            if (added_ == 0)
                KeepFormerLog(path_, batch.Number);
        }
        added_ += isAny ? static_cast<LONGLONG>(stored.records.size()) : 0;
        Tell(input, batch);
        if (request_.isDryRun)
            listing_ += exchange::WriteOwnCsv(stored.added);
    }

    void Tell(const Input& input, const CImportBatch& batch) {
        words_ += input.path + ": " + input.facts.format + (input.facts.isUtf8 ? "" : ", taken for Windows-1252") + "; "
            + std::to_string(batch.Added) + (request_.isDryRun ? " records would be added, " : " records added, ")
            + std::to_string(batch.AlreadyThere) + " already there";
        if (batch.Faulty != 0)
            words_ += ", " + std::to_string(batch.Faulty) + " faults";
        if (batch.Number != 0)
            words_ += " (import " + std::to_string(batch.Number) + ')';
        words_ += '\n';
    }

    const Request& request_;
    std::string path_;
    LONGLONG added_ = 0;
    std::string listing_;
    std::string words_;
};

} // namespace

int Import(const Request& request, Surroundings& surroundings) {
    const std::string path = PathOfLog(request.file);
    const OpenLog log(path);
    std::vector<Input> inputs;
    bool hasFaults = false;
    for (const std::string& file : request.files) {
        inputs.push_back(ReadInput(file, request, surroundings));
        hasFaults = hasFaults || inputs.back().faultCount != 0;
    }
    if (hasFaults && !request.skipsFaulty && !request.isDryRun)
        throw Failure(EX_DATAERR, "nothing was imported; --skip-faulty leaves the faulty rows out");
    Importing importing(request, path);
    Transact([&] { return importing.Store(std::move(inputs)); });
    surroundings.err << importing.Words() << std::flush;
    if (request.isDryRun)
        Deliver(importing.Listing(), request, surroundings);
    else if (importing.Added() > 0)
        surroundings.tellProgram();
    if (hasFaults && !request.skipsFaulty)
        return EX_DATAERR;
    return importing.Added() > 0 ? EX_OK : NothingToDo;
}

int Imports(const Request& request, Surroundings& surroundings) {
    const OpenLog log(PathOfLog(request.file));
    std::vector<CImportBatch> batches;
    RequireLoaded(CCompanionTables::Load(&batches));
    Table table({{"number", L"No.", true}, {"time", L"Time"}, {"file", L"File"}, {"format", L"Format"},
        {"added", L"Added", true}, {"already_there", L"There", true}, {"faulty", L"Faulty", true}, {"undone", L""},
        {"hash", L"", false, Table::For::Programs}});
    const auto whole = [](LONGLONG value) { return WholeCell(std::to_wstring(value), value); };
    for (const CImportBatch& batch : batches)
        table.Add({whole(batch.Number), TextCell(batch.Time), TextCell(batch.File), TextCell(batch.Format),
            whole(batch.Added), whole(batch.AlreadyThere), whole(batch.Faulty),
            {batch.IsUndone ? L"undone" : L"", LONGLONG{batch.IsUndone ? 1 : 0}}, TextCell(batch.Hash)});
    if (batches.empty() && request.format == Format::Text)
        return NothingToDo;
    Deliver(table.Write(request.format, surroundings.hasColours && request.output.empty()), request, surroundings);
    return batches.empty() ? NothingToDo : EX_OK;
}

} // namespace tally
