#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

#include "controls/bound_dialog.h"
#include "tests/controls/test_dialogs.h"
#include "tests/support/keyboard.h"

namespace vmk::test {

// Stands for the preferences dialog: the page's parent with the Apply button. It counts what reaches it, and
// hands on what is for the page.
class TestMain : public Dialog {
  public:
    int defaultButtonPresses = 0;
    int cancels = 0;
    std::vector<WPARAM>
        changesOfCues;  // what it was asked to show of, or to hide from, users of the keyboard

  private:
    std::optional<LRESULT> ProcessWindowMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) override;
};

// A page whose test binds the controls.
class TestPage : public BoundDialog {
  public:
    std::function<void(TestPage&)> bind;
    std::function<bool(Command)> onCommand;
    std::function<bool(const NMHDR&)> onNotify;

    using BoundDialog::StoreValues;

  private:
    void OnInitDialog() override { bind(*this); }
    bool OnCommand(Command command) override { return onCommand && onCommand(command); }
    bool OnNotify(const NMHDR& header) override { return onNotify && onNotify(header); }
};

// A test with a page on screen, on the test's own thread. Keys are real ones: they go to the foreground
// window and arrive while the test waits for what follows from them.
class ControlTest : public testing::Test {
  protected:
    ~ControlTest() override;

    // Opens the page; then Apply is disabled, whatever binding and showing have done.
    void Open(UINT templateId, std::function<void(TestPage&)> bind);
    void Close();

    HWND Control(UINT id = IDC_TEST_SUBJECT) const { return page.Item(id); }
    HWND Apply() const { return main.Item(IDC_TEST_APPLY); }
    bool IsApplyEnabled() const { return IsWindowEnabled(Apply()) != FALSE; }
    void DisableApply() const { EnableWindow(Apply(), FALSE); }
    bool IsEnabled(UINT id) const { return IsWindowEnabled(Control(id)) != FALSE; }
    // The enabled ones of these controls.
    std::vector<UINT> Enabled(std::initializer_list<UINT> ids) const;

    std::wstring Text(UINT id = IDC_TEST_SUBJECT) const;
    // Replaces the text as typing does; the focus stays.
    void EnterText(const std::wstring& text, UINT id = IDC_TEST_SUBJECT) const;
    // Replaces the text and leaves the box.
    void EnterTextAndLeave(const std::wstring& text, UINT next = IDC_TEST_LAST_STOP);

    void Focus(UINT id = IDC_TEST_SUBJECT);
    // Runs the message loop until the condition holds.
    bool Until(const std::function<bool()>& condition) const;
    bool FocusReaches(HWND window) const;
    // Whether the button is the one that Enter would press.
    bool IsDefault(HWND button) const;
    // Runs the message loop until everything pressed so far has arrived.
    void Settle();

    TestMain main;
    TestPage page;
};

}  // namespace vmk::test
