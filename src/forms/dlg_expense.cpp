#include "forms/dlg_expense.h"

#include "resources/dialog_templates.h"
#include "resources/ids.h"

CDlgExpense::CDlgExpense()
    : CPaidEntryForm(templates::Expense) {
}

bool CDlgExpense::ExchangeFields(bool save) {
    return ExchangeText(controls::FirstText, Description, save) && ExchangeText(controls::Vendor, Vendor, save)
        && ExchangeInt(controls::Odometer, Odometer, save) && ExchangeFloat(controls::Money, Amount, save)
        && ExchangeText(controls::Notes, Notes, save);
}
