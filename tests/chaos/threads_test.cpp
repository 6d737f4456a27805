#include <windows.h>
// objbase.h needs windows.h before it.
#include <objbase.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "tests/chaos/contract.h"
#include "tests/chaos/heap_checks.h"
#include "tests/chaos/pages_contract.h"
#include "tests/chaos/raw_values.h"
#include "tests/chaos/seed.h"
#include "tests/chaos/visit.h"
#include "tests/component/class_registry.h"
#include "tests/support/effort.h"
#include "tests/support/import_faults.h"
#include "tests/support/loaded_module.h"
#include "tests/support/test_font.h"
#include "tests/support/wait.h"
#include "tests/support/window_search.h"

// Several apartments, each with objects and a dialog of its own, and what one thread may do to another. These
// tests run with the checks of the system's heap.

namespace vmk::test {
namespace {

using testing::IsEmpty;

constexpr std::size_t kApartments = 8;

// Runs something on a thread of its own.
class Thread {
  public:
    explicit Thread(std::function<void()> run)
        : m_run(std::move(run)), m_handle(CreateThread(nullptr, 0, Main, this, 0, &m_id)) {}
    ~Thread() {
        Join();
        CloseHandle(m_handle);
    }
    Thread(const Thread&) = delete;
    Thread& operator=(const Thread&) = delete;

    DWORD Id() const { return m_id; }
    void Join() const { WaitForSingleObject(m_handle, INFINITE); }

  private:
    static DWORD WINAPI Main(void* parameter) {
        static_cast<Thread*>(parameter)->m_run();
        return 0;
    }

    std::function<void()> m_run;
    DWORD m_id = 0;
    HANDLE m_handle;
};

// Runs something on several threads at once; each gets a number.
void RunTogether(const std::function<void(std::size_t apartment)>& run) {
    std::vector<std::unique_ptr<Thread>> threads;
    for (std::size_t apartment = 0; apartment < kApartments; ++apartment)
        threads.push_back(std::make_unique<Thread>([&run, apartment] { run(apartment); }));
}

// How an opening ends that its user does not end with OK.
enum class End { kCancel, kQuit, kByHost, kDestroyed };
constexpr End kEnds[] = {End::kCancel, End::kQuit, End::kByHost, End::kDestroyed};

void EndDialogBy(End end, HWND dialog) {
    switch (end) {
        case End::kCancel:
            PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
            break;
        case End::kQuit:
            PostQuitMessage(0);
            break;
        case End::kByHost:
            EndDialog(dialog, IDCANCEL);
            break;
        case End::kDestroyed:
            DestroyWindow(dialog);
            break;
    }
}

// The pages without boxes to type in. Where several threads have such boxes at once, some versions of Wine
// crash by themselves: what they keep about a font's scripts is freed under another thread
// (init_script_cache).
constexpr PdfPrinterDialogPage kPages[] = {Paper,      CustomForms, General, Fonts,
                                           Watermarks, Bookmarks,   Profiles};

// A host that has loaded, shown and stored settings of its own and no others.
class Host {
  public:
    Host(IPdfPrinterPreferences& object, std::size_t number) : m_object(object), m_values(ValuesOf(number)) {
        m_key.Set(m_values);
    }

    // What did not come out as it should have. `whileOpen` is done with the dialog on screen.
    Findings Work(std::mt19937& random, const std::function<void()>& whileOpen = {}) const {
        Findings findings;
        const AutomationString subKey(m_key.SubKey());
        m_object.InitFromRegistry(AllPages, subKey.get());
        // A page or two: that is what takes the time.
        m_object.DisablePage(AllPages);
        for (int page = 0; page < 2; ++page) m_object.EnablePage(kPages[random() % std::size(kPages)]);
        const bool withOk = random() % 2 == 0;
        const End end = kEnds[random() % std::size(kEnds)];
        DWORD thread = 0;
        const Visit visit = VisitDialog(m_object,
                                        [&](HWND dialog) {
                                            thread = GetWindowThreadProcessId(dialog, nullptr);
                                            if (whileOpen) whileOpen();
                                            if (!withOk) EndDialogBy(end, dialog);
                                        },
                                        {.pressOk = withOk});
        // The end of the thread's messages was for the dialog alone.
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) continue;
        if (!visit.wasSeen || visit.exitCode != (withOk ? IDOK : IDCANCEL))
            findings.push_back("the dialog answers " + std::to_string(visit.exitCode));
        if (thread != GetCurrentThreadId()) findings.emplace_back("the dialog is another thread's");
        const RawKey stored;
        m_object.StoreInRegistry(AllPages, AutomationString(stored.SubKey()).get());
        if (stored.Values() != m_values) findings.emplace_back("other values than its own are stored");
        return findings;
    }

