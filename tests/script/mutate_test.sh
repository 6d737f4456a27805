#!/usr/bin/env bash
# What script/mutate says of a project whose one test holds some of what its source does, and that it changes nothing.
# shellcheck source=tests/script/support.sh
. "$(dirname "${BASH_SOURCE[0]}")/support.sh" "$1"

mkdir project
cat >project/CMakeLists.txt <<'END'
cmake_minimum_required(VERSION 3.25)
project(limits LANGUAGES CXX)
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
enable_testing()
add_executable(limits_test limits_test.cpp limits.cpp)
add_test(NAME limits COMMAND limits_test)
add_executable(moody_test moody_test.cpp limits.cpp)
add_test(NAME moody COMMAND moody_test)
END
cat >project/limits.cpp <<'END'
#include <vector>
constexpr int kStep = 3;
static_assert(kStep > 2);

bool IsHeld(int number) {
    return number < 10;
}
bool IsHeldInPart(int number) {
    return number < 20;
}
void NobodyAsks(int& number) {
    number = 1;
}
int Step() {
    return kStep;
}
int Hangs(int number) {
    while (number > 0) --number;
    return number;
}
template <int length>
int LengthOf(const int (&)[length]) {
    return length;
}
int Room() {
    int room[2] = {};
    return LengthOf(room);
}
bool IsFree(const std::vector<int>& places, std::size_t place) {
    return place >= places.size() || places[place] == 0;
}
END
cat >project/limits_test.cpp <<'END'
#include <vector>
bool IsHeld(int number);
bool IsHeldInPart(int number);
int Step();
int Hangs(int number);
int Room();
bool IsFree(const std::vector<int>& places, std::size_t place);

int main() {
    // The place behind the last one looks like a free one, too.
    std::vector<int> places = {1, 0, 0};
    places.pop_back();
    const bool isFree = IsFree(places, 2) && IsFree(places, 1) && !IsFree(places, 0);
    const bool held = IsHeld(9) && !IsHeld(10) && !IsHeld(11);
    const bool heldInPart = IsHeldInPart(0) && !IsHeldInPart(100);
    return held && heldInPart && isFree && Step() == 3 && Hangs(2) == 0 && Room() == 2 ? 0 : 1;
}
END
# It fails once with each change, whatever that is.
cat >project/moody_test.cpp <<'END'
#include <cstdlib>
#include <fstream>
#include <string>
bool IsHeldInPart(int number);

int main(int, char** arguments) {
    IsHeldInPart(0);
    const char* const change = std::getenv("VMK_MUTANT");
    if (!change || std::string(change) == "0") return 0;
    const std::string mark = arguments[0] + std::string(".seen-") + change;
    if (std::ifstream(mark)) return 0;
    std::ofstream(mark) << "seen";
    return 1;
}
END
before=$(cat project/* | sha256sum)
mutate() { "$root/script/mutate" --project "$PWD/project" --explained explained.toml "$@" limits.cpp; }
# says TEXT, says_nothing_of TEXT: what the last command has printed.
says() { tr -s ' ' <output | grep -qF -- "$1" || fail "'$1' is missing: $(cat output)"; }
says_nothing_of() { if grep -qF -- "$1" output; then fail "'$1' is said: $(cat output)"; fi; }

# A bound that is tested, one that is not, a statement that no test reaches, a loop without an end; a constant of the
# compiler is built by itself, and so is the length of an array; one of their neighbours does not compile. What is read
# beyond the end of a vector is noticed, whatever stands there.
# shellcheck disable=SC2016
{
    refuses 'limits.cpp:9: survived: `<` becomes `<=`' mutate
    says 'limits.cpp:12: survived (no test reaches it): `number = 1` is left out'
    says_nothing_of 'limits.cpp:6:'
    says_nothing_of 'limits.cpp:2:'
    says_nothing_of 'limits.cpp:18:'
    says_nothing_of 'limits.cpp:30:'
    says 'all 25 1 18 0 6 75.0 %'
}
[ "$(cat project/*.* | sha256sum)" = "$before" ] || fail "the sources have changed"

# What is explained is not held against anybody, and an explanation of something else is an error.
cat >project/explained.toml <<'END'
[[survivor]]
file = "limits.cpp"
function = "IsHeldInPart"
line = "return number < 20;"
changes = ["`<` becomes `<=`"]
reason = "For the test."

[[survivor]]
file = "limits.cpp"
function = "IsHeld"
line = "return number < 10;"
changes = ["`<` becomes `<=`", "`<` becomes `==`"]
reason = "For the test."
END
# shellcheck disable=SC2016
{
    refuses 'limits.cpp:9: `<` becomes `<=`; explained: For the test.' mutate
    says 'stale, it is killed: limits.cpp | IsHeld | return number < 10; | `<` becomes `<=`'
    says 'stale, there is no such mutant: limits.cpp | IsHeld | return number < 10; | `<` becomes `==`'
}

# A test that sees more, and nothing is left.
sed -i 's/IsHeldInPart(0) \&\& !IsHeldInPart(100)/IsHeldInPart(19) \&\& !IsHeldInPart(20)/' project/limits_test.cpp
refuses 'no test reaches it' mutate
says_nothing_of 'limits.cpp:9:'
