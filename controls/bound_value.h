#pragma once

#include <windows.h>

#include "framework/dialog.h"

namespace vmk {

class BoundDialog;

// Whatever on a dialog shows one setting, keeps a working value while the user edits, and writes it back when
// the dialog stores. It registers with its dialog when it is bound, and is told there what concerns it.
class BoundValue {
  public:
    BoundValue() = default;
    BoundValue(const BoundValue&) = delete;
    BoundValue& operator=(const BoundValue&) = delete;

    // Writes the working value into the setting.
    virtual void Store() = 0;

    // Whether this control of the dialog is its own.
    virtual bool Owns(UINT /*id*/) const { return false; }

    // Switches the controls that depend on it once more, by what is on screen: it has just been enabled
    // itself.
    virtual void SwitchOthers() {}

    // A notification of a control that has no object of its own; true when it is thereby done.
    virtual bool OnCommand(Command /*command*/) { return false; }

    // A spin control's proposed change; true when it is thereby done.
    virtual bool OnSpin(UINT /*id*/, int /*change*/) { return false; }

  protected:
    // Leaves its dialog, if that lives still.
    ~BoundValue();

  private:
    friend class BoundDialog;
    BoundDialog* m_registrar = nullptr;
    BoundValue* m_next = nullptr;
};

}  // namespace vmk
