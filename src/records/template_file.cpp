#include "records/template_file.h"

#include "records/data_file.h"
#include "records/keyword.h"
#include "records/record_access.h"

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

bool AddKeywords(CDataFile& file) {
    CTransaction transaction(file);
    for (const ReadyMade& readyMade : Keywords) {
        CKeyword keyword;
        keyword.SetType(readyMade.type);
        keyword.SetName(readyMade.name);
        ULONG refId = 0;
        if (!file.Run(Sql::TakeRef).SingleRow([&](CStatementRun& row) { refId = row.ReadKey(); }))
            return false;
        CStatementRun run = file.Run(Sql::InsertKeyword);
        run.Bind(LONGLONG{refId});
        RecordAccess::Bind(run, keyword);
        if (!run.SingleRow([](CStatementRun&) {}))
            return false;
    }
    return transaction.Commit();
}

} // namespace

bool MakeTemplateFile(const std::string& path) {
    auto status = CDataFile::Status::Failed;
    const std::unique_ptr<CDataFile> file = CDataFile::Create(path) ? CDataFile::Open(path, &status) : nullptr;
    return file && AddKeywords(*file);
}
