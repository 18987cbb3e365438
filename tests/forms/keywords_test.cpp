#include "../lists/dialog_device.h"

#include "forms/dlg_keywords.h"

using namespace controls;

namespace {

/// A data file that can be written and no longer read.
class UnreadableTexts : public CStringHelperFactory {
    struct Helper : CDefaultStringHelper {
        const wchar_t* Decode(const char* /*text*/) override { throw std::bad_alloc(); }
        using CDefaultStringHelper::Decode;
    };

public:
    std::unique_ptr<CStringHelper> Create() override { return std::make_unique<Helper>(); }
};

} // namespace

class KeywordsTest : public DialogDevice {
protected:
    using Names = std::vector<std::wstring>;

    ~KeywordsTest() override { Layer.SetStringHelperFactory(nullptr); }

    void Store(const Names& names) {
        for (const std::wstring& name : names) {
            CKeyword keyword;
            keyword.SetType(CKeyword::KeywordExpense);
            keyword.SetName(name.c_str());
            ASSERT_TRUE(Layer.Save(&keyword, 0));
        }
    }
    Names Stored() { return NamesOf<CKeyword>(CKeyword::KeywordExpense); }
    static LRESULT Count() { return SendMessageW(Item(List), LB_GETCOUNT, 0, 0); }
    Step Shows(const std::wstring& rows) {
        return [this, rows] {
            EXPECT_EQ(Count(), rows.empty() ? 0 : 2);
            EXPECT_TRUE(DialogDevice::Shows(rows));
        };
    }
    Step Add() { return Menu(1); }
    Step Edit() { return Menu(2); }
    /// Runs the list once and tells how it ended.
    LONG_PTR RunList(const std::vector<Step>& steps) {
        CDlgKeywords list;
        list.KeywordType = CKeyword::KeywordExpense;
        return Run(list, steps);
    }
};

TEST_F(KeywordsTest, OnlyTheSameNameIsADuplicate) {
    Store({L"Wash"});
    constexpr std::pair<const wchar_t*, bool> Rows[] = {{L"Wash", false}, {L"", false}, {L"Wash ", true},
        {L"Caf\u00e9", true}, {L"Cafe\u0301", true}, {L"Caf\u00e9", false}, {L"   ", true}, {L"wash", true}};
    std::vector<Step> script;
    LRESULT count = 1;
    for (const auto& row : Rows) {
        count += row.second ? 1 : 0;
        const Step check = [&row, count] { EXPECT_EQ(Count(), count) << row.first; };
        script.insert(script.end(), {Add(), Type(row.first), Done(), check});
    }
    // A keyword matches itself: nothing is stored for an unchanged text, nor for one that is taken.
    Names before;
    script.emplace_back([&] { before = Stored(); });
    const Step first = [] { SendMessageW(Item(List), LB_SETCURSEL, 0, 0); };
    for (const wchar_t* name : {L"Wash", L"wash"})
        script.insert(script.end(), {first, Edit(), Type(name), Done()});
    script.push_back(CancelByMenu());
    EXPECT_EQ(RunList(script), 2);
    EXPECT_EQ(before.size(), 6U);
    EXPECT_EQ(Stored(), before);
}

TEST_F(KeywordsTest, WithoutAListToCompareWithNothingIsStored) {
    Store({L"One", L"Two"});
    const Step same = Shows(L"One Two");
    EXPECT_EQ(RunList({[&] { Layer.SetStringHelperFactory(std::make_unique<UnreadableTexts>()); }, Add(), Type(L"New"),
                  Done(), Edit(), Type(L"Three"), Done(), same, CancelByMenu()}),
        2);
    EXPECT_EQ(RunList({Shows(L""), CancelByMenu()}), 2) << "a list that cannot be loaded is empty";
    Layer.SetStringHelperFactory(nullptr);
    EXPECT_EQ(Stored(), (Names{L"One", L"Two"}));
}
