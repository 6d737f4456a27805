#pragma once

#include <windows.h>

#include <functional>

#include "dialog/preferences_dialog.h"

namespace vmk::test {

// What opening the dialog does in this executable, instead of showing one; answers IDOK when it is empty.
using DialogAction = std::function<INT_PTR(PrinterSettings&, const PreferencesDialogOptions&)>;
DialogAction& TheDialog();

// Sets the action for as long as this object.
class FakeDialog {
  public:
    explicit FakeDialog(DialogAction action) { TheDialog() = std::move(action); }
    ~FakeDialog() { TheDialog() = nullptr; }
    FakeDialog(const FakeDialog&) = delete;
    FakeDialog& operator=(const FakeDialog&) = delete;
};

}  // namespace vmk::test
