#include "../lists/dialog_device.h"

#include "forms/dlg_keywords.h"
#include "resources/load_text.h"

using namespace controls;

using KeywordsTest = DialogDevice;

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

TEST_F(KeywordsTest, OnlyTheSameNameIsADuplicate) {
    CKeyword wash;
    wash.SetType(CKeyword::KeywordExpense);
    wash.SetName(L"Wash");
    ASSERT_TRUE(Layer.Save(&wash, 0));
    const auto stored = [this] { return NamesOf<CKeyword>(CKeyword::KeywordExpense); };
    constexpr std::pair<const wchar_t*, bool> Rows[] = {{L"Wash", false}, {L"", false}, {L"Wash ", true},
        {L"Caf\u00e9", true}, {L"Cafe\u0301", true}, {L"Caf\u00e9", false}, {L"   ", true}, {L"wash", true}};
    std::vector<Step> script;
    LRESULT count = 1;
    for (const auto& row : Rows) {
        count += row.second ? 1 : 0;
        const Step check
            = [&row, count] { EXPECT_EQ(SendMessageW(Item(List), LB_GETCOUNT, 0, 0), count) << row.first; };
        script.insert(script.end(), {Menu(1), Type(row.first), Done(), check});
    }
    // A keyword matches itself: nothing is stored for an unchanged text, nor for one that is taken, without a word.
    std::vector<std::wstring> before;
    script.emplace_back([&] { before = stored(); });
    const Step first = [] { SendMessageW(Item(List), LB_SETCURSEL, 0, 0); };
    for (const wchar_t* name : {L"Wash", L"wash"})
        script.insert(script.end(), {first, Menu(2), Type(name), Done()});
    // Without a list to compare with, nothing either, but what was typed is not lost in silence.
    script.emplace_back([&] { Layer.SetStringHelperFactory(std::make_unique<UnreadableTexts>()); });
    const Step told = [this] {
        EXPECT_EQ(Message().rfind(LoadText(strings::ChangeNotStored), 0), 0U);
        Host.Press(VK_TSOFT1);
    };
    script.insert(script.end(), {Menu(1), Type(L"New"), Done(), told, CancelByMenu()});
    CDlgKeywords list;
    list.KeywordType = CKeyword::KeywordExpense;
    EXPECT_EQ(Run(list, script), 2);
    Layer.SetStringHelperFactory(nullptr);
    EXPECT_EQ(before.size(), 6U);
    EXPECT_EQ(stored(), before);
}
