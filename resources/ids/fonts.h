#pragma once

#define IDD_FONTS 207
