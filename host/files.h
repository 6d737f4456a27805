#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vmk {

// The bytes of a file. Throws Failure when it cannot be read.
std::string ReadFileBytes(const std::wstring& path);

// Writes a whole file. What was there before stays until everything is written, and for good when that fails,
// which throws Failure.
void WriteFileBytes(const std::wstring& path, std::string_view bytes);

// A text of a file, and the line where it stops being one (from 1); 0 when all of it is.
struct DecodedText {
    std::wstring text;
    int faultLine = 0;
};

// UTF-16 with a byte-order mark, or UTF-8 with or without.
DecodedText DecodeText(std::string_view bytes);

// The names of the files of a folder, which ends with a backslash, that match a pattern, sorted. Throws
// Failure when there is no such folder.
std::vector<std::wstring> FilesIn(const std::wstring& folder, const std::wstring& pattern);

bool FileIsThere(const std::wstring& path);

}  // namespace vmk
