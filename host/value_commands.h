#pragma once

#include <string>
#include <vector>

#include "host/command_line.h"
#include "host/document.h"

// The commands that are about single settings and whole keys. Each answers the exit status and throws
// Failure.

namespace vmk {

int Get(const CommandLine& line);
int Set(const CommandLine& line);
int ShowDefaults(const CommandLine& line);
int ListKeys(const CommandLine& line);
int Copy(const CommandLine& line);
int Diff(const CommandLine& line);

// Differences as lines, or as a list in JSON.
std::string FormatDifferences(const std::vector<Difference>& differences, const CommandLine& line);

// Tells, on standard error, of each text that the ANSI code page cannot hold.
void WarnOfLostTexts(const Document& document);

// Stores settings in a key, all or none, and warns of those texts.
void StoreSettings(const Document& document, const std::wstring& subKey);

}  // namespace vmk
