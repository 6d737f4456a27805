#include <exception>
#include <string>
#include <variant>
#include <vector>

#include "host/command_line.h"
#include "host/commands.h"
#include "host/console.h"
#include "host/exit_status.h"

namespace {

int Run(const std::vector<std::wstring>& arguments) {
    const auto parsed = vmk::ParseCommandLine(arguments);
    if (const auto* answer = std::get_if<vmk::CommandLineAnswer>(&parsed)) {
        answer->status == vmk::kExitDone ? vmk::WriteOutput(answer->text) : vmk::WriteError(answer->text);
        return answer->status;
    }
    return vmk::Execute(std::get<vmk::CommandLine>(parsed));
}

}  // namespace

extern "C" int wmain(int argc, wchar_t** argv) {
    try {
        return Run({argv + 1, argv + argc});
    } catch (const std::exception& error) {
        vmk::WriteFailure(error.what());
        return vmk::kExitFailure;
    }
}
