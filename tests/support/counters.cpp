#include "tests/support/counters.h"

#include <winternl.h>

#include <array>
#include <optional>
#include <ostream>
#include <stdexcept>

namespace vmk::test {
namespace {

struct HandleEntry {
    void* object;
    ULONG_PTR processId;
    ULONG_PTR handle;
    ULONG access;
    USHORT backTrace;
    USHORT type;
    ULONG attributes;
    ULONG reserved;
};

struct HandleTable {
    ULONG_PTR count;
    ULONG_PTR reserved;
    HandleEntry entries[1];
};

// The header's enumeration does not reach as far as this class of information.
constexpr ULONG kExtendedHandleInformation = 64;
using QuerySystem = NTSTATUS(NTAPI*)(ULONG kind, void* buffer, ULONG size, ULONG* needed);

// Address space of its own, for buffers that must not come from a heap.
class Pages {
  public:
    explicit Pages(std::size_t size)
        : m_start(VirtualAlloc(nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE)) {
        if (!m_start) throw std::bad_alloc();
    }
    ~Pages() { VirtualFree(m_start, 0, MEM_RELEASE); }
    Pages(const Pages&) = delete;
    Pages& operator=(const Pages&) = delete;
    void* get() const noexcept { return m_start; }

  private:
    void* m_start;
};

std::size_t CountHandles() {
    constexpr ULONG kSize = 8 << 20;
    const Pages pages(kSize);
    ULONG needed = 0;
    const auto query = reinterpret_cast<QuerySystem>(reinterpret_cast<void*>(&NtQuerySystemInformation));
    if (query(kExtendedHandleInformation, pages.get(), kSize, &needed) < 0)
        throw std::runtime_error("the system's handle table cannot be read");
    const auto& table = *static_cast<const HandleTable*>(pages.get());
    std::size_t count = 0;
    for (ULONG_PTR index = 0; index < table.count; ++index)
        if (table.entries[index].processId == GetCurrentProcessId()) ++count;
    return count;
}

// An entry of the table of GDI objects that the process environment block points to.
struct GdiEntry {
    ULONG64 object;
    ULONG owner;
    USHORT unique;
    UCHAR type;  // 0: free
    UCHAR flags;
    ULONG64 userPointer;
};

std::size_t CountGdiObjects() {
    constexpr std::size_t kTableOffset = 0xF8;
    constexpr std::size_t kEntries = 0x4000;
    PROCESS_BASIC_INFORMATION process{};
    NtQueryInformationProcess(GetCurrentProcess(), ProcessBasicInformation, &process, sizeof process,
                              nullptr);
    const auto* const block = reinterpret_cast<const BYTE*>(process.PebBaseAddress);
    const auto* const table = *reinterpret_cast<const GdiEntry* const*>(block + kTableOffset);
    std::size_t count = 0;
    for (std::size_t index = 0; table && index < kEntries; ++index)
        if (table[index].type != 0) ++count;
    return count;
}

BOOL CALLBACK CountChild(HWND, LPARAM count) noexcept {
    ++*reinterpret_cast<std::size_t*>(count);
    return TRUE;
}

BOOL CALLBACK CountWindow(HWND window, LPARAM count) noexcept {
    CountChild(window, count);
    EnumChildWindows(window, CountChild, count);
    return TRUE;
}

// A small size that has been asked for some 2,000 times is served by Wine 10 from groups of blocks, which a
// heap keeps once it has made them. A walk shows a group as one block in use, whatever is in it.
class BlockGroup {
  public:
    // Nothing when the block in use is no such group.
    static std::optional<BlockGroup> At(const PROCESS_HEAP_ENTRY& entry) noexcept {
        if (entry.cbData <= kHeader || (entry.cbData - kHeader) % (kBlocks * kUnit) != 0) return std::nullopt;
        const BlockGroup group(entry);
        for (unsigned index = 0; index < kBlocks; ++index) {
            const BlockHead& head = group.Head(index);
            if (head.units != group.m_stride / kUnit || head.index != index) return std::nullopt;
        }
        return group;
    }

    void Count(HANDLE heap, ResourceCounts& counts) const noexcept {
        for (unsigned index = 0; index < kBlocks; ++index) {
            if (m_free >> index & 1) continue;
            ++counts.heapBlocks;
            counts.heapBytes += HeapSize(heap, 0, &Head(index) + 1);
        }
    }

  private:
    struct BlockHead {
        WORD units;
        WORD unused;  // bytes
        WORD index;
        WORD kind;
    };

    static constexpr DWORD kBlocks = 31;
    static constexpr DWORD kUnit = 16;
    static constexpr DWORD kFreeBits = 16;  // where the bits of the free blocks are
    static constexpr DWORD kHeader = 24;

    explicit BlockGroup(const PROCESS_HEAP_ENTRY& entry) noexcept
        : m_start(static_cast<const BYTE*>(entry.lpData)),
          m_stride((entry.cbData - kHeader) / kBlocks),
          m_free(*reinterpret_cast<const DWORD*>(m_start + kFreeBits)) {}

    const BlockHead& Head(unsigned index) const noexcept {
        return *reinterpret_cast<const BlockHead*>(m_start + kHeader + index * m_stride);
    }

    const BYTE* m_start;
    std::size_t m_stride;  // from one block to the next
    DWORD m_free;
};

void CountHeap(HANDLE heap, ResourceCounts& counts) noexcept {
    if (!HeapLock(heap)) return;
    PROCESS_HEAP_ENTRY entry{};
    while (HeapWalk(heap, &entry)) {
        if (!(entry.wFlags & PROCESS_HEAP_ENTRY_BUSY)) continue;
        if (const auto group = BlockGroup::At(entry)) {
            group->Count(heap, counts);
            continue;
        }
        ++counts.heapBlocks;
        counts.heapBytes += entry.cbData;
    }
    HeapUnlock(heap);
}

}  // namespace

std::ostream& operator<<(std::ostream& stream, const ResourceCounts& counts) {
    return stream << counts.handles << " handles, " << counts.gdiObjects << " GDI objects, " << counts.windows
                  << " windows, " << counts.heapBlocks << " heap blocks of " << counts.heapBytes << " bytes";
}

ResourceCounts CountResources() {
    ResourceCounts counts{.handles = CountHandles(), .gdiObjects = CountGdiObjects()};
    EnumThreadWindows(GetCurrentThreadId(), CountWindow, reinterpret_cast<LPARAM>(&counts.windows));
    std::array<HANDLE, 64> heaps{};
    const DWORD found = GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
    if (found > heaps.size()) throw std::runtime_error("more heaps than were reckoned with");
    for (DWORD index = 0; index < found; ++index) CountHeap(heaps[index], counts);
    return counts;
}

}  // namespace vmk::test
