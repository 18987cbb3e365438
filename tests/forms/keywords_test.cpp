#include "../records/faulty_disk.h"
#include "form_fixture.h"

#include "forms/dlg_expense.h"
#include "forms/dlg_keywords.h"
#include "forms/dlg_trip.h"
#include "forms/pick_keyword.h"
#include "platform/system/device_paths.h"
#include "records/data_file.h"
#include "records/data_layer.h"

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

class KeywordsTest : public FormTest {
protected:
    using Names = std::vector<std::wstring>;

    KeywordsTest() {
        std::filesystem::create_directories(Documents());
        CDataFile::Create(Documents() / "Log.dat");
        Connect();
        keywords.KeywordType = CKeyword::KeywordExpense;
    }
    ~KeywordsTest() override {
        theDataLayer.SetStringHelperFactory(nullptr);
        theDataLayer.Disconnect();
    }

    static void Connect() { ASSERT_EQ(theDataLayer.Connect(L"\\My Documents\\Log.dat"), CDataLayer::ConnectOK); }
    static void Store(const Names& names, CKeyword::Type type = CKeyword::KeywordExpense) {
        for (const std::wstring& name : names) {
            CKeyword keyword;
            keyword.SetType(type);
            keyword.SetName(name.c_str());
            ASSERT_TRUE(theDataLayer.Save(&keyword, 0));
        }
    }
    static Names Stored(CKeyword::Type type = CKeyword::KeywordExpense) {
        CObjectListT<CKeyword> all;
        EXPECT_TRUE(theDataLayer.Load(&all, type) || all.GetCount() == 0);
        Names names;
        for (int index = 0; index < all.GetCount(); ++index)
            names.emplace_back(all.Get(index)->GetName());
        return names;
    }
    static HWND List() { return GetDlgItem(GetActiveWindow(), controls::List); }
    static Names Shown() {
        Names names;
        for (LRESULT index = 0; index < SendMessageW(List(), LB_GETCOUNT, 0, 0); ++index) {
            const auto row = static_cast<WPARAM>(index);
            std::wstring text(static_cast<std::size_t>(SendMessageW(List(), LB_GETTEXTLEN, row, 0)) + 1, L'\0');
            SendMessageW(List(), LB_GETTEXT, row, reinterpret_cast<LPARAM>(text.data()));
            text.pop_back();
            names.push_back(text);
        }
        return names;
    }
    static Step Select(int index) {
        return [index] { SendMessageW(List(), LB_SETCURSEL, static_cast<WPARAM>(index), 0); };
    }
    Step Shows(Names names, int selected) {
        return [this, names, selected] {
            EXPECT_EQ(Shown(), names);
            EXPECT_EQ(SendMessageW(List(), LB_GETCURSEL, 0, 0), selected);
            EXPECT_EQ(GetFocus(), List());
        };
    }
    Step Add() { return Menu(1); }
    Step Edit() { return Menu(2); }
    Step Delete() { return Menu(3); }
    Step Cancel() { return Menu(4); }
    /// Each of these runs the list once and tells how it ended.
    LONG_PTR RunList(std::vector<Step> steps) {
        CDlgKeywords list;
        list.KeywordType = CKeyword::KeywordExpense;
        const LONG_PTR result = Run(list, std::move(steps));
        picked = list.Selection;
        return result;
    }

    CDlgKeywords keywords;
    std::wstring picked;
};

TEST_F(KeywordsTest, AnEmptyListOffersNothingButAddAndCancel) {
    EXPECT_EQ(RunList({Shows({}, -1), Done(), Press({VK_RETURN}), Edit(), Delete(), Shows({}, -1), Press({VK_TBACK}),
                  Add(), Done(), Shows({}, -1), Add(), Type(L"Wash"), Press({VK_TSOFT2}), Shows({}, -1), Cancel()}),
        2);
}

