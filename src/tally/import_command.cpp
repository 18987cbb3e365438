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
#include "tally/unpack_zip.h"

#include <algorithm>
#include <cstdio>
#include <sysexits.h>

namespace tally {
namespace {

/// What was read of a file, or of one within an archive.
struct Member {
    std::string name; ///< with the path before it
    exchange::FileFacts facts;
};

struct Input {
    std::string path;
    std::wstring hash;
    std::vector<Member> members;
    exchange::Batch batch;
    bool hasQuestions = false;
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

/// Into the units of the log, for files of our own. What neither the file nor an option says is asked.
void UseUnitsOfLog(exchange::Batch* batch, const exchange::ReadingOptions& options, exchange::FileFacts* facts) {
    if (!batch->distance)
        batch->distance = options.distance;
    if (!batch->volume)
        batch->volume = options.volume;
    const bool hasNumbers = !batch->entries.empty() || !batch->reminders.empty();
    if (hasNumbers && !batch->distance && DistanceSetting())
        facts->questions.emplace_back("are its readings miles or kilometres? Say --distance mi or km");
    if (hasNumbers && !batch->volume && VolumeSetting())
        facts->questions.emplace_back("are its volumes litres or gallons? Say --volume l, usgal or ukgal");
    exchange::ConvertUnits(batch, DistanceSetting().value_or(batch->distance.value_or(DistanceMiles)),
        VolumeSetting().value_or(batch->volume.value_or(VolumeLitres)));
}

/// "lines 3, 4, 5 and 12 more"
std::string LinesOf(const std::vector<int>& lines) {
    constexpr std::size_t Most = 5;
    std::string words = lines.size() == 1 ? "line " : "lines ";
    for (std::size_t i = 0; i < std::min(lines.size(), Most); ++i)
        words.append(i == 0 ? "" : ", ").append(std::to_string(lines[i]));
    if (lines.size() > Most)
        words += " and " + std::to_string(lines.size() - Most) + " more";
    return words;
}

std::string Joined(const std::vector<std::string>& parts, const char* between) {
    std::string text;
    for (const std::string& part : parts)
        if (!part.empty())
            text.append(text.empty() ? "" : between).append(part);
    return text;
}

/// How a file is written, as far as that was seen.
std::string WordsOf(const exchange::FileFacts& facts) {
    const auto behind = [](const std::string& word, const char* more) { return word.empty() ? "" : word + more; };
    return Joined(
        {facts.format + (facts.variant.empty() ? "" : " (" + facts.variant + ')'), facts.encoding,
            behind(facts.separator, " between cells"), facts.decimal.empty() ? "" : "decimal " + facts.decimal,
            behind(facts.dates, " in dates"), Joined({facts.distance, facts.volume}, ", ")},
        "; ");
}

std::string VehiclesOf(const exchange::Batch& batch) {
    std::vector<std::string> names;
    for (const exchange::VehicleItem& item : batch.vehicles)
        names.push_back(item.isNamed ? device::ToUtf8(item.record->GetName()) : "(not named)");
    return names.empty() ? "none" : Joined(names, ", ");
}

void TellFaults(const Input& input, std::ostream& err) {
    for (const exchange::Fault& fault : input.batch.faults)
        err << input.path << (fault.member.empty() ? "" : "/") << fault.member << ':' << fault.line << ':' << fault.cell
            << ": " << fault.reason << '\n';
}

void TellFacts(const Input& input, bool isDryRun, std::ostream& err) {
    for (const Member& member : input.members) {
        const exchange::FileFacts& facts = member.facts;
        if (isDryRun)
            err << member.name << ": " << WordsOf(facts) << '\n';
        for (const std::string& words : facts.assumed)
            err << member.name << ": assumed: " << words << '\n';
        for (const auto& [words, lines] : facts.notices)
            err << member.name << ": " << (lines.empty() ? "" : LinesOf(lines) + ": ") << words << '\n';
        for (const std::string& words : facts.questions)
            err << member.name << ": " << words << '\n';
    }
    if (isDryRun)
        err << input.path << ": vehicles: " << VehiclesOf(input.batch) << '\n';
}

class InputReader {
public:
    InputReader(const Request& request, Surroundings& surroundings)
        : request_(request)
        , surroundings_(surroundings)
        , options_(request.reading) {
        options_.intoDistance = DistanceSetting();
        options_.intoVolume = VolumeSetting();
    }

