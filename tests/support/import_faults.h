#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vmk::test {

// Makes functions that a loaded module imports fail as the system would fail them. The module's import table
// leads through counters as long as this object lives; other modules are not affected. One at a time.
//
//     ImportFaults faults(module.get());
//     faults.Fail({.function = "malloc", .first = 3});   // the third call from now on, and no other
//     ...
//     EXPECT_TRUE(faults.HaveFailed());
class ImportFaults {
  public:
    explicit ImportFaults(HMODULE module);
    ~ImportFaults();
    ImportFaults(const ImportFaults&) = delete;
    ImportFaults& operator=(const ImportFaults&) = delete;

    struct Plan {
        std::string_view function;  // "memory": whatever allocates from the C runtime's heap
        long first = 1;             // which call from now on fails
        bool lasting = false;       // all the later ones fail, too
        DWORD thread = 0;           // calls of this thread only; 0: of every thread
        // Nothing is done, yet success is answered. No system does that; to whoever looks at the outcome it
        // is a fault of the module, which he has to find.
        bool pretends = false;
    };

    // Starts counting anew. Throws std::invalid_argument when the module does not import the function.
    void Fail(const Plan& plan);
    // Lets every call through again; Calls and HaveFailed keep what they say.
    void Stop();

    // Calls of the function of the last plan, the failed ones included, up to Stop.
    long Calls() const;
    bool HaveFailed() const;

    // Calls of any function since this object is there.
    long CallsOf(std::string_view function) const;

    // Blocks of the C runtime's heap that the module has allocated and not freed again. Those that it had
    // before it was led through here and has freed since count the other way.
    static long Blocks();

    // From now on blocks that the module gives back are looked through for a text, wide or of ASCII.
    static void LookFor(const std::wstring& text);
    // In how many of them it was.
    static long FreedWithText();

    // What is done, from now on, before a block is given back; nothing: an empty function.
    static void BeforeEachFree(std::function<void()> look);

    // The functions that can be made to fail and that the module imports.
    const std::vector<std::string>& Functions() const { return m_functions; }

  private:
    struct Patch {
        void** slot;
        void* original;
    };

    std::vector<Patch> m_patches;
    std::vector<std::string> m_functions;
};

}  // namespace vmk::test
