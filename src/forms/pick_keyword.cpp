#include "forms/pick_keyword.h"

#include "forms/dlg_keywords.h"
#include "resources/ids.h"

#include <utility>

bool PickKeyword(CKeyword::Type type, std::wstring& text) {
    CDlgKeywords list;
    list.KeywordType = type;
    if (list.DoModal() != commands::Done)
        return false;
    text = std::move(list.Selection);
    return true;
}
