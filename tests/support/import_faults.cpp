#include "tests/support/import_faults.h"

#include <objbase.h>

#include <commctrl.h>
#include <malloc.h>
#include <oleauto.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <stdexcept>
#include <type_traits>
#include <utility>

namespace vmk::test {
namespace {

// One plan at a time: the functions that it is about count together.
struct Countdown {
    std::atomic<long> calls = 0;
    std::atomic<long> failed = 0;
    std::atomic<long> first = 0;  // 0: none fails
    std::atomic<bool> lasting = false;
    std::atomic<bool> pretends = false;
    std::atomic<DWORD> thread = 0;

    bool IsFailing() {
        if (first == 0 || (thread != 0 && thread != GetCurrentThreadId())) return false;
        const long call = ++calls;
        const bool fails = lasting ? call >= first : call == first;
        if (fails) ++failed;
        return fails;
    }
};
Countdown countdown;

// Blocks that were allocated and not freed again.
std::atomic<long> blocks = 0;

void NoteAllocation(const void* block) {
    if (block) ++blocks;
}

// What is looked for in blocks that are given back.
std::wstring wantedText;
std::string narrowWantedText;
std::atomic<long> blocksWithText = 0;

void LookThrough(const void* block) {
    if (wantedText.empty()) return;
    const std::string_view bytes(static_cast<const char*>(block), _msize(const_cast<void*>(block)));
    const std::string_view wide(reinterpret_cast<const char*>(wantedText.data()),
                                wantedText.size() * sizeof(wchar_t));
    if (bytes.find(wide) != bytes.npos || bytes.find(narrowWantedText) != bytes.npos) ++blocksWithText;
}

std::function<void()> beforeFree;

// What a block held before somebody else gave it back is not the module's: it must not be found.
void FillAnew(void* block, std::size_t from) {
    if (block && !wantedText.empty()) std::memset(static_cast<char*>(block) + from, 0, _msize(block) - from);
}

// A string literal as a template argument.
template <std::size_t kSize>
struct Literal {
    // Meant to be made of a literal as it stands.
    consteval Literal(const char (&literal)[kSize]) {  // NOLINT(google-explicit-constructor)
        std::copy_n(literal, kSize, text);
    }
    char text[kSize] = {};
};

// What stands in for one function. A call that fails answers kAnswer, with kError as the thread's last error
// unless that is 0.
template <Literal kName, typename Signature, std::intptr_t kAnswer, DWORD kError>
struct StandIn;

template <Literal kName, typename Result, typename... Arguments, std::intptr_t kAnswer, DWORD kError>
struct StandIn<kName, Result(Arguments...), kAnswer, kError> {
    static inline void* s_original = nullptr;
    static inline std::atomic<bool> s_isPlanned = false;
    static inline std::atomic<long> s_calls = 0;

    static Result WINAPI Call(Arguments... arguments) {
        ++s_calls;
        if (!s_isPlanned || !countdown.IsFailing()) return Original(arguments...);
        const std::intptr_t answer = countdown.pretends ? TRUE : kAnswer;
        if (kError != ERROR_SUCCESS) SetLastError(kError);
        if constexpr (std::is_pointer_v<Result>) {
            return reinterpret_cast<Result>(answer);
        } else {
            return static_cast<Result>(answer);
        }
    }

