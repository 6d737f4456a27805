#pragma once

#include "framework/module.h"

namespace vmk {

// Keeps the module loaded while it exists.
class ModuleLock {
  public:
    ModuleLock() noexcept { Module::Get().Lock(); }
    ~ModuleLock() { Module::Get().Unlock(); }
    ModuleLock(const ModuleLock&) = delete;
    ModuleLock& operator=(const ModuleLock&) = delete;
};

}  // namespace vmk
