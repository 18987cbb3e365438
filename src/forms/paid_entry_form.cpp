#include "forms/paid_entry_form.h"

#include "resources/ids.h"

namespace {

constexpr UINT Stretched[]
    = {controls::Date, controls::Odometer, controls::FirstText, controls::Vendor, controls::Money, controls::Notes};
constexpr UINT Numeric[] = {controls::Money};
constexpr FormDescription::Buddy Buddies[] = {{controls::NotesSpin, controls::Notes}};

FormDescription Describe(const DLGTEMPLATE& dialogTemplate) {
    return {
        .dialogTemplate = dialogTemplate,
        .menu = menus::RepairOrExpense,
        .firstFocus = controls::Date,
        .keywordField = controls::FirstText,
        .doneNeedsSender = true,
        .stretched = Stretched,
        .buddies = Buddies,
        .numeric = Numeric,
    };
}

} // namespace

CPaidEntryForm::CPaidEntryForm(const DLGTEMPLATE& dialogTemplate)
    : CFormFrame(Describe(dialogTemplate)) {
}

bool CPaidEntryForm::AcceptFields() {
    return RequireText(Description, controls::FirstText, strings::DescriptionRequired, strings::EntryProperties);
}
