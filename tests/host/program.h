#pragma once

#include <string>

namespace vmk::test {

// What a run of vmkprefs.exe left behind. The texts are the bytes it wrote.
struct ProgramRun {
    int status = -1;  // exit status; -1: it could not be started or did not end in time
    std::string output;
    std::string error;
};

// Runs the vmkprefs.exe of this build with the arguments, written as on a command line, and waits for its
// end.
ProgramRun RunVmkprefs(const std::wstring& arguments);

// The folder of vmkprefs.exe and vmkctrl.dll, ending with a backslash.
std::wstring ArtifactFolder();

}  // namespace vmk::test
