// What a person waits for: the list of a long log filled, sorted and painted, and the program's start.

#include "bench_log.h"
#include "lists/app_fonts.h"
#include "lists/entry_list_view.h"
#include "lists/entry_order.h"
#include "lists/parent_reflection.h"
#include "platform/drawing/cairo/cairo_canvas.h"
#include "platform/locale.h"
#include "platform/metrics.h"
#include "platform/window.h"
#include "platform/windowing/desktop.h"
#include "platform/windowing/host.h"
#include "records/data_layer.h"
#include "records/entry_filter.h"
#include "resources/ids.h"
#include "settings/app_settings.h"
#include "units/record_text.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cwchar>
#include <malloc.h>
#include <string>
#include <vector>

namespace {

constexpr double Zoom = 2.0;

class BenchHost final : public device::Host {
public:
    bool NextEvent(device::InputEvent& /*event*/, bool /*wait*/) override { return false; }
    device::Canvas& Screen() override { return canvas_; }
    void Present(const RECT& /*changed*/) override { }
    void Beep() override { }
    void Wake() override { }

private:
    device::CairoCanvas canvas_{{320, 480}, Zoom};
};

CEntryListView* list = nullptr;

LRESULT FrameProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (message == WM_MEASUREITEM && list) {
        list->MeasureItem(reinterpret_cast<MEASUREITEMSTRUCT*>(lParam));
        return 1;
    }
    if (ReflectNotification(window, message, wParam, lParam, result))
        return result;
    return DefWindowProcW(window, message, wParam, lParam);
}

/// A window with the entry list in it.
class ListWindow {
public:
    ListWindow() {
        device::Desktop::The().SwitchOn(host_);
        CreateAppFonts();
        const WNDCLASSW windowClass{FrameProcedure, L"Bench"};
        RegisterClassW(&windowClass);
        frame_ = CreateWindowExW(
            0, L"Bench", L"Bench", WS_POPUP | WS_VISIBLE, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
        list = &list_;
        list_.CreateControl(L"SysListView32", 0x50004401, frame_, controls::EntryList);
        SendMessageW(list_.GetHandle(), WM_SETFONT, reinterpret_cast<WPARAM>(BoldTextFont), TRUE);
        list_.InitColumns();
        RECT client;
        GetClientRect(frame_, &client);
        MoveWindow(list_.GetHandle(), 0, 0, client.right, client.bottom, TRUE);
    }
    ListWindow(const ListWindow&) = delete;
    ListWindow& operator=(const ListWindow&) = delete;
    ~ListWindow() {
        DestroyWindow(frame_);
        list = nullptr;
        DeleteAppFonts();
        device::Desktop::The().SwitchOff();
    }

    CEntryListView& List() { return list_; }
    static void Paint() { device::Desktop::The().PaintInvalid(); }

private:
    BenchHost host_;
    HWND frame_ = nullptr;
    CEntryListView list_;
};

void LoadAlone(benchmark::State& state) {
    MakeLog(static_cast<int>(state.range(0)));
    CEntryFilter filter = Everything();
    for ([[maybe_unused]] auto _ : state) {
        CObjectListT<CEntry> entries;
        benchmark::DoNotOptimize(theDataLayer.Load(&entries, &filter));
    }
}

/// Of a row's own text and those of its record.
std::size_t TextBytes(const CEntryListView& entries, int row) {
    constexpr int Room = 260;
    wchar_t date[Room];
    auto characters = static_cast<std::size_t>(entries.GetRowText(row, 0, date, Room));
    const auto* entry = reinterpret_cast<const CEntry*>(entries.GetRowData(row)); // NOLINT(performance-no-int-to-ptr)
    for (const wchar_t* text : {entry->GetName(), entry->GetNotes(), entry->GetVendor()})
        characters += std::wcslen(text);
    return characters * sizeof(wchar_t);
}

void RefreshEntryList(benchmark::State& state) {
    MakeLog(static_cast<int>(state.range(0)));
    theSettings.LastColSorted = 0;
    CEntryFilter filter = Everything();
    ListWindow window;
    const std::size_t before = mallinfo2().uordblks;
    window.List().Refresh(&filter);
    std::size_t bytes = mallinfo2().uordblks - before;
    for (int row = 0; row < window.List().GetRowCount(); ++row)
        bytes -= TextBytes(window.List(), row);
    state.counters["bytes_an_entry_beside_texts"] = static_cast<double>(bytes) / window.List().GetRowCount();
    for ([[maybe_unused]] auto _ : state) {
        window.List().Refresh(&filter);
        ListWindow::Paint();
    }
}

/// What the rows are ordered by before they are sorted by `column`: something that tells nothing of it.
int FormerColumn(int column) {
    return column == SortColumnAmount ? SortColumnDescription : SortColumnAmount;
}

/// By turns upwards and downwards, each from the order of another column.
void SortEntryList(benchmark::State& state) {
    MakeLog(static_cast<int>(state.range(0)));
    const auto column = static_cast<int>(state.range(1));
    CEntryFilter filter = Everything();
    ListWindow window;
    window.List().Refresh(&filter);
    bool upwards = true;
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        theSettings.SortAscending = 1;
        window.List().SortRows(FormerColumn(column));
        upwards = !upwards;
        theSettings.SortAscending = upwards ? 1 : 0;
        state.ResumeTiming();
        window.List().SortRows(column);
    }
    theSettings.SortAscending = 1;
}

