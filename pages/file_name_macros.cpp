#include "pages/file_name_macros.h"

#include <algorithm>
#include <iterator>

#include "resources/ids/save.h"

namespace vmk {
namespace {

struct Macro {
    UINT command;
    const wchar_t* text;
};
constexpr Macro kMacros[] = {
    {IDM_SAVE_DOCUMENT_NAME, L"%[DocName]"},
    {IDM_SAVE_COMPUTER_NAME, L"%[Computer]"},
    {IDM_SAVE_USER_NAME, L"%[User]"},
    {IDM_SAVE_DATE, L"%[Date]"},
    {IDM_SAVE_YEAR, L"%[Year]"},
    {IDM_SAVE_MONTH, L"%[Month]"},
    {IDM_SAVE_DAY, L"%[Day]"},
    {IDM_SAVE_TIME, L"%[Time]"},
    {IDM_SAVE_HOUR, L"%[Hour]"},
    {IDM_SAVE_MINUTE, L"%[Minute]"},
    {IDM_SAVE_SECOND, L"%[Second]"},
};

}  // namespace

FileNameMacros::FileNameMacros() : m_menu(LoadMenuResource(IDR_SAVE_MACROS)) {}

std::wstring_view FileNameMacros::Ask(const CDialogEnv& env, HWND button) const {
    HMENU popup = GetSubMenu(m_menu.get(), 0);
    env.TranslateMenuTexts(popup);
    RECT place{};
    GetWindowRect(button, &place);
    const auto command =
        static_cast<UINT>(TrackPopupMenu(popup, TPM_LEFTALIGN | TPM_TOPALIGN | TPM_RETURNCMD, place.left,
                                         place.bottom, 0, GetParent(button), nullptr));
    const auto* const macro = std::ranges::find(kMacros, command, &Macro::command);
    return macro == std::end(kMacros) ? std::wstring_view() : macro->text;
}

}  // namespace vmk