  private:
    static RawValues ValuesOf(std::size_t number) {
        PrinterSettings settings = UndamagedSettings();
        settings.Info.Title = L"apartment " + std::to_wstring(number);
        settings.Email.Content = std::wstring(500, static_cast<wchar_t>(L'a' + number));
        settings.Compression.Color.JPEGQuality = static_cast<std::int32_t>(10 + number);
        return Stored(settings);
    }

    IPdfPrinterPreferences& m_object;
    const RawValues m_values;
    const RawKey m_key;
};

// Where two threads make the first themed control of a kind at once after the system has loaded what draws
// them, Wine may refuse it to one of them, of bare templates too. So one of each kind is made before.
void MakeEachControlOnce(const LoadedModule& module) {
    const ComApartment apartment;
    const auto object = module.CreatePreferences();
    for (const PdfPrinterDialogPage page : kPages) object->EnablePage(page);
    EXPECT_EQ(VisitDialog(*object, [](HWND) {}, {}).exitCode, IDOK);
}

class Apartments : public testing::Test {
  protected:
    void TearDown() override { EXPECT_TRUE(HeapsAreInOrder()); }

    const TestFont m_always{{.family = L"Vmk Always"}};
    const TestFont m_never{{.family = L"Vmk Never"}};
};

TEST_F(Apartments, LoadShowAndStoreAtOnceAndNeverEachOthersSettings) {
    const LoadedModule module;
    MakeEachControlOnce(module);
    const long rounds = Effort(3, 1200);
    std::array<Findings, kApartments> findings;
    RunTogether([&](std::size_t number) {
        const ComApartment apartment;
        std::mt19937 random(Seed() + static_cast<unsigned>(number));
        for (long round = 0; round < rounds; ++round) {
            const auto object = module.CreatePreferences();
            for (const std::string& finding : Host(*object, number).Work(random))
                findings[number].push_back(finding);
        }
    });
    for (const Findings& found : findings) EXPECT_THAT(found, IsEmpty());
    EXPECT_EQ(module.CanUnloadNow(), S_OK);
    PrintFigures("apartments that work at once",
                 {{"apartments", kApartments}, {"dialogs", rounds * static_cast<long>(kApartments)}});
}

TEST_F(Apartments, AreFoundToStoreEachOthersSettingsWhereOneLoadsThem) {
    const ComApartment apartment;
    const LoadedModule module;
    const auto object = module.CreatePreferences();
    const RawKey another;
    std::mt19937 random(Seed());
    EXPECT_THAT(
        Host(*object, 0)
            .Work(random,
                  [&] { object->InitFromRegistry(DocumentInfo, AutomationString(another.SubKey()).get()); }),
        testing::ElementsAre("other values than its own are stored"));
}

TEST_F(Apartments, LoadAndFreeTheModuleUnderEachOther) {
    const long rounds = Effort(60, 50'000);
    const ScratchKey key;
    std::atomic<long> gone = 0;
    std::atomic<long> failed = 0;
    RunTogether([&](std::size_t) {
        const ComApartment apartment;
        for (long round = 0; round < rounds; ++round) {
            if (!GetModuleHandleW(L"vmkctrl.dll")) ++gone;
            const LoadedModule module;
            auto object = module.CreatePreferences();
            if (module.CanUnloadNow() == S_OK) ++failed;
            object->InitFromRegistry(Watermarks, AutomationString(key.SubKey()).get());
            // Others may have objects still, or not: nobody is kept from asking, nor from freeing what he has
            // loaded.
            object.reset();
            module.CanUnloadNow();
        }
    });
    EXPECT_EQ(failed, 0);
    EXPECT_EQ(GetModuleHandleW(L"vmkctrl.dll"), nullptr);
    PrintFigures("a module that apartments load and free under each other",
                 {{"loads", rounds * static_cast<long>(kApartments)}, {"found it gone before", gone.load()}});
}

// The component as COM finds it.
class RegisteredApartments : public Apartments {
  protected:
    void SetUp() override {
        const ComApartment apartment;
        WipeRegistration();
        ASSERT_EQ(LoadedModule().RegisterServer(), S_OK);
    }
    void TearDown() override {
        WipeRegistration();
        Apartments::TearDown();
    }

    static ComPointer<IPdfPrinterPreferences> CreateByCom() {
        ComPointer<IPdfPrinterPreferences> object;
        EXPECT_EQ(CoCreateInstance(__uuidof(PdfPrinterPreferences), nullptr, CLSCTX_INPROC_SERVER,
                                   __uuidof(IPdfPrinterPreferences), object.PutVoid()),
                  S_OK);
        return object;
    }
};

TEST_F(RegisteredApartments, LetComUnloadTheModuleWhileOthersReleaseObjects) {
    const long rounds = Effort(60, 50'000);
    RunTogether([&](std::size_t) {
        const ComApartment apartment;
        for (long round = 0; round < rounds && !HasFailure(); ++round) {
            const auto object = CreateByCom();
            CoFreeUnusedLibrariesEx(0, 0);
            object->EnablePage(AllPages);
            CoFreeUnusedLibrariesEx(0, 0);
        }
    });
    {
        // COM frees what its apartments have loaded with the last of them.
        const ComApartment apartment;
        CoFreeUnusedLibrariesEx(0, 0);
    }
    EXPECT_EQ(GetModuleHandleW(L"vmkctrl.dll"), nullptr);
    PrintFigures("objects of COM, with unused libraries freed all the time",
                 {{"objects", rounds * static_cast<long>(kApartments)}});
}

HWND DialogOf(DWORD thread) {
    return FindTopWindow(thread,
                         [](HWND window) { return IsDialog(window) && IsWindowVisible(window) != FALSE; });
}

// An apartment that serves the calls of others with an object that it holds.
class ServingApartment {
  public:
    ServingApartment() {
        m_thread = std::make_unique<Thread>([this] { Serve(); });
        WaitForSingleObject(m_ready, INFINITE);
    }
    ~ServingApartment() {
        PostThreadMessageW(m_thread->Id(), WM_QUIT, 0, 0);
        m_thread.reset();
        CloseHandle(m_ready);
    }
    ServingApartment(const ServingApartment&) = delete;
    ServingApartment& operator=(const ServingApartment&) = delete;

    DWORD Id() const { return m_thread->Id(); }

    // The object for the calling apartment, of which each has a number below kTimes.
    static constexpr std::size_t kTimes = 2;
    ComPointer<IPdfPrinterPreferences> Take(std::size_t time) {
        ComPointer<IPdfPrinterPreferences> object;
        EXPECT_EQ(CoGetInterfaceAndReleaseStream(m_streams.at(time), __uuidof(IPdfPrinterPreferences),
                                                 object.PutVoid()),
                  S_OK);
        return object;
    }

  private:
    void Serve() {
        const ComApartment apartment;
        const LoadedModule module;
        const auto object = module.CreatePreferences();
        for (IStream*& stream : m_streams)
            EXPECT_EQ(CoMarshalInterThreadInterfaceInStream(__uuidof(IPdfPrinterPreferences), object.get(),
                                                            &stream),
                      S_OK);
        SetEvent(m_ready);
        MSG message;
        while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    }

    const HANDLE m_ready = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    std::array<IStream*, kTimes> m_streams{};
    std::unique_ptr<Thread> m_thread;
};

TEST_F(RegisteredApartments, HaveCallsOfOthersRunOnTheObjectsOwnThread) {
    const ComApartment apartment;
    const RawKey key;
    key.Set(Stored(UndamagedSettings()));
    const RawKey stored;
    // Wine waits for calls to 62 apartments of a process, and for good when there has been one more.
    const long rounds = Effort(2, 60);
    for (long round = 0; round < rounds && !HasFailure(); ++round) {
        ServingApartment server;
        const auto object = server.Take(0);
        ASSERT_TRUE(object);
        EXPECT_EQ(object->InitFromRegistry(AllPages, AutomationString(key.SubKey()).get()), S_OK);
        EXPECT_EQ(object->EnablePage(Watermarks), S_OK);
        bool wasSeen = false;
        LONG second = 0;
        LONG first = 0;
        {
            const Thread another([&] {
                const ComApartment anotherApartment;
                const auto same = server.Take(1);
                HWND dialog = nullptr;
                wasSeen = WaitUntil([&] { return (dialog = DialogOf(server.Id())) != nullptr; });
                same->OpenDialog(0x0409, &second);
                PostMessageW(dialog, WM_COMMAND, IDOK, 0);
            });
            EXPECT_EQ(object->OpenDialog(0x0409, &first), S_OK);
        }
        EXPECT_TRUE(wasSeen);
        EXPECT_EQ(second, -1);
        EXPECT_EQ(first, IDOK);
        EXPECT_EQ(object->StoreInRegistry(AllPages, AutomationString(stored.SubKey()).get()), S_OK);
        EXPECT_EQ(stored.Values(), key.Values());
    }
    PrintFigures("dialogs opened from another apartment", {{"dialogs", rounds}});
}

// Threads whose end comes while their dialog is open: their messages end, or they give up COM under it. What
// they hold is released, and others at work take no notice.
TEST_F(Apartments, GoOnBesideThreadsThatEndWithTheirDialogOpen) {
    const LoadedModule module;
    MakeEachControlOnce(module);
    const long rounds = Effort(1, 500);
    std::array<Findings, kApartments> findings;
    RunTogether([&](std::size_t number) {
        std::mt19937 random(Seed() + static_cast<unsigned>(number));
        for (long round = 0; round < rounds; ++round) {
            const Thread thread([&] {
                const ComApartment apartment;
                const auto object = module.CreatePreferences();
                if (number % 2 != 0) {
                    for (const std::string& finding : Host(*object, number).Work(random))
                        findings[number].push_back(finding);
                    return;
                }
                for (const PdfPrinterDialogPage page : kPages) object->EnablePage(page);
                const bool quits = number % 4 == 0;
                const Visit visit =
                    VisitDialog(*object, [quits](HWND) { quits ? PostQuitMessage(0) : CoUninitialize(); },
                                {.pressOk = !quits});
                if (visit.exitCode != (quits ? IDCANCEL : IDOK))
                    findings[number].push_back("the dialog answers " + std::to_string(visit.exitCode));
                if (!quits) CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
            });
        }
    });
    for (const Findings& found : findings) EXPECT_THAT(found, IsEmpty());
    EXPECT_EQ(module.CanUnloadNow(), S_OK);
    PrintFigures("threads that end with their dialog open",
                 {{"threads", rounds * static_cast<long>(kApartments) / 2}});
}

// Another thread that hears that the module may go, and frees it, takes away the code that is at work here:
// the heap may keep it waiting for as long as it likes.
TEST_F(Apartments, FreeTheMemoryOfAnObjectBeforeTheModuleMayGo) {
    const ComApartment apartment;
    const LoadedModule module;
    auto object = module.CreatePreferences();
    int freed = 0;
    int tooLate = 0;
    const ImportFaults watched(module.get());
    ImportFaults::BeforeEachFree([&] {
        ++freed;
        if (module.CanUnloadNow() == S_OK) ++tooLate;
    });
    object.reset();
    ImportFaults::BeforeEachFree({});
    EXPECT_GT(freed, 0);
    EXPECT_EQ(tooLate, 0);
    EXPECT_EQ(module.CanUnloadNow(), S_OK);
}

}  // namespace
}  // namespace vmk::test
