#pragma once

#include "forms/full_screen_dialog.h"
#include "records/keyword.h"

#include <string>

/// One keyword list: the user picks a text from it, and adds, renames and deletes keywords in place. Such a change is
/// in the data file at once; the user is told of one that fails. DoModal gives 1 when Selection was picked.
class CDlgKeywords : public CFullScreenDialog {
public:
    CDlgKeywords();

    CKeyword::Type KeywordType = {}; ///< set by the caller
    std::wstring Selection; ///< the text that was picked

protected:
    bool OnInitDialog() override;
    void OnSize() const override;
    bool OnCommand(UINT id, UINT code, HWND sender) override;
    void OnDone() override;

private:
    void ShowTitle() const;
    void LoadList() const;
    /// Names the keyword and saves it, new or changed, unless the list has the name, compared exactly. False where that
    /// is so, and where it could not be stored, which the user is told.
    bool Store(CKeyword& keyword, const std::wstring& name) const;
    void AddKeyword() const;
    void EditKeyword() const;
    void DeleteKeyword() const;

    // The list's items: a keyword's name with its ID.
    LRESULT SendList(UINT message, int index = 0, LPARAM lParam = 0) const;
    /// Below 0 when no item is selected.
    int SelectedIndex() const;
    std::wstring TextAt(int index) const;
    LONG IdAt(int index) const;
    /// Sorts it in, and gives its index.
    int AddItem(const CKeyword& keyword) const;
    void SelectItem(int index) const;

    HWND list_ = nullptr;
};
