#include "pages/fonts/installed_fonts.h"

#include <windows.h>

#include <cstddef>
#include <exception>
#include <new>
#include <optional>
#include <utility>
#include <vector>

#include "base/gdi.h"

namespace vmk {
namespace {

static_assert(FaceReport::kDeviceType == DEVICE_FONTTYPE);
static_assert(FaceReport::kTrueTypeType == TRUETYPE_FONTTYPE);
static_assert(FaceReport::kTrueTypePitch == TMPF_TRUETYPE);

struct ScreenContextTraits {
    using Value = HDC;
    static constexpr Value None() noexcept { return nullptr; }
    static void Close(Value value) noexcept { ReleaseDC(nullptr, value); }
};
using UniqueScreenContext = UniqueHandle<ScreenContextTraits>;

// A font in a device context, until the former one comes back.
class SelectedFont {
  public:
    SelectedFont(HDC context, HFONT font) noexcept
        : m_context(context), m_former(font ? SelectObject(context, font) : nullptr) {}
    ~SelectedFont() {
        if (m_former) SelectObject(m_context, m_former);
    }
    SelectedFont(const SelectedFont&) = delete;
    SelectedFont& operator=(const SelectedFont&) = delete;
    explicit operator bool() const noexcept { return m_former != nullptr; }

  private:
    HDC m_context;
    HGDIOBJ m_former;
};

std::optional<std::uint32_t> EmbeddingLicence(HDC context, const LOGFONTW& description) {
    const UniqueFont font(CreateFontIndirectW(&description));
    const SelectedFont selected(context, font.get());
    if (!selected) return {};
    const UINT size = GetOutlineTextMetricsW(context, 0, nullptr);
    if (size < sizeof(OUTLINETEXTMETRICW)) return {};
    std::vector<std::byte> data(size);
    auto* const metrics = reinterpret_cast<OUTLINETEXTMETRICW*>(data.data());
    if (GetOutlineTextMetricsW(context, size, metrics) == 0) return {};
    return metrics->otmfsType;
}

struct Enumeration {
    HDC context;
    FontFaces faces;
    std::exception_ptr failure;
};

int CALLBACK AddFace(const LOGFONTW* font, const TEXTMETRICW* metrics, DWORD type,
                     LPARAM parameter) noexcept {
    auto& enumeration = *reinterpret_cast<Enumeration*>(parameter);
    try {
        const FaceReport report = {
            .name = font->lfFaceName, .type = type, .pitchAndFamily = metrics->tmPitchAndFamily};
        enumeration.faces.Add(report, [&] { return EmbeddingLicence(enumeration.context, *font); });
        return 1;
    } catch (...) {
        enumeration.failure = std::current_exception();
        return 0;
    }
}

}  // namespace

FontFaces EnumerateInstalledFaces() {
    const UniqueScreenContext screen(GetDC(nullptr));
    if (!screen) throw std::bad_alloc();
    Enumeration enumeration = {.context = screen.get(), .faces = {}, .failure = {}};
    LOGFONTW every{};
    every.lfCharSet = DEFAULT_CHARSET;
    const int goesOn =
        EnumFontFamiliesExW(screen.get(), &every, AddFace, reinterpret_cast<LPARAM>(&enumeration), 0);
    if (enumeration.failure) std::rethrow_exception(enumeration.failure);
    // No system is without any font.
    if (!goesOn) throw std::bad_alloc();
    return std::move(enumeration.faces);
}

std::string ListSearchKey(const std::wstring& name) {
    if (name.empty()) return {};
    constexpr DWORD kKind = LCMAP_SORTKEY | NORM_IGNORECASE;
    const int length = static_cast<int>(name.size());
    const int size = LCMapStringW(LOCALE_USER_DEFAULT, kKind, name.c_str(), length, nullptr, 0);
    std::string key(static_cast<std::size_t>(size), '\0');
    // The system writes bytes here, though the parameter is declared as text.
    LCMapStringW(LOCALE_USER_DEFAULT, kKind, name.c_str(), length, reinterpret_cast<wchar_t*>(key.data()),
                 size);
    return key;
}

}  // namespace vmk
