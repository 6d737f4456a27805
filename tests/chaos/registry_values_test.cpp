#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <map>
#include <numeric>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "resources/ids/compression.h"
#include "tests/chaos/damaged_registry.h"
#include "tests/chaos/seed.h"
#include "tests/settings/expected_settings.h"
#include "tests/support/effort.h"
#include "tests/support/loaded_module.h"

namespace vmk::test {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

using Damages = std::map<std::string, Damage>;

class DamagedValues : public testing::Test {
  protected:
    const ComApartment m_apartment;
    const LoadedModule m_module;
    const ComPointer<IPdfPrinterPreferences> m_object = m_module.CreatePreferences();
};

constexpr std::size_t kSettings = std::size(kExpectedSettings);

// Where a box wraps its lines, some versions of the system take time for a text that grows with the square of
// its length: seven seconds for 32,768 characters. Such a text is loaded and stored only.
bool CanBeShown(std::string_view setting, const Damage& damage) {
    constexpr std::size_t kMostWrapped = 5000;
    return setting != "Email.Content" || !damage.value || damage.value->bytes.size() < kMostWrapped;
}

TEST_F(DamagedValues, AreFoundAmongOnesThatAreNoDefaults) {
    const RawValues values = Stored(UndamagedSettings());
    const RawValues defaults = Stored(PrinterSettings());
    ASSERT_EQ(values.size(), kSettings);
    for (const auto& [name, value] : values) EXPECT_NE(value, defaults.at(name)) << name;
}

TEST_F(DamagedValues, ThatAreNoneAreShownAndStoredAsTheyAre) {
    EXPECT_THAT(DamagedRegistry(*m_object).Try({}, page_bit::kAllPages), IsEmpty());
}

TEST_F(DamagedValues, OneByOneHarmNothingElse) {
    const DamagedRegistry registry(*m_object);
    const std::vector<Damage>& damages = AllDamages();
    const std::size_t all = kSettings * damages.size();
    const auto tries = static_cast<std::size_t>(
        Effort(static_cast<long>(std::max(kSettings, damages.size())), static_cast<long>(all)));
    // How many of them are also opened: every one in a long run.
    const std::size_t opened = tries == all ? 1 : 7;
    std::mt19937 random(Seed());
    const std::size_t shift = random();
    long shown = 0;
    long wrong = 0;
    for (std::size_t time = 0; time < tries; ++time) {
        // Each setting and each kind of damage comes once before any comes twice.
        const std::size_t round = time / std::lcm(kSettings, damages.size());
        const ExpectedSetting& setting = kExpectedSettings[time % kSettings];
        const Damage& damage = damages[(time + round + shift) % damages.size()];
        const Damages damaged{{setting.name, damage}};
        const bool isShown = time % opened == 0 && CanBeShown(setting.name, damage);
        const Findings findings =
            isShown ? registry.Try(damaged, setting.group) : registry.TryLoading(damaged);
        shown += isShown ? 1 : 0;
        EXPECT_THAT(findings, IsEmpty()) << setting.name << ": " << damage.kind;
        if (!findings.empty()) ++wrong;
    }
    PrintFigures("damaged values one by one", {{"values", kSettings},
                                               {"kinds of damage", damages.size()},
                                               {"loaded and stored", tries},
                                               {"shown as well", shown},
                                               {"wrong", wrong}});
}

// From a few of the values to every one of them.
Damages RandomDamages(std::mt19937& random) {
    constexpr unsigned kOneIn[] = {20, 8, 2, 1};
    const unsigned oneIn = kOneIn[random() % std::size(kOneIn)];
    Damages damages;
    for (const ExpectedSetting& setting : kExpectedSettings) {
        const Damage& damage = AllDamages()[random() % AllDamages().size()];
        if (random() % oneIn == 0 && CanBeShown(setting.name, damage)) damages.emplace(setting.name, damage);
    }
    return damages;
}

TEST_F(DamagedValues, TogetherAreShownOnAllPagesAtOnce) {
    const DamagedRegistry registry(*m_object);
    std::mt19937 random(Seed());
    const long tries = Effort(10, 2000);
    long damaged = 0;
    long wrong = 0;
    for (long time = 0; time < tries; ++time) {
        const Damages damages = RandomDamages(random);
        const Findings findings = registry.Try(damages, page_bit::kAllPages);
        EXPECT_THAT(findings, IsEmpty()) << "combination " << time;
        damaged += static_cast<long>(damages.size());
        if (!findings.empty()) ++wrong;
    }
    PrintFigures("damaged values in combinations",
                 {{"combinations", tries}, {"values damaged in them", damaged}, {"wrong", wrong}});
}

// What the tests above would find.

using SabotagedValues = DamagedValues;

const Damage& DamageCalled(const std::string& kind) {
    return *std::ranges::find(AllDamages(), kind, &Damage::kind);
}

TEST_F(SabotagedValues, NeighbourBrokenWhileLoadingIsFound) {
    const auto breakNeighbour = [this](const RawKey& loaded) {
        const RawValue quality = loaded.Values().at("Compression.Color.JPEGQuality");
        loaded.Remove("Compression.Color.JPEGQuality");
        m_object->InitFromRegistry(Compression, AutomationString(loaded.SubKey()).get());
        loaded.Set("Compression.Color.JPEGQuality", quality);
    };
    const DamagedRegistry registry(*m_object, {.afterLoading = breakNeighbour});
    EXPECT_THAT(registry.TryLoading({{"Compression.Color.Method", DamageCalled("type 3, five bytes")}}),
                Contains(StartsWith("Compression.Color.JPEGQuality after loading")));
}

TEST_F(SabotagedValues, ControlThatShowsSomethingElseIsFound) {
    const DamagedRegistry registry(*m_object, {.onScreen = [](HWND page) {
        SetDlgItemInt(page, IDC_COMPRESSION_QUALITY, 32, TRUE);
        CheckDlgButton(page, IDC_COMPRESSION_ASCII, BST_UNCHECKED);
    }});
    const Findings findings = registry.Try({}, page_bit::kCompression);
    EXPECT_THAT(findings,
                Contains(AllOf(StartsWith("Compression.Color.JPEGQuality: "), HasSubstr("\"32\""))));
    EXPECT_THAT(findings, Contains(StartsWith("Compression.ASCII: ")));
    EXPECT_THAT(findings, Contains(StartsWith("Compression.ASCII after OK")));
}

TEST_F(SabotagedValues, ValueOfAnotherTypeOrTooManyIsFound) {
    const DamagedRegistry registry(*m_object, {.afterStoring = [](const RawKey& stored) {
        stored.Set("Paper.Nup", {.type = REG_BINARY, .bytes = stored.Values().at("Paper.Nup").bytes});
        stored.Set("Paper.More", RawNumber(1));
    }});
    const Findings findings = registry.TryLoading({});
    EXPECT_THAT(findings, Contains(StartsWith("Paper.Nup after loading: type 3, 4 bytes")));
    EXPECT_THAT(findings, Contains(StartsWith("Paper.More after loading")));
}

TEST_F(SabotagedValues, PageThatDoesNotOpenIsFound) {
    const DamagedRegistry registry(*m_object,
                                   {.afterLoading = [](const RawKey&) {}, .onScreen = DestroyWindow});
    EXPECT_THAT(registry.Try({}, page_bit::kWatermarks), Contains(StartsWith("Watermarks.Print")));
}

}  // namespace
}  // namespace vmk::test
