#include "resources/ids/fonts.h"

#include <utility>
#include <vector>

#include "controls/checkbox.h"
#include "framework/image_list.h"
#include "pages/fonts/font_list.h"
#include "pages/fonts/font_list_view.h"
#include "pages/fonts/installed_fonts.h"
#include "pages/page.h"
#include "pages/pages.h"

namespace vmk {
namespace {

constexpr UINT kLists[] = {IDC_FONTS_AVAILABLE, IDC_FONTS_ALWAYS, IDC_FONTS_NEVER};

struct MoveButton {
    UINT button;
    UINT source;
    UINT target;
};

constexpr MoveButton kMoveButtons[] = {
    {IDC_FONTS_ADD_ALWAYS, IDC_FONTS_AVAILABLE, IDC_FONTS_ALWAYS},
    {IDC_FONTS_ADD_NEVER, IDC_FONTS_AVAILABLE, IDC_FONTS_NEVER},
    {IDC_FONTS_REMOVE_ALWAYS, IDC_FONTS_ALWAYS, IDC_FONTS_AVAILABLE},
    {IDC_FONTS_REMOVE_NEVER, IDC_FONTS_NEVER, IDC_FONTS_AVAILABLE},
};

class CDlgFonts final : public PageFrom<IDD_FONTS> {
    void LoadPage() override;
    void StorePage() override;
    bool OnCommand(Command command) override;

    FontListView List(UINT id) const { return FontListView(Item(id)); }
    void ShowFonts(const PrinterSettings& shown);
    void MoveSelected(UINT source, UINT target);
    void ShowDefaults();

    UniqueImageList m_icons;
    FontFaces m_faces;
    CMyCheckbox m_all;
    CMyCheckbox m_protected;
    CMyCheckbox m_useAlways;
    CMyCheckbox m_useNever;
};

void CDlgFonts::LoadPage() {
    m_icons = LoadIconStrip(IDB_FONT_ICONS);

    auto& embed = settings->Fonts.Embedd;
    m_all.Bind(*this, IDC_FONTS_EMBED_ALL, embed.All);
    m_protected.Bind(*this, IDC_FONTS_EMBED_PROTECTED, embed.Protected);
    m_useAlways.Bind(*this, IDC_FONTS_USE_ALWAYS, embed.Use_Always);
    m_useNever.Bind(*this, IDC_FONTS_USE_NEVER, embed.Use_Never);
    for (const UINT id : kLists) List(id).Prepare(m_icons.get());
    ShowFonts(*settings);
}

// The stored lists take their names out of the offer before anything is on screen, so that no list control
// has to be searched. What is on screen goes when the new lists are there: names must not get lost.
void CDlgFonts::ShowFonts(const PrinterSettings& shown) {
    m_faces = EnumerateInstalledFaces();
    FontOffer offer(m_faces, ListSearchKey);
    std::vector<FontFace> always = offer.Take(shown.Fonts.Embedd.Always);
    std::vector<FontFace> never = offer.Take(shown.Fonts.Embedd.Never);
    std::vector<FontFace> available = offer.Rest();
    for (const UINT id : kLists) List(id).Clear();
    List(IDC_FONTS_ALWAYS).Insert(std::move(always));
    List(IDC_FONTS_NEVER).Insert(std::move(never));
    List(IDC_FONTS_AVAILABLE).Insert(std::move(available));
}

void CDlgFonts::StorePage() {
    StoreValues();
    settings->Fonts.Embedd.Always = JoinFontList(List(IDC_FONTS_ALWAYS).Names());
    settings->Fonts.Embedd.Never = JoinFontList(List(IDC_FONTS_NEVER).Names());
}

bool CDlgFonts::OnCommand(Command command) {
    if (command.code != BN_CLICKED) return false;
    if (command.id == IDC_FONTS_DEFAULT) {
        ShowDefaults();
        return true;
    }
    for (const MoveButton& move : kMoveButtons) {
        if (move.button != command.id) continue;
        MoveSelected(move.source, move.target);
        return true;
    }
    return false;
}

void CDlgFonts::MoveSelected(UINT source, UINT target) {
    std::vector<FontFace> moved = List(source).Selected();
    if (moved.empty()) return;
    List(target).Insert(std::move(moved));
    List(source).DeleteSelected();
    EnableApply();
}

void CDlgFonts::ShowDefaults() {
    const PrinterSettings defaults;
    ShowFonts(defaults);

    const auto& embed = defaults.Fonts.Embedd;
    m_all.SetCheck(embed.All != 0);
    m_protected.SetCheck(embed.Protected != 0);
    m_useAlways.SetCheck(embed.Use_Always != 0);
    m_useNever.SetCheck(embed.Use_Never != 0);
    EnableApply();
}

}  // namespace

std::unique_ptr<PageWindow> MakeFontsPage() {
    return std::make_unique<CDlgFonts>();
}

}  // namespace vmk
