#include "settings/registry_store.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <string_view>

#include "settings/groups.h"
#include "settings/load_defaults.h"

namespace vmk {
namespace {

// Room for the narrow form of a text. Some texts are passwords, so what was in it is wiped.
class NarrowBuffer {
  public:
    NarrowBuffer() = default;
    NarrowBuffer(const NarrowBuffer&) = delete;
    NarrowBuffer& operator=(const NarrowBuffer&) = delete;
    ~NarrowBuffer() { Wipe(); }

    char* Data() { return m_heap ? m_heap.get() : m_inline.data(); }
    BYTE* Bytes() { return reinterpret_cast<BYTE*>(Data()); }
    DWORD Size() const { return m_size; }

    // Makes room for `size` bytes at least; the contents are lost.
    void Reserve(DWORD size) {
        if (size <= m_size) return;
        Wipe();
        m_heap = std::make_unique_for_overwrite<char[]>(size);
        m_size = size;
    }

  private:
    void Wipe() { SecureZeroMemory(Data(), Size()); }

    // All but long texts fit, so that a value is read with one call.
    std::array<char, 1024> m_inline;
    std::unique_ptr<char[]> m_heap;
    DWORD m_size = sizeof m_inline;
};

bool LoadNumber(HKEY key, const char* name, std::int32_t& number) {
    DWORD size = sizeof number;
    return RegQueryValueExA(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(&number), &size) ==
           ERROR_SUCCESS;
}

}  // namespace

LSTATUS StoreNumber(HKEY key, const char* name, std::int32_t number) {
    return RegSetValueExA(key, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number), sizeof number);
}

namespace {

// Converts what stands before the first zero, or all when there is none.
void Widen(std::string_view narrow, std::wstring& wide) {
    narrow = narrow.substr(0, narrow.find('\0'));
    // The old text may be a password, and resizing may give its memory back.
    SecureZeroMemory(wide.data(), wide.size() * sizeof(wchar_t));
    wide.resize(narrow.size());  // no code page makes more characters than bytes
    const int length = static_cast<int>(narrow.size());
    const int converted = MultiByteToWideChar(CP_THREAD_ACP, 0, narrow.data(), length, wide.data(), length);
    if (converted == 0 && length != 0) throw std::bad_alloc();
    wide.resize(static_cast<std::size_t>(converted));
}

bool LoadText(HKEY key, const char* name, std::wstring& text) {
    NarrowBuffer buffer;
    DWORD size = buffer.Size();
    LSTATUS status = RegQueryValueExA(key, name, nullptr, nullptr, buffer.Bytes(), &size);
    // Another program may make the value longer between two calls.
    while (status == ERROR_MORE_DATA && size > buffer.Size() && size <= INT_MAX) {
        buffer.Reserve(size);
        status = RegQueryValueExA(key, name, nullptr, nullptr, buffer.Bytes(), &size);
    }
    if (status != ERROR_SUCCESS) return false;
    Widen({buffer.Data(), size}, text);
    return true;
}

}  // namespace

// The size of the value goes by the characters of the text, not by the bytes of its narrow form: existing
// data is that way. Zeros follow the narrow form up to one byte behind the value, since the registry looks
// there for a terminator that was not counted. A text that cannot be converted now is like a write that the
// registry refuses: what was stored stays.
LSTATUS StoreText(HKEY key, const char* name, const std::wstring& text) {
    if (text.size() > INT_MAX / 4) return ERROR_INVALID_PARAMETER;  // no registry holds it
    const int length = static_cast<int>(text.size());
    const int narrowSize =
        WideCharToMultiByte(CP_THREAD_ACP, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    if (narrowSize == 0 && length != 0) return ERROR_NO_UNICODE_TRANSLATION;
    const DWORD valueSize = static_cast<DWORD>(length) + 1;
    const DWORD filled = std::max(static_cast<DWORD>(narrowSize), valueSize) + 1;

    NarrowBuffer buffer;
    try {
        buffer.Reserve(filled);
    } catch (const std::bad_alloc&) {
        return ERROR_NOT_ENOUGH_MEMORY;
    }
    std::memset(buffer.Data(), 0, filled);
    const int written = WideCharToMultiByte(CP_THREAD_ACP, 0, text.data(), length, buffer.Data(), narrowSize,
                                            nullptr, nullptr);
    if (written == 0 && length != 0) return ERROR_NO_UNICODE_TRANSLATION;
    return RegSetValueExA(key, name, 0, REG_SZ, buffer.Bytes(), valueSize);
}

namespace {

// A program is stored as the number 0 (none), the number 1 (the default application) or the text of its path.

void LoadRunApplication(HKEY key, const char* name, RunApplication& run) {
    DWORD type = REG_NONE;
    if (RegQueryValueExA(key, name, nullptr, &type, nullptr, nullptr) != ERROR_SUCCESS) {
        run.Use = 0;
        run.WithoutPath = 1;
    } else if (type == REG_DWORD) {
        std::int32_t number = 0;
        run.Use = LoadNumber(key, name, number) && number != 0 ? 1 : 0;
        run.WithoutPath = 1;
    } else if (type == REG_SZ) {
        run.Use = 1;
        run.WithoutPath = 0;
        if (!LoadText(key, name, run.Path)) run.Path.clear();
    }
}

void StoreRunApplication(HKEY key, const char* name, const RunApplication& run) {
    if (!run.Use) {
        StoreNumber(key, name, 0);
    } else if (run.WithoutPath) {
        StoreNumber(key, name, 1);
    } else {
        StoreText(key, name, run.Path);
    }
}

// The threshold for swapping is stored as 0 while swapping is disabled.

void LoadSwapToDisk(HKEY key, const char* name, SwapToDisk& swap, const SwapToDisk& missing) {
    if (!LoadNumber(key, name, swap.Megabytes)) swap.Megabytes = missing.Megabytes;
    swap.Enabled = swap.Megabytes != 0 ? 1 : 0;
}

void StoreSwapToDisk(HKEY key, const char* name, const SwapToDisk& swap) {
    StoreNumber(key, name, swap.Enabled ? swap.Megabytes : 0);
}

struct Loader {
    HKEY key;

    void operator()(const char* name, std::int32_t& number, const std::int32_t& missing) const {
        if (!LoadNumber(key, name, number)) number = missing;
    }
    void operator()(const char* name, std::wstring& text, const std::wstring& missing) const {
        if (!LoadText(key, name, text)) text = missing;
    }
    void operator()(const char* name, RunApplication& run, const RunApplication&) const {
        LoadRunApplication(key, name, run);
    }
    void operator()(const char* name, SwapToDisk& swap, const SwapToDisk& missing) const {
        LoadSwapToDisk(key, name, swap, missing);
    }
};

struct Storer {
    HKEY key;

    void operator()(const char* name, std::int32_t number) const { StoreNumber(key, name, number); }
    void operator()(const char* name, const std::wstring& text) const { StoreText(key, name, text); }
    void operator()(const char* name, const RunApplication& run) const {
        StoreRunApplication(key, name, run);
    }
    void operator()(const char* name, const SwapToDisk& swap) const { StoreSwapToDisk(key, name, swap); }
};

}  // namespace

void LoadGroups(HKEY key, PageSet groups, PrinterSettings& settings) {
    const PrinterSettings missing = LoadDefaults();
    WalkFields(groups, Loader{key}, settings, missing);
}

void StoreGroups(HKEY key, PageSet groups, const PrinterSettings& settings) {
    WalkFields(groups, Storer{key}, settings);
}

}  // namespace vmk