TEST_F(KeywordsTest, TheLifeOfAKeyword) {
    Store({L"Toll", L"ark"});
    Store({L"Other list"}, CKeyword::KeywordRepair);
    EXPECT_EQ(
        RunList({Shows({L"ark", L"Toll"}, 0), Add(), Type(L"Parking"), Done(), Shows({L"ark", L"Parking", L"Toll"}, 1),
            Edit(), [] { EXPECT_EQ(Selected(), L"Parking") << "typing replaces it"; }, Type(L"Z\u00fcrich"),
            Press({VK_RETURN}), Shows({L"ark", L"Z\u00fcrich", L"Toll"}, 1), Cancel()}),
        2);
    EXPECT_EQ(picked, L"");
    EXPECT_EQ(Stored(), (Names{L"Toll", L"ark", L"Z\u00fcrich"}));
    EXPECT_EQ(RunList({Shows({L"ark", L"Toll", L"Z\u00fcrich"}, 0), Select(2), Delete(), Shows({L"ark", L"Toll"}, 1),
                  Select(0), Delete(), Shows({L"Toll"}, 0), Press({VK_RETURN})}),
        1);
    EXPECT_EQ(picked, L"Toll");
    EXPECT_EQ(RunList({Delete(), Shows({}, -1), Done(), Cancel()}), 2);
    EXPECT_EQ(Stored(), Names{});
    EXPECT_EQ(Stored(CKeyword::KeywordRepair), Names{L"Other list"});
}

TEST_F(KeywordsTest, OnlyTheSameNameIsADuplicate) {
    Store({L"Wash"});
    constexpr struct {
        const wchar_t* name;
        bool isNew;
    } Rows[] = {{L"Wash", false}, {L"wash", true}, {L"Wash ", true}, {L" Wash", true}, {L"Caf\u00e9", true},
        {L"Cafe\u0301", true}, {L"Caf\u00e9", false}, {L"   ", true}, {L"\U0001F698", true}};
    std::vector<Step> script;
    std::size_t count = 1;
    for (const auto& row : Rows) {
        for (const Step& step : {Add(), Type(row.name), Done()})
            script.push_back(step);
        count += row.isNew ? 1 : 0;
        script.emplace_back([&row, count] {
            EXPECT_EQ(Shown().size(), count) << row.name;
            EXPECT_EQ(Stored().size(), count);
        });
    }
    // A keyword matches itself: nothing is stored for an unchanged text, nor for one that is taken.
    for (const wchar_t* name : {L"Wash", L"wash"}) {
        for (const Step& step : {Select(0), Edit(), Type(name), Done()})
            script.push_back(step);
    }
    Names before;
    script.insert(script.begin() + static_cast<std::ptrdiff_t>(script.size()) - 8, [&] { before = Stored(); });
    script.emplace_back([&] { EXPECT_EQ(Stored(), before); });
    script.push_back(Cancel());
    EXPECT_EQ(RunList(script), 2);
}

TEST_F(KeywordsTest, NamesEndAtThirtyCharactersAndBackDeletesOne) {
    const std::wstring thirty(30, L'\u00df');
    const auto name = [] { return GetDlgItem(GetActiveWindow(), FirstText); };
    EXPECT_EQ(RunList({Add(), Type(thirty + L"x"), [&] { EXPECT_EQ(GetWindowTextLengthW(name()), 30); }, Done(),
                  Shows({thirty}, 0), Edit(), Press({VK_END, VK_TBACK}),
                  [&] {
                      EXPECT_EQ(GetWindowTextLengthW(name()), 29) << "one character for a press";
                      Press({VK_TBACK, VK_TBACK})();
                  },
                  [&] {
                      EXPECT_EQ(GetWindowTextLengthW(name()), 27);
                      Press({VK_TSOFT2})();
                  },
                  Shows({thirty}, 0), Cancel()}),
        2);
    Store({std::wstring(31, L'y')}); // a file from elsewhere may hold a longer one
    EXPECT_EQ(RunList({Shows({thirty, std::wstring(31, L'y')}, 0), Select(1), Done()}), 1);
    EXPECT_EQ(picked, std::wstring(31, L'y'));
}

