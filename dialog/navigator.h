#pragma once

#include <windows.h>

#include <memory>
#include <vector>

#include "controls/dialog_env.h"
#include "dialog/page_table.h"
#include "framework/dialog.h"
#include "framework/image_list.h"

namespace vmk {

// The list of page names on the left and the frame with the current page on the right. Creates every enabled
// page at once and shows the selected one. Owned by the main dialog.
class CDlgSettings final : public Dialog, public CDialogEnv {
  public:
    bool CreateNavigator(const CDialogEnv& env, PageSet pages, HWND parent);

    // Lets every page store its controls, in the order of the list. False when one of them could not.
    bool ApplyPages();

  private:
    struct PageEntry {
        std::unique_ptr<PageWindow> page;
        HWND window;  // null when the page could not be created
        int item;     // index in the list
    };

    std::optional<LRESULT> ProcessWindowMessage(HWND hwnd, UINT msg, WPARAM wParam, LPARAM lParam) override;

    void OnInitDialog();
    void PrepareList();
    void AddPages();
    void AddPage(const PageRow& row);
    int InsertName(const PageRow& row) const;
    void SelectFirstPage() const;
    void ShowPage(int item) const;
    void TakeFocusFromPages() const;
    void DestroyPages();

    HWND List() const;

    std::vector<PageEntry> m_pages;
    UniqueImageList m_icons;
};

}  // namespace vmk