    static Result Original(Arguments... arguments) {
        return reinterpret_cast<Result(WINAPI*)(Arguments...)>(s_original)(arguments...);
    }
};

// The C runtime's heap, whose blocks are counted.
template <Literal kName, typename... Arguments>
struct Allocator : StandIn<kName, void*(Arguments...), 0, ERROR_SUCCESS> {
    static void* Call(Arguments... arguments) {
        void* const block = StandIn<kName, void*(Arguments...), 0, ERROR_SUCCESS>::Call(arguments...);
        NoteAllocation(block);
        FillAnew(block, 0);
        return block;
    }
};

struct Reallocator : StandIn<"realloc", void*(void*, std::size_t), 0, ERROR_SUCCESS> {
    static void* Call(void* block, std::size_t size) {
        if (block) LookThrough(block);
        const std::size_t before = block ? _msize(block) : 0;
        void* const moved = StandIn::Call(block, size);
        if (!block) NoteAllocation(moved);
        if (before < size) FillAnew(moved, before);
        return moved;
    }
};

// It can only pretend.
struct Deallocator : StandIn<"free", void(void*), 0, ERROR_SUCCESS> {
    static void Call(void* block) {
        if (block) LookThrough(block);
        if (block && beforeFree) beforeFree();
        if (block && !(s_isPlanned && countdown.IsFailing())) --blocks;
        Original(block);
    }
};

struct Row {
    std::string_view name;
    void* standIn;
    void** original;
    std::atomic<bool>* isPlanned;
    std::atomic<long>* calls;
};

template <typename One>
Row RowOf(std::string_view name) {
    return {.name = name,
            .standIn = reinterpret_cast<void*>(&One::Call),
            .original = &One::s_original,
            .isPlanned = &One::s_isPlanned,
            .calls = &One::s_calls};
}

template <Literal kName, typename Signature, std::intptr_t kAnswer = 0, DWORD kError = ERROR_OUTOFMEMORY>
Row Failing() {
    return RowOf<StandIn<kName, Signature, kAnswer, kError>>(kName.text);
}

constexpr DWORD kNoError = 0;
constexpr auto kNoHandle = -1;

std::span<const Row> Rows() {
    static const Row kRows[] = {
        RowOf<Allocator<"malloc", std::size_t>>("malloc"),
        RowOf<Allocator<"calloc", std::size_t, std::size_t>>("calloc"),
        RowOf<Reallocator>("realloc"),
        RowOf<Deallocator>("free"),
        // It can only pretend as well.
        RowOf<StandIn<"CoTaskMemFree", decltype(CoTaskMemFree), 0, kNoError>>("CoTaskMemFree"),
        Failing<"RegCreateKeyExA", decltype(RegCreateKeyExA), ERROR_OUTOFMEMORY, kNoError>(),
        Failing<"RegOpenKeyExA", decltype(RegOpenKeyExA), ERROR_OUTOFMEMORY, kNoError>(),
        Failing<"RegQueryValueExA", decltype(RegQueryValueExA), ERROR_OUTOFMEMORY, kNoError>(),
        Failing<"RegSetValueExA", decltype(RegSetValueExA), ERROR_OUTOFMEMORY, kNoError>(),
        Failing<"SetPropW", decltype(SetPropW)>(),
        Failing<"SetWindowLongPtrW", decltype(SetWindowLongPtrW)>(),
        Failing<"CreateDialogParamW", decltype(CreateDialogParamW)>(),
        Failing<"DialogBoxParamW", decltype(DialogBoxParamW), -1>(),
        Failing<"SetWindowTextW", decltype(SetWindowTextW)>(),
        Failing<"LoadMenuW", decltype(LoadMenuW)>(),
        Failing<"GetMenuItemInfoW", decltype(GetMenuItemInfoW)>(),
        Failing<"SetMenuItemInfoW", decltype(SetMenuItemInfoW)>(),
        Failing<"TrackPopupMenu", decltype(TrackPopupMenu)>(),
        Failing<"ImageList_LoadImageW", decltype(ImageList_LoadImageW)>(),
        Failing<"GetDC", decltype(GetDC)>(),
        Failing<"GetTextExtentPoint32W", decltype(GetTextExtentPoint32W)>(),
        Failing<"MapDialogRect", decltype(MapDialogRect)>(),
        Failing<"MapWindowPoints", decltype(MapWindowPoints)>(),
        Failing<"SetWindowPos", decltype(SetWindowPos)>(),
        Failing<"EnumFontFamiliesExW", decltype(EnumFontFamiliesExW)>(),
        Failing<"CreateFontIndirectW", decltype(CreateFontIndirectW)>(),
        Failing<"CreateCompatibleDC", decltype(CreateCompatibleDC)>(),
        Failing<"CreateCompatibleBitmap", decltype(CreateCompatibleBitmap)>(),
        Failing<"CreateSolidBrush", decltype(CreateSolidBrush)>(),
        Failing<"GetOutlineTextMetricsW", decltype(GetOutlineTextMetricsW)>(),
        Failing<"CreateActCtxW", decltype(CreateActCtxW), kNoHandle>(),
        Failing<"ActivateActCtx", decltype(ActivateActCtx)>(),
        Failing<"GetCurrentDirectoryW", decltype(GetCurrentDirectoryW)>(),
        Failing<"SetCurrentDirectoryW", decltype(SetCurrentDirectoryW), 0, ERROR_FILE_NOT_FOUND>(),
        Failing<"GetModuleFileNameW", decltype(GetModuleFileNameW)>(),
        Failing<"GetModuleFileNameA", decltype(GetModuleFileNameA)>(),
        Failing<"GetModuleHandleW", decltype(GetModuleHandleW), 0, ERROR_MOD_NOT_FOUND>(),
        Failing<"GetProcAddress", decltype(GetProcAddress), 0, ERROR_PROC_NOT_FOUND>(),
        Failing<"LoadLibraryW", decltype(LoadLibraryW)>(),
        Failing<"LoadLibraryExW", decltype(LoadLibraryExW)>(),
        Failing<"FindFirstFileA", decltype(FindFirstFileA), kNoHandle, ERROR_PATH_NOT_FOUND>(),
        Failing<"FindNextFileA", decltype(FindNextFileA), 0, ERROR_NO_MORE_FILES>(),
        Failing<"CreateFileA", decltype(CreateFileA), kNoHandle, ERROR_SHARING_VIOLATION>(),
        Failing<"GetFileSizeEx", decltype(GetFileSizeEx), 0, ERROR_INVALID_FUNCTION>(),
        Failing<"ReadFile", decltype(ReadFile), 0, ERROR_LOCK_VIOLATION>(),
        Failing<"LoadTypeLibEx", decltype(LoadTypeLibEx), TYPE_E_CANTLOADLIBRARY, kNoError>(),
        Failing<"MultiByteToWideChar", decltype(MultiByteToWideChar), 0, ERROR_NO_UNICODE_TRANSLATION>(),
        Failing<"WideCharToMultiByte", decltype(WideCharToMultiByte), 0, ERROR_INVALID_PARAMETER>(),
    };
    return kRows;
}

const Row* Find(std::string_view name) {
    const auto rows = Rows();
    const auto found = std::ranges::find(rows, name, &Row::name);
    return found == rows.end() ? nullptr : &*found;
}

// Those of the imported functions that are meant.
std::vector<const Row*> RowsOf(std::string_view function, const std::vector<std::string>& imported) {
    constexpr std::string_view kAllocators[] = {"malloc", "calloc", "realloc"};
    std::span<const std::string_view> names(&function, 1);
    if (function == "memory") names = kAllocators;
    std::vector<const Row*> rows;
    for (const std::string_view name : names)
        if (std::ranges::find(imported, name) != imported.end()) rows.push_back(Find(name));
    if (rows.empty()) throw std::invalid_argument(std::string(function) + " is not imported");
    return rows;
}

template <typename Structure>
Structure* At(HMODULE module, std::size_t offset) {
    return reinterpret_cast<Structure*>(reinterpret_cast<std::byte*>(module) + offset);
}

// Calls visit(name, slot) for every function that the module imports by name.
template <typename Visit>
void WalkImports(HMODULE module, Visit&& visit) {
    const auto* const dos = At<IMAGE_DOS_HEADER>(module, 0);
    const auto* const headers = At<IMAGE_NT_HEADERS>(module, static_cast<std::size_t>(dos->e_lfanew));
    const IMAGE_DATA_DIRECTORY& directory =
        headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    const auto* library = At<IMAGE_IMPORT_DESCRIPTOR>(module, directory.VirtualAddress);
    for (; library->Name; ++library) {
        const auto* name = At<IMAGE_THUNK_DATA>(module, library->OriginalFirstThunk);
        auto* slot = At<void*>(module, library->FirstThunk);
        for (; name->u1.AddressOfData; ++name, ++slot) {
            if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) continue;
            const auto* const import =
                At<IMAGE_IMPORT_BY_NAME>(module, static_cast<std::size_t>(name->u1.AddressOfData));
            visit(std::string_view(reinterpret_cast<const char*>(import->Name)), slot);
        }
    }
}

void Write(void** slot, void* value) {
    DWORD protection = 0;
    VirtualProtect(slot, sizeof *slot, PAGE_READWRITE, &protection);
    *slot = value;
    VirtualProtect(slot, sizeof *slot, protection, &protection);
}

}  // namespace

