#include "resources/string_table.h"

#include "resources/string_ids.h"
#include "resources/support_text.h"

namespace {

constexpr StringResource Table[] = {
    {strings::AppName, L"Odoledger"},
    {strings::SupportText, SupportText},
    {strings::MyVehicles, L"My Vehicles"},
    {strings::NoActiveVehicle, L"<No Active Vehicle>"},
    {strings::ColumnName, L"Name"},
    {strings::ColumnDate, L"Date"},
    {strings::ColumnDescription, L"Description"},
    {strings::ColumnOdometer, L"Odometer"},
    {strings::ColumnAmount, L"Amount"},
    {strings::InvalidDataFile, L"%s is not a valid database for this version of Odoledger."},
    {strings::ReadOnlyDataFile,
        L"%s is a read-only file. Remove the read-only attribute of this file before opening it using Odoledger."},
    {strings::DataFileName, L"My Vehicles.dat"},
    {strings::NameRequired, L"A name is required."},
    {strings::ReminderCreated, L"The reminder has been created successfully."},
    {strings::EntryProperties, L"Entry Properties"},
    {strings::DescriptionRequired, L"A description is required."},
    {strings::EndOdometerBelowStart, L"End odometer must be greater than start odometer."},
    {strings::ConfirmDeleteEntry, L"Do you want to permanently delete the selected entry?"},
    {strings::ConfirmDeleteEntries, L"Do you want to permanently delete the selected entries?"},
    {strings::ConfirmDeleteVehicle,
        L"Do you want to permanently delete the selected vehicle and all data associated with it?"},
    {strings::EmptyList, L"There are no items in this list."},
    {strings::TemplateFileName, L"Default.ENU"},
    {strings::CannotCreateDataFile, L"Cannot create new data file %s. Please try again."},
    {strings::EndDateBeforeStart, L"End date must be greater than start date."},
    {strings::TripCategories, L"Categories"},
    {strings::RepairKeywords, L"Repairs and Maintenance"},
    {strings::ExpenseKeywords, L"Expenses"},
    {strings::FuelVendors, L"Fuel Vendors"},
    {strings::StatsAverageEconomy, L"Average fuel economy:"},
    {strings::StatsRecentEconomy, L"Most recent fuel economy:"},
    {strings::StatsDistance, L"Distance traveled:"},
    {strings::StatsFuelConsumed, L"Total fuel consumed:"},
    {strings::StatsConsumptionRate, L"Fuel consumption rate:"},
    {strings::StatsTotalExpense, L"Total overall expense:"},
    {strings::StatsCostOfOwnership, L"Cost of ownership:"},
    {strings::AllDates, L"All Dates"},
    {strings::NotAvailable, L"N/A"},
    {strings::StatsDateRange, L"Date range:"},
    {strings::SortAscending, L"Ascending"},
    {strings::SortDescending, L"Descending"},
    {strings::TextSizeAutomatic, L"(Automatic)"},
    {strings::TextSizeSmall, L"Small (10 pt)"},
    {strings::TextSizeMedium, L"Medium (12 pt)"},
    {strings::TextSizeLarge, L"Large (14 pt)"},
    {strings::SyncConnected, L"Odoledger cannot be used while ActiveSync is connected."},
    {strings::NumGallons, L"Num gallons:"},
    {strings::NumLitres, L"Num litres:"},
    {strings::CostPerGallon, L"Cost per gallon:"},
    {strings::CostPerLitre, L"Cost per litre:"},
    {strings::GallonsUS, L"Gallons (US)"},
    {strings::GallonsUSShort, L"Gal"},
    {strings::GallonsUK, L"Gallons (UK)"},
    {strings::GallonsUKShort, L"Gal"},
    {strings::Litres, L"Litres"},
    {strings::LitresShort, L"Ltr"},
    {strings::Miles, L"Miles"},
    {strings::MilesShort, L"Mi"},
    {strings::Kilometres, L"Kilometres"},
    {strings::KilometresShort, L"Km"},
    {strings::MilesPerGallonUS, L"Miles per gallon (US)"},
    {strings::MilesPerGallonUK, L"Miles per gallon (UK)"},
    {strings::KilometresPerLitre, L"Kilometres per litre"},
    {strings::MilesPerLitre, L"Miles per litre"},
    {strings::CheckUnits, L"Please press Menu > Options and verify the units for distance  and volume."},
    {strings::StatsAverageFuelCost, L"Average fuel cost:"},
    {strings::StatsFuelExpense, L"Total fuel expense:"},
    {strings::ChangeNotStored, L"The change could not be stored."},
    {strings::NoSpaceCause, L"The disk is full. Please make room and try again."},
    {strings::ReadOnlyCause, L"The data file or its folder is read-only. Please allow writing and try again."},
    {strings::LockedCause, L"Another program is using the data file. Please end it and try again."},
    {strings::ReplacedCause,
        L"The data file was moved or replaced. Put it back, or go on with the one that is there now."},
    {strings::GoneCause, L"Another program has deleted the record."},
    {strings::NoMemoryCause, L"There is not enough memory. Please end other programs and try again."},
    {strings::OtherCause, L"The disk reported an error. Please check it and try again."},
    {strings::NotEnoughMemory, L"There is not enough memory for this."},
};

constexpr bool IsAscending = [] {
    for (std::size_t i = 1; i < std::size(Table); ++i)
        if (Table[i - 1].id >= Table[i].id)
            return false;
    return true;
}();
static_assert(IsAscending, "the device searches the Table by halves");

} // namespace

std::span<const StringResource> StringTable() {
    return Table;
}
