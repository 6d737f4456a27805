#include <windows.h>

#include <gtest/gtest.h>

#include <vector>

#include "tests/support/import_faults.h"
#include "tests/support/loaded_module.h"
#include "tests/support/scratch_settings.h"

namespace vmk::test {
namespace {

// A thread's first exception inside the DLL, while there is no memory at all. The exception is one that the
// DLL throws to itself because of that: loading needs memory for the texts of the record.
class FirstException : public testing::Test {
  protected:
    // What each thread works with; made while there still is memory.
    struct Worker {
        FirstException* test;
        ComPointer<IPdfPrinterPreferences> object;
        HANDLE thread = nullptr;
        bool isDone = false;
    };

    FirstException() : m_faults(m_module.get()), m_name(m_key.SubKey()) {
        m_key.Store(PrinterSettings());
        m_key.SetText("Info.Title", std::wstring(5000, L'x'));
    }

    static DWORD WINAPI LoadWithoutMemory(void* parameter) {
        auto& worker = *static_cast<Worker*>(parameter);
        const FirstException& test = *worker.test;
        worker.isDone = worker.object->InitFromRegistry(AllPages, test.m_name.get()) == S_OK;
        if (test.m_arrived) {
            ReleaseSemaphore(test.m_arrived, 1, nullptr);
            WaitForSingleObject(test.m_leave, INFINITE);
        }
        return 0;
    }

    std::vector<Worker> Workers(int count) {
        std::vector<Worker> workers;
        workers.reserve(static_cast<std::size_t>(count));
        for (int index = 0; index < count; ++index)
            workers.push_back({.test = this, .object = m_module.CreatePreferences()});
        return workers;
    }

    static void Start(Worker& worker) {
        worker.thread = CreateThread(nullptr, 0x10000, LoadWithoutMemory, &worker,
                                     STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr);
        ASSERT_NE(worker.thread, nullptr);
    }

    static void Join(Worker& worker) {
        WaitForSingleObject(worker.thread, INFINITE);
        CloseHandle(worker.thread);
        EXPECT_TRUE(worker.isDone);
    }

    const ComApartment m_apartment;
    const LoadedModule m_module;
    ImportFaults m_faults;
    const ScratchSettings m_key;
    const AutomationString m_name;
    HANDLE m_arrived = nullptr;  // counts the threads that are done; null: nobody waits
    HANDLE m_leave = nullptr;    // lets them go
};

TEST_F(FirstException, OfAThreadIsThrownAndCaughtWithoutMemory) {
    std::vector<Worker> workers = Workers(1);
    m_faults.Fail({.function = "memory", .lasting = true});
    Start(workers[0]);
    Join(workers[0]);
    EXPECT_TRUE(m_faults.HaveFailed());
}

// More threads than the DLL has room for at once: those that have ended make room.
TEST_F(FirstException, OfManyThreadsOneAfterTheOtherNeedsNoMemoryEither) {
    std::vector<Worker> workers = Workers(400);
    m_faults.Fail({.function = "memory", .lasting = true});
    for (Worker& worker : workers) {
        Start(worker);
        Join(worker);
    }
}

TEST_F(FirstException, OfManyThreadsAtTheSameTimeIsTakenCareOf) {
    constexpr int kThreads = 300;
    m_arrived = CreateSemaphoreW(nullptr, 0, kThreads, nullptr);
    m_leave = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    std::vector<Worker> workers = Workers(kThreads);
    // One call of each thread fails; the others have what they need.
    for (Worker& worker : workers) {
        m_faults.Fail({.function = "memory"});
        Start(worker);
        WaitForSingleObject(m_arrived, INFINITE);
    }
    SetEvent(m_leave);
    for (Worker& worker : workers) Join(worker);
    CloseHandle(m_arrived);
    CloseHandle(m_leave);
}

}  // namespace
}  // namespace vmk::test
