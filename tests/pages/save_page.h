#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "resources/ids/save.h"
#include "tests/support/page_fixture.h"

// The Save page for its tests: its controls by what they are for, and records that bring some of them to
// life.

namespace vmk::test {

inline const std::vector<UINT> kNaming = {IDC_SAVE_FILE_NAME_LABEL, IDC_SAVE_FILE_NAME, IDC_SAVE_MACRO,
                                          IDC_SAVE_EXISTS_LABEL,    IDC_SAVE_EXISTS,    IDC_SAVE_START_LABEL};
inline const std::vector<UINT> kNumbering = {IDC_SAVE_START, IDC_SAVE_START_SPIN, IDC_SAVE_DIGITS_LABEL,
                                             IDC_SAVE_DIGITS, IDC_SAVE_DIGITS_SPIN};
inline const std::vector<UINT> kPath = {IDC_SAVE_FOLDER_LABEL, IDC_SAVE_FOLDER, IDC_SAVE_FOLDER_BROWSE};
inline const std::vector<UINT> kApplications = {IDC_SAVE_DEFAULT_APP, IDC_SAVE_GIVEN_APP};
inline const std::vector<UINT> kGivenApplication = {IDC_SAVE_APP, IDC_SAVE_APP_BROWSE,
                                                    IDC_SAVE_PARAMETERS_LABEL, IDC_SAVE_PARAMETERS};
inline const std::vector<std::wstring> kWhenExists = {L"Show Warning Dialog", L"Always Overwrite",
                                                      L"Auto Number", L"Merge With Existing (Append To)",
                                                      L"Merge With Existing (Insert Before)"};
inline constexpr std::int32_t kAutoNumber = 2;

inline PrinterSettings Numbering() {
    PrinterSettings record;
    record.Save.WhenExists = kAutoNumber;
    return record;
}

inline PrinterSettings Running(std::int32_t withoutPath) {
    PrinterSettings record;
    record.Save.App.Run = {.Use = 1, .WithoutPath = withoutPath, .Path = withoutPath ? L"" : L"C:\\a.exe"};
    return record;
}

class SavePage : public PageTest {
  protected:
    SavePage() : PageTest(page_bit::kSave) {}

    // Whether all of these are enabled (1), none of them is (0) or some are (-1).
    int State(const std::vector<UINT>& ids) const {
        return page.AreEnabled(ids) ? 1 : page.AreDisabled(ids) ? 0 : -1;
    }
};

}  // namespace vmk::test
