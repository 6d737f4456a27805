#ifndef VMK_HOST_RESOURCE_IDS_H
#define VMK_HOST_RESOURCE_IDS_H

/* Files within vmkprefs.exe. The resource compiler reads this, too. */

#define IDR_CATALOGUE 101
#define IDR_REPORT_STYLE 102
#define IDR_REPORT_SCRIPT 103

#endif
