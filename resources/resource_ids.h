#pragma once

// The DLL's resources that no dialog uses. Plain macros: the resource compiler reads this file as well.
#define IDR_TYPE_LIBRARY 1
#define IDR_REGISTRY_MODULE 101
#define IDR_REGISTRY_PREFERENCES 102
