#pragma once

#include "../platform/windowing/scripted_host.h"
#include "../records/test_device.h"
#include "lists/app_fonts.h"
#include "lists/entry_list_view.h"
#include "lists/parent_reflection.h"
#include "lists/vehicle_list_view.h"
#include "records/entry_filter.h"
#include "resources/module.h"

/// A frame around one list, which draws through it.
class ListFrame final : public CWindowImpl {
protected:
    LRESULT ProcessWindowMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        LRESULT result = 0;
        if (ReflectNotification(GetHandle(), message, wParam, lParam, result))
            return result;
        return CWindowImpl::ProcessWindowMessage(message, wParam, lParam);
    }
};

/// A device with the program's resources and fonts, an empty log, and a frame for one list.
class ListDevice : public TestLog {
protected:
    static constexpr ULONG Vehicle = 1001;

    ListDevice() {
        device::SetModule(OdoledgerModule());
        theSettings.TextSize = 2;
        theSettings.SortAscending = 1;
        theSettings.LastColSorted = 0;
        CreateAppFonts();
        Filter.SetVehicleID(Vehicle);
        Frame.Create(L"ListFrame", L"", WS_POPUP | WS_VISIBLE, nullptr, 0);
    }
    ~ListDevice() override {
        DestroyWindow(Frame.GetHandle());
        DeleteAppFonts();
        device::SetModule(nullptr);
    }

    void Show(CCustomListView& list, DWORD style) {
        list.CreateControl(L"SysListView32", style, Frame.GetHandle(), 7);
        RECT client;
        GetClientRect(Frame.GetHandle(), &client);
        MoveWindow(list.GetHandle(), 0, 0, client.right, client.bottom, TRUE);
        SendMessageW(list.GetHandle(), WM_SETFONT, reinterpret_cast<WPARAM>(BoldTextFont), TRUE);
        SetFocus(list.GetHandle());
    }
    void ShowEntries(CEntryListView& list) {
        Show(list, 0x50004401);
        list.InitColumns();
        list.Refresh(&Filter);
    }

    std::unique_ptr<CEntry> Store(
        double date, CEntry::Type type, const wchar_t* name, LONG odometer = 0, float amount = 0) {
        auto entry = std::make_unique<CEntry>();
        entry->SetVehicleID(Vehicle);
        entry->SetDate(date);
        entry->SetType(type);
        entry->SetName(name);
        entry->SetOdometer(odometer);
        entry->SetAmount(amount);
        EXPECT_TRUE(Layer.Save(entry.get(), 0));
        return entry;
    }

    /// Also for a text that was wrapped.
    bool Shows(const std::wstring& text) const {
        std::wstring screen;
        for (const device::PaintedText& each : Host.canvas.Texts())
            screen += each.text + L" ";
        return screen.find(text) != std::wstring::npos;
    }

    ScriptedHost Host;
    CEntryFilter Filter;
    ListFrame Frame;
};

/// The records behind the rows, from the top.
template <typename Record> std::vector<Record*> RecordsOf(const CCustomListView& list) {
    std::vector<Record*> records;
    for (int row = 0; row < list.GetRowCount(); ++row)
        records.push_back(reinterpret_cast<Record*>(list.GetRowData(row)));
    return records;
}
