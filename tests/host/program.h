#pragma once

#include <windows.h>

#include <memory>
#include <string>

namespace vmk::test {

// What a run of vmkprefs.exe left behind. The texts are the bytes it wrote.
struct ProgramRun {
    int status = -1;  // exit status; -1: it could not be started or did not end in time
    std::string output;
    std::string error;
};

// A vmkprefs.exe of this build that runs. One that is still there at the end is ended.
class RunningVmkprefs {
  public:
    // Starts it with the arguments, written as on a command line. Its standard output is read, unless it goes
    // to a handle, which is inherited.
    explicit RunningVmkprefs(const std::wstring& arguments, HANDLE output = nullptr);
    ~RunningVmkprefs();
    RunningVmkprefs(const RunningVmkprefs&) = delete;
    RunningVmkprefs& operator=(const RunningVmkprefs&) = delete;

    DWORD ProcessId() const;
    // Waits for its end.
    ProgramRun Finish();

  private:
    struct Process;
    std::unique_ptr<Process> m_process;
};

// Runs it from start to end.
ProgramRun RunVmkprefs(const std::wstring& arguments, HANDLE output = nullptr);

// Status 2, nothing on standard output, and one line on standard error with these words.
void ExpectFailure(const ProgramRun& run, const std::string& words);

// The folder of vmkprefs.exe and vmkctrl.dll, ending with a backslash.
std::wstring ArtifactFolder();

}  // namespace vmk::test
