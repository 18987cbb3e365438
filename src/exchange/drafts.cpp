#include "exchange/drafts.h"

#include "exchange/written_values.h"
#include "platform/utf8.h"

#include <algorithm>

namespace exchange {

std::size_t Drafts::VehicleOf(const std::string& name) {
    std::string single = name;
    const auto isSecondBlank = [](char left, char right) { return left == ' ' && right == ' '; };
    single.erase(std::unique(single.begin(), single.end(), isSecondBlank), single.end());
    const auto [found, isNew] = vehicles_.try_emplace(single, batch_.vehicles.size());
    if (isNew) {
        VehicleItem item{std::make_unique<CVehicle>()};
        item.record->SetName(device::FromUtf8(single).c_str());
        item.isNamed = !single.empty();
        batch_.vehicles.push_back(std::move(item));
    }
    return found->second;
}

void Drafts::ForEachRow(Table& table, const std::function<void(const CsvRow& row)>& work) {
    const auto width = static_cast<std::ptrdiff_t>(table.Titles().size());
    for (CsvRow& row : table.Rows()) {
        const auto isFull = [](const std::string& cell) { return !Trimmed(cell).empty(); };
        const bool isEmpty = std::none_of(row.cells.begin(), row.cells.end(), isFull);
        const bool isTooWide = static_cast<std::ptrdiff_t>(row.cells.size()) > width
            && std::any_of(row.cells.begin() + width, row.cells.end(), isFull);
        if (isTooWide)
            Fault(row.line, static_cast<int>(width) + 1, "the row has too many cells");
        else if (!isEmpty)
            work(row);
        row.cells = {};
    }
}

void MakeCharge(EntryDraft* draft, Drafts* drafts) {
    draft->otherThanFuel = "Charging";
    Append(&draft->notes, draft->volume.text + " kWh");
    drafts->Notice("electricity became an other expense", draft->line);
}

bool IsElectric(const std::string& unit) {
    return LowerCase(unit) == "kwh";
}

void Append(std::string* text, const std::string& more) {
    if (!text->empty() && !more.empty())
        *text += "; ";
    *text += more;
}

std::optional<UnitDistance> DistanceWritten(const std::string& written) {
    const std::string text = LowerCase(Trimmed(written));
    if (text.rfind("km", 0) == 0 || text.rfind("kilom", 0) == 0 || text == "км")
        return DistanceKilometres;
    const bool isMiles = text == "mi" || text == "mi." || text.rfind("mile", 0) == 0;
    return isMiles ? std::optional{DistanceMiles} : std::nullopt;
}

std::optional<UnitVolume> VolumeWritten(const std::string& written, bool* isGallons) {
    const std::string text = LowerCase(Trimmed(written));
    const auto has = [&](const char* part) { return text.find(part) != std::string::npos; };
    if (text == "l" || text.rfind("lit", 0) == 0 || text == "л")
        return VolumeLitres;
    if (!has("gal"))
        return std::nullopt;
    if (has("us"))
        return VolumeGallonsUS;
    if (has("uk") || has("imp"))
        return VolumeGallonsUK;
    *isGallons = true;
    return std::nullopt;
}

} // namespace exchange
