#pragma once

// The main dialog of each test: what stands before the page, the page itself and Apply.
#define IDD_TEST_MAIN 100
#define IDC_TEST_BEFORE 5
#define IDC_TEST_APPLY 201

// One page for each kind of control. The control under test is IDC_TEST_SUBJECT everywhere.
#define IDD_TEST_CHECKBOX 101
#define IDD_TEST_EDIT_INT 102
#define IDD_TEST_EDIT_DOUBLE 103
#define IDD_TEST_EDIT_TEXT 104
#define IDD_TEST_COMBOBOX 105
#define IDD_TEST_RADIO_BUTTON 106
#define IDD_TEST_FOCUS 107
#define IDD_TEST_DEPENDENTS 108

#define IDC_TEST_SUBJECT 10
#define IDC_TEST_SPIN 11
#define IDC_TEST_SORTED 12
#define IDC_TEST_OTHER_RADIO 13
#define IDC_TEST_THIRD_RADIO 14
#define IDC_TEST_INNER 15
#define IDC_TEST_LIST 16
#define IDC_TEST_DEPENDENT_EDIT 20
#define IDC_TEST_DEPENDENT_BUTTON 21
#define IDC_TEST_DEPENDENT_LABEL 22
#define IDC_TEST_FIRST_STOP 30
#define IDC_TEST_LAST_STOP 31