/// std::stable_sort over keys that are made once, in the same loop, from rows in the same former order: what the order
/// costs without a list.
template <typename MakeKey>
void SortReady(benchmark::State& state, const std::vector<const CEntry*>& rows, MakeKey make) {
    using Key = decltype(make(*rows.front()));
    bool upwards = true;
    for ([[maybe_unused]] auto _ : state) {
        upwards = !upwards;
        std::vector<std::pair<Key, std::size_t>> keys;
        for (const CEntry* entry : rows)
            keys.emplace_back(make(*entry), keys.size());
        std::stable_sort(keys.begin(), keys.end(), [upwards](const auto& first, const auto& second) {
            return upwards ? first.first < second.first : second.first < first.first;
        });
        benchmark::DoNotOptimize(keys.data());
    }
}

std::wstring LowerSummary(const CEntry& entry) {
    std::wstring text = EntrySummaryText(&entry);
    CharLowerW(text.data());
    return text;
}

void SortReadyKeys(benchmark::State& state) {
    MakeLog(static_cast<int>(state.range(0)));
    CEntryFilter filter = Everything();
    CObjectListT<CEntry> entries;
    theDataLayer.Load(&entries, &filter);
    std::vector<const CEntry*> loaded;
    for (int index = 0; index < entries.GetCount(); ++index)
        loaded.push_back(entries.Get(index));
    std::vector<const CEntry*> rows;
    for (const int index : OrderEntries(FormerColumn(static_cast<int>(state.range(1))), loaded))
        rows.push_back(loaded[static_cast<std::size_t>(index)]);
    switch (state.range(1)) {
    case 0:
        return SortReady(
            state, rows, [](const CEntry& entry) { return std::pair(entry.GetDate(), LowerSummary(entry)); });
    case 1:
        return SortReady(state, rows, LowerSummary);
    case 2:
        return SortReady(
            state, rows, [](const CEntry& entry) { return std::pair(entry.GetOdometer(), entry.GetAmount()); });
    default:
        return SortReady(state, rows, [](const CEntry& entry) { return entry.GetAmount(); });
    }
}

void FullRepaint(benchmark::State& state) {
    MakeLog(static_cast<int>(state.range(0)));
    CEntryFilter filter = Everything();
    ListWindow window;
    window.List().Refresh(&filter);
    for ([[maybe_unused]] auto _ : state) {
        device::Desktop::The().InvalidateAll();
        ListWindow::Paint();
    }
}

/// From the start of a process to the answer of `boot`, with a log of 1,000 entries as the first screen.
void ConsoleStart(benchmark::State& state, const BenchStorage* storage, const std::string& program) {
    MakeLog(1000);
    theDataLayer.Disconnect();
    const std::string command = "HANDSET_STORAGE='" + std::string(storage->Folder()) + "' " + program + " > /dev/null";
    const auto run = [&command](const char* input) {
        FILE* console = popen(command.c_str(), "w");
        std::fputs(input, console);
        return pclose(console);
    };
    run("registry set LastActiveVehicle dword 1001\nregistry set UnitSetupMsgShown dword 1\n");
    for ([[maybe_unused]] auto _ : state)
        run("boot\n");
}

void Sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(1'000)->Arg(10'000)->Arg(100'000)->Arg(1'000'000)->Unit(benchmark::kMillisecond);
}

void SortSizes(benchmark::internal::Benchmark* benchmark) {
    for (const int column : {0, 1, 2, 3})
        for (const int count : {1'000, 10'000, 100'000, 1'000'000})
            benchmark->Args({count, column});
    benchmark->Unit(benchmark::kMillisecond);
}

BENCHMARK(LoadAlone)->Apply(Sizes);
BENCHMARK(RefreshEntryList)->Apply(Sizes);
BENCHMARK(SortEntryList)->Apply(SortSizes);
BENCHMARK(SortReadyKeys)->Apply(SortSizes);
BENCHMARK(FullRepaint)->Arg(10)->Apply(Sizes);

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const BenchStorage storage;
    const std::string program
        = std::string(argv[0]).substr(0, std::string(argv[0]).rfind('/') + 1) + "odoledger-console";
    benchmark::RegisterBenchmark("ConsoleStart", ConsoleStart, &storage, program)
        ->Unit(benchmark::kMillisecond)
        ->UseRealTime();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
