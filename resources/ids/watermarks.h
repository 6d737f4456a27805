#pragma once

#define IDD_WATERMARKS 208
#define IDC_WATERMARKS_PRINT 309