ImportFaults::ImportFaults(HMODULE module) {
    WalkImports(module, [this](std::string_view name, void** slot) {
        const Row* const row = Find(name);
        if (!row) return;
        *row->original = *slot;
        *row->calls = 0;
        m_patches.push_back({.slot = slot, .original = *slot});
        m_functions.emplace_back(name);
        Write(slot, row->standIn);
    });
}

ImportFaults::~ImportFaults() {
    Stop();
    wantedText.clear();
    for (const Patch& patch : m_patches) Write(patch.slot, patch.original);
}

void ImportFaults::Fail(const Plan& plan) {
    Stop();
    for (const Row* const row : RowsOf(plan.function, m_functions)) *row->isPlanned = true;
    countdown.calls = 0;
    countdown.failed = 0;
    countdown.lasting = plan.lasting;
    countdown.pretends = plan.pretends;
    countdown.thread = plan.thread;
    countdown.first = plan.first;
}

void ImportFaults::Stop() {
    countdown.first = 0;
    for (const Row& row : Rows()) *row.isPlanned = false;
}

long ImportFaults::CallsOf(std::string_view function) const {
    long calls = 0;
    for (const Row* const row : RowsOf(function, m_functions)) calls += *row->calls;
    return calls;
}

long ImportFaults::Calls() const {
    return countdown.calls;
}

long ImportFaults::Blocks() {
    return blocks;
}

void ImportFaults::LookFor(const std::wstring& text) {
    wantedText = text;
    narrowWantedText.clear();
    for (const wchar_t unit : text) narrowWantedText += static_cast<char>(unit);
    blocksWithText = 0;
}

long ImportFaults::FreedWithText() {
    return blocksWithText;
}

void ImportFaults::BeforeEachFree(std::function<void()> look) {
    beforeFree = std::move(look);
}

bool ImportFaults::HaveFailed() const {
    return countdown.failed > 0;
}

}  // namespace vmk::test