TEST_F(KeywordsTest, FailuresLeaveTheListAsItWas) {
    Store({L"One", L"Two"});
    theDataLayer.Disconnect();
    FaultyDisk disk;
    Connect();
    EXPECT_EQ(RunList({[&] { disk.FailFrom(0); }, Add(), Type(L"New"), Done(), Shows({L"One", L"Two"}, 0), Edit(),
                  Type(L"Three"), Done(), Shows({L"One", L"Two"}, 0), Delete(), Shows({L"One", L"Two"}, 0),
                  [&] {
                      EXPECT_TRUE(disk.HasFailed());
                      disk.Mend();
                      theDataLayer.SetStringHelperFactory(std::make_unique<UnreadableTexts>());
                  },
                  Add(), Type(L"New"), Done(), Edit(), Type(L"Three"), Done(), Shows({L"One", L"Two"}, 0), Cancel()}),
        2);
    EXPECT_EQ(RunList({Shows({}, -1), Cancel()}), 2) << "a list that cannot be loaded is empty";
    theDataLayer.SetStringHelperFactory(nullptr);
    EXPECT_EQ(Stored(), (Names{L"One", L"Two"})) << "nothing is stored without a list to compare with";
    theDataLayer.Disconnect();
}

TEST_F(KeywordsTest, EachListHasItsTitle) {
    constexpr std::pair<int, const wchar_t*> Rows[] = {{1, L"Categories"}, {2, L"Repairs and Maintenance"},
        {3, L"Expenses"}, {4, L"Fuel Vendors"}, {0, L"#"}, {5, L"#"}};
    for (const auto& [type, title] : Rows) {
        CDlgKeywords list;
        list.KeywordType = static_cast<CKeyword::Type>(type);
        Run(list,
            {[title = title] {
                 wchar_t text[64] = {};
                 GetWindowTextW(GetActiveWindow(), text, 64);
                 EXPECT_STREQ(text, title);
             },
                Cancel()});
    }
}

TEST_F(KeywordsTest, ActionInTheFieldOpensTheListThreeLoopsDeep) {
    CDlgExpense form;
    std::vector<HWND> levels;
    EXPECT_EQ(Run(form,
                  {Put(Vendor, L"typed"), Focus(FirstText), Put(FirstText, L"old"), Press({VK_RETURN}), Add(),
                      [&] {
                          levels = {Form(), GetActiveWindow()};
                      },
                      Type(L"Toll"), Press({VK_RETURN}),
                      [&] { EXPECT_NE(GetActiveWindow(), Form()) << "the same press ends one dialog alone"; },
                      Press({VK_RETURN}),
                      [&] {
                          EXPECT_EQ(GetActiveWindow(), Form());
                          EXPECT_FALSE(IsWindow(levels[1]));
                          EXPECT_EQ(FocusedId(), FirstText);
                          EXPECT_EQ(TextOf(FirstText), L"Toll");
                          EXPECT_EQ(TextOf(Vendor), L"typed");
                      },
                      Press({VK_RETURN}), Delete(), Cancel(),
                      [&] { EXPECT_EQ(TextOf(FirstText), L"Toll") << "the field keeps its text"; }, Focus(Date),
                      Press({VK_RETURN}), [&] { EXPECT_EQ(GetActiveWindow(), Form()) << "no other field has a list"; },
                      Done()}),
        1);
    EXPECT_EQ(form.Description, L"Toll");
    EXPECT_EQ(Stored(), Names{});
}

TEST_F(KeywordsTest, PickKeywordLeavesTheTextAloneOnCancel) {
    Store({L"Work"}, CKeyword::KeywordTripCategory);
    std::wstring text = L"before";
    host.steps = {Cancel()};
    EXPECT_FALSE(PickKeyword(CKeyword::KeywordTripCategory, text));
    EXPECT_EQ(text, L"before");
    host.steps = {Done()};
    EXPECT_TRUE(PickKeyword(CKeyword::KeywordTripCategory, text));
    EXPECT_EQ(text, L"Work");
}
