#pragma once

#include <windows.h>

#include <map>
#include <string>

#include "vmkctrl.h"

// What a call leaves otherwise on the thread of a host than it found it:
//
//     const HostState before = HostState::Now();
//     object.OpenDialog(language, &answer);
//     EXPECT_EQ(ChangesSince(before), "");

namespace vmk::test {

// What belongs to the host, on the calling thread and in the process: its windows and whether they are
// enabled and visible, the focus, the mouse's capture and cage, activation and DPI contexts, the apartment,
// the current folder, locales and languages, the error mode, the arithmetic of floating point.
class HostState {
  public:
    static HostState Now();

    // Facts by their name, worded so that they can be compared.
    const std::map<std::string, std::string>& Facts() const { return m_facts; }

  private:
    std::map<std::string, std::string> m_facts;
};

// One "name: before -> now" for each fact that is otherwise now; empty when all are as they were.
std::string ChangesSince(const HostState& before);

struct OpenedDialog {
    HRESULT result;
    LONG answer;
    std::string hostChanges;
};

// OpenDialog, and what the host then finds otherwise than before.
OpenedDialog OpenAndCompare(IPdfPrinterPreferences& object, LONG language);

}  // namespace vmk::test