    Input Read(const std::string& path) {
        surroundings_.progress("reading " + path);
        Input input;
        input.path = path;
        const std::string bytes = ReadBytes(path);
        char hash[32];
        std::snprintf(hash, sizeof hash, "%016llx", static_cast<unsigned long long>(HashOf(bytes)));
        input.hash = device::FromUtf8(hash);
        if (IsZip(bytes))
            ReadArchive(bytes, &input);
        else
            ReadText(bytes, "", &input);
        surroundings_.progress("");
        TellFaults(input, surroundings_.err);
        TellFacts(input, request_.isDryRun, surroundings_.err);
        if (!request_.vehicle.empty() && input.batch.vehicles.size() > 1)
            throw Failure(EX_USAGE, path + ": the file has several vehicles, which cannot all be the one of --vehicle");
        return input;
    }

private:
    void ReadArchive(const std::string& bytes, Input* input) {
        std::string others;
        const auto leaveOut = [&](const std::string& name) { others += (others.empty() ? "" : ", ") + name; };
        ForEachMember(
            bytes, input->path,
            [&](const std::string& name, const std::string& contents) {
                if (!ReadText(contents, name, input))
                    leaveOut(name);
            },
            leaveOut);
        if (input->members.empty())
            throw Failure(EX_DATAERR,
                input->path + ": the archive holds no file that can be read" + (others.empty() ? "" : ": " + others));
        if (!others.empty())
            surroundings_.err << input->path << ": left out: " << others << '\n';
    }

    /// False for a member of an archive that is no file of a kind that can be read.
    bool ReadText(const std::string& bytes, const std::string& member, Input* input) {
        const std::string name = input->path + (member.empty() ? "" : "/") + member;
        exchange::Batch batch;
        exchange::FileFacts facts = exchange::ReadFile(bytes, options_, &batch);
        if (!facts.refusal.empty() && !member.empty())
            return false;
        if (!facts.refusal.empty())
            throw Failure(EX_DATAERR, name + ": " + facts.refusal);
        UseUnitsOfLog(&batch, options_, &facts);
        for (exchange::Fault& fault : batch.faults)
            fault.member = member;
        std::stable_sort(batch.faults.begin(), batch.faults.end(),
            [](const exchange::Fault& left, const exchange::Fault& right) { return left.line < right.line; });
        input->hasQuestions = input->hasQuestions || !facts.questions.empty();
        input->members.push_back({name, std::move(facts)});
        exchange::Append(&input->batch, std::move(batch));
        return true;
    }

    const Request& request_;
    Surroundings& surroundings_;
    exchange::ReadingOptions options_;
};

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
    Importing(const Request& request, std::string path, const std::function<void(const std::string&)>& progress)
        : request_(request)
        , path_(std::move(path))
        , progress_(progress) { }

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
        const auto faults = static_cast<LONGLONG>(input.batch.faults.size());
        Stored stored = StoreBatch(std::move(input.batch), request_.vehicle, [&](std::size_t done, std::size_t all) {
            progress_(input.path + ": " + std::to_string(done) + " of " + std::to_string(all));
        });
        progress_("");
        const auto count = static_cast<LONGLONG>(
            stored.added.entries.size() + stored.added.reminders.size() + stored.added.keywords.size());
        CImportBatch batch{0, Now(), device::FromUtf8(input.path), device::FromUtf8(input.members.front().facts.format),
            input.hash, count, stored.alreadyThere, faults};
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
        words_ += input.path + ": " + input.members.front().facts.format + "; " + std::to_string(batch.Added)
            + (request_.isDryRun ? " records would be added, " : " records added, ")
            + std::to_string(batch.AlreadyThere) + " already there";
        if (batch.Faulty != 0)
            words_ += ", " + std::to_string(batch.Faulty) + " faults";
        if (batch.Number != 0)
            words_ += " (import " + std::to_string(batch.Number) + ')';
        words_ += '\n';
    }

    const Request& request_;
    std::string path_;
    const std::function<void(const std::string&)>& progress_;
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
    bool hasQuestions = false;
    InputReader reader(request, surroundings);
    for (const std::string& file : request.files) {
        inputs.push_back(reader.Read(file));
        hasFaults = hasFaults || !inputs.back().batch.faults.empty();
        hasQuestions = hasQuestions || inputs.back().hasQuestions;
    }
    if (hasQuestions)
        throw Failure(EX_USAGE, "nothing was imported; the file leaves open what the options above say");
    if (hasFaults && !request.skipsFaulty && !request.isDryRun)
        throw Failure(EX_DATAERR, "nothing was imported; --skip-faulty leaves the faulty rows out");
    Importing importing(request, path, surroundings.progress);
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
