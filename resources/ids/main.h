#pragma once

// The dialog's frame: main dialog, navigator, shared pictures and the pages without content. The numbers are part of
// the contract with hosts that drive the dialog.

#define IDD_MAIN 201
#define IDC_MAIN_APPLY 201

#define IDD_NAVIGATOR 202
#define IDC_NAVIGATOR_FRAME 204
#define IDC_NAVIGATOR_LIST 205

#define IDD_PROFILES 215
#define IDD_CUSTOM_FORMS 216

#define IDB_PAGE_ICONS 202
