#pragma once

#include <string>

// Another program, from start to end:
//
//     EXPECT_EQ(OutputOf(L"cscript //nologo hello.vbs"), "hello\n");

namespace vmk::test {

// What a command prints, to standard output or as an error, without carriage returns. Throws where the
// program does not start.
std::string OutputOf(std::wstring command);

}  // namespace vmk::test
