#include "records/template_file.h"

#include "records/data_file.h"
#include "records/data_layer.h"

namespace {

struct ReadyMade {
    CKeyword::Type type;
    const wchar_t* name;
};

constexpr ReadyMade Keywords[] = {
    {CKeyword::KeywordTripCategory, L"Business"},
    {CKeyword::KeywordTripCategory, L"Charity"},
    {CKeyword::KeywordTripCategory, L"Commute"},
    {CKeyword::KeywordTripCategory, L"Medical"},
    {CKeyword::KeywordTripCategory, L"Personal"},
    {CKeyword::KeywordTripCategory, L"Vacation"},
    {CKeyword::KeywordRepair, L"Air filter"},
    {CKeyword::KeywordRepair, L"Battery"},
    {CKeyword::KeywordRepair, L"Brake pads"},
    {CKeyword::KeywordRepair, L"Coolant flush"},
    {CKeyword::KeywordRepair, L"Inspection"},
    {CKeyword::KeywordRepair, L"New tires"},
    {CKeyword::KeywordRepair, L"Oil change"},
    {CKeyword::KeywordRepair, L"Spark plugs"},
    {CKeyword::KeywordRepair, L"Tire rotation"},
    {CKeyword::KeywordRepair, L"Wiper blades"},
    {CKeyword::KeywordExpense, L"Car wash"},
    {CKeyword::KeywordExpense, L"Fine"},
    {CKeyword::KeywordExpense, L"Insurance"},
    {CKeyword::KeywordExpense, L"Loan payment"},
    {CKeyword::KeywordExpense, L"Parking"},
    {CKeyword::KeywordExpense, L"Registration"},
    {CKeyword::KeywordExpense, L"Toll"},
};

bool AddKeywords(CDataLayer& layer) {
    for (const ReadyMade& readyMade : Keywords) {
        CKeyword keyword;
        keyword.SetType(readyMade.type);
        keyword.SetName(readyMade.name);
        if (!layer.Save(&keyword, 0))
            return false;
    }
    return true;
}

} // namespace

bool MakeTemplateFile(const std::string& path) {
    CDataLayer layer;
    return CDataFile::Create(path) && layer.ConnectHostFile(path) == CDataLayer::ConnectOK
        && layer.InOneTransaction([&] { return AddKeywords(layer); });
}
