// What the Fonts page works out from the enumerated faces and the stored lists, for 2,500 and for 5,000 faces
// of made-up names.

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "bench/figures.h"
#include "pages/fonts/font_list.h"

namespace vmk {
namespace {

constexpr std::size_t kFaces = 2500;
constexpr int kRounds = 51;
constexpr int kCharacterSets = 6;  // the system reports a face as often

std::vector<std::wstring> MakeNames(std::size_t count) {
    std::vector<std::wstring> names;
    for (std::size_t i = 0; i < count; ++i) {
        // In no order, and with the long common beginnings of real families.
        const std::size_t shuffled = i * 7919 % count;
        names.push_back((i % 10 == 0 ? L"@Family of fonts " : L"Family of fonts ") +
                        std::to_wstring(shuffled));
    }
    return names;
}

std::wstring EveryOther(const std::vector<std::wstring>& names) {
    std::vector<std::wstring> chosen;
    for (std::size_t i = 0; i < names.size(); i += 2) chosen.push_back(names[i]);
    return JoinFontList(chosen);
}

std::string Key(const std::wstring& name) {
    return {name.begin(), name.end()};
}

std::size_t Work(const std::vector<std::wstring>& names, const std::wstring& list) {
    FontFaces faces;
    for (const std::wstring& name : names) {
        for (int set = 0; set < kCharacterSets; ++set)
            faces.Add({.name = name, .type = FaceReport::kTrueTypeType}, [] { return std::optional(2U); });
    }
    FontOffer offer(faces, Key);
    return offer.Take(list).size() + offer.Take(list).size() + offer.Rest().size();
}

double Milliseconds(const std::vector<std::wstring>& names, const std::wstring& list) {
    const auto start = std::chrono::steady_clock::now();
    // Both lists find every name once more, and half of the names remain.
    const bool right = Work(names, list) == 3 * (names.size() / 2);
    const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - start;
    if (!right) std::fputs("wrong result\n", stderr);
    return took.count();
}

int Run() {
    const std::vector<std::wstring> few = MakeNames(kFaces);
    const std::vector<std::wstring> many = MakeNames(2 * kFaces);
    const std::wstring shortList = EveryOther(few);
    const std::wstring longList = EveryOther(many);
    std::vector<double> fewTimes;
    std::vector<double> manyTimes;
    // In turn, so that whatever else the machine does meets both.
    for (int round = 0; round < kRounds; ++round) {
        fewTimes.push_back(Milliseconds(few, shortList));
        manyTimes.push_back(Milliseconds(many, longList));
    }
    std::printf("the Fonts page's lists: %zu faces %.1f ms, %zu faces %.1f ms\n", few.size(),
                Median(fewTimes), many.size(), Median(manyTimes));
    PrintRow("the Fonts page's lists: of 5,000 faces to those of 2,500", RatioOf(manyTimes, fewTimes),
             AtMost(2.1));
    return 0;
}

}  // namespace
}  // namespace vmk

int main() {
    return vmk::Run();
}
