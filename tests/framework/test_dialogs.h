#pragma once

#define IDD_TEST_DIALOG 100
#define IDD_TEST_CHILD 101
#define IDC_TEST_FIRST 10
#define IDC_TEST_SECOND 11
