#pragma once

#define IDD_SAVE 213
