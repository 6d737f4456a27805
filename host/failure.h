#pragma once

#include <windows.h>

#include <stdexcept>
#include <string>

namespace vmk {

// A command cannot be carried out. The text is one line for the person at the console, in UTF-8, without the
// program's name.
class Failure : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;

    // "WHAT (0x80040154)"; the number is the one that Windows documentation lists.
    Failure(const std::string& what, HRESULT code);
};

}  // namespace vmk
